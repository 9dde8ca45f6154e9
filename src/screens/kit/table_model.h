#pragma once

#include <QAbstractTableModel>

#include "fields/grid_field.h"

namespace trunvex {

// Any table as Qt's views want it. A table that can be edited has an empty row more at its end, while there is room for
// one: what is entered there becomes a row.
class TableModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Role { EditedRole = Qt::UserRole, ProblemRole };

    explicit TableModel(Table& table, QObject* parent = nullptr);
    explicit TableModel(GridField& grid, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    void sort(int column, Qt::SortOrder order) override;

    Table& table() const { return table_; }
    GridField* grid() const { return grid_; }

private:
    TableModel(Table& table, GridField* grid, QObject* parent);
    bool hasRoom() const { return grid_ && grid_->hasRoom(); }
    bool fillsUp(Table::Splice splice) const;
    void splicing(Table::Splice splice);
    void spliced(Table::Splice splice);
    QVariant mark(Table::Cell cell, int role) const;

    Table& table_;
    GridField* grid_;
    bool resetting_ = false;
};

}  // namespace trunvex
