#include "link/clock_text.h"

#include <chrono>

#include "text/text_rules.h"

namespace trunvex {

namespace {

enum ClockPart { Day = 0, Month = 1, Year = 2, Weekday = 3, Hour = 4, Minute = 5, Second = 6 };

void advanceDate(std::array<std::string, 7>& clock) {
    constexpr int century = 2000;
    constexpr int daysOfWeek = 7;
    using namespace std::chrono;
    if (!wholeWithin(clock[Year], 0, 99) || !wholeWithin(clock[Month], 1, 12) || !wholeWithin(clock[Day], 1, 31))
        return;
    const year_month_day today{year(century + static_cast<int>(val(clock[Year]))),
                               month(static_cast<unsigned>(val(clock[Month]))),
                               day(static_cast<unsigned>(val(clock[Day])))};
    if (!today.ok()) return;
    const year_month_day tomorrow(sys_days(today) + days(1));
    clock[Day] = twoDigits(static_cast<unsigned>(tomorrow.day()));
    clock[Month] = twoDigits(static_cast<unsigned>(tomorrow.month()));
    clock[Year] = twoDigits(static_cast<int>(tomorrow.year()) % 100);
    if (wholeWithin(clock[Weekday], 1, daysOfWeek))
        clock[Weekday] = std::to_string(val(clock[Weekday]) % daysOfWeek + 1);
}

}  // namespace

std::string clockText(SessionState& session) {
    auto& clock = session.gClockField;
    for (const int part : {Year, Month, Day, Hour, Minute, Second})
        clock[static_cast<std::size_t>(part)] = pad(clock[static_cast<std::size_t>(part)], 2, '0', PadSide::Left);
    const auto date = clock[Year] + "-" + clock[Month] + "-" + clock[Day];
    const auto time = clock[Hour] + ":" + clock[Minute] + ":" + clock[Second];
    return date == "00-00-00" ? time : date + " " + time;
}

void advanceClock(SessionState& session) {
    auto& clock = session.gClockField;
    const auto below = [&](ClockPart part, int bound) {
        return isNumeric(clock[part]) && val(clock[part]) >= 0 && val(clock[part]) < bound;
    };
    if (!below(Hour, 24) || !below(Minute, 60) || !below(Second, 60)) return;
    const auto seconds = (val(clock[Hour]) * 3600 + val(clock[Minute]) * 60 + val(clock[Second]) + 1) % 86400;
    clock[Hour] = twoDigits(seconds / 3600);
    clock[Minute] = twoDigits(seconds / 60 % 60);
    clock[Second] = twoDigits(seconds % 60);
    if (seconds == 0) advanceDate(clock);
}

}  // namespace trunvex
