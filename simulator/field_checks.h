#pragma once

#include "simulator/fields.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace simulator {

// What may be written into a field of a settings record. None of them is asked about an empty text, which
// leaves the field as it is.

template <int... codes>
bool oneOf(const std::string& text) {
    const auto code = number(text, 0, 99999);
    return code && ((*code == codes) || ...);
}

template <int least, int most>
bool within(const std::string& text) {
    return number(text, least, most).has_value();
}

// A time or count that 0 switches off.
template <int least, int most>
bool offOrWithin(const std::string& text) {
    return number(text, 0, most).value_or(least) == 0 || within<least, most>(text);
}

inline bool consistsOf(std::string_view text, std::string_view characters) {
    return text.find_first_not_of(characters) == std::string_view::npos;
}

template <std::size_t most>
bool digitsUpTo(const std::string& text) {
    return text.size() <= most && consistsOf(text, "0123456789");
}

// What a telephone dials in front of a number, service codes among it.
template <std::size_t most>
bool keysUpTo(const std::string& text) {
    return text.size() <= most && consistsOf(text, "0123456789*#");
}

// Digits, and a plus in front of an international number.
template <std::size_t most>
bool phoneNumber(const std::string& text) {
    const std::string digits = text.substr(text.starts_with('+') ? 1 : 0);
    return !digits.empty() && digitsUpTo<most>(digits);
}

// Letters, digits and signs. A control character would cut the answer in two or spoil it.
template <std::size_t length>
bool printable(const std::string& text) {
    return text.size() == length && std::all_of(text.begin(), text.end(), [](char c) { return c > ' ' && c < '\x7F'; });
}

// For a field that has nothing to write.
inline bool nothing(const std::string&) { return false; }

}  // namespace simulator
