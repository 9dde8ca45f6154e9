#pragma once

#include <QDateTime>
#include <QElapsedTimer>

#include "platform/clock.h"

namespace trunvex {

class QtClock : public Clock {
public:
    QtClock() { elapsed_.start(); }

    std::chrono::local_seconds localTime() const override {
        const auto now = QDateTime::currentDateTime();
        return std::chrono::local_seconds(std::chrono::seconds(now.toSecsSinceEpoch() + now.offsetFromUtc()));
    }
    std::chrono::milliseconds uptime() const override { return std::chrono::milliseconds(elapsed_.elapsed()); }

private:
    QElapsedTimer elapsed_;
};

}  // namespace trunvex
