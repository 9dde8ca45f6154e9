#include "text/text_rules.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>

namespace trunvex {

namespace {

constexpr std::string_view blanks = " \t";

bool isDigit(char c) { return c >= '0' && c <= '9'; }

bool isAlphanumeric(char c) { return isDigit(c) || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

}  // namespace

std::int64_t val(std::string_view text) {
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return 0;
    text.remove_prefix(first);
    if (text.size() > 1 && text[0] == '+' && isDigit(text[1])) text.remove_prefix(1);
    std::int64_t number = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    return result.ec == std::errc() ? number : 0;
}

bool isNumeric(std::string_view text) {
    text = trim(text);
    if (!text.empty() && (text[0] == '+' || text[0] == '-')) text.remove_prefix(1);
    if (text.empty()) return false;
    for (const char c : text)
        if (!isDigit(c)) return false;
    return true;
}

bool isWhole(std::string_view text) {
    constexpr std::size_t mostDigits = 18;
    return !text.empty() && text.size() <= mostDigits && std::all_of(text.begin(), text.end(), isDigit);
}

bool wholeWithin(std::string_view text, std::int64_t least, std::int64_t most) {
    return isWhole(text) && val(text) >= least && val(text) <= most;
}

std::string_view mid(std::string_view text, std::size_t start, std::size_t count) {
    if (start == 0 || start > text.size()) return {};
    return text.substr(start - 1, count);
}

std::string_view right(std::string_view text, std::size_t count) {
    return count >= text.size() ? text : text.substr(text.size() - count);
}

bool like(std::string_view text, std::string_view pattern) {
    std::size_t t = 0;
    std::size_t p = 0;
    std::size_t lastStar = std::string_view::npos;
    std::size_t retryFrom = 0;
    while (t < text.size()) {
        if (p < pattern.size() && pattern[p] == '*') {
            lastStar = p++;
            retryFrom = t;
        } else if (p < pattern.size() && pattern[p] == text[t]) {
            ++p;
            ++t;
        } else if (lastStar != std::string_view::npos) {
            p = lastStar + 1;
            t = ++retryFrom;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == '*') ++p;
    return p == pattern.size();
}

std::string folded(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), lower);
    return text;
}

bool containsFolded(std::string_view text, std::string_view foldedPart) {
    return std::search(text.begin(), text.end(), foldedPart.begin(), foldedPart.end(),
                       [](char one, char other) { return lower(one) == other; }) != text.end() ||
           foldedPart.empty();
}

std::string pad(std::string_view text, std::size_t length, char fill, PadSide side) {
    std::string padded(text);
    if (padded.size() < length) padded.insert(side == PadSide::Left ? 0 : padded.size(), length - padded.size(), fill);
    return padded;
}

std::string_view trim(std::string_view text) {
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

int roundedDivision(int numerator, int denominator) {
    const int half = denominator / 2;
    const int magnitude = (std::abs(numerator) + half) / denominator;
    return numerator < 0 ? -magnitude : magnitude;
}

std::string fileNamePart(std::string_view text) {
    std::string part;
    for (const char c : text) {
        const bool allowed = isAlphanumeric(c) || c == '-' || c == '_' || (c == '.' && !part.empty());
        part += allowed ? c : '_';
    }
    return part;
}

std::string escaped(std::string_view bytes) {
    constexpr char hex[] = "0123456789ABCDEF";
    std::string shown;
    shown.reserve(bytes.size());
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= 0x20 && byte < 0x7F) {
            shown += c;
        } else {
            shown += "\\x";
            shown += hex[byte >> 4];
            shown += hex[byte & 15];
        }
    }
    return shown;
}

std::string twoDigits(std::int64_t number) { return pad(std::to_string(number), 2, '0', PadSide::Left); }

std::string timeOfDay(std::chrono::local_seconds time) {
    const std::chrono::hh_mm_ss parts(time - std::chrono::floor<std::chrono::days>(time));
    return twoDigits(parts.hours().count()) + ":" + twoDigits(parts.minutes().count()) + ":" +
           twoDigits(parts.seconds().count());
}

std::string hourAndMinute(std::chrono::local_seconds time) { return timeOfDay(time).substr(0, 5); }

}  // namespace trunvex
