#include "link/clock_text.h"

#include "text/text_rules.h"

namespace trunvex {

namespace {

enum ClockPart { Day = 0, Month = 1, Year = 2, Hour = 4, Minute = 5, Second = 6 };

std::string twoDigits(std::int64_t number) { return pad(std::to_string(number), 2, '0', PadSide::Left); }

}  // namespace

std::string timeOfDay(std::chrono::local_seconds time) {
    const std::chrono::hh_mm_ss clock(time - std::chrono::floor<std::chrono::days>(time));
    return twoDigits(clock.hours().count()) + ":" + twoDigits(clock.minutes().count());
}

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
}

}  // namespace trunvex
