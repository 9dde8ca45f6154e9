#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace trunvex {

enum class SmsAlphabet : std::uint8_t { Gsm7 = 0, Ucs2 = 8 };  // by their data coding

// A message to be sent, as 3GPP TS 23.040, 9.2.2.2, has it.
struct SubmitMessage {
    std::string serviceCentre;  // digits, a "+" in front of an international number; empty: the module's own
    std::string destination;    // the same with "*" and "#"
    std::string text;           // UTF-8
    SmsAlphabet alphabet = SmsAlphabet::Gsm7;
    std::uint16_t reference = 0;  // that the parts of one message share; another one for each message
};

// The PDUs in capital hexadecimal digits, each with the service centre's field in front: one, or those of the parts of
// a long text. Neither an escape and what it stands before nor a surrogate pair lies over an edge. Throws
// std::invalid_argument for a number that can't be dialled, characters that the alphabet lacks, and a text of more than
// 255 parts.
std::vector<std::string> encodeSubmit(const SubmitMessage& message);

// The characters of a text that the GSM alphabet lacks, each once and in their order; UTF-8.
std::vector<std::string> charactersLacking(std::string_view text);

// The octets of a PDU behind the service centre's field.
std::size_t tpduLength(std::string_view pdu);

}  // namespace trunvex
