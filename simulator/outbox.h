#pragma once

#include "simulator/faults.h"
#include "simulator/random.h"

#include <chrono>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace simulator {

// The lines on their way out. First each waits for its moment, then the wire's faults make pieces of it.
// Nothing leaves but from advanceTo().
class Outbox {
public:
    using Milliseconds = std::chrono::milliseconds;

    Outbox(const WireFaults& wireFaults, std::uint64_t seed) : faults(wireFaults), random(seed) {}

    // Adds a line without terminator. Lines of one moment leave in the order in which they were put.
    void put(Milliseconds due, std::string line);
    // The link ends at this moment, behind the lines that are due by then.
    void hangUpAt(Milliseconds due) { hangUp = due; }

    // Sends what is due and ends the link if that is due. The callbacks may put() and clear().
    void advanceTo(Milliseconds now, const std::function<void(std::string_view)>& send,
                   const std::function<void()>& endLink);
    // The moment of the next piece, line or hang-up.
    std::optional<Milliseconds> nextDue() const;

    // A new link: nothing of the old one comes out any more.
    void clear();

private:
    struct Piece {
        Milliseconds due;
        std::string bytes;
    };

    bool cutNextLines(Milliseconds now);
    std::string dressed(const std::string& line);
    std::string garbageLine();
    void cutIntoPieces(const std::string& bytes, Milliseconds due);
    Milliseconds leaves(Milliseconds due) const;
    bool dying() const;

    const WireFaults& faults;
    Random random;
    std::multimap<Milliseconds, std::string> waiting;
    std::deque<Piece> pieces;
    std::optional<Milliseconds> hangUp;
    Milliseconds lastPieceDue{0};
    int linesOfLink = 0;
};

}  // namespace simulator
