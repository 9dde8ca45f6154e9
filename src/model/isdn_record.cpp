#include "model/isdn_record.h"

#include "model/record_fields.h"
#include "text/text_rules.h"

namespace trunvex {

void storeIsdn(IsdnRec& isdn, const Fields& fields, bool acknowledged) {
    const RecordFields sent(fields, acknowledged);
    const RecordFields whole(fields, false);
    const std::size_t lower = acknowledged ? 1 : 0;
    const auto store = [&](std::size_t position, std::string& into) { sent.store(position - lower, into); };
    const auto storeNumber = [&](std::size_t position, std::string& into) {
        if (sent.has(position - lower)) into = std::to_string(val(sent.at(position - lower)));
    };
    // A system number is taken away by an empty one.
    const auto storeAlsoEmpty = [&](std::size_t position, std::string& into) { whole.store(position - lower, into); };
    if (!acknowledged) store(0, isdn.IsmVersion);
    store(1, isdn.NetworkAccess);
    store(2, isdn.Synchronization);
    store(3, isdn.IncomingCalls);
    store(4, isdn.CountryCode);
    store(5, isdn.IsdnVersion);
    store(6, isdn.reserved13);
    storeNumber(7, isdn.reserved14);
    storeAlsoEmpty(8, isdn.LocalNumber);
    storeAlsoEmpty(9, isdn.LocalSubAddress);
    store(10, isdn.TypeOfNumber);
    store(11, isdn.NumberIdentification);
    storeNumber(12, isdn.CrcMode);
    storeNumber(13, isdn.CableMode);
    store(14, isdn.InCallMode);
    store(15, isdn.AlertTimer);
    if (!acknowledged) store(16, isdn.tail);
}

}  // namespace trunvex
