#include "cdr/call_table.h"

#include "text/text_rules.h"

namespace trunvex {

CallTable::CallTable(CallList& list) : list_(list), rows_(list.size()) {
    list_.added().connect([this](std::size_t count) {
        if (count == 0) return;
        const Splice splice{rows_, 0, count};
        splicing().emit(splice);
        rows_ += count;
        spliced().emit(splice);
    });
    list_.changed().connect([this] {
        rows_ = list_.size();
        replaced().emit();
    });
}

bool CallTable::hasFigures(std::size_t column) const {
    const auto kind = callColumns[column].sort;
    return kind == SortKind::Number || kind == SortKind::Duration;
}

// A list that has become shorter than what was told of it is asked for no row that is gone.
std::string CallTable::text(std::size_t row, std::size_t column) const {
    return row < list_.size() ? escaped(list_.text(row, column)) : std::string();
}

}  // namespace trunvex
