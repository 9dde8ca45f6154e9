#include "cdr/call_record.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <limits>
#include <optional>

#include "model/shared_tables.h"
#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr int noRecordFlags = 255;
constexpr int decibelsBelow = 111;  // what the gateway's level 0 is under 0 dB
constexpr int simBits = 56;
constexpr int secondPortBit = 64;
constexpr int incomingBit = 128;
constexpr std::size_t weekdayLength = 3;  // the blank before it included
constexpr const char* noTime = "00:00:00";

// The field, and nothing for one that was not sent or holds the gateway's end mark.
std::string fieldOf(const Fields& fields, std::size_t index) {
    if (index >= fields.size() || fields.at(index) == endMark) return {};
    return std::string(fields.at(index));
}

std::string_view typeOfCall(int flags) {
    switch (flags & 7) {
        case 1:
            return "Voice";
        case 2:
            return "Data";
        case 3:
            return "Fax";
        case 4:
            return "SMS";
        default:
            return {};
    }
}

using Days = std::chrono::sys_days;

// "MM-DD-YY", a day of the years 2000 to 2099.
std::optional<Days> dayOf(std::string_view text) {
    if (text.size() != 8 || text[2] != '-' || text[5] != '-') return {};
    const auto month = mid(text, 1, 2);
    const auto day = mid(text, 4, 2);
    const auto year = mid(text, 7, 2);
    if (!isWhole(month) || !isWhole(day) || !isWhole(year)) return {};
    const std::chrono::year_month_day date{std::chrono::year(2000 + static_cast<int>(val(year))),
                                           std::chrono::month(static_cast<unsigned>(val(month))),
                                           std::chrono::day(static_cast<unsigned>(val(day)))};
    return date.ok() ? std::optional<Days>(date) : std::nullopt;
}

// "HH:MM:SS" as seconds of a day, or -1.
int secondsOf(std::string_view text) {
    if (text.size() != 8 || text[2] != ':' || text[5] != ':') return -1;
    const auto hours = mid(text, 1, 2);
    const auto minutes = mid(text, 4, 2);
    const auto seconds = mid(text, 7, 2);
    if (!wholeWithin(hours, 0, 23) || !wholeWithin(minutes, 0, 59) || !wholeWithin(seconds, 0, 59)) return -1;
    return static_cast<int>(val(hours) * 3600 + val(minutes) * 60 + val(seconds));
}

// A stamp as callStamp() makes it, in seconds; a time without its weekday counts to the minute that is left of it.
std::optional<std::int64_t> momentOf(std::string_view stamp) {
    const auto cut = stamp.size() > weekdayLength ? stamp.substr(0, stamp.size() - weekdayLength) : std::string_view();
    const auto day = dayOf(cut.substr(0, 8));
    if (!day || cut.size() < 9 || cut[8] != ' ') return {};
    auto time = std::string(cut.substr(9));
    if (time.size() == 5) time += ":00";
    const auto seconds = secondsOf(time);
    if (seconds < 0) return {};
    return std::chrono::seconds(day->time_since_epoch()).count() + seconds;
}

}  // namespace

const std::array<CallColumn, callColumnCount> callColumns{{
    {"port", "Port", "Port", &CallRecord::port, SortKind::Number},
    {"sim", "SIM", "Sim", &CallRecord::sim, SortKind::Number},
    {"Direction", "Direction", "Direction", &CallRecord::Direction, SortKind::Text},
    {"TypeOfCall", "Type Of Call", "Type of call", &CallRecord::TypeOfCall, SortKind::Text},
    {"SimID", "Sim ID", "Sim ID", &CallRecord::SimID, SortKind::Text},
    {"Dialed_CLI", "Dialed CLI", "Dialed \\ CLI number", &CallRecord::Dialed_CLI, SortKind::Text},
    {"Calling_Redirect", "Calling Redirect", "Calling \\ Redirect number", &CallRecord::Calling_Redirect,
     SortKind::Text},
    {"OriginateTime", "Originate Time", "Originate Time", &CallRecord::OriginateTime, SortKind::Stamp},
    {"AnswerTime", "Anser Time", "AnswerTime", &CallRecord::AnswerTime, SortKind::Stamp},
    {"DisconnectTime", "Disconnect Time", "Disconnect Time", &CallRecord::DisconnectTime, SortKind::Stamp},
    {"Duration", "Duration", "Duration", &CallRecord::Duration, SortKind::Duration},
    {"ClearCause", "Clear Cause", "Clear Cause", &CallRecord::ClearCause, SortKind::Number},
    {"ReleaseCause", "Release Cause", "Release Cause", &CallRecord::ReleaseCause, SortKind::Number},
    {"RSSI", "RSSI", "RSSI", &CallRecord::RSSI, SortKind::Number},
    {"BCCH", "BCCH", "BCCH", &CallRecord::BCCH, SortKind::Number},
    {"OperatorID", nullptr, "Operator ID", &CallRecord::OperatorID, SortKind::Number},
}};

CallTexts textsOf(const CallRecord& record) {
    CallTexts texts;
    for (std::size_t column = 0; column < callColumnCount; ++column) texts[column] = record.*callColumns[column].value;
    return texts;
}

std::string countedCalls(std::size_t count) { return std::to_string(count) + (count == 1 ? " call" : " calls"); }

// "MM-DD-YY HH:MM:SS Wd": the year counts first. No number, and a stamp without its date, is before everything else.
std::int64_t sortKey(std::string_view text, SortKind kind) {
    switch (kind) {
        case SortKind::Stamp: {
            if (text.size() < 8 || text[2] != '-') return std::numeric_limits<std::int64_t>::min();
            const auto time = val(mid(text, 10, 2)) * 10000 + val(mid(text, 13, 2)) * 100 + val(mid(text, 16, 2));
            const auto day = val(mid(text, 7, 2)) * 10000 + val(mid(text, 1, 2)) * 100 + val(mid(text, 4, 2));
            return day * 1000000 + time;
        }
        case SortKind::Duration: {
            const auto point = text.find('.');
            const auto seconds = point == std::string_view::npos ? 0 : val(text.substr(point + 1));
            return val(text) * 60 + seconds;
        }
        case SortKind::Number:
            return text.empty() ? std::numeric_limits<std::int64_t>::min() : val(text);
        case SortKind::Text:
            break;
    }
    return 0;
}

std::string getMCU_XY(int slot) {
    return slot % 2 == 1 ? std::to_string((slot + 1) / 2) + "1" : std::to_string(slot / 2) + "3";
}

int slotOfChannel(std::string_view address) {
    for (int slot = 1; slot <= cdrChannelCount; ++slot)
        if (getMCU_XY(slot) == address) return slot;
    return 0;
}

bool parseCallRecord(const Fields& fields, CDRSlot& slot) {
    slot.RecordID = fieldOf(fields, 2);
    if (fields.size() < 5 || fields.at(3) == endMark) return false;  // flags, and the end mark behind them
    const auto flags = static_cast<int>(val(fields.at(3)));
    if (flags == noRecordFlags) return false;
    const auto channel = fields.at(0);
    const int mcu = static_cast<int>(val(channel.substr(0, 1)));
    const int module = (right(channel, 1) == "3" ? 3 : 1) + ((flags & secondPortBit) != 0 ? 1 : 0);
    slot.sim = std::to_string((flags & simBits) / 8);
    slot.port = std::to_string(PortAddress(mcu, module).number());
    slot.Direction = (flags & incomingBit) != 0 ? "IN" : "OUT";
    if (const auto type = typeOfCall(flags); !type.empty()) slot.TypeOfCall = type;
    slot.SimID = fieldOf(fields, 4);
    slot.Dialed_CLI = fieldOf(fields, 5);
    slot.Calling_Redirect = fieldOf(fields, 6);
    slot.OriginateTime = callStamp(fieldOf(fields, 7));
    slot.AnswerTime = callStamp(fieldOf(fields, 8));
    slot.DisconnectTime = callStamp(fieldOf(fields, 9));
    slot.ClearCause = fieldOf(fields, 10);
    slot.ReleaseCause = fieldOf(fields, 11);
    const auto lowest = std::numeric_limits<std::int64_t>::min() + decibelsBelow;
    slot.RSSI = std::to_string(std::max(val(fieldOf(fields, 12)), lowest) - decibelsBelow) + "db";
    slot.BCCH = fieldOf(fields, 13);
    slot.OperatorID = fieldOf(fields, 14);
    slot.Duration = getTotalTime(slot.AnswerTime, slot.DisconnectTime);
    return true;
}

std::string callStamp(std::string_view digits) {
    static constexpr std::array<const char*, 7> weekdays{"Su", "Mo", "Tu", "We", "Th", "Fr", "Sa"};
    const auto pair = [&](std::size_t position) { return std::string(mid(digits, position, 2)); };
    auto date = pair(11) + "-" + pair(7) + "-" + pair(13);
    if (!dayOf(date)) date.clear();
    const auto time = pair(5) + ":" + pair(3) + ":" + pair(1);
    if (secondsOf(time) < 0) return date + " " + noTime;
    const auto weekday = pair(9);
    const bool named = wholeWithin(weekday, 1, 7);
    return date + " " + time + " " + (named ? weekdays[static_cast<std::size_t>(val(weekday) - 1)] : weekday);
}

std::string getTotalTime(std::string_view answerTime, std::string_view disconnectTime) {
    if (trim(answerTime) == noTime || trim(disconnectTime) == noTime) return "0";
    const auto answered = momentOf(answerTime);
    const auto ended = momentOf(disconnectTime);
    if (!answered || !ended || *ended < *answered) return "0";
    const auto seconds = *ended - *answered;
    return std::to_string(seconds / 60) + "." + pad(std::to_string(seconds % 60), 2, '0', PadSide::Left);
}

}  // namespace trunvex
