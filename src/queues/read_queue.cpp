#include "queues/read_queue.h"

#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr std::int16_t mostTries = 3;
// An item is given up once its count is past mostTries. The first item starts one higher than the rest, so it is sent
// three times in all, the others four.
constexpr std::int16_t firstItemTries = 2;
constexpr std::int16_t laterItemTries = 1;

constexpr const char* noDataText = "Can't get data from the gateway, please check your connection!.";
constexpr const char* continueText = "Can't get data from the gateway,Press Yes button to continue!.";

bool isLongTable(const std::string& key) {
    return contains(key, "BCH") || contains(key, "SEL") || contains(key, "PRT") || contains(key, "PRF");
}

}  // namespace

bool answersRead(std::string_view line, const std::string& key, const std::string& expectedPattern) {
    return contains(line, mid(key, 3, 255)) || (!expectedPattern.empty() && like(line, expectedPattern));
}

ReadQueue::ReadQueue(Platform& platform, CommandSender& sender)
    : prgLoading("prgLoading", platform), platform_(platform), sender_(sender) {
    prgLoading.stepped().connect([this](int mode, int) {
        if (mode != CoolProgressBar::Read) return;
        prgLoading.RestoreSpeed(CoolProgressBar::Read);
        RequestQueue();
        if (prgLoading.running()) prgLoading.setText(loadingText());
    });
    prgLoading.completed().connect([this](int) { complete(); });
}

bool ReadQueue::start(std::vector<QueueItem> batch, int budgetMs) {
    if (!sender_.isConnected()) {
        platform_.dialogs().info(notConnectedText);
        return false;
    }
    if (batch.empty()) return false;
    ++batch_;
    gReadQueue = std::move(batch);
    gReadCount = static_cast<std::int16_t>(gReadQueue.size());
    gReadIndex = 0;
    gReadQueue.front().Tries = firstItemTries;
    send(gReadQueue.front());
    FormEnableProgress(false);
    prgLoading.StartProgress(CoolProgressBar::Read, budgetMs, gReadCount);
    prgLoading.setText("Loading " + gReadQueue.front().Caption);
    return true;
}

void ReadQueue::abandon() {
    waiting_.clear();
    if (!prgLoading.running()) return;
    end();
}

void ReadQueue::end() {
    ++batch_;
    prgLoading.EndProgress(CoolProgressBar::Read);
    FormEnableProgress(true);
}

// The flag goes down before the line goes out, so that an answer to an earlier try or item is never taken for this one.
void ReadQueue::send(QueueItem& item) {
    gReadReplied = false;
    sender_.SendCommand(item.Key);
}

void ReadQueue::RequestQueue() {
    if (gReadReplied)
        nextItem();
    else
        itemUnanswered();
}

void ReadQueue::nextItem() {
    if (gReadIndex >= gReadCount - 1) {
        FormEnableProgress(true);  // the bar's own end completes the batch
        return;
    }
    ++gReadIndex;
    inFlight().Tries = laterItemTries;
    send(inFlight());
}

void ReadQueue::itemUnanswered() {
    if (gReadIndex > gReadCount - 1) {
        FormEnableProgress(true);
        platform_.dialogs().info(noDataText);
        return;
    }
    if (inFlight().Tries <= mostTries) {
        prgLoading.SetProgress(prgLoading.percent() - prgLoading.ticksPerItem());
        ++inFlight().Tries;
        send(inFlight());
    } else if (gReadIndex == gReadCount - 1) {
        end();
        platform_.dialogs().info(noDataText);
        beginWaiting();
    } else {
        skipDeadItem();
    }
}

void ReadQueue::skipDeadItem() {
    ++gReadIndex;
    // The bar rests while the operator thinks: its ticks behind the box would send and skip items unasked.
    const auto thisBatch = batch_;
    prgLoading.PauseProgress(true);
    const auto answer = platform_.dialogs().message({continueText, "info", ButtonSet::YesNo, BoxIcon::Information});
    if (thisBatch != batch_ || !prgLoading.running()) return;
    if (answer != Button::Yes) {
        end();
        beginWaiting();
        return;
    }
    inFlight().Tries = laterItemTries;
    send(inFlight());
    prgLoading.PauseProgress(false);
}

void ReadQueue::complete() {
    const auto key = inFlight().Key;
    end();
    for (const auto& [keyPart, show] : completions_)
        if (contains(key, keyPart)) show(key);
    beginWaiting();
}

void ReadQueue::whenFree(const std::string& name, std::function<void()> begin) {
    if (!running()) {
        begin();
        return;
    }
    std::erase_if(waiting_, [&](const auto& one) { return one.first == name; });
    waiting_.emplace_back(name, std::move(begin));
}

// One that finds nothing to read any more leaves the turn to the next.
void ReadQueue::beginWaiting() {
    while (!running() && !waiting_.empty()) {
        const auto begin = std::move(waiting_.front().second);
        waiting_.erase(waiting_.begin());
        begin();
    }
}

bool ReadQueue::takeAnswer(std::string_view line) {
    if (!prgLoading.visible() || gReadIndex >= gReadCount) return false;
    if (!answersRead(line, inFlight().Key, expectedPattern)) return false;
    gReadReplied = true;
    prgLoading.setProgressSpeed(CoolProgressBar::Read, 2);
    return true;
}

void ReadQueue::onComplete(std::string keyPart, std::function<void(const std::string&)> show) {
    completions_.emplace_back(std::move(keyPart), std::move(show));
}

void ReadQueue::FormEnableProgress(bool enabled) {
    prgLoading.setVisible(!enabled);
    if (formEnabled_ == enabled) return;
    formEnabled_ = enabled;
    formEnabledChanged_.emit(enabled);
}

std::string ReadQueue::loadingText() const {
    const auto& item = gReadQueue.at(static_cast<std::size_t>(gReadIndex));
    auto text = "Loading " + item.Caption;
    if (isLongTable(item.Key)) text += "   " + std::to_string(roundedDivision(gReadIndex * 100, gReadCount)) + "%";
    return text;
}

}  // namespace trunvex
