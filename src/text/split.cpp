#include "text/split.h"

#include <stdexcept>
#include <string>

namespace trunvex {

void Fields::throwNoField(std::size_t index) { throw std::out_of_range("no field " + std::to_string(index)); }

Fields splitString(std::string_view text, char separator) {
    Fields fields;
    std::size_t start = 0;
    std::size_t searchFrom = 1;
    for (;;) {
        const auto found = text.find(separator, searchFrom);
        fields.add(text.substr(start, found - start));
        if (found == std::string_view::npos) break;
        start = found + 1;
        searchFrom = start;
    }
    fields.add(endMark);
    return fields;
}

std::int16_t Indexes::at(std::size_t position) const {
    if (position >= count) throw std::out_of_range("no digit " + std::to_string(position) + " in the index");
    return digits[position];
}

std::vector<std::string_view> splitLong(std::string_view text, char separator) {
    std::vector<std::string_view> fields;
    for (std::size_t from = 1;;) {
        const auto end = text.find(separator, from);
        fields.push_back(text.substr(0, end));
        if (end == std::string_view::npos) return fields;
        text.remove_prefix(end + 1);
        from = 0;
    }
}

Indexes getIndexs(std::string_view text) {
    Indexes indexes;
    if (text.size() > indexes.digits.size()) throw std::out_of_range("index too long");
    for (const char c : text) {
        if (c < '0' || c > '9') throw std::invalid_argument("index holds a character that is no digit");
        indexes.digits[indexes.count++] = static_cast<std::int16_t>(c - '0');
    }
    return indexes;
}

}  // namespace trunvex
