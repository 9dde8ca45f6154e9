#pragma once

#include "fields/notices.h"
#include "link/analyze_cmd.h"
#include "link/session_bring_up.h"
#include "link/session_events.h"
#include "link/session_records.h"
#include "queues/firmware_pump.h"

namespace trunvex {

// The one session with the one gateway: the line to it, the queues that send over it, the dispatcher of what comes, and
// what happens to it. Every subsystem takes it, and ties itself to it in its constructor.
class Session {
public:
    // `data` keeps what combo boxes remember.
    Session(Platform& platform, Settings& setting, Settings& data, const std::string& applicationFolder,
            Notices& notices);
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    // A line in the window, where no box is called for.
    void tell(const std::string& text) { notices.tell(text); }

    Platform& platform;
    Settings& setting;
    Notices& notices;
    SessionState state;
    SessionEvents events;
    ucProgress panel;
    ActionField connectButton{"tool_connect", "Connect"};
    CSpooling objSpool;
    ReadQueue reads;
    ReadQueue refreshes;
    WriteQueue writes;
    FirmwarePump firmware;
    SessionBringUp bringUp;
    RealTimeUpdate realTimeUpdate;
    Dispatcher dispatcher;
    SessionRecords records;
};

}  // namespace trunvex
