#include "queues/refresh_queue.h"

#include "queues/read_queue.h"

namespace trunvex {

RefreshQueue::RefreshQueue(Platform& platform, CommandSender& sender)
    : ucCoolProgressBar("ucCoolProgressBar", platform), sender_(sender) {
    ucCoolProgressBar.stepped().connect([this](int, int) {
        ucCoolProgressBar.RestoreSpeed(CoolProgressBar::Refresh);
        step();
    });
}

bool RefreshQueue::start(std::vector<QueueItem> batch, int budgetMs) {
    if (batch.empty() || !sender_.isConnected()) return false;
    gRefreshQueue = std::move(batch);
    gRefreshCount = static_cast<std::int16_t>(gRefreshQueue.size());
    gRefreshIndex = 0;
    gRefreshReplied = false;
    expectedPattern = "OK*";
    ucCoolProgressBar.setText("Please wait...");
    ucCoolProgressBar.setVisible(true);
    sender_.SendCommand(gRefreshQueue.front().Key);
    ucCoolProgressBar.StartProgress(CoolProgressBar::Refresh, budgetMs, gRefreshCount);
    return true;
}

void RefreshQueue::abandon() {
    if (ucCoolProgressBar.running()) finish("Done");
}

void RefreshQueue::step() {
    const bool last = gRefreshIndex >= gRefreshCount - 1;
    if (!last)
        sendNext();
    else
        finish(gRefreshReplied ? "Refreshing data  complete seccessful!" : "Done");
}

void RefreshQueue::sendNext() {
    ++gRefreshIndex;
    gRefreshReplied = false;
    const auto& item = gRefreshQueue.at(static_cast<std::size_t>(gRefreshIndex));
    ucCoolProgressBar.setText(item.Caption);
    sender_.SendCommand(item.Key);
}

void RefreshQueue::finish(const char* lastText) {
    expectedPattern.clear();
    ucCoolProgressBar.setText("Done");
    ucCoolProgressBar.EndProgress(CoolProgressBar::Read);
    ucCoolProgressBar.setText(lastText);
}

bool RefreshQueue::takeAnswer(std::string_view line) {
    if (!ucCoolProgressBar.visible() || gRefreshIndex >= gRefreshCount) return false;
    const auto& item = gRefreshQueue.at(static_cast<std::size_t>(gRefreshIndex));
    if (!answersRead(line, item.Key, expectedPattern)) return false;
    gRefreshReplied = true;
    ucCoolProgressBar.setProgressSpeed(CoolProgressBar::Refresh, 2);
    return true;
}

void RefreshQueue::advance() { ucCoolProgressBar.setProgressSpeed(CoolProgressBar::Refresh, 2); }

}  // namespace trunvex
