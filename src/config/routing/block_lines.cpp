#include "config/routing/block_lines.h"

#include <algorithm>

#include "config/grid_rows.h"
#include "model/routing_records.h"
#include "text/text_rules.h"

namespace trunvex {

std::vector<TextRow> rowsToWrite(const GridField& grid, std::initializer_list<std::size_t> numberColumns) {
    std::vector<TextRow> rows;
    for (const auto row : filledRows(grid)) {
        rows.push_back(grid.row(row));
        for (const auto column : numberColumns) rows.back()[column] = std::to_string(val(rows.back()[column]));
    }
    return rows;
}

void addBlocks(RoutingBatch& batch, const BlockLines& lines, const std::vector<TextRow>& rows) {
    for (std::size_t first = 0; first < rows.size(); first += RoutingRecords::rowsPerBlock) {
        const auto block = std::to_string(first / RoutingRecords::rowsPerBlock + 1);
        const auto last = std::min(first + RoutingRecords::rowsPerBlock, rows.size());
        auto line = lines.command + pad(block, lines.digits, '0', PadSide::Left);
        for (auto row = first; row < last; ++row)
            for (const auto& cell : rows[row]) line += "," + cell;
        batch.add(std::move(line), lines.caption + block);
        batch.names.back() += ", rows " + std::to_string(first + 1) + " to " + std::to_string(last);
    }
}

}  // namespace trunvex
