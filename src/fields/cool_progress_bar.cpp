#include "fields/cool_progress_bar.h"

#include <algorithm>

#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr int fallbackIntervalMs = 500;

}  // namespace

CoolProgressBar::CoolProgressBar(std::string name, Platform& platform)
    : Field(std::move(name)), timer_(platform.makeTimer([this] { tick(); })) {
    setVisible(false);
}

void CoolProgressBar::StartProgress(int mode, int timeBudgetMs, int itemCount) {
    mode_ = mode;
    itemsTotal_ = std::max(itemCount, 1);
    // More than 200 items would leave no tick for each; one tick an item still walks such a batch to its end.
    ticksPerItem_ = std::max(roundedDivision(100, itemsTotal_), 1);
    tickIntervalMs_ = roundedDivision(timeBudgetMs, ticksPerItem_);
    if (tickIntervalMs_ < 1) tickIntervalMs_ = fallbackIntervalMs;
    tickCounter_ = 0;
    itemsStepped_ = 0;
    running_ = true;
    showPercent();
    follow();
}

// The timer runs at its own interval, or not at all.
void CoolProgressBar::follow() {
    if (running_ && holders_.empty())
        timer_->start(tickIntervalMs_);
    else
        timer_->stop();
}

void CoolProgressBar::setProgressSpeed(int, int intervalMs) {
    if (running_ && holders_.empty()) timer_->start(intervalMs);
}

void CoolProgressBar::RestoreSpeed(int mode) { setProgressSpeed(mode, tickIntervalMs_); }

// Ticks of all items together may be more or fewer than a hundred.
void CoolProgressBar::showPercent() {
    const auto ticks = static_cast<std::int64_t>(itemsStepped_) * ticksPerItem_ + tickCounter_;
    const auto all = static_cast<std::int64_t>(itemsTotal_) * ticksPerItem_;
    assign(percent_, static_cast<int>(std::min<std::int64_t>(100, ticks * 100 / all)));
}

void CoolProgressBar::stepBack() {
    itemsStepped_ = std::max(0, itemsStepped_ - 1);
    showPercent();
}

void CoolProgressBar::EndProgress(int) {
    running_ = false;
    timer_->stop();
    setVisible(false);
}

void CoolProgressBar::PauseProgress(bool pause, const std::string& owner) {
    const bool held = !holders_.empty();
    if (pause)
        holders_.insert(owner);
    else
        holders_.erase(owner);
    if (held != !holders_.empty()) follow();
}

void CoolProgressBar::tick() {
    if (itemsStepped_ >= itemsTotal_) {
        completed_.emit(mode_);
        return;
    }
    ++tickCounter_;
    if (tickCounter_ >= ticksPerItem_) {
        tickCounter_ = 0;
        ++itemsStepped_;
        showPercent();
        stepped_.emit(mode_, percent_);
    } else {
        showPercent();
    }
}

}  // namespace trunvex
