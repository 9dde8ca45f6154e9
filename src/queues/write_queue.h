#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "fields/uc_progress.h"
#include "platform/dialogs.h"
#include "queues/command_sender.h"
#include "queues/queue_item.h"

namespace trunvex {

// What a page, the log-in or a file load hands over to be written.
struct WriteBatch {
    std::vector<QueueItem> items;
    std::string word = "write";  // the panel's word: "write", "file", "backup", "wait", "start"
    int timeToWriteMs = ucProgress::defaultTimeToWriteMs;  // per item
    std::string firstText = "send data to: ";              // before the first caption on the panel
    bool groupWrite = false;                               // an empty batch then means that the group has no member
    bool silent = false;                                   // no dialogs, failures are passed over
    bool restore = false;                                  // replays a backup
};

// The change commands: an ordered batch, one command in flight, each waiting for the gateway's word or its time-out.
// The panel ucProgress paces it. What was accepted is fed back to the dispatcher, so that the shared tables learn it;
// what failed is asked about, and never sent again by itself.
class WriteQueue {
public:
    WriteQueue(Platform& platform, CommandSender& sender, ucProgress& panel);

    // What became of an item; NoAnswer when its time ran out.
    enum class Outcome { Accepted, Refused, NoAnswer };

    // The one way for a page to begin a batch. False, and nothing sent, when the link is down (the operator is told),
    // when there is nothing to write, or while another batch runs (told through `refused`).
    bool start(WriteBatch batch);
    // The same without the tests, for the session's own batches: whatever ran is replaced.
    void begin(WriteBatch batch);
    // Forgets a running batch without a word, as the loss of the link does.
    void abandon();
    bool running() const { return active_ && panel_.running(); }
    // True while an acknowledged line is fed back.
    bool feeding() const { return feeding_; }
    // The command in flight, or null.
    const QueueItem* inFlight() const;

    // The step routine, decided at the panel's tick. The second form is the one the tick calls; it words its dialog
    // with the item's marker and knows a firmware run.
    void writeQueue();
    void writeQueue(std::string_view extra);

    // The gateway's word on the command in flight, from the dispatcher. Without a command in flight it has no effect.
    void WriteResult(bool ok);
    // The same for an answer that says what it answers: it counts only when the command in flight carries these
    // letters behind its first two characters ("ESN" for A_ESN), so that a late or doubled answer to an earlier
    // command never settles a later one.
    void answered(std::string_view letters);

    // The firmware pump: the next of gBootList, at the end of each update.
    void NextCoommand();

    // Takes an acknowledged line as if the gateway had echoed it.
    std::function<void(std::string_view line)> feedBack;
    // Starts the log-in: what a plain-send batch ends with.
    std::function<void()> RecievingChange;
    // An item is done with: accepted, or failed and not to be tried again.
    sigc::signal<void(const QueueItem&, Outcome)>& settled() { return settled_; }
    sigc::signal<void()>& ended() { return ended_; }  // a batch is over, however
    // Why start() did not begin, or what of the operator's batch was cut short.
    sigc::signal<void(const std::string&)>& refused() { return refused_; }

    std::vector<QueueItem> gWriteQueue;
    std::int16_t gWriteCount = 0;
    std::int16_t gWriteIndex = 0;
    bool gWriteOk = false;
    bool gWriteFailed = false;
    std::string gWriteErrors;
    bool gRestoreMode = false;
    bool gSilentWrite = false;
    std::vector<std::string> gBootList;
    std::string gBootCount;  // decimal text of the firmware commands left; empty before any update
    bool gBootRunning = false;

private:
    enum class Routine { Page, Tick };

    QueueItem& item() { return gWriteQueue.at(static_cast<std::size_t>(gWriteIndex)); }
    bool lastItem() const { return gWriteIndex >= gWriteCount - 1; }
    void step(Routine routine, std::string_view extra);
    void sendCurrent();
    void settleFailed();
    void plainSendStep();
    void accepted();
    void reportEnd(bool silent, bool restore, const std::string& errors);
    void giveDialItsTime();
    void tellCutShort();
    void endFirmware();
    void failed(Routine routine, std::string_view extra);
    void failedFirmware();
    void passOver();
    void retry();
    void ignore();
    void abort();
    void endBatch();
    std::string failureText(const QueueItem& of, std::string_view extra) const;
    Button ask(const QueueItem& of, std::string_view extra, ButtonSet buttons, bool& current);

    Platform& platform_;
    CommandSender& sender_;
    ucProgress& panel_;
    bool active_ = false;
    bool feeding_ = false;
    bool operators_ = false;  // begun by start(), not by the session
    unsigned batch_ = 0;      // counts the batches
    sigc::signal<void(const QueueItem&, Outcome)> settled_;
    sigc::signal<void()> ended_;
    sigc::signal<void(const std::string&)> refused_;
};

}  // namespace trunvex
