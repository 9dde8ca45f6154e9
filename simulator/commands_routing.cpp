#include "simulator/command_table.h"
#include "simulator/field_checks.h"

#include <algorithm>
#include <vector>

namespace simulator {

namespace {

constexpr int lineCount = channelCount + 2;

bool takes(const std::string& field, bool (*allowed)(const std::string&)) { return field.empty() || allowed(field); }

// An empty field leaves the value. Numbers are kept without leading zeros.
void keepNumber(std::string& value, const std::string& field) {
    if (!field.empty()) value = std::to_string(number(field, 0, 999'999'999).value_or(0));
}

std::string flagText(bool flag) { return flag ? "1" : "0"; }

}  // namespace

// R_SEL: A_SEL<mode>,<longest prefix>,<1 when prefixes carry a routing code>
void readAllocation(Request& request) {
    if (!request.body.empty()) return request.malformed();
    const auto& routing = request.state.routing;
    request.answer("A_SEL" + routing.mode + "," + routing.prefixDigits + "," + routing.mnp);
}

// C_SEL and the same three fields
void writeAllocation(Request& request) {
    const auto fields = splitFields(request.body);
    if (fields.size() != 3) return request.malformed();
    if (!takes(fields[0], oneOf<0, 1, 2, 5, 6>) || !takes(fields[1], within<1, 16>) || !takes(fields[2], within<0, 1>))
        return request.refused();
    auto& routing = request.state.routing;
    keepNumber(routing.mode, fields[0]);
    keepNumber(routing.prefixDigits, fields[1]);
    keepNumber(routing.mnp, fields[2]);
    request.accepted();
}

// R_WTP: A_WTP<tenths of a second>; C_WTP<tenths>, 0 to 250
void readWaitingTime(Request& request) {
    if (!request.body.empty()) return request.malformed();
    request.answer("A_WTP" + request.state.routing.waitTenths);
}

void writeWaitingTime(Request& request) {
    const std::string body(request.body);
    if (!within<0, 250>(body)) return request.refused();
    keepNumber(request.state.routing.waitTenths, body);
    request.accepted();
}

// R_PRT<XY>: A_PRT<XY>,<enabled>,<line, two digits>,<prefix group>
void readPortLine(Request& request) {
    const auto at = PortAddress::parse(request.body);
    if (!at) return request.malformed();
    const auto& line = request.state.routing.ports[static_cast<std::size_t>(at->slot())];
    const Port& port = request.state.port(*at);
    request.answer("A_PRT" + at->text() + "," + flagText(port.fitted() && port.enabled) + "," +
                   padded(line.channel, 2) + "," + std::to_string(line.group));
}

// C_PRT<XY>,<enabled>,<line>,<group>
void writePortLine(Request& request) {
    const auto fields = splitFields(request.body);
    const auto at = PortAddress::parse(fields[0]);
    if (!at || fields.size() != 4) return request.malformed();
    const auto index = at->text() + "0";
    if (!takes(fields[1], within<0, 1>) || !takes(fields[2], within<0, lineCount>) || !takes(fields[3], within<0, 255>))
        return request.refused(index);
    Port& port = request.state.port(*at);
    auto& line = request.state.routing.ports[static_cast<std::size_t>(at->slot())];
    if (!fields[1].empty() && port.fitted()) port.enabled = fields[1] == "1";
    line.channel = number(fields[2], 0, lineCount).value_or(line.channel);
    line.group = number(fields[3], 0, 255).value_or(line.group);
    request.accepted(index);
}

// R_BCH<line, two digits>: A_BCH<line>,<enabled>,<number>. The two lines behind the channels are always in use.
void readChannelLine(Request& request) {
    const auto line = number(request.body, 1, lineCount);
    if (!line || request.body.size() != 2) return request.malformed();
    const auto row = static_cast<std::size_t>(*line - 1);
    const bool enabled = *line > channelCount || request.state.channels[row];
    request.answer("A_BCH" + padded(*line, 2) + "," + flagText(enabled) + "," + request.state.routing.numbers[row]);
}

// C_BCH<line>,<enabled>,<number>
void writeChannelLine(Request& request) {
    const auto fields = splitFields(request.body);
    const auto line = number(fields[0], 1, lineCount);
    if (!line || fields.size() != 3 || fields[0].size() != 2) return request.malformed();
    const auto dials = [](const std::string& text) { return text.size() <= 15 && consistsOf(text, "0123456789*#+"); };
    if (!takes(fields[1], within<0, 1>) || !takes(fields[2], dials)) return request.refused();
    const auto row = static_cast<std::size_t>(*line - 1);
    if (!fields[1].empty() && *line <= channelCount) request.state.channels[row] = fields[1] == "1";
    if (!fields[2].empty()) request.state.routing.numbers[row] = fields[2];
    request.accepted();
}

// R_CCC: A_CCC,<16 causes>; C_CCC,<16 causes>, 0 to 255 each
void readCauses(Request& request) {
    if (!request.body.empty()) return request.malformed();
    std::string line = "A_CCC";
    for (const auto& cause : request.state.routing.causes) line += "," + cause;
    request.answer(line);
}

void writeCauses(Request& request) {
    const auto fields = splitFields(request.body);
    auto& causes = request.state.routing.causes;
    if (fields.size() != causes.size() + 1 || !fields[0].empty()) return request.malformed();
    if (!std::all_of(fields.begin() + 1, fields.end(), [](const auto& one) { return takes(one, within<0, 255>); }))
        return request.refused();
    for (std::size_t i = 0; i < causes.size(); ++i) keepNumber(causes[i], fields[i + 1]);
    request.accepted();
}

// C_RBT: the gateway starts anew, without a word
void resetGateway(Request& request) {
    if (!request.body.empty()) return request.malformed();
    request.restart();
}

}  // namespace simulator
