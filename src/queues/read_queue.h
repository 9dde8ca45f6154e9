#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "fields/cool_progress_bar.h"
#include "platform/dialogs.h"
#include "queues/walk.h"

namespace trunvex {

inline constexpr int readBudgetMs = 500;  // what a page's own reads get an item and try

// How a read queue goes about its batches.
struct ReadRules {
    const char* bar;  // the name of its bar
    CoolProgressBar::Mode mode;
    int budgetMs;         // of an item and try, where a batch does not say
    int firstSends;       // how often the first item is sent before it is given up
    int laterSends;       // and each other
    bool asks;            // says what is wrong and asks at an item that was given up; otherwise passes over it silently
    const char* pattern;  // a further form of answer, with "*"; empty for none
    const char* firstText;
    const char* lastText;  // left in the bar when the last item was answered; empty leaves what stands there
};

// The reads of the settings pages.
inline constexpr ReadRules pageReads{"prgLoading", CoolProgressBar::Read, readBudgetMs, 3, 4, true, "", "", ""};
// The reads of the status board.
inline constexpr ReadRules boardReads{"ucCoolProgressBar",
                                      CoolProgressBar::Refresh,
                                      300,
                                      1,
                                      1,
                                      false,
                                      "OK*",
                                      "Please wait...",
                                      "Refreshing data  complete seccessful!"};

// An ordered batch of reads, one command in flight. Its bar paces it: the bar's tick is the time-out and the step, and
// an answer only speeds it. A batch is over when its last item was answered or given up, not before and not later.
class ReadQueue {
public:
    // Replaced: another batch took its place. Lost: the link fell.
    enum class Ending { Complete, GivenUp, Cancelled, Replaced, Lost };

    ReadQueue(Platform& platform, CommandSender& sender, const ReadRules& rules);

    // The one way to begin a batch; `budgetMs` is per item and try, 0 the queue's own. False when it is empty, the link
    // is down or not free; a queue that asks says so. A batch that still runs is replaced.
    bool start(std::vector<QueueItem> batch, int budgetMs = 0);
    // Begins at once, or when the batch that runs has come to its end and is shown. Of two that wait for one owner the
    // newer counts. What waits is forgotten with the session.
    void whenFree(const std::string& owner, std::function<void()> begin);
    // Ends what runs and what waits without a word: the operator wants no more of it, or the link is lost.
    void cancel() { forget(Ending::Cancelled); }
    void abandon() { forget(Ending::Lost); }
    bool running() const { return walk_.active(); }

    // One step, at the bar's step event.
    void RequestQueue();

    // Takes a received line: true when it answers the command in flight, whose ticks then run out at once.
    bool takeAnswer(std::string_view line);
    // The item in flight is settled without an answer of its own.
    void settle() { bar.setProgressSpeed(rules_.mode, atOnceMs); }

    // What is to be shown when a batch is complete: every row whose text occurs in the last command is run with that
    // command.
    void onComplete(std::string keyPart, std::function<void(const std::string& key)> show);
    // A batch has come to its end, however; the next may be begun in here.
    sigc::signal<void(Ending)>& ended() { return ended_; }
    sigc::signal<void(const std::string& why)>& refused() { return refused_; }  // start() did not begin

    // While it is false a batch runs, the bar is shown and no second batch may be started by the operator.
    bool formEnabled() const { return formEnabled_; }
    sigc::signal<void(bool)>& formEnabledChanged() { return formEnabledChanged_; }

    const Walk& walk() const { return walk_; }

    CoolProgressBar bar;

private:
    static constexpr int atOnceMs = 2;

    bool mayStart() const;
    void forget(Ending ending);
    void FormEnableProgress(bool enabled);
    int sends() const { return walk_.index() == 0 ? rules_.firstSends : rules_.laterSends; }
    void sendNext();
    void itemUnanswered();
    void waitForQuiet();
    void skipDeadItem();
    void finish(Ending ending);
    void beginWaiting();
    std::string loadingText() const;

    Platform& platform_;
    const ReadRules rules_;
    Walk walk_;
    bool lineCame_ = false;  // of the table in flight, since the last step
    bool formEnabled_ = true;
    sigc::signal<void(bool)> formEnabledChanged_;
    sigc::signal<void(Ending)> ended_;
    sigc::signal<void(const std::string&)> refused_;
    std::vector<std::pair<std::string, std::function<void()>>> waiting_;
    std::vector<std::pair<std::string, std::function<void(const std::string&)>>> completions_;
    CommandSender& sender_;
};

}  // namespace trunvex
