#pragma once

#include <functional>
#include <utility>

namespace trunvex {

// What an answer of the operator's is for. A box runs a nested loop: behind it the link may fall, another gateway log
// in, a batch end or another node be selected, and the answer is then worth nothing. Who asks hands the ticket in, and
// gets no answer once it is stale.
class Ticket {
public:
    // Good as long as `read` answers what it answers now; more than one such condition may be joined by "&&".
    template <class Read>
    static Ticket of(Read read) {
        return Ticket([read, was = read()] { return read() == was; });
    }
    // For a question whose answer nothing can make stale. Say why where it is used.
    static Ticket lasting() {
        return Ticket([] { return true; });
    }
    explicit Ticket(std::function<bool()> good) : good_(std::move(good)) {}

    bool good() const { return good_(); }
    Ticket operator&&(Ticket other) const {
        return Ticket([one = good_, two = std::move(other.good_)] { return one() && two(); });
    }

private:
    std::function<bool()> good_;
};

}  // namespace trunvex
