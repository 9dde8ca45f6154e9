#pragma once

#include <array>
#include <string>

#include "model/columns.h"

namespace trunvex {

// What the operator chooses from, in the order of the lists.
inline constexpr std::array<const char*, 2> endsOfDialling{"OMIT", "HASH"};
inline constexpr std::array<const char*, 2> answersToCalls{"Accept", "Reject"};
inline constexpr std::array<const char*, 6> simSwitchings{"Time Table",          "SIM Swapping",
                                                          "Purse with option 1", "Purse with option 2",
                                                          "Purse with option 3", "Purse with option 4"};
// The code of a choice of simSwitchings is in three bits of the switch flags, the second answer to calls is one more.
inline constexpr std::array<int, simSwitchings.size()> simSwitchingCodes{0, 32, 8, 40, 24, 56};
inline constexpr int simSwitchingBits = 56;
inline constexpr int rejectBit = 64;

// A radio module ("port"), as the gateway reports it in A_MOD and A_PPR. Texts are as they travelled, but for the ones
// that say otherwise.
struct PortRec {
    std::string Present;  // non-empty once an A_MOD has been taken; the value of NoRegTimer
    std::string SeMode;   // "1" for a module with the second scale of levels, else "0"
    std::string Kind;     // "GSM", "CDM" or "ERR"; empty until the gateway has told
    std::string ModuleInfo;
    std::string ModuleInfo2;
    std::string NoRegTimer;
    std::string TxLevel;  // first scale: the position 0 to 6; second: the number on the wire
    std::string RxLevel;
    std::string TxCode;  // as the gateway told it, also where it is on no scale and the position stays as it was
    std::string RxCode;
    std::string MinDigits;
    std::string MaxDigits;    // a number
    std::string IntDigPause;  // a number, in units of 50 ms
    std::string SendComplete;
    std::string RelaxTime;  // seconds
    std::string SwitchFlags;
    std::string SimSwap;  // minutes
    std::string Reserved17;
    std::string Reserved18;
    std::string Reserved20;

    bool loaded() const { return !Present.empty(); }
    bool secondScale() const { return SeMode == "1"; }
};

// The fields of A_MOD by their numbers.
namespace port_at {
enum : std::size_t {
    Kind = 1,
    ModuleInfo,
    ModuleInfo2,
    NoRegTimer,
    TxLevel,
    RxLevel,
    MinDigits,
    MaxDigits,
    IntDigPause,
    SendComplete,
    RelaxTime,
    SwitchFlags,
    Reserved20,
    SimSwap,
    ReservedText,
    LineEnd  // C_MOD closes with one more field, which is empty
};
}  // namespace port_at

extern const Columns<PortRec> portColumns;

// Takes the fields of A_MOD. An acknowledged C_MOD has the same positions, holds only changes, and never touches what
// the gateway alone decides (fields 1 to 3). A record that is cut short leaves the rest as it was.
void storePort(PortRec& port, const Fields& fields, bool acknowledged);

// The index in simSwitchings; empty while the flags are, and for a code that none has.
std::string simSwitchingIndex(const PortRec& port);

// Levels of the first scale are positions 0 to 6. Transmit: the gain of -6 to +6 dB in steps of 2, in two's complement
// in one byte, so 250 is -6. Receive: seven bands of 16, the highest position being the lowest band.
inline constexpr int highestLevel = 6;
inline constexpr int highestSecondLevel = 4;
inline constexpr int noLevel = -1;
int txCode(int position);  // 3, which is no gain of the scale, for any other position
int txPosition(int code);  // noLevel for a code that is no gain of the scale
int rxCode(int position);  // 51, the middle, for any other position
int rxPosition(int code);  // noLevel outside 0 to 111

// The relax time travels in units of 20 ms and is shown in seconds, with decimals where it has them.
std::string relaxSeconds(std::string_view units);
// Cut to whole units; -1 for a text that is no number of seconds of 0 to 5.
int relaxUnits(std::string_view seconds);

}  // namespace trunvex
