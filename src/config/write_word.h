#pragma once

#include <string>

#include "fields/record_form.h"
#include "platform/clock.h"
#include "queues/write_queue.h"

namespace trunvex {

// Puts beside a form what became of its last write: "Port 1 written 08:03:12". The panel's own word is gone in a
// moment.
class WriteWord {
public:
    WriteWord(WriteQueue& writes, const Clock& clock, RecordForm& form);
    WriteWord(const WriteWord&) = delete;
    WriteWord& operator=(const WriteWord&) = delete;

    // This line is on its way, and so is called for people.
    void expect(std::string line, std::string name);
    void tell(const std::string& what);

private:
    const Clock& clock_;
    RecordForm& form_;
    std::string line_;
    std::string name_;
    std::string key_;  // of the record that was shown then
};

}  // namespace trunvex
