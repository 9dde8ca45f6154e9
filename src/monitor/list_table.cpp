#include "monitor/list_table.h"

#include <algorithm>
#include <numeric>

#include "text/text_rules.h"

namespace trunvex {

void ListTable::clear() { setRows({}); }

void ListTable::setRows(std::vector<Row> rows) {
    rows_ = std::move(rows);
    arrange();
}

// A row that keeps its place is changed in place, so that the operator's selection stays.
void ListTable::put(Row row) {
    const auto old = std::ranges::find(rows_, row.key, &Row::key);
    if (old == rows_.end()) {
        rows_.push_back(std::move(row));
        arrange();
        return;
    }
    const auto index = static_cast<std::size_t>(old - rows_.begin());
    const auto place = std::ranges::find(shown_, index);
    const bool stays = !sortColumn_ && place != shown_.end() && matches(row);
    if (!stays) {
        *old = std::move(row);
        arrange();
        return;
    }
    const Splice splice{static_cast<std::size_t>(place - shown_.begin()), 1, 1};
    splicing().emit(splice);
    *old = std::move(row);
    spliced().emit(splice);
}

void ListTable::setFilter(const std::string& text) {
    filter_ = folded(text);
    arrange();
}

std::string ListTable::text(std::size_t shownRow, std::size_t column) const {
    const auto& cells = row(shownRow).cells;
    return column < cells.size() ? cells[column] : std::string();
}

void ListTable::sort(std::size_t column, bool ascending) {
    sortColumn_ = column;
    ascending_ = ascending;
    arrange();
}

bool ListTable::matches(const Row& row) const {
    return std::ranges::any_of(row.cells, [this](const auto& cell) { return containsFolded(cell, filter_); });
}

bool ListTable::before(const Row& one, const Row& other) const {
    const auto column = *sortColumn_;
    const auto cell = [column](const Row& row) {
        return column < row.cells.size() ? std::string_view(row.cells[column]) : std::string_view();
    };
    const auto weight = [&](const Row& row) {
        return column < row.weights.size() ? row.weights[column] : static_cast<double>(val(cell(row)));
    };
    if (weight(one) != weight(other)) return weight(one) < weight(other);
    return cell(one) < cell(other);
}

void ListTable::arrange() {
    shown_.clear();
    for (std::size_t i = 0; i < rows_.size(); ++i)
        if (filter_.empty() || matches(rows_[i])) shown_.push_back(i);
    if (sortColumn_ && *sortColumn_ < columns_.size())
        std::ranges::stable_sort(shown_, [this](std::size_t one, std::size_t other) {
            return ascending_ ? before(rows_[one], rows_[other]) : before(rows_[other], rows_[one]);
        });
    replaced().emit();
}

}  // namespace trunvex
