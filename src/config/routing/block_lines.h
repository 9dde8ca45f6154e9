#pragma once

#include "config/routing/routing_side.h"
#include "fields/grid_field.h"

namespace trunvex {

// How a table's rows go out: blocks of RoutingRecords::rowsPerBlock rows, the command and the block's number in front.
struct BlockLines {
    const char* command;  // "C_PRF"
    std::size_t digits;   // of the block's number
    const char* caption;  // "Prefixes block: "
};

// The rows as they are written: without the empty ones, and with the numbers of these columns as the gateway tells
// them: "007" is 7, and an empty cell 0.
std::vector<TextRow> rowsToWrite(const GridField& grid, std::initializer_list<std::size_t> numberColumns);

// Adds the commands that write the rows, numbered from block 1. An empty table adds none.
void addBlocks(RoutingBatch& batch, const BlockLines& lines, const std::vector<TextRow>& rows);

}  // namespace trunvex
