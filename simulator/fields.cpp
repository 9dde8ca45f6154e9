#include "simulator/fields.h"

#include <algorithm>

namespace simulator {

std::vector<std::string> splitFields(std::string_view body, char separator) {
    std::vector<std::string> fields;
    for (;;) {
        const std::size_t end = body.find(separator);
        fields.emplace_back(body.substr(0, end));
        if (end == std::string_view::npos) return fields;
        body.remove_prefix(end + 1);
    }
}

std::string joinFields(const std::vector<std::string>& fields) {
    std::string body;
    for (const std::string& field : fields) {
        if (&field != &fields.front()) body += ',';
        body += field;
    }
    return body;
}

std::optional<int> number(std::string_view digits, int least, int most) {
    const bool allDigits = std::all_of(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '9'; });
    if (digits.empty() || digits.size() > 9 || !allDigits) return std::nullopt;
    int value = 0;
    for (const char c : digits) value = value * 10 + (c - '0');
    if (value < least || value > most) return std::nullopt;
    return value;
}

std::string padded(int value, int width) {
    std::string text = std::to_string(value);
    if (text.size() < static_cast<std::size_t>(width))
        text.insert(0, static_cast<std::size_t>(width) - text.size(), '0');
    return text;
}

std::string talkCounter(int seconds) { return padded(seconds / 60, 5) + ":" + padded(seconds % 60, 2); }

}  // namespace simulator
