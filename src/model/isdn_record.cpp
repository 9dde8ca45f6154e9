#include "model/isdn_record.h"

#include "model/isdn_codes.h"

namespace trunvex {

namespace {

// A code that is told in the words of its list; one that has none there, as it is.
template <auto member, const isdn_codes::Table& table>
constexpr Codec<IsdnRec> coded{codec::takeText<member>, codec::held<member>, [](const IsdnRec& isdn) {
                                   const auto words = isdn_codes::textOf(table, std::to_string(val(isdn.*member)));
                                   return words.empty() ? codec::shown<member>(isdn) : words;
                               }};

template <auto member, const auto& list>
constexpr Codec<IsdnRec> chosen{codec::takeText<member>, codec::held<member>, codec::listed<member, list>};

constexpr Codec<IsdnRec> crcMode{
    codec::takeNumber<&IsdnRec::CrcMode>, codec::held<&IsdnRec::CrcMode>, [](const IsdnRec& isdn) {
        const bool known = wholeWithin(isdn.CrcMode, 1, std::ssize(crcModes));
        return known ? std::string(crcModes[static_cast<std::size_t>(val(isdn.CrcMode) - 1)])
                     : codec::shown<&IsdnRec::CrcMode>(isdn);
    }};
constexpr Codec<IsdnRec> cableMode{codec::takeNumber<&IsdnRec::CableMode>, codec::held<&IsdnRec::CableMode>,
                                   codec::listed<&IsdnRec::CableMode, cableModes>};

using codec::number;
using codec::text;
using enum Writer;

constexpr std::array<Column<IsdnRec>, 17> columns{{
    {isdn_at::IsmVersion, "ISM Version", text<&IsdnRec::IsmVersion>, Gateway},
    {isdn_at::NetworkAccess, "Network Access", coded<&IsdnRec::NetworkAccess, isdn_codes::networkAccess>},
    {isdn_at::Synchronization, "Synchronization", coded<&IsdnRec::Synchronization, isdn_codes::synchronization>},
    {isdn_at::IncomingCalls, "Incoming Calls", coded<&IsdnRec::IncomingCalls, isdn_codes::incomingCalls>},
    {isdn_at::CountryCode, "Country", coded<&IsdnRec::CountryCode, isdn_codes::countryCode>},
    {isdn_at::IsdnVersion, "ISDN Version", coded<&IsdnRec::IsdnVersion, isdn_codes::isdnVersion>},
    {isdn_at::Reserved13, "Reserved 13", text<&IsdnRec::reserved13>},
    {isdn_at::Reserved14, "Reserved 14", number<&IsdnRec::reserved14>},
    {isdn_at::LocalNumber, "Local Number", text<&IsdnRec::LocalNumber>, Console, Empty::Clears},
    {isdn_at::LocalSubAddress, "Local Sub Address", text<&IsdnRec::LocalSubAddress>, Console, Empty::Clears},
    {isdn_at::TypeOfNumber, "Type Of Number", chosen<&IsdnRec::TypeOfNumber, typesOfNumber>},
    {isdn_at::NumberIdentification, "Number Identification",
     coded<&IsdnRec::NumberIdentification, isdn_codes::numberIdentification>},
    {isdn_at::CrcMode, "CRC Mode", crcMode},
    {isdn_at::CableMode, "Cable Mode", cableMode},
    {isdn_at::InCallMode, "Incoming Calls Mode", chosen<&IsdnRec::InCallMode, inCallModes>},
    {isdn_at::AlertTimer, "Timer Alerting", text<&IsdnRec::AlertTimer>},
    {isdn_at::Tail, "Tail", text<&IsdnRec::tail>, Gateway},
}};
static_assert(isGapless(columns) && columns.front().at == isdn_at::IsmVersion);

}  // namespace

constinit const Columns<IsdnRec> isdnColumns = columns;

Fields isdnFields(std::string_view body) {
    if (body.substr(0, 1) != ",") return splitString(body, ',');
    Fields fields;
    fields.add({});
    const auto behind = isdnFields(body.substr(1));
    for (std::size_t i = 0; i < behind.size(); ++i) fields.add(behind.at(i));
    return fields;
}

void storeIsdn(IsdnRec& isdn, const Fields& fields, bool acknowledged) {
    takeFields(isdn, isdnColumns, fields, acknowledged, isdn_at::NetworkAccess);
}

}  // namespace trunvex
