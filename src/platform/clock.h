#pragma once

#include <chrono>

namespace trunvex {

class Clock {
public:
    virtual ~Clock() = default;

    // The operator's local time of day.
    virtual std::chrono::local_seconds localTime() const = 0;

    // Time that only goes forward, for measuring how much of it has passed.
    virtual std::chrono::milliseconds uptime() const = 0;
};

}  // namespace trunvex
