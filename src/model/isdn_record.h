#pragma once

#include <array>
#include <string>

#include "model/columns.h"

namespace trunvex {

// What the operator chooses from, in the order of the lists. The index travels, that of crcModes plus one.
inline constexpr std::array<const char*, 2> crcModes{"CRC4", "CRC4 extended"};
inline constexpr std::array<const char*, 2> cableModes{"Short", "Long"};
inline constexpr std::array<const char*, 2> inCallModes{"Real Processing", "Imitation Processing"};
inline constexpr std::array<const char*, 8> typesOfNumber{
    "Unknown", "International Number", "National Number",       "Network Specific Number", "Subscriber Number",
    "Reseved", "Abbreviated Number",   "Reserved for Extension"};

// The gateway's one ISDN record, as A_ISD brings it. All fields are codes as they travel; model/isdn_codes.h has their
// words.
struct IsdnRec {
    std::string InCallMode;
    std::string AlertTimer;  // units of 0.1 s, three digits
    std::string tail;        // the last field of A_ISD, kept and not used
    std::string CrcMode;
    std::string CableMode;
    std::string IsmVersion;
    std::string NetworkAccess;
    std::string Synchronization;
    std::string IncomingCalls;
    std::string CountryCode;
    std::string IsdnVersion;
    std::string LocalNumber;
    std::string LocalSubAddress;
    std::string reserved13;
    std::string reserved14;
    std::string SystemVersion;  // from A_SYS
    std::string TypeOfNumber;
    std::string NumberIdentification;

    bool loaded() const { return !NetworkAccess.empty(); }
};

// The fields of A_ISD by their numbers.
namespace isdn_at {
enum : std::size_t {
    IsmVersion,
    NetworkAccess,  // the first that C_ISD has
    Synchronization,
    IncomingCalls,
    CountryCode,
    IsdnVersion,
    Reserved13,
    Reserved14,
    LocalNumber,
    LocalSubAddress,
    TypeOfNumber,
    NumberIdentification,
    CrcMode,
    CableMode,
    InCallMode,
    AlertTimer,  // the last that C_ISD has
    Tail
};
}  // namespace isdn_at

extern const Columns<IsdnRec> isdnColumns;

// The fields behind the mnemonic. The first may be empty, and the separator behind it is one all the same.
Fields isdnFields(std::string_view body);

// Takes the fields of A_ISD. An acknowledged C_ISD lacks the first of them, so each stands one lower there.
void storeIsdn(IsdnRec& isdn, const Fields& fields, bool acknowledged);

}  // namespace trunvex
