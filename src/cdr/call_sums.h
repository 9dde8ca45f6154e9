#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "cdr/call_record.h"
#include "model/shared_tables.h"

namespace trunvex {

// What a number of calls come to.
struct CallTotals {
    std::size_t calls = 0;
    std::size_t answered = 0;
    std::int64_t talkSeconds = 0;

    // A call of this duration, in the form of the column.
    void add(std::string_view duration);
    void add(const CallTotals& more);
    // Answer-seizure ratio in percent, and average call duration in seconds; 0 where there is nothing to divide by.
    int asr() const;
    int acd() const;

    bool operator==(const CallTotals&) const = default;
};

// Calls added up: all of them, and by port, SIM, operator and hour of the day.
class CallSums {
public:
    enum class By { Port, Sim, Operator, Hour };
    struct Group {
        std::string name;  // "12", "12/3" (port and SIM), "42501", "07"; "-" for calls that tell none
        CallTotals totals;
    };

    void add(const CallTexts& texts);

    const CallTotals& all() const { return all_; }
    // Groups with calls, in their natural order; every hour as soon as there is any call.
    std::vector<Group> by(By by) const;

private:
    static constexpr std::size_t simsOfPort = 8;  // what a record can tell
    static constexpr std::size_t hours = 24;

    CallTotals all_;
    // By port - 1 and SIM, and by hour; the last place is for calls that tell none.
    std::array<CallTotals, portCount * simsOfPort + 1> sims_{};
    std::array<CallTotals, hours + 1> hours_{};
    std::map<std::string, CallTotals, std::less<>> operators_;
};

}  // namespace trunvex
