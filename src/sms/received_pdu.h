#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace trunvex {

// Why a PDU can't be read.
struct BadPdu : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// A message as it stands in a module's memory: received, or stored there to be sent, or a report on one that was sent.
// 3GPP TS 23.040, 9.2.2.
struct ReceivedMessage {
    enum class Kind { Deliver, Submit, StatusReport };
    enum class Alphabet { Gsm7 = 0, Data = 4, Ucs2 = 8 };
    // Which part of which long message it is.
    struct Part {
        std::uint16_t reference;
        bool wide;  // the reference has 16 bits
        std::uint8_t total;
        std::uint8_t number;  // from 1
        bool operator==(const Part&) const = default;
    };

    Kind kind = Kind::Deliver;
    std::string serviceCentre;
    std::string number;     // who sent it, or who it is for: digits with "+", "*" and "#", or letters
    std::string timeStamp;  // "2026-11-23 18:40:00 +02:00", of the service centre; empty where there is none
    Alphabet alphabet = Alphabet::Gsm7;
    bool compressed = false;
    std::optional<Part> part;
    std::string text;  // UTF-8; empty for data and what is compressed
    std::string data;  // that in hexadecimal digits instead
    int status = -1;   // of a report: below 32 delivered, below 64 still tried, else failed
};

// Takes a PDU in hexadecimal digits, the service centre's field in front. Throws BadPdu, and for nothing else.
ReceivedMessage decodePdu(std::string_view hexadecimal);

}  // namespace trunvex
