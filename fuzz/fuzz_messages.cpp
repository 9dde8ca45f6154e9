// Whatever stands in a module's memory is read, or refused by name; and a text that can be sent reads back as it was.
#include <cstdint>
#include <string>

#include "sms/gsm_alphabet.h"
#include "sms/received_pdu.h"
#include "sms/submit_pdu.h"

namespace {

std::string decoded(const std::string& pdu) {
    try {
        return trunvex::decodePdu(pdu).text;
    } catch (const trunvex::BadPdu&) {
        return {};
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    decoded(bytes);
    std::string hexadecimal;
    for (const char c : bytes) {
        hexadecimal += "0123456789ABCDEF"[static_cast<std::uint8_t>(c) >> 4];
        hexadecimal += "0123456789ABCDEF"[static_cast<std::uint8_t>(c) & 15];
    }
    decoded(hexadecimal);
    std::string text;
    for (const auto character : trunvex::charactersOf(bytes)) trunvex::appendUtf8(text, character);
    const bool narrow = trunvex::charactersLacking(text).empty();
    const auto alphabet = narrow ? trunvex::SmsAlphabet::Gsm7 : trunvex::SmsAlphabet::Ucs2;
    if (text.size() > 10000) return 0;
    std::string back;
    for (const auto& pdu : trunvex::encodeSubmit({"", "123", text, alphabet, 7})) back += decoded(pdu);
    if (back != text) __builtin_trap();
    return 0;
}
