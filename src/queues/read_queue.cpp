#include "queues/read_queue.h"

#include <algorithm>
#include <utility>

#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr const char* noDataText = "Can't get data from the gateway, please check your connection!.";
constexpr const char* continueText = "Can't get data from the gateway,Press Yes button to continue!.";

constexpr const char* question = "question";  // what holds the bar while its own box is open

bool isLongTable(const std::string& key) {
    return contains(key, "BCH") || contains(key, "SEL") || contains(key, "PRT") || contains(key, "PRF");
}

}  // namespace

ReadQueue::ReadQueue(Platform& platform, CommandSender& sender, const ReadRules& rules)
    : bar(rules.bar, platform), platform_(platform), rules_(rules), walk_(sender), sender_(sender) {
    bar.stepped().connect([this](int, int) {
        bar.RestoreSpeed(rules_.mode);
        RequestQueue();
        if (running() && rules_.asks) bar.setText(loadingText());
    });
}

bool ReadQueue::mayStart() const { return sender_.isConnected() && sender_.free(); }

bool ReadQueue::start(std::vector<QueueItem> batch, int budgetMs) {
    if (!sender_.isConnected() && rules_.asks) platform_.dialogs().info(notConnectedText);
    if (sender_.isConnected() && !sender_.free()) refused_.emit(lineNotFreeText);
    if (batch.empty() || !mayStart()) return false;
    if (running()) finish(Ending::Replaced);
    walk_.begin(std::move(batch));
    lineCame_ = false;
    bar.setText(rules_.asks ? "Loading " + walk_.item().Caption : rules_.firstText);
    FormEnableProgress(false);
    bar.StartProgress(rules_.mode, budgetMs == 0 ? rules_.budgetMs : budgetMs, static_cast<int>(walk_.count()));
    walk_.send();
    return true;
}

void ReadQueue::forget(Ending ending) {
    waiting_.clear();
    if (running()) finish(ending);
}

void ReadQueue::finish(Ending ending) {
    const bool lastAnswered = walk_.reply() == Walk::Reply::Accepted;
    walk_.end();
    bar.EndProgress(rules_.mode);
    bar.PauseProgress(false, question);
    if (!rules_.asks) bar.setText(ending == Ending::Complete && lastAnswered ? rules_.lastText : "Done");
    FormEnableProgress(true);
    ended_.emit(ending);
}

void ReadQueue::RequestQueue() {
    if (!running()) return;
    if (walk_.reply() == Walk::Reply::None) {
        itemUnanswered();
        return;
    }
    if (std::exchange(lineCame_, false)) {
        bar.stepBack();
        waitForQuiet();
        return;
    }
    if (!walk_.last()) {
        sendNext();
        return;
    }
    const auto key = walk_.item().Key;
    finish(Ending::Complete);
    for (const auto& [keyPart, show] : completions_)
        if (contains(key, keyPart)) show(key);
    beginWaiting();
}

void ReadQueue::sendNext() {
    walk_.next();
    if (!rules_.asks) bar.setText(walk_.item().Caption);
    walk_.send();
}

void ReadQueue::itemUnanswered() {
    if (walk_.item().Tries < sends()) {
        bar.stepBack();
        walk_.send();
    } else if (!walk_.last()) {
        rules_.asks ? skipDeadItem() : sendNext();
    } else if (rules_.asks) {
        finish(Ending::GivenUp);
        platform_.dialogs().info(noDataText);
        beginWaiting();
    } else {
        finish(Ending::Complete);
        beginWaiting();
    }
}

void ReadQueue::skipDeadItem() {
    walk_.next();
    // The bar rests while the operator thinks: its ticks behind the box would send and skip items unasked.
    bar.PauseProgress(true, question);
    const auto answer = platform_.dialogs().ask({continueText, "info", ButtonSet::YesNo, BoxIcon::Information},
                                                Ticket::of([this] { return walk_.number(); }));
    bar.PauseProgress(false, question);
    if (!answer) return;
    if (*answer == Button::Yes) {
        walk_.send();
        return;
    }
    finish(Ending::GivenUp);
    beginWaiting();
}

void ReadQueue::whenFree(const std::string& owner, std::function<void()> begin) {
    if (!running()) {
        begin();
        return;
    }
    std::erase_if(waiting_, [&](const auto& one) { return one.first == owner; });
    waiting_.emplace_back(owner, std::move(begin));
}

// One that finds nothing to read any more leaves the turn to the next.
void ReadQueue::beginWaiting() {
    while (!running() && !waiting_.empty()) {
        const auto begin = std::move(waiting_.front().second);
        waiting_.erase(waiting_.begin());
        begin();
    }
}

// An answer contains the command without its "R_", or has the form that the queue knows besides.
bool ReadQueue::takeAnswer(std::string_view line) {
    if (!running()) return false;
    const bool fits = *rules_.pattern != '\0' && like(line, rules_.pattern);
    const auto& item = walk_.item();
    const bool told = !item.terms.contains.empty() && contains(line, item.terms.contains);
    if (!fits && !told && !contains(line, mid(item.Key, 3, 255))) return false;
    walk_.setReply(Walk::Reply::Accepted);
    lineCame_ = item.terms.manyLines;
    if (lineCame_)
        waitForQuiet();
    else
        settle();
    return true;
}

// The item's step comes when no line of its table has come for a while.
void ReadQueue::waitForQuiet() { bar.setProgressSpeed(rules_.mode, std::max(1, tableQuietMs / bar.ticksPerItem())); }

void ReadQueue::onComplete(std::string keyPart, std::function<void(const std::string&)> show) {
    completions_.emplace_back(std::move(keyPart), std::move(show));
}

void ReadQueue::FormEnableProgress(bool enabled) {
    bar.setVisible(!enabled);
    if (formEnabled_ == enabled) return;
    formEnabled_ = enabled;
    formEnabledChanged_.emit(enabled);
}

std::string ReadQueue::loadingText() const {
    const auto& item = walk_.item();
    auto text = "Loading " + item.Caption;
    if (isLongTable(item.Key)) {
        const auto percent = roundedDivision(static_cast<int>(walk_.index()) * 100, static_cast<int>(walk_.count()));
        text += "   " + std::to_string(percent) + "%";
    }
    return text;
}

}  // namespace trunvex
