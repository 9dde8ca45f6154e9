#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// The GSM 7 bit default alphabet with its extension table, and how septets are packed: 3GPP TS 23.038, 6.1.2 and 6.2.1.
namespace trunvex {

using Octets = std::vector<std::uint8_t>;
using Septets = std::vector<std::uint8_t>;  // one in each, below 128

// The characters of a text. What is no UTF-8 becomes U+FFFD, a byte at a time.
std::u32string charactersOf(std::string_view utf8);
void appendUtf8(std::string& text, char32_t character);

// A character in septets: one, or the escape and another. None when the alphabet lacks it.
struct GsmCharacter {
    std::uint8_t septets[2];
    std::size_t count;
};
std::optional<GsmCharacter> gsmCharacter(char32_t character);

// UTF-8. A code that the extension table lacks is the character of the default alphabet, and an escape without one
// behind it, or before another escape, is a blank.
std::string gsmText(std::span<const std::uint8_t> septets);

// Septets behind one another, the first bit of the first behind `fillBits` bits (0 to 6) of nothing.
Octets packSeptets(std::span<const std::uint8_t> septets, unsigned fillBits);
// The octets hold as many septets; throws std::out_of_range when they don't.
Septets unpackSeptets(std::span<const std::uint8_t> octets, std::size_t count, unsigned fillBits);

}  // namespace trunvex
