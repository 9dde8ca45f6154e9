#pragma once

#include "cdr/call_list.h"
#include "fields/table.h"

namespace trunvex {

// The call list as a table: nothing is copied, a cell is asked for when it is looked at. It lives as
// long as the list.
class CallTable final : public Table {
public:
    explicit CallTable(CallList& list);

    std::size_t rowCount() const override { return rows_; }
    std::size_t columnCount() const override { return callColumnCount; }
    std::string heading(std::size_t column) const override { return callColumns[column].heading; }
    bool hasFigures(std::size_t column) const override;
    std::string text(std::size_t row, std::size_t column) const override;
    void sort(std::size_t column, bool ascending) override { list_.sort({column, ascending}); }

private:
    CallList& list_;
    std::size_t rows_;
};

}  // namespace trunvex
