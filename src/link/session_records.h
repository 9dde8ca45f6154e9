#pragma once

#include "link/analyze_cmd.h"

namespace trunvex {

// What the records of the session itself change: log-in, identity, clock, version, the gateway's plain words, and the
// unasked reports. Adds their rows to the dispatcher's table.
class SessionRecords {
public:
    SessionRecords(Dispatcher& dispatcher, SessionState& session, ucProgress& panel, ReadQueue& refreshes,
                   WriteQueue& writes, SessionBringUp& bringUp, RealTimeUpdate& realTimeUpdate);

    // A report about one SIM, after the board has it: X, Y, S, code and up to three arguments.
    sigc::signal<void(const Fields& record)> simAlarm;

    // The gateway has told that the update of a target is done.
    sigc::signal<void()> updateCompleted;

private:
    void addRows();
    void takeAlarm(const Fields& fields);
    bool takeUpdateReport(const Fields& fields);

    Dispatcher& dispatcher_;
    SessionState& session_;
    ucProgress& panel_;
    ReadQueue& refreshes_;
    WriteQueue& writes_;
    SessionBringUp& bringUp_;
    RealTimeUpdate& realTimeUpdate_;
};

}  // namespace trunvex
