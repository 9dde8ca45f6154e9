#include "simulator/radio_cells.h"

#include "simulator/fields.h"
#include "simulator/random.h"

#include <algorithm>

namespace simulator {

namespace {

constexpr int lastChannel = 124;

// A cell is the same one to every port of its network that hears it.
std::vector<std::string> cellFields(const Port& port, int bcch, int level) {
    const int area = 4600 + bcch / 40;
    const int cell = 10'000 + 37 * bcch;
    const int colour = 7 * bcch % 64;
    return {networkCode(port.network), std::to_string(area), std::to_string(cell),
            std::to_string(colour),    std::to_string(bcch), std::to_string(level)};
}

bool hears(const Port& port) { return port.takesSims() && port.bcch != 0 && port.state != moduleFault; }

}  // namespace

void furnishCells(Port& port, Random& random) {
    if (!port.fitted()) return;
    port.heardCells = {{port.bcch, port.signal}};
    const auto others = random.between(2, mostNeighbours);
    while (static_cast<std::int64_t>(port.heardCells.size()) <= others) {
        const int bcch = static_cast<int>(random.between(1, lastChannel));
        const bool known = std::any_of(port.heardCells.begin(), port.heardCells.end(),
                                       [bcch](const HeardCell& cell) { return cell.bcch == bcch; });
        const int weaker = static_cast<int>(random.between(1, 30));
        if (!known) port.heardCells.push_back({bcch, std::max(port.signal - weaker, 0)});
    }
}

std::vector<std::string> servingCell(const Port& port) {
    return hears(port) ? cellFields(port, port.bcch, port.signal) : std::vector<std::string>{};
}

std::vector<std::string> neighbourCells(const Port& port) {
    std::vector<std::string> fields;
    int rows = 0;
    for (const HeardCell& cell : port.heardCells) {
        if (!hears(port) || cell.bcch == port.bcch || rows == mostNeighbours) continue;
        const auto row = cellFields(port, cell.bcch, cell.level);
        fields.insert(fields.end(), row.begin(), row.end());
        ++rows;
    }
    return fields;
}

void moveToCell(Port& port, int bcch) {
    if (port.bcch == bcch) return;
    const auto heard = std::find_if(port.heardCells.begin(), port.heardCells.end(),
                                    [bcch](const HeardCell& cell) { return cell.bcch == bcch; });
    port.signal = heard == port.heardCells.end() ? levelNotKnown : heard->level;
    port.bcch = bcch;
}

}  // namespace simulator
