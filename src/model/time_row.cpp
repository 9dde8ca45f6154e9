#include "model/time_row.h"

#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr std::size_t wireTimeLength = 4;

std::string shownTime(std::string_view wire) {
    if (wire.size() != wireTimeLength) return {};
    return escaped(std::string(wire.substr(2)) + ":" + std::string(wire.substr(0, 2)));
}

}  // namespace

const std::array<const char*, daysOfWeek> dayNames{"Su", "Mo", "Tu", "We", "Th", "Fr", "Sa"};

std::string fromOf(const TimeRow& row) { return shownTime(mid(row.time, 1, wireTimeLength)); }
std::string toOf(const TimeRow& row) { return shownTime(mid(row.time, wireTimeLength + 1)); }

int dayBit(std::size_t day) { return (everyDay + 1) >> (day + 1); }

std::string dayWords(int mask) {
    if (mask == everyDay) return "every day";
    std::string words;
    for (std::size_t day = 0; day < daysOfWeek;) {
        if ((mask & dayBit(day)) == 0) {
            ++day;
            continue;
        }
        auto last = day;
        while (last + 1 < daysOfWeek && (mask & dayBit(last + 1)) != 0) ++last;
        words += (words.empty() ? "" : ", ") + std::string(dayNames[day]);
        if (last > day) words += (last == day + 1 ? ", " : "-") + std::string(dayNames[last]);
        day = last + 1;
    }
    return words;
}

}  // namespace trunvex
