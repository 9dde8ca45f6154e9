#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

// The text rules that every floor uses. The wire, the settings files and the operator all deliver text; what a number,
// a pattern or a position in it means is decided here and nowhere else. Positions count from 1, as on the wire.
namespace trunvex {

// The number at the front of a text: leading blanks are skipped, then an optional sign and the longest run that reads
// as a decimal number. A text without one, or with one out of range, is 0. "12ab" is 12, "ab" is 0.
std::int64_t val(std::string_view text);

// True when the whole text, blanks around it aside, is a decimal number.
bool isNumeric(std::string_view text);

// True for digits and nothing else: one at least, and no more than a number holds.
bool isWhole(std::string_view text);
// True when the text is whole and the number is within both limits.
bool wholeWithin(std::string_view text, std::int64_t least, std::int64_t most);

// The characters from position `start` (1-based) on, at most `count`; empty when the text is shorter.
std::string_view mid(std::string_view text, std::size_t start, std::size_t count = std::string_view::npos);

// The last `count` characters, or the whole text when it is shorter.
std::string_view right(std::string_view text, std::size_t count);

// True when the whole text matches the pattern, in which "*" stands for any run of characters, also none.
// Case-sensitive; no other character is special.
bool like(std::string_view text, std::string_view pattern);

inline bool contains(std::string_view text, std::string_view part) { return text.find(part) != std::string_view::npos; }

// The text in small letters, as far as ASCII goes.
std::string folded(std::string text);
// True when the text holds the part, letters of either case alike. The part is folded already; an empty one is in all.
bool containsFolded(std::string_view text, std::string_view foldedPart);

enum class PadSide { Left, Right };

// Fills the text with `fill` up to `length` characters; a text that is long enough comes back as it is.
std::string pad(std::string_view text, std::size_t length, char fill, PadSide side);

std::string_view trim(std::string_view text);

// Rounds numerator / denominator to the nearest whole number, halves away from zero. The denominator is above 0.
int roundedDivision(int numerator, int denominator);

// Makes a text from the wire fit for one part of a file name: letters, digits, "-", "_" and "." stay (no leading "."),
// anything else becomes "_". So an identity sent by a gateway never leaves the folder it is meant for.
std::string fileNamePart(std::string_view text);

// A text from the wire for the eye: bytes outside printable ASCII appear as \xHH, and never as control characters.
std::string escaped(std::string_view bytes);

// A number of a date or a time, 0 in front of a single digit.
std::string twoDigits(std::int64_t number);
// "hh:mm:ss".
std::string timeOfDay(std::chrono::local_seconds time);
// The same without the seconds.
std::string hourAndMinute(std::chrono::local_seconds time);

}  // namespace trunvex
