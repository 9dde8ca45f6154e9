#include "sms/gsm_alphabet.h"

#include <algorithm>
#include <array>
#include <stdexcept>

namespace trunvex {

namespace {

constexpr std::uint8_t escape = 0x1B;
constexpr char32_t replacement = 0xFFFD;
constexpr std::uint8_t none = 0xFF;

// By code; the escape stands for itself.
constexpr std::u32string_view alphabet =
    U"@£$¥èéùìòÇ\nØø\rÅåΔ_ΦΓΛΩΠΨΣΘΞ\x1B"
    U"ÆæßÉ !\"#¤%&'()*+,-./0123456789:;<=>?¡ABCDEFGHIJKLMNOPQRSTUVWXYZÄÖÑÜ§¿abcdefghijklmnopqrstuvwxyzäöñüà";
static_assert(alphabet.size() == 128);

struct Extension {
    std::uint8_t code;
    char32_t character;
};
constexpr Extension extensions[] = {
    {0x0A, U'\f'}, {0x14, U'^'}, {0x28, U'{'}, {0x29, U'}'}, {0x2F, U'\\'},
    {0x3C, U'['},  {0x3D, U'~'}, {0x3E, U']'}, {0x40, U'|'}, {0x65, U'€'},
};

// Of the characters below U+0100: their code, with the highest bit set for one of the extension table.
constexpr auto latin = [] {
    std::array<std::uint8_t, 256> codes{};
    codes.fill(none);
    for (std::size_t code = 0; code < alphabet.size(); ++code)
        if (alphabet[code] < codes.size() && code != escape) codes[alphabet[code]] = static_cast<std::uint8_t>(code);
    for (const auto& one : extensions)
        if (one.character < codes.size()) codes[one.character] = one.code | 0x80;
    return codes;
}();

constexpr auto extended = [] {
    std::array<char32_t, 128> characters{};
    for (const auto& one : extensions) characters[one.code] = one.character;
    return characters;
}();

// How many bytes a character has by its first one, and what that one holds of it.
struct Lead {
    std::size_t length;
    char32_t bits;
};
Lead leadOf(std::uint8_t byte) {
    if (byte < 0x80) return {1, byte};
    if (byte >= 0xC2 && byte < 0xE0) return {2, byte & 0x1FU};
    if (byte >= 0xE0 && byte < 0xF0) return {3, byte & 0x0FU};
    if (byte >= 0xF0 && byte < 0xF5) return {4, byte & 0x07U};
    return {0, 0};
}

// Takes a character from the front; a byte that begins none alone.
char32_t takeCharacter(std::string_view& text) {
    constexpr char32_t least[] = {0, 0, 0x80, 0x800, 0x10000};
    auto [length, character] = leadOf(static_cast<std::uint8_t>(text.front()));
    bool good = length > 0 && length <= text.size();
    for (std::size_t i = 1; good && i < length; ++i) {
        const auto byte = static_cast<std::uint8_t>(text[i]);
        good = (byte & 0xC0) == 0x80;
        character = character << 6 | (byte & 0x3FU);
    }
    good = good && character >= least[length] && character <= 0x10FFFF && (character < 0xD800 || character > 0xDFFF);
    text.remove_prefix(good ? length : 1);
    return good ? character : replacement;
}

}  // namespace

std::u32string charactersOf(std::string_view utf8) {
    std::u32string characters;
    characters.reserve(utf8.size());
    while (!utf8.empty()) {
        const auto byte = static_cast<std::uint8_t>(utf8.front());
        characters.push_back(byte < 0x80 ? byte : takeCharacter(utf8));
        if (byte < 0x80) utf8.remove_prefix(1);
    }
    return characters;
}

void appendUtf8(std::string& text, char32_t character) {
    const auto byte = [&text](char32_t value) { text += static_cast<char>(value); };
    if (character < 0x80) {
        byte(character);
    } else if (character < 0x800) {
        byte(0xC0 | character >> 6);
        byte(0x80 | (character & 0x3F));
    } else if (character < 0x10000) {
        byte(0xE0 | character >> 12);
        byte(0x80 | (character >> 6 & 0x3F));
        byte(0x80 | (character & 0x3F));
    } else {
        byte(0xF0 | character >> 18);
        byte(0x80 | (character >> 12 & 0x3F));
        byte(0x80 | (character >> 6 & 0x3F));
        byte(0x80 | (character & 0x3F));
    }
}

std::optional<GsmCharacter> gsmCharacter(char32_t character) {
    if (character < latin.size()) {
        const auto code = latin[character];
        if (code == none) return {};
        if (code & 0x80) return GsmCharacter{{escape, static_cast<std::uint8_t>(code & 0x7F)}, 2};
        return GsmCharacter{{code, 0}, 1};
    }
    if (character == U'€') return GsmCharacter{{escape, 0x65}, 2};
    const auto at = alphabet.find(character);
    if (at == alphabet.npos) return {};
    return GsmCharacter{{static_cast<std::uint8_t>(at), 0}, 1};
}

std::string gsmText(std::span<const std::uint8_t> septets) {
    std::string text;
    text.reserve(septets.size());
    for (std::size_t i = 0; i < septets.size(); ++i) {
        const auto code = septets[i] & 0x7F;
        if (code != escape) {
            appendUtf8(text, alphabet[static_cast<std::size_t>(code)]);
        } else if (i + 1 == septets.size() || (septets[i + 1] & 0x7F) == escape) {
            text += ' ';
            ++i;
        } else {
            const auto next = static_cast<std::size_t>(septets[++i] & 0x7F);
            appendUtf8(text, extended[next] != 0 ? extended[next] : alphabet[next]);
        }
    }
    return text;
}

Octets packSeptets(std::span<const std::uint8_t> septets, unsigned fillBits) {
    Octets octets;
    octets.reserve((septets.size() * 7 + fillBits + 7) / 8);
    unsigned held = 0;
    unsigned bits = fillBits;
    for (const auto septet : septets) {
        held |= (septet & 0x7FU) << bits;
        bits += 7;
        if (bits < 8) continue;
        octets.push_back(static_cast<std::uint8_t>(held));
        held >>= 8;
        bits -= 8;
    }
    if (bits > 0 && !septets.empty()) octets.push_back(static_cast<std::uint8_t>(held));
    return octets;
}

Septets unpackSeptets(std::span<const std::uint8_t> octets, std::size_t count, unsigned fillBits) {
    if (count * 7 + fillBits > octets.size() * 8) throw std::out_of_range("more septets than the octets hold");
    Septets septets(count);
    for (std::size_t i = 0; i < count; ++i) {
        const auto bit = i * 7 + fillBits;
        unsigned value = octets[bit / 8] >> bit % 8;
        if (bit % 8 > 1) value |= static_cast<unsigned>(octets[bit / 8 + 1]) << (8 - bit % 8);
        septets[i] = static_cast<std::uint8_t>(value & 0x7F);
    }
    return septets;
}

}  // namespace trunvex
