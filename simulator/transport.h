#pragma once

#include "simulator/descriptor.h"

#include <poll.h>
#include <chrono>
#include <optional>
#include <string>

namespace simulator {

struct Link {
    Descriptor descriptor;  // non-blocking
    std::string peer;       // who is on it, for the operator
};

// A way on which a console comes to be on the line. It is asked only while none is.
class Transport {
public:
    virtual ~Transport() = default;

    virtual std::string describe() const = 0;
    // What to watch; descriptor -1 when only time will tell.
    virtual pollfd waitsFor() const = 0;
    // When take() is worth a call though nothing came.
    virtual std::optional<std::chrono::milliseconds> nextTry() const = 0;
    // The console, if one is there. Failures of a single one are no news: the next is waited for.
    virtual std::optional<Link> take(std::chrono::milliseconds now) = 0;
};

}  // namespace simulator
