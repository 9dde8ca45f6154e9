#include "simulator/command_table.h"
#include "simulator/field_checks.h"
#include "simulator/record_columns.h"

#include <array>
#include <vector>

namespace simulator {

namespace {

// The fields of A_ISD in order. C_ISD has them from the second on and may leave out the last.
constexpr std::array columns{
    Column<IsdnRecord>{&IsdnRecord::ismVersion, nothing},
    Column<IsdnRecord>{&IsdnRecord::networkAccess, oneOf<4, 8>, 1},
    Column<IsdnRecord>{&IsdnRecord::synchronization, oneOf<1, 4>, 1},
    Column<IsdnRecord>{&IsdnRecord::incomingCalls, oneOf<2, 130>, 1},
    Column<IsdnRecord>{&IsdnRecord::countryCode, oneOf<1, 33, 49, 61, 81, 82, 852, 1000>, 1},
    Column<IsdnRecord>{&IsdnRecord::isdnVersion, oneOf<3, 4, 8, 9, 10, 11, 16, 17, 20, 23, 24, 25>, 1},
    Column<IsdnRecord>{&IsdnRecord::reserved1, digitsUpTo<5>, 1},
    Column<IsdnRecord>{&IsdnRecord::reserved2, digitsUpTo<5>, 1},
    Column<IsdnRecord>{&IsdnRecord::localNumber, digitsUpTo<9>, 0, true},
    Column<IsdnRecord>{&IsdnRecord::localSubAddress, printable<1>, 0, true},
    Column<IsdnRecord>{&IsdnRecord::typeOfNumber, within<0, 7>, 1},
    Column<IsdnRecord>{&IsdnRecord::numberIdentification, oneOf<0, 1, 2, 3, 4, 6, 9, 12, 14, 15>, 1},
    Column<IsdnRecord>{&IsdnRecord::crcMode, within<1, 2>, 1},
    Column<IsdnRecord>{&IsdnRecord::cableMode, within<0, 1>, 1},
    Column<IsdnRecord>{&IsdnRecord::inCallMode, within<0, 1>, 1},
    Column<IsdnRecord>{&IsdnRecord::alertTimer, within<0, 250>, 3},
    Column<IsdnRecord>{&IsdnRecord::tail, digitsUpTo<5>, 1},
};

}  // namespace

// R_ISD: A_ISD<ISM version> and the other sixteen columns
void readIsdn(Request& request) {
    if (!request.body.empty()) return request.malformed();
    request.answer("A_ISD" + joinColumns(request.state.isdn, columns));
}

// C_ISD with 15 fields as a page writes it, or with 16 as a restored backup does, which keeps the tail of
// A_ISD. One bad value and the whole record stays as it was. An empty field keeps its value but for the number
// and the sub-address: a line that has none any more says so.
void writeIsdn(Request& request) {
    const auto fields = splitFields(request.body);
    if (fields.size() != columns.size() - 2 && fields.size() != columns.size() - 1) return request.malformed();
    auto record = written(request.state.isdn, std::span(columns).subspan(1), fields);
    if (!record) return request.refused();
    constexpr std::size_t localNumber = 7;
    record->localNumber = fields[localNumber];
    record->localSubAddress = fields[localNumber + 1];
    request.state.isdn = *record;
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
