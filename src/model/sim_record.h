#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "model/columns.h"
#include "model/time_row.h"

namespace trunvex {

// What the operator chooses from for CallerId.
inline constexpr std::array<const char*, 3> callerIds{"By network", "CLIR Hide", "CLIR Show"};

// The bundle flags: the restore day, a code of bundleModes, and a bit that switches the bundle on.
inline constexpr std::array<const char*, 4> bundleModes{"Disabled", "Every Day", "By Refill", "By Addition"};
inline constexpr std::array<int, bundleModes.size()> bundleModeCodes{0, 32, 0, 64};  // the third looks like the first
inline constexpr std::array<const char*, 2> bundleSwitches{"Enabled", "Disabled"};
inline constexpr int bundleDayBits = 31;
inline constexpr int bundleModeBits = 96;
inline constexpr int bundleOnBit = 128;

// Received signal levels 0 to 63, 1 dB each; as the board tells them too: "-71 db".
inline constexpr int highestSignalLevel = 63;
std::string signalLevelWords(std::int64_t level);

// A SIM of a module, as the gateway reports it in A_SIM. Texts are as they travelled.
struct SimRec {
    std::string Present;  // non-empty once an A_SIM has been taken
    std::string PhoneNumber;
    std::string Pin;
    std::string Predial;
    std::string CallerId;         // a number
    std::string MonthlyContract;  // minutes; "59999" is no limit
    std::string CallMinutes;
    std::string CellLock;  // BCCH, five digits; "00000" is off
    std::string BcchRssi;
    std::string BcchTimer;  // seconds
    std::string BcchNetId;
    std::array<TimeRow, timeRowCount> rows;
    std::string BundleFlags;

    std::string network;  // from the status reports: its registration in words, or the network's identity

    bool loaded() const { return !Present.empty(); }
};

// The fields of A_SIM by their numbers.
namespace sim_at {
enum : std::size_t {
    PhoneNumber = 1,
    Pin,
    Predial,
    CallerId,
    MonthlyContract,
    CallMinutes,
    CellLock,
    BcchRssi,
    BcchTimer,
    BcchNetId,
    FirstRow,
    BundleFlags = FirstRow + 2 * timeRowCount,  // the last that C_SIM has
    Present
};
// By row, 0 to 3.
constexpr std::size_t timeOf(std::size_t row) { return FirstRow + 2 * row; }
constexpr std::size_t daysOf(std::size_t row) { return timeOf(row) + 1; }
}  // namespace sim_at

extern const Columns<SimRec> simColumns;

// Takes the fields of A_SIM. An acknowledged C_SIM has the same positions and holds only changes. A record that is cut
// short leaves the rest as it was.
void storeSim(SimRec& sim, const Fields& fields, bool acknowledged);

}  // namespace trunvex
