#pragma once

#include <set>

#include "fakes/console_test.h"
#include "simulator/call_records.h"
#include "text/text_rules.h"

namespace trunvex::fakes {

// Calls on all the channels that a console asks, each of them with another number.
inline void fillCalls(simulator::Gateway& gateway, int records, std::uint64_t seed = 7) {
    simulator::Random dice(seed);
    auto& state = gateway.state();
    for (auto& port : state.ports) port.module = '1';
    const auto start = state.clock.moment(gateway.now());
    for (int call = 0; call < records; ++call)
        state.callRecords.add(simulator::PortAddress::ofSlot(call % 32),
                              simulator::someCallRecord(dice, start - std::chrono::seconds(30) * (records - call)));
}

// The numbers that were dialled in the calls that the gateway holds, and in those of the table.
inline std::multiset<std::string> callsIn(simulator::Gateway& gateway) {
    std::multiset<std::string> dialled;
    for (int slot = 1; slot <= cdrChannelCount; ++slot)
        for (const auto& record : *gateway.state().callRecords.channel(getMCU_XY(slot))) dialled.insert(record.dialled);
    return dialled;
}

inline std::multiset<std::string> callsIn(CallStore& store) {
    std::multiset<std::string> dialled;
    const auto found = store.values("Dialed_CLI");
    while (found->next()) dialled.emplace(found->text(0));
    return dialled;
}

// Each with a number of its own.
inline void addCall(CallStore& store, const std::string& port, const std::string& dialled,
                    const std::string& duration = "0") {
    static int number = 0;
    CDRSlot record;
    record.RecordID = std::to_string(++number);
    record.port = port;
    record.sim = "1";
    record.Dialed_CLI = dialled;
    record.OriginateTime = "03-25-09 14:07:59 We";
    record.Duration = duration;
    store.take(1, record);
    store.add(1);
}

}  // namespace trunvex::fakes
