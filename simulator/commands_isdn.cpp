#include "simulator/command_table.h"
#include "simulator/fields.h"

#include <algorithm>
#include <array>
#include <vector>

namespace simulator {

namespace {

struct IsdnColumn {
    std::string IsdnRecord::*text;
    bool (*allowed)(const std::string&);
};

template <int... codes>
bool oneOf(const std::string& text) {
    const auto code = number(text, 0, 99999);
    return code && ((*code == codes) || ...);
}

template <int least, int most>
bool within(const std::string& text) {
    return number(text, least, most).has_value();
}

template <std::size_t most>
bool digitsUpTo(const std::string& text) {
    return text.size() <= most &&
           std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

bool oneCharacter(const std::string& text) {
    return text.size() <= 1;
}

bool anything(const std::string&) {
    return true;
}

// The fields of A_ISD in order. C_ISD has them from the second on and may leave out the last.
constexpr std::array columns{
    IsdnColumn{&IsdnRecord::ismVersion, anything},
    IsdnColumn{&IsdnRecord::networkAccess, oneOf<4, 8>},
    IsdnColumn{&IsdnRecord::synchronization, oneOf<1, 4>},
    IsdnColumn{&IsdnRecord::incomingCalls, oneOf<2, 130>},
    IsdnColumn{&IsdnRecord::countryCode, oneOf<1, 33, 49, 61, 81, 82, 852, 1000>},
    IsdnColumn{&IsdnRecord::isdnVersion, oneOf<3, 4, 8, 9, 10, 11, 16, 17, 20, 23, 24, 25>},
    IsdnColumn{&IsdnRecord::reserved1, digitsUpTo<5>},
    IsdnColumn{&IsdnRecord::reserved2, digitsUpTo<5>},
    IsdnColumn{&IsdnRecord::localNumber, digitsUpTo<9>},
    IsdnColumn{&IsdnRecord::localSubAddress, oneCharacter},
    IsdnColumn{&IsdnRecord::typeOfNumber, within<0, 7>},
    IsdnColumn{&IsdnRecord::numberIdentification, within<0, 15>},
    IsdnColumn{&IsdnRecord::crcMode, within<1, 2>},
    IsdnColumn{&IsdnRecord::cableMode, within<0, 1>},
    IsdnColumn{&IsdnRecord::inCallMode, within<0, 1>},
    IsdnColumn{&IsdnRecord::alertTimer, within<0, 250>},
    IsdnColumn{&IsdnRecord::tail, digitsUpTo<5>},
};

}  // namespace

// R_ISD: A_ISD<ISM version> and the other sixteen columns
void readIsdn(Request& request) {
    if (!request.body.empty()) return request.malformed();
    std::vector<std::string> fields;
    for (const IsdnColumn& column : columns) fields.push_back(request.state.isdn.*column.text);
    request.answer("A_ISD" + joinFields(fields));
}

// C_ISD with 15 fields as a page writes it, or with 16 as a restored backup does, which keeps the tail of
// A_ISD. One bad value and the whole record stays as it was.
void writeIsdn(Request& request) {
    const auto fields = splitFields(request.body);
    if (fields.size() != columns.size() - 2 && fields.size() != columns.size() - 1)
        return request.malformed();
    IsdnRecord record = request.state.isdn;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const IsdnColumn& column = columns[i + 1];
        if (fields[i].empty()) continue;
        if (!column.allowed(fields[i])) return request.refused();
        record.*column.text = fields[i];
    }
    request.state.isdn = record;
    request.accepted();
}

// R_ILS: A_ILS and five counters of five digits each
void readIsdnCounters(Request& request) {
    if (!request.body.empty()) return request.malformed();
    std::vector<std::string> fields;
    for (const int counter : request.state.isdnCounters) fields.push_back(padded(counter, 5));
    request.answer("A_ILS" + joinFields(fields));
}

// C_ILS
void resetIsdnCounters(Request& request) {
    if (!request.body.empty()) return request.malformed();
    request.state.isdnCounters.fill(0);
    request.answer("OK");
}

}  // namespace simulator
