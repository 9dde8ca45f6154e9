#include "simulator/gateway_clock.h"

#include "simulator/fields.h"

#include <array>
#include <vector>

namespace simulator {

using namespace std::chrono;

namespace {

int weekdayOf(sys_days date) { return static_cast<int>(weekday(date).c_encoding()) + 1; }

}  // namespace

std::string ClockReading::text() const {
    return joinFields({padded(day, 2), padded(month, 2), padded(year, 2), std::to_string(weekday), padded(hour, 2),
                       padded(minute, 2)});
}

GatewayClock::GatewayClock(sys_seconds start) : base(start) {}

sys_seconds GatewayClock::moment(milliseconds now) const { return base + duration_cast<seconds>(now - basedAt); }

ClockReading GatewayClock::read(milliseconds now) const {
    const auto time = moment(now);
    const auto date = floor<days>(time);
    const year_month_day calendar(date);
    const hh_mm_ss<seconds> ofDay(time - date);
    ClockReading reading;
    reading.day = static_cast<int>(static_cast<unsigned>(calendar.day()));
    reading.month = static_cast<int>(static_cast<unsigned>(calendar.month()));
    reading.year = static_cast<int>(calendar.year()) % 100;
    reading.weekday = (weekdayOf(date) - 1 + weekdayShift) % 7 + 1;
    reading.hour = static_cast<int>(ofDay.hours().count());
    reading.minute = static_cast<int>(ofDay.minutes().count());
    return reading;
}

bool GatewayClock::set(std::string_view text, milliseconds now) {
    ClockReading wanted = read(now);
    struct Column {
        int ClockReading::*value;
        int least;
        int most;
    };
    static constexpr std::array<Column, 6> columns{{{&ClockReading::day, 1, 31},
                                                    {&ClockReading::month, 1, 12},
                                                    {&ClockReading::year, 0, 99},
                                                    {&ClockReading::weekday, 1, 7},
                                                    {&ClockReading::hour, 0, 23},
                                                    {&ClockReading::minute, 0, 59}}};
    const std::vector<std::string> fields = splitFields(text);
    if (fields.size() != columns.size()) return false;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (fields[i].empty()) continue;
        const auto value = number(fields[i], columns[i].least, columns[i].most);
        if (!value) return false;
        wanted.*columns[i].value = *value;
    }
    const year_month_day date(year(2000 + wanted.year), month(static_cast<unsigned>(wanted.month)),
                              day(static_cast<unsigned>(wanted.day)));
    if (!date.ok()) return false;
    base = sys_days(date) + hours(wanted.hour) + minutes(wanted.minute);
    basedAt = now;
    weekdayShift = (wanted.weekday - weekdayOf(sys_days(date)) + 7) % 7;
    return true;
}

}  // namespace simulator
