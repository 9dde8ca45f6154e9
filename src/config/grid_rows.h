#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "config/page_tools.h"
#include "fields/grid_field.h"
#include "model/block_table.h"

namespace trunvex {

// All rows of a grid, and those that are not empty, counted from 0.
std::vector<TextRow> rowsOf(const GridField& grid);
std::vector<std::size_t> filledRows(const GridField& grid);
bool isBlank(const TextRow& row);

// What the gateway holds, as the value of the grid that shows it.
std::string heldRows(const BlockTable& table);

// Why a table can't be written: a cell of it is wrong, or it was not read whole. Its word is empty when nothing is.
BuiltLine gridFault(GridField& grid, const BlockTable& table);
// "Block 4 did not come", and what to do; empty for a table that is there.
std::string incompleteText(const BlockTable& table);

// After a write: what the gateway goes on to hold where it should hold nothing or something else, for an empty field
// leaves the old value there. It is read once more then, and the rows that still stand are named.
class ReadBack {
public:
    ReadBack(const PageTools& tools, BlockTable& table, QueueItem read, std::function<void(const std::string&)> tell);
    ReadBack(const ReadBack&) = delete;
    ReadBack& operator=(const ReadBack&) = delete;

    // These rows were written, from the first on.
    void begin(std::vector<TextRow> written);

private:
    std::vector<std::size_t> standing() const;
    void compare();

    const PageTools& tools_;
    BlockTable& table_;
    QueueItem read_;
    std::function<void(const std::string&)> tell_;
    std::optional<std::vector<TextRow>> written_;
    unsigned reads_ = 0;  // of the table, before it is read back
};

}  // namespace trunvex
