#include "simulator/sim_record.h"

#include "simulator/field_checks.h"

#include <array>

namespace simulator {

namespace {

// Minutes stand in front of hours. A console looks only at the form of the times that it writes to a whole
// group, so it is here that an hour 25 is found out.
bool timeOfDay(std::string_view text) { return number(text.substr(0, 2), 0, 59) && number(text.substr(2, 2), 0, 23); }

bool timeWindow(const std::string& text) {
    return text.size() == 8 && timeOfDay(text) && timeOfDay(std::string_view(text).substr(4));
}

// 32 is loading every day, 64 by addition and not by refill, and 128 switches it on.
constexpr auto bundle = oneOf<0, 32, 64, 96, 128, 160, 192, 224>;

constexpr std::array columns{
    Column<SimRecord>{&SimRecord::phoneNumber, phoneNumber<20>},
    Column<SimRecord>{&SimRecord::pin, digitsUpTo<8>},
    Column<SimRecord>{&SimRecord::predial, keysUpTo<16>},
    Column<SimRecord>{&SimRecord::callerId, within<0, 2>, 1},
    Column<SimRecord>{&SimRecord::monthlyContract, within<0, 59999>, 1},
    Column<SimRecord>{&SimRecord::callMinutes, within<0, 59999>, 1},
    Column<SimRecord>{&SimRecord::cellLock, within<0, 1024>, 5},
    // A step of the scale on which a module hears a cell; it has 64.
    Column<SimRecord>{&SimRecord::bcchRssi, within<0, 63>, 1},
    // A fresh line says 0 where there is no lock to give up after some time.
    Column<SimRecord>{&SimRecord::bcchTimer, offOrWithin<30, 65535>, 1},
    // Country and network code, kept as a text: a network 01 is not a network 1.
    Column<SimRecord>{&SimRecord::bcchNetId, digitsUpTo<6>},
    Column<SimRecord>{&SimRecord::time1, timeWindow},
    Column<SimRecord>{&SimRecord::days1, within<0, 127>, 1},
    Column<SimRecord>{&SimRecord::time2, timeWindow},
    Column<SimRecord>{&SimRecord::days2, within<0, 127>, 1},
    Column<SimRecord>{&SimRecord::time3, timeWindow},
    Column<SimRecord>{&SimRecord::days3, within<0, 127>, 1},
    Column<SimRecord>{&SimRecord::time4, timeWindow},
    Column<SimRecord>{&SimRecord::days4, within<0, 127>, 1},
    Column<SimRecord>{&SimRecord::bundleFlags, bundle, 1},
};

}  // namespace

Columns<SimRecord> simColumns() { return columns; }

}  // namespace simulator
