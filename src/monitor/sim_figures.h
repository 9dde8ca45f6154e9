#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "model/port_address.h"
#include "text/split.h"

namespace trunvex {

// A figure for people, worked out on its text and cut, never rounded, but to four places at the start. Without minutes:
// the whole part, the separator and so many decimals; a value that is not above 0 or has no point comes back as it is.
// With minutes: "1 Minutes 05 Seconds ", and "0 Minutes " for what is not above 0.
std::string formatFraction(std::string_view value, std::string_view separator, int decimals, bool minutesMode);

// A_STR: what the gateway has counted of a SIM since it was reset. Texts are as they travelled.
struct SimFigures {
    // Nothing for a SIM that there can't be; a record that is cut short before its counters throws.
    static std::optional<SimFigures> of(const Fields& fields);
    // The same SIM behind a reset.
    SimFigures cleared() const;

    std::int64_t talkSeconds() const;
    std::int64_t acdSeconds() const;  // of a call that succeeded; 0 without one
    double asrPercent() const;
    std::string asr() const;  // "66"
    std::string acd() const;  // "1 Minutes 05 Seconds ", "0 Minutes"

    SimAddress sim;
    std::string talked;  // MMMMM:SS
    std::int64_t dialled = 0;
    std::int64_t succeeded = 0;
    std::string balance = {};
    std::string simId = {};
    std::string imsi = {};
};

// The decimal number a text begins with, whatever the system's language; 0 without one.
double decimalOf(std::string_view text);
// "64:05"
std::string minutesAndSeconds(std::int64_t seconds);

}  // namespace trunvex
