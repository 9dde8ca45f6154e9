#pragma once

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>

namespace trunvex {

// Cuts the gateway's bytes into lines. A line ends at a carriage return; a NUL right behind it in the same read
// belongs to the terminator. Nothing else is special: a line feed stays in front of the next line.
//
// A line that lies whole in one read is handed on as a view into it, without a copy. Its view is valid until `handle`
// returns. `handle` may come back in here (a message box runs the message loop, which delivers further reads): the
// rest of the read in hand is then cut first, so that lines are handed on in the order they came.
class LineCutter {
public:
    // A peer that never ends its line must not eat the memory: what is past this length of a line is dropped.
    static constexpr std::size_t longestLine = 1u << 20;

    template <class Handle>
    void feed(std::string_view read, Handle&& handle) {
        cutRest(handle);
        const auto outer = rest_;
        rest_ = read;
        cutRest(handle);
        rest_ = outer;
    }

    // Forgets the unfinished line and what is left of the read in hand.
    void clear() {
        unfinished_.clear();
        rest_ = {};
    }

private:
    template <class Handle>
    void cutRest(Handle&& handle) {
        while (!rest_.empty()) {
            const auto* end = static_cast<const char*>(std::memchr(rest_.data(), '\r', rest_.size()));
            if (!end) {
                keep(rest_);
                rest_ = {};
                return;
            }
            const auto length = static_cast<std::size_t>(end - rest_.data());
            const auto line = rest_.substr(0, length);
            const bool nulFollows = length + 1 < rest_.size() && end[1] == '\0';
            rest_.remove_prefix(length + (nulFollows ? 2 : 1));
            if (unfinished_.empty()) {
                handle(line);
            } else {
                keep(line);
                const auto whole = std::move(unfinished_);
                unfinished_.clear();
                handle(std::string_view(whole));
            }
        }
    }

    void keep(std::string_view piece) {
        unfinished_.append(piece.substr(0, longestLine - std::min(longestLine, unfinished_.size())));
    }

    std::string unfinished_;
    std::string_view rest_;
};

}  // namespace trunvex
