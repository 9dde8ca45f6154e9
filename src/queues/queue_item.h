#pragma once

#include <cstdint>
#include <string>

namespace trunvex {

// The one general record: a command of a queue, or a node of the port tree.
struct QueueItem {
    std::string Tag;      // queues: free marker ("SMS1", "CMS...") that changes how an answer or a failure is taken
    std::string Kind;     // tree: node type
    std::string Number;   // tree: group number, two digits
    std::string Key;      // queues: the line to send, without terminator; tree: the node's key
    std::string Caption;  // what the operator is told
    std::string Parent;   // tree: key of the parent node
    std::int16_t Tries = 0;
};

// A command for a queue.
inline QueueItem command(std::string line, std::string caption) {
    QueueItem item;
    item.Key = std::move(line);
    item.Caption = std::move(caption);
    return item;
}

}  // namespace trunvex
