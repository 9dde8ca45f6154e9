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
    paused_ = false;
    SetProgress(0);
    timer_->start(tickIntervalMs_);
}

void CoolProgressBar::setProgressSpeed(int, int intervalMs) {
    if (running_ && !paused_) timer_->start(intervalMs);
}

void CoolProgressBar::RestoreSpeed(int mode) { setProgressSpeed(mode, tickIntervalMs_); }

void CoolProgressBar::SetProgress(int percent) { assign(percent_, percent); }

void CoolProgressBar::EndProgress(int) {
    running_ = false;
    paused_ = false;
    timer_->stop();
    setVisible(false);
}

void CoolProgressBar::PauseProgress(bool pause) {
    if (!running_ || pause == paused_) return;
    paused_ = pause;
    if (pause)
        timer_->stop();
    else
        timer_->start(tickIntervalMs_);
}

bool CoolProgressBar::full() const { return mode_ == Refresh ? percent_ >= 99 : percent_ > 99; }

void CoolProgressBar::tick() {
    ++tickCounter_;
    if (full()) {
        SetProgress(100);
        if (mode_ == Refresh || itemsStepped_ >= itemsTotal_) {
            completed_.emit(mode_);
            if (!running_) return;
        }
    } else {
        SetProgress(percent_ + 1);
    }
    if (tickCounter_ >= ticksPerItem_) {
        tickCounter_ = 0;
        ++itemsStepped_;
        stepped_.emit(mode_, percent_);
    }
}

}  // namespace trunvex
