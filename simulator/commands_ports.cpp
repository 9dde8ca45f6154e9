#include "simulator/command_table.h"
#include "simulator/fields.h"

#include <vector>

namespace simulator {

namespace {

constexpr int callSetUp = 4;
constexpr int callConnected = 8;

std::string digit(bool flag) { return flag ? "1" : "0"; }

}  // namespace

// R_MON: A_MON and 62 digits, the enable flags of the 32 ports in slot order and of the 30 B-channels
void readMonitor(Request& request) {
    if (!request.body.empty()) return request.malformed();
    std::string line = "A_MON";
    for (const Port& port : request.state.ports) line += digit(port.fitted() && port.enabled);
    for (const bool enabled : request.state.channels) line += digit(enabled);
    request.answer(line);
}

// R_STS<XY>: A_STS with 15 fields: port, state, state and talk counter of SIM 1 to 4, BCCH mode, signal,
// network, call flags, BCCH. A slot without a module is answered with ERROR.
void readPortStatus(Request& request) {
    const Port* port = request.state.fittedPort(request.body);
    if (!port) return request.malformed();
    std::vector<std::string> fields{std::string(request.body), std::to_string(port->state)};
    for (const Sim& sim : port->sims) {
        fields.push_back(std::to_string(sim.state));
        fields.push_back(talkCounter(sim.talkedSeconds));
    }
    const int calls = (port->dialling ? callSetUp : 0) | (port->connected ? callConnected : 0);
    fields.push_back(port->fixedBcch ? "0" : "1");
    fields.push_back(std::to_string(port->signal));
    fields.push_back(port->network);
    fields.push_back(std::to_string(calls));
    fields.push_back(std::to_string(port->bcch));
    request.answer("A_STS" + joinFields(fields));
}

// R_SID<XY>: A_SID<XY>,<version of the slave program>
void readSlaveVersion(Request& request) {
    const Port* port = request.state.fittedPort(request.body);
    if (!port) return request.malformed();
    request.answer("A_SID" + std::string(request.body) + "," + port->slaveVersion);
}

// C_STP<XY>,<1 or 0>: acknowledged, then the report 136 <XY>,<flag>,OK by which every board sees the change
void enablePort(Request& request) {
    const auto fields = splitFields(request.body);
    const auto flag = fields.size() == 2 ? number(fields[1], 0, 1) : std::nullopt;
    if (!flag || !PortAddress::parse(fields[0])) return request.malformed();
    Port* port = request.state.fittedPort(fields[0]);
    if (!port) return request.refused(fields[0] + "0");
    port->enabled = *flag == 1;
    port->inMaintenance = false;  // the operator's word is the last
    request.accepted(fields[0] + "0");
    request.answer("I_ALR000,136," + fields[0] + "," + fields[1] + ",OK");
}

// C_RST<XY>: acknowledged, then the port ends its call and comes back as it does after it was switched on
void resetPort(Request& request) {
    const auto address = PortAddress::parse(request.body);
    if (!address) return request.malformed();
    if (!request.state.port(*address).fitted()) return request.refused(address->text() + "0");
    request.accepted(address->text() + "0");
    request.portToReset = address;
}

// C_STB<channel>,<1 or 0>: acknowledged, then the report 116 <channel>,<flag>,OK
void enableChannel(Request& request) {
    const auto fields = splitFields(request.body);
    const auto channel = number(fields[0], 1, channelCount);
    const auto flag = fields.size() == 2 ? number(fields[1], 0, 1) : std::nullopt;
    if (!channel || !flag) return request.malformed();
    const auto row = static_cast<std::size_t>(*channel - 1);
    request.state.channels[row] = *flag == 1;
    request.state.bearers[row].inMaintenance = false;
    request.accepted();
    request.answer("I_ALR000,116," + std::to_string(*channel) + "," + fields[1] + ",OK");
}

}  // namespace simulator
