#pragma once

#include <vector>

#include "queues/command_sender.h"
#include "queues/queue_item.h"

namespace trunvex {

// The walk through an ordered batch of commands, which every queue takes: one is in flight, and its reply is noted
// until the queue's bar decides at its tick what comes next. A reply is put down before a line goes out, so that an
// answer to an earlier try or command is never credited to this one.
class Walk {
public:
    enum class Reply { None, Accepted, Refused };

    explicit Walk(CommandSender& sender) : sender_(sender) {}

    // Takes a batch that is not empty, and sends nothing yet.
    void begin(std::vector<QueueItem> items);
    void end();
    // Sends the command in flight.
    void send();
    // The next one is in flight; not at the last.
    void next();

    bool active() const { return active_; }
    bool last() const { return index_ + 1 >= items_.size(); }
    std::size_t index() const { return index_; }
    std::size_t count() const { return items_.size(); }
    QueueItem& item() { return items_.at(index_); }
    const QueueItem& item() const { return items_.at(index_); }
    const QueueItem& at(std::size_t index) const { return items_.at(index); }

    Reply reply() const { return reply_; }
    void setReply(Reply reply) { reply_ = reply; }
    // Counts what began and what ended, so that a question sees whether its own walk still goes on.
    unsigned number() const { return number_; }

private:
    CommandSender& sender_;
    std::vector<QueueItem> items_;
    std::size_t index_ = 0;
    Reply reply_ = Reply::None;
    bool active_ = false;
    unsigned number_ = 0;
};

}  // namespace trunvex
