#include "sms/submit_pdu.h"

#include <algorithm>
#include <stdexcept>

#include "sms/gsm_alphabet.h"

namespace trunvex {

namespace {

constexpr std::uint8_t submitWithRelativeValidity = 0x11;
constexpr std::uint8_t withHeader = 0x40;
constexpr std::uint8_t longestValidity = 255;  // 63 weeks
constexpr std::size_t mostSeptets = 160;
constexpr std::size_t mostUnits = 70;           // of UCS2
constexpr std::size_t mostSeptetsOfPart = 152;  // behind a header of 7 octets, which are 8 septets
constexpr std::size_t mostUnitsOfPart = 66;
constexpr std::size_t mostParts = 255;
constexpr std::size_t mostDigits = 20;
constexpr std::size_t mostOctets = 180;

constexpr std::uint8_t international = 0x91;
constexpr std::uint8_t unknownNumber = 0x81;

std::uint8_t nibbleOf(char digit) {
    if (digit >= '0' && digit <= '9') return static_cast<std::uint8_t>(digit - '0');
    if (digit == '*') return 0xA;
    if (digit == '#') return 0xB;
    throw std::invalid_argument("the number has a character that can't be dialled");
}

// The digits of a number in swapped halves of octets, and its type in front.
struct Number {
    Octets octets;
    std::size_t digits;
};

Number encodeNumber(std::string_view number) {
    const bool plus = number.starts_with('+');
    if (plus) number.remove_prefix(1);
    if (number.empty() || number.size() > mostDigits) throw std::invalid_argument("a number has 1 to 20 digits");
    Number encoded{{plus ? international : unknownNumber}, number.size()};
    for (std::size_t i = 0; i < number.size(); i += 2) {
        const auto high = i + 1 < number.size() ? nibbleOf(number[i + 1]) : 0xF;
        encoded.octets.push_back(static_cast<std::uint8_t>(high << 4 | nibbleOf(number[i])));
    }
    return encoded;
}

// The text in the units of its alphabet, septets or 16 bits, with a mark on those that can't be parted from the one
// before.
using Units = std::vector<std::uint32_t>;
constexpr std::uint32_t follows = 0x10000;

Units septetsOf(const std::string& text) {
    Units units;
    units.reserve(text.size());
    for (const auto character : charactersOf(text)) {
        const auto code = gsmCharacter(character);
        if (!code) throw std::invalid_argument("the text has characters that the 7-bit alphabet lacks");
        units.push_back(code->septets[0]);
        if (code->count == 2) units.push_back(code->septets[1] | follows);
    }
    return units;
}

Units ucs2Of(const std::string& text) {
    Units units;
    units.reserve(text.size());
    for (const auto character : charactersOf(text)) {
        if (character < 0x10000) {
            units.push_back(character);
            continue;
        }
        units.push_back(0xD800 + ((character - 0x10000) >> 10));
        units.push_back((0xDC00 + ((character - 0x10000) & 0x3FF)) | follows);
    }
    return units;
}

std::vector<std::span<const std::uint32_t>> cut(const Units& units, std::size_t most, std::size_t mostOfPart) {
    const std::span all(units);
    if (all.size() <= most) return {all};
    std::vector<std::span<const std::uint32_t>> parts;
    for (std::size_t first = 0; first < all.size();) {
        auto last = std::min(first + mostOfPart, all.size());
        while (last < all.size() && (all[last] & follows) != 0) --last;
        parts.push_back(all.subspan(first, last - first));
        first = last;
    }
    if (parts.size() > mostParts) throw std::invalid_argument("the text is longer than 255 messages");
    return parts;
}

std::string hexadecimal(const Octets& octets) {
    constexpr char digits[] = "0123456789ABCDEF";
    std::string text(octets.size() * 2, '0');
    for (std::size_t i = 0; i < octets.size(); ++i) {
        text[2 * i] = digits[octets[i] >> 4];
        text[2 * i + 1] = digits[octets[i] & 0xF];
    }
    return text;
}

void append(Octets& to, const Octets& from) { to.insert(to.end(), from.begin(), from.end()); }

// Length and content of the user data. The header of seven octets ends at the edge of a septet.
void appendUserData(Octets& pdu, SmsAlphabet alphabet, const Octets& header, std::span<const std::uint32_t> units) {
    if (alphabet == SmsAlphabet::Gsm7) {
        pdu.push_back(static_cast<std::uint8_t>(units.size() + header.size() * 8 / 7));
        append(pdu, header);
        Septets septets(units.size());
        std::ranges::transform(units, septets.begin(), [](auto unit) { return static_cast<std::uint8_t>(unit); });
        append(pdu, packSeptets(septets, 0));
        return;
    }
    pdu.push_back(static_cast<std::uint8_t>(units.size() * 2 + header.size()));
    append(pdu, header);
    for (const auto unit : units) {
        pdu.push_back(static_cast<std::uint8_t>(unit >> 8));
        pdu.push_back(static_cast<std::uint8_t>(unit));
    }
}

}  // namespace

std::vector<std::string> encodeSubmit(const SubmitMessage& message) {
    Octets front{0};  // no service centre
    if (!message.serviceCentre.empty()) {
        const auto centre = encodeNumber(message.serviceCentre);
        front = {static_cast<std::uint8_t>(centre.octets.size())};
        append(front, centre.octets);
    }
    const auto destination = encodeNumber(message.destination);
    const bool wide = message.alphabet == SmsAlphabet::Ucs2;
    const auto units = wide ? ucs2Of(message.text) : septetsOf(message.text);
    const auto parts = wide ? cut(units, mostUnits, mostUnitsOfPart) : cut(units, mostSeptets, mostSeptetsOfPart);
    std::vector<std::string> pdus;
    for (std::size_t part = 0; part < parts.size(); ++part) {
        Octets header;
        if (parts.size() > 1)
            header = {6,
                      8,
                      4,
                      static_cast<std::uint8_t>(message.reference >> 8),
                      static_cast<std::uint8_t>(message.reference),
                      static_cast<std::uint8_t>(parts.size()),
                      static_cast<std::uint8_t>(part + 1)};
        Octets pdu;
        pdu.reserve(mostOctets);
        append(pdu, front);
        pdu.push_back(submitWithRelativeValidity | (header.empty() ? 0 : withHeader));
        pdu.push_back(0);  // the module counts its messages itself
        pdu.push_back(static_cast<std::uint8_t>(destination.digits));
        append(pdu, destination.octets);
        pdu.push_back(0);  // protocol
        pdu.push_back(static_cast<std::uint8_t>(message.alphabet));
        pdu.push_back(longestValidity);
        appendUserData(pdu, message.alphabet, header, parts[part]);
        pdus.push_back(hexadecimal(pdu));
    }
    return pdus;
}

std::vector<std::string> charactersLacking(std::string_view text) {
    std::vector<std::string> lacking;
    for (const auto character : charactersOf(text)) {
        if (gsmCharacter(character)) continue;
        std::string one;
        appendUtf8(one, character);
        if (std::ranges::find(lacking, one) == lacking.end()) lacking.push_back(one);
    }
    return lacking;
}

std::size_t tpduLength(std::string_view pdu) {
    const auto value = [](char digit) { return digit <= '9' ? digit - '0' : (digit | 0x20) - 'a' + 10; };
    const auto centre = static_cast<std::size_t>(value(pdu.at(0)) * 16 + value(pdu.at(1)));
    return (pdu.size() - 2 * centre - 2) / 2;
}

}  // namespace trunvex
