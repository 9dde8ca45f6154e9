#pragma once

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "cdr/call_record.h"
#include "cdr/call_store.h"
#include "fields/cool_progress_bar.h"
#include "link/session.h"

namespace trunvex {

struct CDRQueueEntry {
    std::string Command;
    std::string Label;  // on the bar
    bool Answered = false;
};

// Fetches the call records from the gateway, one at a time over sixteen channels: asks each channel how many it holds,
// then reads in rounds over the channels until all are empty. Each record is on the disk before the gateway may drop
// it. The bar ucCDRProg paces the run: its tick is the time-out and the step; an answer only speeds it.
//
// When a record can't be written, the run holds still where it stands, says why, and goes on by itself when the cause
// is gone.
class CdrDownload {
public:
    CdrDownload(Session& session, CallStore& store);

    // The Start button, or the minute timer: a run that goes on starts anew.
    void start();
    // The Stop button.
    void stop();
    // The setting of the minute timer has changed, or a session begins. One that works only with the monitor fetches
    // nothing by itself.
    void rearm();
    bool isConnected() const { return sender_.isConnected(); }
    // Minutes between two automatic runs; 0 is off.
    int downLimit() const;

    // The rollover holds the run still.
    void pause(bool paused) { ucCDRProg.PauseProgress(paused, "rollover"); }

    // What needs the disk: done now, or, when the disk refuses, as soon as it does no more; the status tells why. The
    // end of a run forgets what waits: the journal has it.
    void guard(std::function<void()> act);

    // How a run that had channels to ask came to its end; one that is started anew has none.
    struct Outcome {
        int fetched = 0;
        std::vector<int> missing{};  // channels, by slot, that hold calls still or never told how many
        bool cutShort = false;       // by the end of the session
    };
    sigc::signal<void(const Outcome&)> ended;

    CoolProgressBar ucCDRProg;
    LabelField lblCDRTimer{"lblCDRTimer"};  // when the next run will begin
    // Why the run holds still or gets nothing, and, when it is over, what it left in the gateway; else empty.
    LabelField lblCDRStatus{"lblCDRStatus"};

    bool gCDRDownloading = false;
    int gCDRPhase = 0;  // 0 counting, 1 reading
    std::vector<CDRQueueEntry> gCDRQueue;
    std::int16_t gCDRQueueIndex = 0;
    int gCDRTotal = 0;
    int gCDRDone = 0;
    std::int16_t gCDRPercent = 0;
    int gCDRMinutes = 0;
    std::array<CDRSlot, cdrChannelCount + 1> CDRSlots;  // by slot - 1; the last belongs to no channel

private:
    CDRSlot& slotAt(int slot) { return CDRSlots.at(static_cast<std::size_t>(slot - 1)); }
    void endRun();
    void sendCurrent();
    void CDRQueue();
    void queueEnded();
    void runEnded(bool cutShort);
    std::vector<int> missing() const;
    void tellOfSilence();
    std::string leftInGateway(const Outcome& outcome) const;
    bool addRound(std::array<int, cdrChannelCount + 1>& queued, bool first);
    void takeRecord(const Record& record);
    void acknowledge(int slot, const CDRSlot& record);
    void erased(std::string_view channel);
    void storeErased(int slot);
    void minuteTick();
    void hold(std::function<void()> again, const std::string& reason);
    void tryAgain();

    Settings& settings_;
    SessionState& session_;
    CommandSender& sender_;
    CallStore& store_;
    std::unique_ptr<Timer> tmrCDRLimit_;
    std::unique_ptr<Timer> holdTimer_;
    std::vector<std::function<void()>> held_;  // what could not be written, in order
    std::vector<int> unasked_;                 // channels that were passed over, by slot
    std::vector<int> unreadable_;              // channels that said to hold records and gave none
    int doneBefore_ = 0;                       // of gCDRDone, when the batch began
};

}  // namespace trunvex
