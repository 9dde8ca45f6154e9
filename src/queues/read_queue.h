#pragma once

#include <functional>
#include <string>
#include <vector>

#include "fields/cool_progress_bar.h"
#include "platform/dialogs.h"
#include "queues/command_sender.h"
#include "queues/queue_item.h"

namespace trunvex {

inline constexpr int readBudgetMs = 500;  // what a page's own reads get an item and try

// The reads of the settings pages: an ordered batch, one command in flight, each sent up to four times. The bar
// prgLoading paces it: its tick is the time-out and the step; an answer only speeds it.
class ReadQueue {
public:
    ReadQueue(Platform& platform, CommandSender& sender);

    // The one way to begin a batch: `budgetMs` is per item and try. With the link down the operator is told and the
    // result is false. A batch that still runs is replaced.
    bool start(std::vector<QueueItem> batch, int budgetMs = readBudgetMs);
    // Begins at once, or when the batch that runs has come to its end and is shown. Of two that wait under one name the
    // newer counts. What waits is forgotten with the session.
    void whenFree(const std::string& name, std::function<void()> begin);
    // Ends a running batch without a word, and what waits behind it, as the loss of the link does.
    void abandon();
    bool running() const { return prgLoading.running(); }

    // One step, at the bar's step event.
    void RequestQueue();

    // Takes a received line: true when it answers the command in flight, whose ticks then run out at once.
    bool takeAnswer(std::string_view line);

    // What is to be shown when a batch is complete: every row whose text occurs in the last command is run with that
    // command.
    void onComplete(std::string keyPart, std::function<void(const std::string& key)> show);

    // While the flag is false a batch runs, the bar is shown and no second batch may be started by the operator.
    void FormEnableProgress(bool enabled);
    bool formEnabled() const { return formEnabled_; }
    sigc::signal<void(bool)>& formEnabledChanged() { return formEnabledChanged_; }

    CoolProgressBar prgLoading;

    std::vector<QueueItem> gReadQueue;
    std::int16_t gReadCount = 0;
    std::int16_t gReadIndex = 0;
    bool gReadReplied = false;
    std::string expectedPattern;  // a further form of answer, with "*"; empty for none

private:
    QueueItem& inFlight() { return gReadQueue.at(static_cast<std::size_t>(gReadIndex)); }
    void send(QueueItem& item);
    void nextItem();
    void itemUnanswered();
    void skipDeadItem();
    void complete();
    void end();
    void beginWaiting();
    std::string loadingText() const;

    Platform& platform_;
    CommandSender& sender_;
    bool formEnabled_ = true;
    unsigned batch_ = 0;  // counts the batches, so that a dialog sees whether its own still runs
    sigc::signal<void(bool)> formEnabledChanged_;
    std::vector<std::pair<std::string, std::function<void()>>> waiting_;
    std::vector<std::pair<std::string, std::function<void(const std::string&)>>> completions_;
};

// True when a received line answers a read: it contains the command without its "R_", or it has the expected form.
bool answersRead(std::string_view line, const std::string& key, const std::string& expectedPattern);

}  // namespace trunvex
