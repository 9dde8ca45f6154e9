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

    // The gateway's OK or ERROR while no write waits for one; the address is empty where the word has none.
    sigc::signal<void(std::string_view address, bool ok)> unasked;

    // The gateway has told that the update of a target is done.
    sigc::signal<void()> updateCompleted;

private:
    void addRows();
    void takeAlarm(const Fields& fields);
    void takeWord(std::string_view address, bool ok);
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
