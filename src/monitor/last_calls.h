#pragma once

#include <array>
#include <deque>
#include <map>
#include <memory>
#include <string>

#include "link/session.h"
#include "monitor/sim_status.h"

namespace trunvex {

// The five numbers last dialled on each port of each gateway, in History.xml: section "PORT" + ESN + board index, keys
// CALL0 to CALL4 and "index", the slot to be written next. Nothing is stored while the gateway has not told its ESN.
//
// A busy gateway dials many times a second and a durable write takes its time, so what is new is gathered and written
// in one step a little later, or when the port's list is asked for, the session ends or the program does.
class LastCalls {
public:
    static constexpr int kept = 5;
    static constexpr int writeDelayMs = 3000;
    static constexpr const char* emptyLine = "--------";

    LastCalls(Session& session, Settings& history, frmSimStatus& board);
    ~LastCalls();

    // Writes over the oldest entry.
    void SAVE_LastCalls(int port, const std::string& text);
    // The lines of the port's menu, emptyLine where there is nothing; sets the next slot behind what was found.
    std::array<std::string, kept> INIT_lastCalls(int port);
    void clear(int port);
    // The port's menu is asked for: its lines take the captions of the port's calls.
    void openMenu(int port);
    // Writes what has been gathered.
    void flush();

    std::deque<ActionField> mnuLastDial;  // five lines, which do nothing, and "Clear"

private:
    struct Ring {
        std::array<std::string, kept> calls;  // empty where nothing new came
        int next = 0;
    };

    std::string section(int port) const;

    Settings& history_;
    const SessionState& session_;
    int menuPort_ = 0;  // whose calls the menu shows
    std::unique_ptr<Timer> delay_;
    std::map<std::string, Ring> gathered_;  // by section
};

}  // namespace trunvex
