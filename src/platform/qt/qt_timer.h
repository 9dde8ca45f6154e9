#pragma once

#include <QObject>
#include <QTimer>
#include <functional>

#include "platform/timer.h"

namespace trunvex {

// "At once" ticks come from posted events, one tick an event: each waits its turn behind what the link has delivered,
// and costs no timer. Everything slower is a precise timer.
class QtTimer : public QObject, public Timer {
public:
    explicit QtTimer(std::function<void()> onTick);

    void start(int intervalMs) override;
    void stop() override;
    bool isActive() const override { return active_; }

protected:
    bool event(QEvent* event) override;

private:
    void postTick();

    std::function<void()> onTick_;
    QTimer timer_;
    bool active_ = false;
    bool atOnce_ = false;
    bool posted_ = false;
};

}  // namespace trunvex
