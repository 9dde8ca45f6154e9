#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace simulator {

// All fields of a comma-separated body; an empty body has one empty field.
std::vector<std::string> splitFields(std::string_view body, char separator = ',');

std::string joinFields(const std::vector<std::string>& fields);

// Decimal digits only, at most nine of them, within least..most; anything else is nothing.
std::optional<int> number(std::string_view digits, int least, int most);

// The value in decimal, with leading zeros up to the width.
std::string padded(int value, int width);

// MMMMM:SS, five digits of minutes and two of seconds.
std::string talkCounter(int seconds);

}  // namespace simulator
