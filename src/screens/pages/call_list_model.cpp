#include "screens/pages/call_list_model.h"

#include "cdr/call_list.h"
#include "screens/kit/field_binding.h"
#include "text/text_rules.h"

namespace trunvex {

CallListModel::CallListModel(CallList& list, QObject* parent)
    : QAbstractTableModel(parent), list_(list), rows_(static_cast<int>(list.size())) {
    listen(this, list_.added(), [this](std::size_t count) {
        if (count == 0) return;
        beginInsertRows({}, rows_, rows_ + static_cast<int>(count) - 1);
        rows_ += static_cast<int>(count);
        endInsertRows();
    });
    listen(this, list_.changed(), [this] {
        beginResetModel();
        rows_ = static_cast<int>(list_.size());
        endResetModel();
    });
}

int CallListModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_; }

int CallListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(callColumnCount);
}

QVariant CallListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= static_cast<int>(list_.size())) return {};
    const auto column = static_cast<std::size_t>(index.column());
    if (role == Qt::TextAlignmentRole) {
        const auto kind = callColumns[column].sort;
        const bool figure = kind == SortKind::Number || kind == SortKind::Duration;
        return static_cast<int>((figure ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    }
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole) return {};
    const auto text = shown(escaped(list_.text(static_cast<std::size_t>(index.row()), column)));
    return role == Qt::ToolTipRole ? plainTip(text) : text;
}

QVariant CallListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role == Qt::TextAlignmentRole) return static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter);
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    return QString(callColumns[static_cast<std::size_t>(section)].heading);
}

void CallListModel::sort(int column, Qt::SortOrder order) {
    if (column >= 0) list_.sort({static_cast<std::size_t>(column), order == Qt::AscendingOrder});
}

}  // namespace trunvex
