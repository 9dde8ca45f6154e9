#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

#include "link/real_time_update.h"
#include "model/alarm_code.h"
#include "model/port_address.h"

// The status records of the gateway, taken apart. Texts are views into the line. What is empty was not told.
namespace trunvex {

// "ALR": X, Y, SIM, code, three arguments, which are empty where they were not sent.
struct AlarmReport {
    // Throws where there is no such port, or what should be a digit is none.
    static AlarmReport of(const Fields& event);
    AlarmReport(std::optional<PortAddress> about, int ofSim, std::string_view codeText, std::string_view argument1 = {},
                std::string_view argument2 = {}, std::string_view argument3 = {});

    std::optional<PortAddress> port;  // none: about the gateway itself
    int sim;                          // one digit, 0 for none
    std::string_view code;            // "026" is not the text "26", but the same number
    std::string_view first;
    std::string_view second;
    std::string_view third;
    AlarmCode alarm;  // by the number
    bool plain;       // the code is spelled as that number is

    bool is(AlarmCode spelled) const { return plain && alarm == spelled; }
};

// "PRT": address, enable flag, the B-channel bound to the port, prefix number.
struct PortReport {
    static PortReport of(const Fields& event);

    PortAddress port;
    std::optional<bool> enabled;
    std::optional<std::string_view> channel;
    std::optional<std::string_view> prefix;
};

// "BCH": channel, enable flag, number.
struct ChannelReport {
    static ChannelReport of(const Fields& event);

    std::int64_t channel;  // any, also one that there is not
    std::optional<bool> enabled;
    std::optional<std::string_view> number;
};

// "SYS": version, and the states of the three lamps: 0, 1 or 2.
struct SystemReport {
    static SystemReport of(const Fields& event);

    std::string_view version;
    std::array<std::optional<int>, 3> lamps;
};

// "CLK": the gateway's clock.
struct ClockReport {
    static ClockReport of(const Fields& event);

    std::string_view day;
    std::string_view month;
    std::string_view year;     // two digits
    std::string_view weekday;  // 1 is Sunday
    std::string_view hour;
    std::string_view minute;
    std::optional<std::string_view> second;
};

// A_STS, all that a port tells at once.
struct PortSnapshot {
    struct Sim {
        std::optional<std::string_view> state;
        std::optional<std::string_view> talked;
    };

    static PortSnapshot of(const Fields& record);

    PortAddress port;
    std::string_view state;
    std::array<Sim, simsPerModule> sims;
    std::optional<std::string_view> bcchMode;
    std::optional<std::string_view> signal;
    std::optional<std::string_view> network;
    std::optional<std::string_view> flags;  // of its call
    std::optional<std::string_view> bcch;
};

// The low bit of a flag; off for what is no number.
bool lowBit(std::string_view flag);

// Has reports of one kind taken up by whoever follows them.
template <class Report, class Taker>
void onReport(RealTimeUpdate& realTimeUpdate, const char* key, Taker taker) {
    realTimeUpdate.on(key, [taker](const Fields& event) { taker(Report::of(event)); });
}

}  // namespace trunvex
