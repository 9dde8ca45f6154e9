#pragma once

namespace trunvex {

// One repeating timer on the program's message loop. The owner gets its ticks through the callback given when it was
// made; a stopped timer never ticks again until it is started.
class Timer {
public:
    virtual ~Timer() = default;

    // Starts, or starts anew, with this interval in milliseconds (at least 1). 1 and 2 mean "at once": a real loop then
    // ticks once an event without waiting, a clock turned by hand takes them as they are.
    virtual void start(int intervalMs) = 0;
    virtual void stop() = 0;
    virtual bool isActive() const = 0;
};

}  // namespace trunvex
