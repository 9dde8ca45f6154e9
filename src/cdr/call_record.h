#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "text/split.h"

namespace trunvex {

// A call as the gateway records it and the table CDR keeps it. Every value is a text in the form in which it is shown.
struct CallRecord {
    std::string port;        // 1 to 32
    std::string sim;         // 0 to 7
    std::string Direction;   // "IN", "OUT"
    std::string TypeOfCall;  // "Voice", "Data", "Fax", "SMS"
    std::string SimID;
    std::string Dialed_CLI;
    std::string Calling_Redirect;
    std::string OriginateTime;  // MM-DD-YY HH:MM:SS Wd
    std::string AnswerTime;
    std::string DisconnectTime;
    std::string Duration;  // minutes "." seconds, "0" for a call that was not answered
    std::string ClearCause;
    std::string ReleaseCause;
    std::string RSSI;  // "-64db"
    std::string BCCH;
    std::string OperatorID;

    bool operator==(const CallRecord&) const = default;
};

// How a column is to be sorted.
enum class SortKind { Text, Number, Stamp, Duration };

struct CallColumn {
    const char* name;     // in the table
    const char* caption;  // in the list of filters; null where the column is not offered there
    const char* heading;  // in the list and in exports
    std::string CallRecord::*value;
    SortKind sort;
};

// The one place for the columns, in the order of the table.
inline constexpr std::size_t callColumnCount = 16;
extern const std::array<CallColumn, callColumnCount> callColumns;

// The texts of a call, in the order of the columns; whose they are, the one who hands them out says.
using CallTexts = std::array<std::string_view, callColumnCount>;
CallTexts textsOf(const CallRecord& record);

// "1 call", "5 calls".
std::string countedCalls(std::size_t count);

// A value's place among others of its column: a stamp by year first, a duration by its length, a number by its value.
// What is none of these is before everything else. A text has no such number: 0.
std::int64_t sortKey(std::string_view text, SortKind kind);

// A record on its way from a channel of the gateway into the table.
struct CDRSlot : CallRecord {
    int Stage = 0;     // 1 after C_CDR was sent for it, 2 after the record was stored
    int Pending = -1;  // records still in the gateway; -1 unknown or finished
    std::string RecordID;
};

// Each of the eight MCUs has two channels, addressed by MCU and the digit 1 or 3; slots 1 to 16 in that order.
inline constexpr int cdrChannelCount = 16;
std::string getMCU_XY(int slot);
// 0 for an address that is none.
int slotOfChannel(std::string_view address);

// Takes the fields of an A_CDR record (channel, "1", number, flags, ...) into the slot. False when there is none: the
// flags are 255, and only RecordID has changed. Fields that are missing are empty; without flags there is no record.
bool parseCallRecord(const Fields& fields, CDRSlot& slot);

// A stamp of the gateway's, 14 digits, as "MM-DD-YY HH:MM:SS Wd". A date that does not exist is left out; a time that
// does not exist is "00:00:00" without a weekday.
std::string callStamp(std::string_view digits);
// What lies between two stamps in the form of the column Duration; "0" where one of them is no date and time.
std::string getTotalTime(std::string_view answerTime, std::string_view disconnectTime);

}  // namespace trunvex
