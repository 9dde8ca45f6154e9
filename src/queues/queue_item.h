#pragma once

#include <string>
#include <string_view>

#include "text/text_rules.h"

namespace trunvex {

// On which terms a command goes out: what answers it and how long that may take. A plain "OK" or "ERROR" answers every
// command; one that names a port or SIM only a command of that address.
struct Terms {
    std::string letters;    // the record that answers has these behind its first two characters: "ESN" for A_ESN
    std::string contains;   // a line that holds this text answers too; empty for none
    bool hashWord = false;  // "OK#" and "ERROR#" answer, as they do for commands of the hash family
    int timeMs = 0;         // until it counts as not answered; 0 is the time of its batch
    bool fedBack = true;    // once accepted, it is taken as the record that the gateway now holds
};

// A command of a queue.
struct QueueItem {
    std::string Key;      // the line to send, without terminator
    std::string Caption;  // what the operator is told
    std::string Tag;      // what the box adds when it fails; mostly nothing
    Terms terms = {};
    int Tries = 0;  // how often it was sent
};

// A command that its own record answers.
inline QueueItem command(std::string line, std::string caption) {
    QueueItem item;
    item.terms.letters = mid(line, 3, 3);
    item.Key = std::move(line);
    item.Caption = std::move(caption);
    return item;
}

// True when an answer that names an address, XYS with S = 0 for a whole port, may be that of a command. "000" is the
// system's, and names none.
bool mayAnswer(std::string_view address, const std::string& line);

}  // namespace trunvex
