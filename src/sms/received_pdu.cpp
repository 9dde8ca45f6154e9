#include "sms/received_pdu.h"

#include <span>

#include "sms/gsm_alphabet.h"

namespace trunvex {

namespace {

constexpr std::size_t mostOctets = 400;
constexpr std::size_t mostSeptets = 160;
constexpr std::size_t mostUserOctets = 140;

int digitOf(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    const char small = static_cast<char>(c | 0x20);
    return small >= 'a' && small <= 'f' ? small - 'a' + 10 : -1;
}

Octets octetsOf(std::string_view hexadecimal) {
    if (hexadecimal.size() % 2 != 0) throw BadPdu("half an octet at its end");
    if (hexadecimal.size() > 2 * mostOctets) throw BadPdu("longer than any message");
    Octets octets;
    octets.reserve(hexadecimal.size() / 2);
    for (std::size_t i = 0; i < hexadecimal.size(); i += 2) {
        const int high = digitOf(hexadecimal[i]);
        const int low = digitOf(hexadecimal[i + 1]);
        if (high < 0 || low < 0) throw BadPdu("a character that is no hexadecimal digit");
        octets.push_back(static_cast<std::uint8_t>(high << 4 | low));
    }
    return octets;
}

std::string hexadecimal(std::span<const std::uint8_t> octets) {
    constexpr char digits[] = "0123456789ABCDEF";
    std::string text;
    for (const auto octet : octets) {
        text += digits[octet >> 4];
        text += digits[octet & 0xF];
    }
    return text;
}

// The octets from the front on.
class Reader {
public:
    explicit Reader(std::span<const std::uint8_t> octets) : left_(octets) {}
    std::uint8_t octet() { return take(1)[0]; }
    std::span<const std::uint8_t> take(std::size_t count) {
        if (count > left_.size()) throw BadPdu("shorter than its own lengths");
        const auto taken = left_.first(count);
        left_ = left_.subspan(count);
        return taken;
    }
    std::span<const std::uint8_t> rest() { return take(left_.size()); }
    bool atEnd() const { return left_.empty(); }

private:
    std::span<const std::uint8_t> left_;
};

// Digits in swapped halves of octets; "F" fills up.
std::string digits(std::span<const std::uint8_t> octets, std::size_t count) {
    constexpr char characters[] = "0123456789*#abc";
    std::string text;
    for (std::size_t i = 0; i < count; ++i) {
        const auto octet = octets[i / 2];
        const auto nibble = i % 2 == 0 ? octet & 0xF : octet >> 4;
        if (nibble == 0xF) break;
        text += characters[nibble];
    }
    return text;
}

constexpr int internationalNumber = 1;
constexpr int alphanumeric = 5;

// An address behind its length: a type, then the digits, or letters as septets.
std::string address(std::span<const std::uint8_t> octets, std::size_t count) {
    const int type = octets[0] >> 4 & 7;
    const auto value = octets.subspan(1);
    if (type == alphanumeric) return gsmText(unpackSeptets(value, count * 4 / 7, 0));
    const auto number = digits(value, count);
    return type == internationalNumber && !number.empty() ? "+" + number : number;
}

std::string takeServiceCentre(Reader& reader) {
    const std::size_t length = reader.octet();
    if (length == 0) return {};
    return address(reader.take(length), (length - 1) * 2);
}

std::string takeNumber(Reader& reader) {
    constexpr std::size_t mostDigits = 20;
    const std::size_t count = reader.octet();
    if (count > mostDigits + 2) throw BadPdu("a number of " + std::to_string(count) + " digits");
    return address(reader.take(1 + (count + 1) / 2), count);
}

std::string twoDigitsOf(int value) { return (value < 10 ? "0" : "") + std::to_string(value); }

// Year, month, day, hour, minute, second and time zone, each two digits swapped; the zone in quarters of an hour, its
// sign in the bit above the tens.
std::string takeTimeStamp(Reader& reader) {
    constexpr std::uint8_t negative = 0x08;
    constexpr int firstYear = 70;  // of the century before
    const auto octets = reader.take(7);
    int values[7];
    for (std::size_t i = 0; i < 7; ++i) {
        const auto octet = i == 6 ? octets[i] & ~negative : octets[i];
        if ((octet & 0xF) > 9 || (octet >> 4 & 0xF) > 9) throw BadPdu("a time stamp that is none");
        values[i] = (octet & 0xF) * 10 + (octet >> 4 & 0xF);
    }
    const int minutes = values[6] * 15;
    return (values[0] < firstYear ? "20" : "19") + twoDigitsOf(values[0]) + "-" + twoDigitsOf(values[1]) + "-" +
           twoDigitsOf(values[2]) + " " + twoDigitsOf(values[3]) + ":" + twoDigitsOf(values[4]) + ":" +
           twoDigitsOf(values[5]) + ((octets[6] & negative) != 0 ? " -" : " +") + twoDigitsOf(minutes / 60) + ":" +
           twoDigitsOf(minutes % 60);
}

// The alphabet by the data coding's group, 3GPP TS 23.038, 4. Reserved ones are read as 7-bit.
void takeCoding(ReceivedMessage& message, std::uint8_t coding) {
    using enum ReceivedMessage::Alphabet;
    const int group = coding >> 4;
    const int alphabet = coding >> 2 & 3;
    if (group < 8) {  // general, and marked for automatic deletion
        message.compressed = (coding & 0x20) != 0;
        message.alphabet = alphabet == 1 ? Data : alphabet == 2 ? Ucs2 : Gsm7;
    } else if (group == 0xE) {  // a message waits, told in UCS2
        message.alphabet = Ucs2;
    } else if (group == 0xF) {  // with a class
        message.alphabet = (coding & 4) != 0 ? Data : Gsm7;
    }
}

// The elements of a header, of which only those of long messages are of interest.
std::optional<ReceivedMessage::Part> partOf(std::span<const std::uint8_t> header) {
    constexpr std::uint8_t narrowReference = 0;
    constexpr std::uint8_t wideReference = 8;
    std::optional<ReceivedMessage::Part> part;
    Reader elements(header);
    while (!elements.atEnd()) {
        const auto kind = elements.octet();
        const auto data = elements.take(elements.octet());
        if (kind == narrowReference && data.size() == 3)
            part = {data[0], false, data[1], data[2]};
        else if (kind == wideReference && data.size() == 4)
            part = {static_cast<std::uint16_t>(data[0] << 8 | data[1]), true, data[2], data[3]};
    }
    if (part && (part->number == 0 || part->number > part->total)) part.reset();
    return part;
}

std::string ucs2Text(std::span<const std::uint8_t> octets) {
    constexpr char32_t replacement = 0xFFFD;
    std::string text;
    const auto unit = [&octets](std::size_t at) -> char32_t { return octets[at] << 8U | octets[at + 1]; };
    for (std::size_t at = 0; at + 1 < octets.size(); at += 2) {
        auto character = unit(at);
        const bool high = character >= 0xD800 && character < 0xDC00;
        const bool paired = high && at + 3 < octets.size() && unit(at + 2) >= 0xDC00 && unit(at + 2) < 0xE000;
        if (paired) {
            character = 0x10000 + ((character - 0xD800) << 10) + (unit(at + 2) - 0xDC00);
            at += 2;
        } else if (character >= 0xD800 && character < 0xE000) {
            character = replacement;
        }
        appendUtf8(text, character);
    }
    return text;
}

void takeUserData(ReceivedMessage& message, Reader& reader, bool hasHeader) {
    using enum ReceivedMessage::Alphabet;
    const std::size_t length = reader.octet();
    const bool septets = message.alphabet == Gsm7 && !message.compressed;
    if (length > (septets ? mostSeptets : mostUserOctets)) throw BadPdu("more user data than a message has");
    const auto data = reader.take(septets ? (length * 7 + 7) / 8 : length);
    std::size_t header = 0;  // octets
    if (hasHeader) {
        if (data.empty() || data[0] + 1U > data.size()) throw BadPdu("a header longer than its message");
        header = data[0] + 1U;
        message.part = partOf(data.subspan(1, data[0]));
    }
    if (septets) {
        const auto before = (header * 8 + 6) / 7;
        if (before > length) throw BadPdu("a header longer than its message");
        const auto fill = static_cast<unsigned>(before * 7 - header * 8);
        message.text = gsmText(unpackSeptets(data.subspan(header), length - before, fill));
    } else if (message.alphabet == Ucs2 && !message.compressed) {
        message.text = ucs2Text(data.subspan(header));
    } else {
        message.data = hexadecimal(data.subspan(header));
    }
}

constexpr std::uint8_t headerBit = 0x40;

void takeDeliver(ReceivedMessage& message, Reader& reader, std::uint8_t first) {
    message.number = takeNumber(reader);
    reader.octet();  // protocol
    takeCoding(message, reader.octet());
    message.timeStamp = takeTimeStamp(reader);
    takeUserData(message, reader, (first & headerBit) != 0);
}

void takeSubmit(ReceivedMessage& message, Reader& reader, std::uint8_t first) {
    message.kind = ReceivedMessage::Kind::Submit;
    reader.octet();  // reference
    message.number = takeNumber(reader);
    reader.octet();  // protocol
    takeCoding(message, reader.octet());
    constexpr std::size_t validityOctets[] = {0, 7, 1, 7};  // none, enhanced, relative, absolute
    reader.take(validityOctets[first >> 3 & 3]);
    takeUserData(message, reader, (first & headerBit) != 0);
}

// What may follow on the status: which of protocol, coding and user data there are.
void takeReport(ReceivedMessage& message, Reader& reader, std::uint8_t first) {
    message.kind = ReceivedMessage::Kind::StatusReport;
    reader.octet();  // reference
    message.number = takeNumber(reader);
    message.timeStamp = takeTimeStamp(reader);
    takeTimeStamp(reader);  // of its discharge
    message.status = reader.octet();
    if (reader.atEnd()) return;
    const auto present = reader.octet();
    if ((present & 1) != 0) reader.octet();
    if ((present & 2) != 0) takeCoding(message, reader.octet());
    if ((present & 4) != 0) takeUserData(message, reader, (first & headerBit) != 0);
}

}  // namespace

ReceivedMessage decodePdu(std::string_view text) {
    const auto octets = octetsOf(text);
    Reader reader(octets);
    ReceivedMessage message;
    try {
        message.serviceCentre = takeServiceCentre(reader);
        const auto first = reader.octet();
        switch (first & 3) {
            case 0:
                takeDeliver(message, reader, first);
                break;
            case 1:
                takeSubmit(message, reader, first);
                break;
            case 2:
                takeReport(message, reader, first);
                break;
            default:
                throw BadPdu("of a type that is not known");
        }
    } catch (const std::out_of_range&) {
        throw BadPdu("shorter than its own lengths");
    }
    return message;
}

}  // namespace trunvex
