#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/clock.h"
#include "queues/write_queue.h"

namespace trunvex {

// Tells what became of the write of a batch: "Ports written 08:03:12", or which of its items the gateway has not got.
class BatchWord {
public:
    BatchWord(WriteQueue& writes, const Clock& clock, std::function<void(const std::string&)> tell);
    BatchWord(const BatchWord&) = delete;
    BatchWord& operator=(const BatchWord&) = delete;

    // These items are on their way. `names` are theirs for people, one each; `name` is that of the whole.
    void expect(std::string name, std::vector<std::string> names);
    // The batch is over and told of; true when the gateway accepted every item.
    sigc::signal<void(bool whole)>& done() { return done_; }

private:
    void settle(WriteQueue::Outcome outcome);
    void end(WriteQueue::Ending ending);
    std::string whatFailed() const;

    const Clock& clock_;
    std::function<void(const std::string&)> tell_;
    std::string name_;
    std::vector<std::string> names_;
    std::vector<WriteQueue::Outcome> outcomes_;  // of the first items, as far as they are settled
    sigc::signal<void(bool)> done_;
};

}  // namespace trunvex
