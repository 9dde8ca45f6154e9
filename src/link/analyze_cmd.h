#pragma once

#include <sigc++/sigc++.h>

#include <functional>
#include <string_view>
#include <vector>

#include "fields/uc_progress.h"
#include "link/real_time_update.h"
#include "link/session_events.h"
#include "link/session_state.h"
#include "queues/command_sender.h"
#include "queues/read_queue.h"
#include "queues/write_queue.h"
#include "text/split.h"

namespace trunvex {

class SessionBringUp;

// A line cut into its mnemonic (the first five characters) and its body (the next 255; the rest is dropped).
struct Record {
    std::string_view line;
    std::string_view mnemonic;
    std::string_view body;

    Fields fields() const { return splitString(body, ','); }
};

// The single entry of every received line, and of every acknowledged line that the write queue feeds back. One ordered
// list of steps; the last is a table by mnemonic that the subsystems fill when the console is built. No handler knows
// how its line came, and a record acts on the model whether or not anyone asked for it.
class Dispatcher {
public:
    using Handler = std::function<void(const Record& record)>;

    Dispatcher(SessionState& session, CommandSender& sender, ucProgress& panel, std::vector<ReadQueue*> reads,
               WriteQueue& writes, SessionBringUp& bringUp, RealTimeUpdate& realTimeUpdate);

    // `line` comes without its terminator. `show` is true for a line that the gateway sent: only such a line is relayed
    // and shown. A line that the write queue feeds back is taken as a record and as nothing else.
    void AnalyzeCmd(std::string_view line, bool show);

    // The routine that takes the records of one mnemonic of at most five characters; a later one replaces it.
    void on(std::string_view mnemonic, Handler handler);

    // Steps that belong to upper floors.
    sigc::signal<void(std::string_view line)> relay;
    sigc::signal<void(std::string_view line)> debugDisplay;
    std::function<bool()> analyzeEnabled;  // unset means enabled
    sigc::signal<void()> toneDone;
    sigc::signal<void(std::string_view channel)> callRecordErased;
    sigc::signal<void()> modemConnected;
    sigc::signal<void(std::string_view line)> modemFailed;
    sigc::signal<void(std::string_view text)> updateStatus;  // what lblUpdateStatus is to show

private:
    struct TableRow {
        std::uint64_t mnemonic;
        Handler handler;
    };

    void noteFirstData(std::string_view line);
    void relayLine(std::string_view line);
    void showInDebugConsole(std::string_view line, bool show);
    void noteToneDone(std::string_view line);
    bool takeMasterUpdate(std::string_view line);
    bool takeHashFamily(std::string_view line);
    bool takeMasterSession(std::string_view line);
    void masterAsksPassword(std::string_view line);
    void masterDecided(std::string_view line);
    void masterIdentifies(std::string_view line);
    void matchRead(std::string_view line);
    bool takeModemResult(std::string_view line);
    void takeRecord(const Record& record);

    SessionState& session_;
    CommandSender& sender_;
    ucProgress& panel_;
    const std::vector<ReadQueue*> reads_;
    WriteQueue& writes_;
    SessionBringUp& bringUp_;
    RealTimeUpdate& realTimeUpdate_;
    std::vector<TableRow> table_;  // sorted by mnemonic
};

}  // namespace trunvex
