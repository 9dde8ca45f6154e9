#include "text/latin1.h"

namespace trunvex {

std::string toLatin1(std::string_view utf8) {
    std::string bytes;
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        const auto lead = static_cast<unsigned char>(utf8[i]);
        if (lead < 0x80) {
            bytes += utf8[i];
            continue;
        }
        const bool twoBytes = (lead == 0xC2 || lead == 0xC3) && i + 1 < utf8.size();
        bytes += twoBytes ? static_cast<char>((lead & 3) << 6 | (static_cast<unsigned char>(utf8[i + 1]) & 0x3F)) : '?';
        while (i + 1 < utf8.size() && (static_cast<unsigned char>(utf8[i + 1]) & 0xC0) == 0x80) ++i;
    }
    return bytes;
}

std::string fromLatin1(std::string_view bytes) {
    std::string utf8;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80) {
            utf8 += c;
        } else {
            utf8 += static_cast<char>(0xC0 | byte >> 6);
            utf8 += static_cast<char>(0x80 | (byte & 0x3F));
        }
    }
    return utf8;
}

}  // namespace trunvex
