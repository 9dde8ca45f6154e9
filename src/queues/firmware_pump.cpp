#include "queues/firmware_pump.h"

namespace trunvex {

namespace {

constexpr int firstTargetMs = 10000;

}  // namespace

FirmwarePump::FirmwarePump(Platform& platform, CommandSender& sender, ucProgress& panel, WriteQueue& writes)
    : platform_(platform), sender_(sender), panel_(panel), writes_(writes) {
    // A late "completed" of a target must not send the next one after the operator has stopped the update.
    writes_.ended().connect([this](WriteQueue::Ending ending) {
        if (ending != WriteQueue::Ending::Complete && ending != WriteQueue::Ending::Replaced) end();
    });
    writes_.abandoned().connect([this] { end(); });
}

WriteBatch FirmwarePump::batchOf(const std::string& line) {
    WriteBatch batch;
    batch.items.push_back(command(line, "BootLoad: " + line));
    batch.firstText = "send data : ";
    batch.dropsLink = true;
    // The last target may be tried again or passed over; before it, a failure is one like any other.
    if (gBootCount_ == 0) batch.lastFailed = [this](Button answer) { lastFailed(answer); };
    return batch;
}

bool FirmwarePump::updateAll(std::vector<std::string> commands) {
    if (commands.empty() || gBootRunning_) return false;
    gBootCount_ = static_cast<int>(commands.size()) - 1;
    auto batch = batchOf(commands.back());
    batch.timeToWriteMs = firstTargetMs;
    if (!writes_.start(std::move(batch))) {
        gBootCount_ = 0;
        return false;
    }
    gBootList_ = std::move(commands);
    gBootRunning_ = true;
    return true;
}

void FirmwarePump::lastFailed(Button answer) {
    if (answer == Button::Retry)
        ++gBootCount_;
    else if (answer == Button::Ignore)
        NextCoommand();
}

void FirmwarePump::end() {
    gBootRunning_ = false;
    gBootCount_ = 0;
}

void FirmwarePump::NextCoommand() {
    if (!sender_.isConnected()) {
        platform_.dialogs().info(notConnectedText);
        return;
    }
    if (gBootRunning_) writes_.WriteResult(true);
    if (!gBootRunning_ || gBootCount_ <= 1) {
        end();
        panel_.setPanelText("Connect");
        return;
    }
    --gBootCount_;
    writes_.begin(batchOf(gBootList_.at(static_cast<std::size_t>(gBootCount_ - 1))));
}

}  // namespace trunvex
