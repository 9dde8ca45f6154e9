#pragma once

#include <sigc++/sigc++.h>

#include <string>
#include <vector>

#include "queues/write_queue.h"

namespace trunvex {

// A write to all members of a group, and what became of each: the operator sees which got it and which did not.
class GroupWrite {
public:
    enum class Outcome { Waiting, Written, Refused, NoAnswer, NotSent };
    struct Member {
        std::string name;
        std::string line;
        Outcome outcome = Outcome::Waiting;
    };

    explicit GroupWrite(WriteQueue& writes);

    // False, and what was shown stays, when the batch can't begin.
    bool start(const std::string& groupKey, std::vector<QueueItem> items);
    void forget();

    const std::string& groupKey() const { return groupKey_; }  // of the write that is shown
    const std::vector<Member>& members() const { return members_; }
    std::string summary() const;  // "5 of 7 written"
    // Every member has got it. Told once, at the end.
    sigc::signal<void(const std::string& groupKey)>& complete() { return complete_; }
    static const char* word(Outcome outcome);
    sigc::signal<void()>& changed() { return changed_; }

private:
    void settle(const QueueItem& item, WriteQueue::Outcome outcome);
    void end();

    WriteQueue& writes_;
    std::string groupKey_;
    std::vector<Member> members_;
    bool running_ = false;
    sigc::signal<void()> changed_;
    sigc::signal<void(const std::string&)> complete_;
};

}  // namespace trunvex
