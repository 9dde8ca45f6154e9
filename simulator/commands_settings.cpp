#include "simulator/command_table.h"
#include "simulator/fields.h"

#include <algorithm>
#include <span>
#include <utility>
#include <vector>

namespace simulator {

namespace {

constexpr std::size_t portFields = 15;  // behind the address, in A_MOD
constexpr std::size_t simFields = 20;
constexpr std::size_t firstPortValue = 4;

std::string kindField(ModuleKind kind) {
    switch (kind) {
        case ModuleKind::cdma:
            return "1";
        case ModuleKind::gsmSecondScale:
            return "2";
        case ModuleKind::gsm:
            break;
    }
    return "";
}

bool allEmpty(std::span<const std::string> fields) {
    return std::all_of(fields.begin(), fields.end(), [](const std::string& field) { return field.empty(); });
}

// A place that has nothing to set is answered with a record of empty fields. Unlike an ERROR it ends a read,
// so that a backup of all places there can be does not stop at each gap; a console takes a record that does not
// say its first value for one that it has not got; and written back it changes nothing.
std::string emptyRecord(const std::string& index, std::size_t fields) { return index + std::string(fields, ','); }

std::string simLine(const Port& port, const SimAddress& at) {
    if (!port.takesSims()) return "A_SIM" + emptyRecord(at.text(), simFields);
    constexpr const char* present = "1";
    return "A_SIM" + at.text() + "," + joinColumns(port.sim(at.sim).settings, simColumns()) + "," + present;
}

// The BCCH that the SIM in use is locked to is the one on which its port stays from now on.
void changeCell(Request& request, Port& port, const std::string& index) {
    const auto cell = [&port] { return std::pair(port.fixedBcch, port.bcch); };
    const auto before = cell();
    port.obeyCellLock();
    if (cell() == before) return;
    request.answer("I_ALR" + index + ",15," + std::to_string(port.bcch) + "," + (port.fixedBcch ? "0" : "1") + ",");
}

}  // namespace

// R_MOD<XY>: A_MOD<XY>,<kind>,<information>,<information> and the twelve values of C_MOD
void readPortSettings(Request& request) {
    const auto address = PortAddress::parse(request.body);
    if (!address) return request.malformed();
    const Port& port = request.state.port(*address);
    if (!port.fitted()) return request.answer("A_MOD" + emptyRecord(address->text(), portFields));
    request.answer("A_MOD" + address->text() + "," + kindField(port.kind) + "," +
                   joinColumns(port.settings, moduleColumns()) + "," +
                   joinColumns(port.settings, portColumns(port.kind)));
}

// C_MOD<XY>,<kind> and 14 fields as in A_MOD, then one empty field, or two when a page has built the line. What
// a restored backup says about the module itself is passed over. The kind is 1 or empty: a console that takes
// another module for CDMA has a wrong picture of this gateway, so nothing that it wants there is done.
void writePortSettings(Request& request) {
    const auto fields = splitFields(request.body);
    const auto address = PortAddress::parse(fields[0]);
    constexpr std::size_t known = 1 + portFields;
    if (!address || fields.size() <= known || fields.size() > known + 2 || !allEmpty(std::span(fields).subspan(known)))
        return request.malformed();

    Port& port = request.state.port(*address);
    const std::string index = address->text() + "0";
    const auto values = std::span(fields).subspan(firstPortValue, known - firstPortValue);
    const bool fits = fields[1].empty() || (port.fitted() && port.kind == ModuleKind::cdma && fields[1] == "1");
    if (!fits || (!port.fitted() && !allEmpty(values))) return request.refused(index);
    if (port.fitted()) {
        const auto record = written(port.settings, portColumns(port.kind), values);
        if (!record || !record->digitsFit()) return request.refused(index);
        port.settings = *record;
    }
    request.accepted(index);
}

// R_SIM<XYS>: A_SIM<XYS>, the nineteen values of C_SIM and a mark that there is a record. R_SIM<XY> is answered
// with those of all four SIMs, for a console that draws the time tables of a port.
void readSimSettings(Request& request) {
    if (const auto at = SimAddress::parse(request.body))
        return request.answer(simLine(request.state.port(at->port), *at));
    const auto address = PortAddress::parse(request.body);
    if (!address) return request.malformed();
    for (int sim = 1; sim <= simsPerPort; ++sim)
        request.answer(simLine(request.state.port(*address), SimAddress{*address, sim}));
}

// C_SIM<XYS>, nineteen fields and an empty one, or the mark of A_SIM when a backup is restored
void writeSimSettings(Request& request) {
    const auto fields = splitFields(request.body);
    const auto at = SimAddress::parse(fields[0]);
    if (!at || fields.size() != 1 + simFields || !(fields.back().empty() || fields.back() == "1"))
        return request.malformed();

    Port& port = request.state.port(at->port);
    const auto values = std::span(fields).subspan(1, simFields - 1);
    if (!port.takesSims()) return allEmpty(values) ? request.accepted(at->text()) : request.refused(at->text());
    const auto record = written(port.sim(at->sim).settings, simColumns(), values);
    if (!record) return request.refused(at->text());
    port.sim(at->sim).settings = *record;
    request.accepted(at->text());
    if (at->sim == port.activeSim()) changeCell(request, port, at->text());
}

}  // namespace simulator
