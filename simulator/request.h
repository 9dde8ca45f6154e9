#pragma once

#include "simulator/gateway_state.h"

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

namespace simulator {

// One command on its way through the gateway: what it says, what it may change, and what is said back.
class Request {
public:
    Request(std::string_view bodyText, GatewayState& gatewayState, std::chrono::milliseconds time)
        : body(bodyText), state(gatewayState), now(time) {}

    const std::string_view body;  // what stands behind the five characters of the mnemonic
    GatewayState& state;
    const std::chrono::milliseconds now;

    void answer(std::string line) { replies.push_back(std::move(line)); }
    // The end of a change: an alarm report whose code says how it went. The index is XYS, 000 for the system.
    void accepted(const std::string& index = "000") { answer("I_ALR" + index + ",OK"); }
    void refused(const std::string& index = "000") { answer("I_ALR" + index + ",ERROR"); }
    // For a line that makes no sense at all.
    void malformed() { answer("ERROR"); }
    // The gateway starts anew: no answer, and the link falls.
    void restart() { restarts = true; }

    std::vector<std::string> replies;
    bool restarts = false;
    std::optional<PortAddress> portToReset;  // once all is said
};

}  // namespace simulator
