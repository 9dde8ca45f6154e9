#pragma once

#include "screens/kit/table_delegate.h"

namespace trunvex {

class SimStatistics;

// Paints the cells of lstASR: a colour scale behind ASR and ACD, the last reads as a line, and the remark as a link.
class StatisticsDelegate : public TableDelegate {
    Q_OBJECT

public:
    StatisticsDelegate(const SimStatistics& statistics, QObject* parent);
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    // 0 is the worst, 1 the best; below 0 nothing can be said.
    double share(std::size_t row, int column) const;
    void paintTrend(QPainter* painter, const QRectF& box, std::size_t row, bool chosen) const;

    const SimStatistics& statistics_;
};

}  // namespace trunvex
