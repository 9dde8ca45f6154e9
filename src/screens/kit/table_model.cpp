#include "screens/kit/table_model.h"

#include "screens/kit/field_binding.h"

namespace trunvex {

TableModel::TableModel(Table& table, QObject* parent) : TableModel(table, nullptr, parent) {}

TableModel::TableModel(GridField& grid, QObject* parent) : TableModel(grid, &grid, parent) {}

TableModel::TableModel(Table& table, GridField* grid, QObject* parent)
    : QAbstractTableModel(parent), table_(table), grid_(grid) {
    listen(this, table.splicing(), [this](Table::Splice splice) { splicing(splice); });
    listen(this, table.spliced(), [this](Table::Splice splice) { spliced(splice); });
    listen(this, table.replaced(), [this] {
        beginResetModel();
        endResetModel();
    });
}

// The empty row at the end comes or goes with this change.
bool TableModel::fillsUp(Table::Splice splice) const {
    return grid_ && hasRoom() != (grid_->rowCount() - splice.removed + splice.inserted < grid_->mostRows());
}

void TableModel::splicing(Table::Splice splice) {
    const auto kept = static_cast<int>(std::min(splice.removed, splice.inserted));
    const auto first = static_cast<int>(splice.first) + kept;
    resetting_ = fillsUp(splice);
    if (resetting_)
        beginResetModel();
    else if (splice.removed > splice.inserted)
        beginRemoveRows({}, first, static_cast<int>(splice.first + splice.removed) - 1);
    else if (splice.inserted > splice.removed)
        beginInsertRows({}, first, static_cast<int>(splice.first + splice.inserted) - 1);
}

void TableModel::spliced(Table::Splice splice) {
    if (resetting_) {
        resetting_ = false;
        endResetModel();
        return;
    }
    if (splice.removed > splice.inserted) endRemoveRows();
    if (splice.inserted > splice.removed) endInsertRows();
    const auto kept = static_cast<int>(std::min(splice.removed, splice.inserted));
    const auto first = static_cast<int>(splice.first);
    if (kept > 0) Q_EMIT dataChanged(index(first, 0), index(first + kept - 1, columnCount() - 1));
}

int TableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(table_.rowCount()) + (hasRoom() ? 1 : 0);
}

int TableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(table_.columnCount());
}

QVariant TableModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const Table::Cell cell{static_cast<std::size_t>(index.row()), static_cast<std::size_t>(index.column())};
    if (role == Qt::TextAlignmentRole)
        return static_cast<int>((table_.hasFigures(cell.column) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    if (cell.row >= table_.rowCount()) return {};
    if (role == Qt::DisplayRole || role == Qt::EditRole) return shown(table_.text(cell.row, cell.column));
    if (grid_) {
        if (auto marked = mark(cell, role); marked.isValid()) return marked;
    }
    if (role == Qt::ToolTipRole) return plainTip(shown(table_.text(cell.row, cell.column)));
    return {};
}

QVariant TableModel::mark(Table::Cell cell, int role) const {
    switch (role) {
        case EditedRole:
            return grid_->edited(cell);
        case ProblemRole:
        case Qt::ToolTipRole:
        case Qt::AccessibleDescriptionRole: {
            const auto problem = shown(grid_->problemOf(cell));
            if (role == ProblemRole) return problem;
            if (!problem.isEmpty()) return role == Qt::ToolTipRole ? plainTip(problem) : problem;
            return role != Qt::ToolTipRole && grid_->edited(cell) ? tr("edited, not written") : QVariant();
        }
        default:
            return {};
    }
}

bool TableModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (!grid_ || role != Qt::EditRole || !index.isValid()) return false;
    grid_->setCell({static_cast<std::size_t>(index.row()), static_cast<std::size_t>(index.column())},
                   value.toString().toStdString());
    return true;
}

Qt::ItemFlags TableModel::flags(const QModelIndex& index) const {
    auto flags = QAbstractTableModel::flags(index);
    const bool open =
        index.isValid() && grid_ && grid_->enabled() && !grid_->column(static_cast<std::size_t>(index.column())).fixed;
    if (open) flags |= Qt::ItemIsEditable;
    return flags;
}

QVariant TableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Vertical) {
        if (role != Qt::DisplayRole) return {};
        return section < static_cast<int>(table_.rowCount()) ? QVariant(section + 1) : QVariant("*");
    }
    if (role == Qt::TextAlignmentRole) return static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter);
    return role == Qt::DisplayRole ? shown(table_.heading(static_cast<std::size_t>(section))) : QVariant();
}

void TableModel::sort(int column, Qt::SortOrder order) {
    if (column >= 0) table_.sort(static_cast<std::size_t>(column), order == Qt::AscendingOrder);
}

}  // namespace trunvex
