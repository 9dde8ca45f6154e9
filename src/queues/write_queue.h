#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "fields/uc_progress.h"
#include "platform/dialogs.h"
#include "queues/walk.h"

namespace trunvex {

// What a page, the log-in or a file load hands over to be written.
struct WriteBatch {
    std::vector<QueueItem> items;
    std::string word = "write";  // the panel's word: "write", "file", "backup", "wait", "start"
    int timeToWriteMs = ucProgress::defaultTimeToWriteMs;  // per item that has no time of its own
    std::string firstText = "send data to: ";              // before the first caption on the panel
    bool groupWrite = false;                               // an empty batch then means that the group has no member
    bool silent = false;                                   // no dialogs, failures are passed over
    bool restore = false;                                  // replays a backup
    bool dropsLink = false;  // the gateway restarts at its commands: that the link falls is no write cut short
    // Set, a failure of the last item is asked about with Abort, Retry and Ignore, and the owner is told the answer;
    // only Retry sends it again.
    std::function<void(Button)> lastFailed;
};

// The change commands: an ordered batch, one command in flight, each waiting for the gateway's word or its time-out.
// The panel ucProgress paces it. What was accepted is fed back to the dispatcher, so that the shared tables learn it;
// what failed is asked about, and never sent again by itself.
class WriteQueue {
public:
    WriteQueue(Platform& platform, CommandSender& sender, ucProgress& panel);

    // What became of an item; NoAnswer when its time ran out, NotSent when it was held back for the failure of another.
    enum class Outcome { Accepted, Refused, NoAnswer, NotSent };
    // Failed: the operator gave up. Replaced: a batch of the session's own took its place. Lost: the link fell.
    enum class Ending { Complete, Failed, Cancelled, Replaced, Lost };

    // The one way for a page to begin a batch. False, and nothing sent, when the link is down (the operator is told),
    // when there is nothing to write, in a session without rights, or while the line is not free or another batch runs
    // (told through `refused`).
    bool start(WriteBatch batch);
    // The same without the tests, for the session's own batches: whatever ran is replaced.
    void begin(WriteBatch batch);
    // Ends a running batch without a word.
    void cancel() { forget(Ending::Cancelled); }
    // The same at the loss of the link; what of the operator's batch was cut short is told.
    void abandon();
    bool running() const { return gWriteQueue.active() && panel_.running(); }
    // The last batch has asked the gateway to restart: the loss of the link is its answer.
    bool restartAsked() const { return restartAsked_; }
    // True while an acknowledged line is fed back.
    bool feeding() const { return feeding_; }
    const Walk& walk() const { return gWriteQueue; }

    // The step, decided at the panel's tick.
    void writeQueue();

    // The gateway's word on the command in flight, from the dispatcher. Without a command in flight it has no effect.
    void WriteResult(bool ok);
    // The same for an answer that says what it answers, each by the terms of the command in flight: a record by its
    // three letters, a line of any kind by its text, a "#" word, a word that names an address. So a late or doubled
    // answer to an earlier command never settles a later one.
    void answered(std::string_view letters);
    void answeredBy(std::string_view line);
    void answeredByHash(bool ok);
    void answeredFor(std::string_view address, bool ok);

    // Takes an acknowledged line as if the gateway had echoed it.
    std::function<void(std::string_view line)> feedBack;
    // Starts the log-in: what a plain-send batch ends with.
    std::function<void()> RecievingChange;
    // An item is done with: accepted, or failed and not to be tried again.
    sigc::signal<void(const QueueItem&, Outcome)>& settled() { return settled_; }
    // A line answered the item in flight by its text.
    sigc::signal<void(const QueueItem&, std::string_view line)>& answerTaken() { return answerTaken_; }
    sigc::signal<void(Ending)>& ended() { return ended_; }    // a batch is over, however
    sigc::signal<void()>& abandoned() { return abandoned_; }  // the link is lost, whether a batch ran or not
    // Why start() did not begin, or what of the operator's batch was cut short.
    sigc::signal<void(const std::string&)>& refused() { return refused_; }

    std::string gWriteErrors;
    bool gRestoreMode = false;
    bool gSilentWrite = false;

private:
    void forget(Ending ending);
    void sendCurrent();
    void settleFailed();
    void plainSendStep();
    void accepted();
    void goOn();
    void complete();
    void reportEnd(bool silent, bool restore, const std::string& errors);
    void tellCutShort();
    void failed();
    void lastFailed();
    void passOver();
    void retry();
    void ignore();
    void abort();
    void endBatch(Ending ending);
    std::string failureText(const QueueItem& of) const;
    std::optional<Button> ask(const QueueItem& of, ButtonSet buttons);

    Platform& platform_;
    CommandSender& sender_;
    ucProgress& panel_;
    Walk gWriteQueue;
    std::function<void(Button)> lastFailed_;
    bool feeding_ = false;
    bool restartAsked_ = false;
    bool operators_ = false;  // begun by start(), not by the session
    sigc::signal<void(const QueueItem&, Outcome)> settled_;
    sigc::signal<void(const QueueItem&, std::string_view)> answerTaken_;
    sigc::signal<void(Ending)> ended_;
    sigc::signal<void()> abandoned_;
    sigc::signal<void(const std::string&)> refused_;
};

}  // namespace trunvex
