#pragma once

#include <array>
#include <string>

#include "link/session_state.h"
#include "platform/settings.h"

namespace trunvex {

// The five numbers last dialled on each port of each gateway, in History.xml: section "PORT" + ESN + board index, keys
// CALL0 to CALL4 and "index", the slot to be written next. Nothing is stored while the gateway has not told its ESN.
class LastCalls {
public:
    static constexpr int kept = 5;
    static constexpr const char* emptyLine = "--------";

    LastCalls(Settings& history, const SessionState& session) : history_(history), session_(session) {}

    // Writes over the oldest entry.
    void SAVE_LastCalls(int port, const std::string& text);
    // The lines of the port's menu, emptyLine where there is nothing; sets the next slot behind what was found.
    std::array<std::string, kept> INIT_lastCalls(int port);
    void clear(int port);

private:
    std::string section(int port) const;

    Settings& history_;
    const SessionState& session_;
};

}  // namespace trunvex
