#pragma once

#include <QAbstractTableModel>

namespace trunvex {

class CallList;

// The call list as a table: nothing is copied, a cell is asked for when it is painted.
class CallListModel : public QAbstractTableModel {
    Q_OBJECT

public:
    explicit CallListModel(CallList& list, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    void sort(int column, Qt::SortOrder order) override;

private:
    CallList& list_;
    int rows_ = 0;
};

}  // namespace trunvex
