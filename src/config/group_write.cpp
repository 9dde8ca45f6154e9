#include "config/group_write.h"

#include <algorithm>

namespace trunvex {

GroupWrite::GroupWrite(WriteQueue& writes) : writes_(writes) {
    writes_.settled().connect([this](const QueueItem& item, WriteQueue::Outcome outcome) { settle(item, outcome); });
    writes_.ended().connect([this](WriteQueue::Ending) { end(); });
}

bool GroupWrite::start(const std::string& groupKey, std::vector<QueueItem> items) {
    std::vector<Member> members;
    for (const auto& item : items) members.push_back({item.Caption, item.Key});
    WriteBatch batch;
    batch.items = std::move(items);
    batch.groupWrite = true;
    if (!writes_.start(std::move(batch))) return false;
    groupKey_ = groupKey;
    members_ = std::move(members);
    running_ = true;
    changed_.emit();
    return true;
}

void GroupWrite::forget() {
    running_ = false;
    groupKey_.clear();
    members_.clear();
    changed_.emit();
}

void GroupWrite::settle(const QueueItem& item, WriteQueue::Outcome outcome) {
    if (!running_) return;
    const auto member = std::find_if(members_.begin(), members_.end(), [&](const Member& one) {
        return one.outcome == Outcome::Waiting && one.line == item.Key;
    });
    if (member == members_.end()) return;
    member->outcome = outcome == WriteQueue::Outcome::Accepted  ? Outcome::Written
                      : outcome == WriteQueue::Outcome::Refused ? Outcome::Refused
                                                                : Outcome::NoAnswer;
    changed_.emit();
}

// What was sent when the batch was cut off may have arrived; what stood behind it never left.
void GroupWrite::end() {
    if (!running_) return;
    running_ = false;
    const auto inFlight = writes_.walk().index();
    for (std::size_t i = 0; i < members_.size(); ++i)
        if (members_[i].outcome == Outcome::Waiting)
            members_[i].outcome = i <= inFlight ? Outcome::NoAnswer : Outcome::NotSent;
    changed_.emit();
    if (std::all_of(members_.begin(), members_.end(),
                    [](const Member& one) { return one.outcome == Outcome::Written; }))
        complete_.emit(groupKey_);
}

std::string GroupWrite::summary() const {
    const auto written = std::count_if(members_.begin(), members_.end(),
                                       [](const Member& one) { return one.outcome == Outcome::Written; });
    return std::to_string(written) + " of " + std::to_string(members_.size()) + " written";
}

const char* GroupWrite::word(Outcome outcome) {
    switch (outcome) {
        case Outcome::Written:
            return "written";
        case Outcome::Refused:
            return "refused";
        case Outcome::NoAnswer:
            return "no answer";
        case Outcome::NotSent:
            return "not sent";
        case Outcome::Waiting:
            break;
    }
    return "waiting";
}

}  // namespace trunvex
