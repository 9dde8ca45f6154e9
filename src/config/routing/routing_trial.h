#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "text/text_table.h"

namespace trunvex {

// The tables by which calls find their way, as they stand on the page. A table that was not read is left out.
struct RoutingPicture {
    struct Port {
        bool present = true;
        std::optional<bool> enabled;  // none: not read
        int line = 0;                 // 1 to 32 when one is bound to it
        std::string group;
    };
    struct AccessList {
        bool on = false;
        bool admitsUnlisted = false;
        std::vector<TextRow> rows;  // number, "1" or "0"
    };

    std::optional<int> mode;  // 0 static, 1 cyclic, 2 random
    bool byPrefix = false;
    std::size_t prefixDigits = 16;
    bool mnp = false;
    std::array<Port, 32> ports;
    std::array<std::optional<bool>, 30> channels;
    std::optional<std::vector<TextRow>> prefixes;       // prefix, high, low, routing code
    std::optional<std::vector<TextRow>> modifications;  // ignored digits, added digits
    bool modifies = false;
    std::optional<AccessList> fromIsdn;
    std::vector<std::string> causes;  // by the order of the wire; empty when not read
};

// What becomes of a call from the E1 line to that number, which is not empty: a sentence a step, the last one says
// where it ends. `caller` may be empty; `line` is the B-channel that it comes on, 0 when that is left open.
std::vector<std::string> tryNumber(const RoutingPicture& picture, const std::string& dialled, const std::string& caller,
                                   int line);

}  // namespace trunvex
