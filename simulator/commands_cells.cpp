#include "simulator/command_table.h"
#include "simulator/fields.h"
#include "simulator/radio_cells.h"

namespace simulator {

namespace {

constexpr int highestChannel = 1024;

void answerCells(Request& request, const std::string& mnemonic, std::vector<std::string> (*cells)(const Port&)) {
    const Port* port = request.state.fittedPort(request.body);
    if (!port) return request.malformed();
    std::vector<std::string> fields = cells(*port);
    fields.insert(fields.begin(), std::string(request.body));
    request.answer(mnemonic + joinFields(fields));
}

}  // namespace

// R_CLM<XY>: A_CLM<XY> and the six fields of the cell that the port is on
void readServingCell(Request& request) { answerCells(request, "A_CLM", servingCell); }

// R_CLN<XY>: A_CLN<XY> and six fields for each cell beside it
void readNeighbourCells(Request& request) { answerCells(request, "A_CLN", neighbourCells); }

// C_CLM<XY>,<BCCH>, or 0 to let the module choose: acknowledged, then the reports by which every board sees the change.
// It is the module that is told, not the SIM: the next time that it registers, the lock of its SIM counts.
void lockToCell(Request& request) {
    const auto fields = splitFields(request.body);
    const auto bcch = fields.size() == 2 ? number(fields[1], 0, highestChannel) : std::nullopt;
    if (!bcch || !PortAddress::parse(fields[0])) return request.malformed();
    Port* port = request.state.fittedPort(fields[0]);
    if (!port || !port->takesSims()) return request.refused(fields[0] + "0");
    port->fixedBcch = *bcch != 0;
    if (port->fixedBcch) moveToCell(*port, *bcch);
    request.accepted(fields[0] + "0");
    const std::string head = "I_ALR" + fields[0] + std::to_string(port->activeSim());
    request.answer(head + ",15," + std::to_string(port->bcch) + "," + (port->fixedBcch ? "0" : "1") + ",");
    request.answer(head + ",25," + std::to_string(port->signal) + ",,");
}

}  // namespace simulator
