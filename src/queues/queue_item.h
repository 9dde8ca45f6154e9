#pragma once

#include <string>
#include <string_view>

#include "text/text_rules.h"

namespace trunvex {

// How long the gateway may pause between two lines of a table; on the slowest line one takes 160 ms.
inline constexpr int tableQuietMs = 400;

// On which terms a command goes out: what answers it and how long that may take. A plain "OK" or "ERROR" answers every
// command; one that names a port or SIM only a command of that address.
struct Terms {
    std::string letters;    // the record that answers has these behind its first two characters: "ESN" for A_ESN
    std::string contains;   // a line that holds this text answers too; empty for none
    bool hashWord = false;  // "OK#" and "ERROR#" answer, as they do for commands of the hash family
    int timeMs = 0;         // until it counts as not answered; 0 is the time of its batch
    bool fedBack = true;    // once accepted, it is taken as the record that the gateway now holds
    // The answer is a run of lines, and over when none has come for tableQuietMs.
    bool manyLines = false;
    // The gateway restarts: no word answers, and the link falls. It goes out only when all before it was accepted, and
    // never a second time for want of an answer.
    bool restarts = false;
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

// A read that is answered by a table.
inline QueueItem tableRead(std::string line, std::string caption) {
    auto item = command(std::move(line), std::move(caption));
    item.terms.manyLines = true;
    return item;
}

// Has the gateway restart, so that it works by what was written before.
inline QueueItem restartRequest() {
    auto item = command("C_RBT", "Reset request");
    item.terms.restarts = true;
    item.terms.fedBack = false;
    return item;
}

// True when an answer that names an address, XYS with S = 0 for a whole port, may be that of a command. "000" is the
// system's, and names none.
bool mayAnswer(std::string_view address, const std::string& line);

}  // namespace trunvex
