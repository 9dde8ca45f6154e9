#pragma once

#include <array>
#include <string>

namespace trunvex {

// A row of a SIM's time table, as it travels.
struct TimeRow {
    std::string time;  // MMHHMMHH: from and to, the minutes before the hours
    std::string days;  // a mask: 64 is Sunday, 1 is Saturday
};

inline constexpr std::size_t timeRowCount = 4;
inline constexpr std::size_t daysOfWeek = 7;
inline constexpr int everyDay = 127;                        // the mask of all seven days
extern const std::array<const char*, daysOfWeek> dayNames;  // "Su" to "Sa", from the mask's highest bit to its lowest

// HH:MM; empty for a time of another length.
std::string fromOf(const TimeRow& row);
std::string toOf(const TimeRow& row);
int dayBit(std::size_t day);  // of day 0 to 6
// "Mo-Fr", "Su, We", "every day"; empty for the mask 0.
std::string dayWords(int mask);

}  // namespace trunvex
