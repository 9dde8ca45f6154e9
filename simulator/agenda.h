#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace simulator {

// Things to do, each at its moment; those of one moment in the order in which they were planned. It has a time
// of its own, which stands at the thing that was done last.
class Agenda {
public:
    using Milliseconds = std::chrono::milliseconds;

    void in(Milliseconds delay, std::function<void()> what);
    std::optional<Milliseconds> nextDue() const;
    // Moves to the next moment and does what is planned for it, which may plan more. Something must be planned.
    void doNext();
    // Lets time go by up to here, or to the next thing to do if that comes first. Never back.
    void idleUntil(Milliseconds moment);
    Milliseconds now() const { return time; }

private:
    struct Entry {
        Milliseconds due;
        std::uint64_t number;
        std::function<void()> what;
    };
    static bool later(const Entry& a, const Entry& b);

    std::vector<Entry> heap;
    Milliseconds time{0};
    std::uint64_t planned = 0;
};

}  // namespace simulator
