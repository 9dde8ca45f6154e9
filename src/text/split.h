#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace trunvex {

// The element behind the last field. A reader that finds it at a field's place knows the field was not sent.
inline constexpr std::string_view endMark = "<end>";

// The fields of one record, in wire order, the last one being endMark. The texts are views into the line that was
// split (or into static text) and live as long as that line.
class Fields {
public:
    static constexpr std::size_t capacity = 51;

    // Leaves the table unset: clearing 51 entries would cost more than cutting a typical line.
    Fields() noexcept {}  // NOLINT(modernize-use-equals-default)

    std::size_t size() const { return count_; }

    // Throws std::out_of_range when the record has no such element.
    std::string_view at(std::size_t index) const {
        if (index >= count_) throwNoField(index);
        return {parts_[index].text, parts_[index].length};
    }

    // Appends an element; throws std::out_of_range past `capacity`.
    void add(std::string_view text) {
        if (count_ == capacity) throwNoField(count_);
        parts_[count_++] = {text.data(), text.size()};
    }

private:
    struct Part {
        const char* text;
        std::size_t length;
    };

    [[noreturn]] static void throwNoField(std::size_t index);

    std::size_t count_ = 0;
    std::array<Part, capacity> parts_;
};

// Cuts a text at each separator and ends the list with endMark. The search for the first separator starts at the
// second character, so a text that begins with the separator keeps it in its first element. An empty text is one
// empty field. Throws std::out_of_range for more than 50 fields.
Fields splitString(std::string_view text, char separator);

// The same for a record that may be longer: any number of fields, and no end mark behind them.
std::vector<std::string_view> splitLong(std::string_view text, char separator);

// The digits of an index, one number a character: "112" is 1, 1, 2.
struct Indexes {
    std::array<std::int16_t, 11> digits{};
    std::size_t count = 0;

    // Throws std::out_of_range when the index has no such digit.
    std::int16_t at(std::size_t position) const;
};

// Throws std::invalid_argument at a character that is no digit, std::out_of_range for more than 11 characters.
Indexes getIndexs(std::string_view text);

}  // namespace trunvex
