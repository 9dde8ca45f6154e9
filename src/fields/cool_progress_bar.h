#pragma once

#include <sigc++/sigc++.h>

#include <memory>
#include <set>
#include <string>
#include <string_view>

#include "fields/fields.h"
#include "platform/platform.h"

namespace trunvex {

// The bar that paces a batch: its tick is the progress shown, the time-out of the command in flight and the step to the
// next one. A reply does not step the batch; it only makes the ticks that are left run out at once.
class CoolProgressBar : public Field {
public:
    enum Mode { Refresh = 2, Read = 3 };

    CoolProgressBar(std::string name, Platform& platform);

    // Starts ticking for `itemCount` items (0 counts as 1) of `timeBudgetMs` each.
    void StartProgress(int mode, int timeBudgetMs, int itemCount);
    // Overrides the interval of the running timer; a bar that does not run stays at rest.
    void setProgressSpeed(int mode, int intervalMs);
    // Puts the interval that StartProgress computed back.
    void RestoreSpeed(int mode);
    // The step just made was for nothing: its item is tried once more.
    void stepBack();
    // Stops the timer and hides the bar.
    void EndProgress(int mode);
    // A bar rests while anyone holds it. Each owner holds it once, and lets go only what it holds itself; what is held
    // stays so when the batch ends and another begins.
    void PauseProgress(bool pause, const std::string& owner);

    bool running() const { return running_; }
    int percent() const { return percent_; }
    int ticksPerItem() const { return ticksPerItem_; }
    const std::string& text() const { return text_; }
    void setText(std::string text) { assign(text_, std::move(text)); }

    sigc::signal<void(int mode, int percent)>& stepped() { return stepped_; }
    // The bar is full and every item was stepped; told again at each tick until it is ended.
    sigc::signal<void(int mode)>& completed() { return completed_; }

private:
    void tick();
    void showPercent();
    void follow();

    std::unique_ptr<Timer> timer_;
    std::string text_;
    int mode_ = Read;
    int percent_ = 0;
    int ticksPerItem_ = 1;
    int tickCounter_ = 0;
    int itemsTotal_ = 0;
    int itemsStepped_ = 0;
    int tickIntervalMs_ = 500;
    bool running_ = false;
    std::set<std::string> holders_;
    sigc::signal<void(int, int)> stepped_;
    sigc::signal<void(int)> completed_;
};

}  // namespace trunvex
