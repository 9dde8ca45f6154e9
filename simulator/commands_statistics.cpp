#include "simulator/command_table.h"
#include "simulator/field_checks.h"

namespace simulator {

namespace {

constexpr std::size_t longestBalance = 10;

// An amount of money: digits, a point among them or none, a minus in front for a debt.
bool isBalance(std::string_view text) {
    if (text.size() > longestBalance) return false;
    if (text.starts_with('-')) text.remove_prefix(1);
    const auto point = std::min(text.find('.'), text.size());
    const auto cents = text.substr(std::min(point + 1, text.size()));
    return point > 0 && consistsOf(text.substr(0, point), "0123456789") && consistsOf(cents, "0123456789") &&
           (point == text.size() || !cents.empty());
}

// The place in <XY>,<SIM>, with so many fields more, each followed by a comma.
std::optional<SimAddress> placeIn(const std::vector<std::string>& fields, std::size_t more = 0) {
    if (fields.size() != more + 3 || fields[1].size() != 1 || !fields.back().empty()) return std::nullopt;
    return SimAddress::parse(fields[0] + fields[1]);
}

}  // namespace

// R_STR<XY>,<SIM>, is answered with A_STR<XY>,<SIM>,<talk>,<dialled>,<successful>,<balance>,<SIM ID>,<IMSI>. The
// counters belong to the place: they stay when the card is taken out, and only its names are missing then.
void readStatistics(Request& request) {
    const auto at = placeIn(splitFields(request.body));
    if (!at || !request.state.port(at->port).fitted()) return request.malformed();
    const Sim& sim = request.state.port(at->port).sim(at->sim);
    const bool present = sim.state != simAbsent;
    request.answer("A_STR" + joinFields({at->port.text(), std::to_string(at->sim), talkCounter(sim.talkedSeconds),
                                         std::to_string(sim.dialled), std::to_string(sim.successful), sim.balance,
                                         present ? simIdentity(*at) : "", present ? imsi(*at) : ""}));
}

// C_STR<XY>,<SIM>,
void resetStatistics(Request& request) {
    const auto at = placeIn(splitFields(request.body));
    if (!at) return request.malformed();
    Port& port = request.state.port(at->port);
    if (!port.fitted()) return request.refused(at->text());
    Sim& sim = port.sim(at->sim);
    sim.talkedSeconds = sim.dialled = sim.successful = 0;
    request.answer("OK");
}

// C_ABF<XY>,<SIM>,<balance>, where an empty balance leaves it as it is
void writeBalance(Request& request) {
    const auto fields = splitFields(request.body);
    const auto at = placeIn(fields, 1);
    if (!at) return request.malformed();
    Port& port = request.state.port(at->port);
    const std::string& balance = fields[2];
    if (!port.fitted() || !(balance.empty() || isBalance(balance))) return request.refused(at->text());
    if (!balance.empty()) port.sim(at->sim).balance = balance;
    request.accepted(at->text());
}

}  // namespace simulator
