#pragma once

#include <QStyledItemDelegate>

namespace trunvex {

// Paints the cells of a TableModel: a bar at the left of what is edited and not written, a frame around what can't be
// written. Its editor takes the characters and the length that the cell may have.
class TableDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

}  // namespace trunvex
