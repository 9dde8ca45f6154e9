#include "queues/walk.h"

namespace trunvex {

void Walk::begin(std::vector<QueueItem> items) {
    ++number_;
    items_ = std::move(items);
    index_ = 0;
    reply_ = Reply::None;
    active_ = true;
}

// The items stay, for who asks afterwards what was in flight.
void Walk::end() {
    if (!active_) return;
    ++number_;
    active_ = false;
}

void Walk::send() {
    reply_ = Reply::None;
    auto& sent = item();
    ++sent.Tries;
    if (!sent.Key.empty()) sender_.SendCommand(sent.Key);
}

void Walk::next() { ++index_; }

}  // namespace trunvex
