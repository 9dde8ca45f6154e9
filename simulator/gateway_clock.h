#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace simulator {

// What the gateway's clock chip shows. Weekday 1 is Sunday, 7 Saturday; the year has two digits and lies
// after 2000.
struct ClockReading {
    int day = 1;
    int month = 1;
    int year = 0;
    int weekday = 1;
    int hour = 0;
    int minute = 0;

    // Day, month, year, weekday, hour, minute: two digits each, the weekday one.
    std::string text() const;
};

// The clock that the operator sets. It runs with the time that is handed in.
class GatewayClock {
public:
    explicit GatewayClock(std::chrono::sys_seconds start);

    ClockReading read(std::chrono::milliseconds now) const;
    // The same to the second.
    std::chrono::sys_seconds moment(std::chrono::milliseconds now) const;

    // Takes the six fields of `text()`'s order; an empty one keeps what the clock shows. False, and nothing
    // changed, when the fields make no date or time.
    bool set(std::string_view fields, std::chrono::milliseconds now);

private:
    std::chrono::sys_seconds base;
    std::chrono::milliseconds basedAt{0};
    // The chip counts weekdays by itself, so a wrong one that was set stays wrong by as many days.
    int weekdayShift = 0;
};

}  // namespace simulator
