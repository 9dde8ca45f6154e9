#pragma once

#include <string>

#include "text/split.h"

namespace trunvex {

// The gateway's one ISDN record, as A_ISD brings it. All fields are codes as they travel; config/isdn_codes.h has their
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

// Takes the fields of A_ISD. An acknowledged C_ISD lacks the first of them, so each stands one lower there.
void storeIsdn(IsdnRec& isdn, const Fields& fields, bool acknowledged);

}  // namespace trunvex
