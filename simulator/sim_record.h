#pragma once

#include "simulator/record_columns.h"

#include <string>

namespace simulator {

// What the gateway knows about a SIM and when it may carry calls, each value as it travels. It belongs to the
// place of the SIM and outlives the card. What stands here allows everything, as a fresh line of a console does.
struct SimRecord {
    std::string phoneNumber;
    std::string pin;
    std::string predial;
    std::string callerId = "0";
    std::string monthlyContract = "59999";  // minutes; this many are no limit
    std::string callMinutes = "0";
    std::string cellLock = "00000";  // a BCCH; none
    std::string bcchRssi = "0";
    std::string bcchTimer = "0";  // s
    std::string bcchNetId = "0";
    // From and to in one, each minutes first: 00080020 is 08:00 to 20:00. Of the days 64 is the first of the
    // gateway's week, which is Sunday, and 1 the last.
    std::string time1 = "00005923";
    std::string days1 = "127";
    std::string time2 = "00000000";
    std::string days2 = "0";
    std::string time3 = "00000000";
    std::string days3 = "0";
    std::string time4 = "00000000";
    std::string days4 = "0";
    std::string bundleFlags = "0";
};

Columns<SimRecord> simColumns();

}  // namespace simulator
