#include "monitor/port_status.h"

#include "text/text_rules.h"

namespace trunvex {

TalkTime TalkTime::parse(std::string_view counter) {
    constexpr std::size_t mostMinuteDigits = 5;
    constexpr std::size_t secondDigits = 2;
    const auto colon = counter.find(':');
    if (colon == std::string_view::npos || colon > mostMinuteDigits) return {};
    const auto minutes = counter.substr(0, colon);
    const auto seconds = counter.substr(colon + 1);
    if (!isWhole(minutes) || !isWhole(seconds) || seconds.size() != secondDigits) return {};
    return {val(minutes), val(seconds)};
}

void PortStatus::clearCell() {
    const PortStatus empty;
    state = BoardColours::PORT_NOT_ACTIVE;
    event = empty.event;
    callNumber.clear();
    connected = false;
    sim.reset();
    simLamp = empty.simLamp;
    simReport = empty.simReport;
    counter.clear();
    talked = {};
    netLamp = empty.netLamp;
    netReport = empty.netReport;
    networkId.clear();
    registering = false;
}

bool PortStatus::countCall() {
    const bool calling = event == AlarmCode::Connecting || event == AlarmCode::MsConnected;
    if (calling == inCall.value_or(false)) return false;
    inCall = calling;
    return true;
}

void PortStatus::bind(std::string_view told) {
    const auto number = val(told);
    channel = escaped(told);
    portBch = number < 0 || number > firstReserved + 1 ? 0 : static_cast<int>(number);
}

}  // namespace trunvex
