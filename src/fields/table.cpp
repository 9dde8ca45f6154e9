#include "fields/table.h"

#include "text/text_rules.h"

namespace trunvex {

std::optional<Table::Cell> Table::find(const std::string& part, Cell from, bool forward) const {
    const auto sought = folded(part);
    const auto columns = columnCount();
    const auto cells = rowCount() * columns;
    if (sought.empty() || cells == 0) return {};
    auto at = (from.row * columns + from.column) % cells;
    for (std::size_t looked = 0; looked < cells; ++looked) {
        at = (at + (forward ? 1 : cells - 1)) % cells;
        const Cell cell{at / columns, at % columns};
        if (containsFolded(text(cell.row, cell.column), sought)) return cell;
    }
    return {};
}

}  // namespace trunvex
