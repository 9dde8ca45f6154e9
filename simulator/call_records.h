#pragma once

#include "simulator/port_address.h"
#include "simulator/random.h"

#include <array>
#include <chrono>
#include <deque>
#include <optional>
#include <string>
#include <string_view>

namespace simulator {

enum class CallType { voice = 1, data = 2, fax = 3, sms = 4 };

// What the gateway keeps of a call, every text as it travels.
struct CallRecord {
    int number = 0;  // the record's own, 1 to 65535 and then from 1 again
    CallType type = CallType::voice;
    int sim = 1;              // 1 to 4
    bool secondPort = false;  // of the two ports of its channel
    bool incoming = false;    // from the mobile side
    std::string simIdentity;
    std::string dialled;
    std::string calling;
    std::chrono::sys_seconds originated;
    std::optional<std::chrono::sys_seconds> answered;
    std::chrono::sys_seconds disconnected;
    int clearCause = 0;
    int releaseCause = 0;
    int level = 0;  // decibels above -111
    int bcch = 0;
    std::string network;

    // The fields behind "A_CDR<channel>,1," in their order.
    std::string text() const;
};

// The memories of the call records: each MCU has two channels, its ports 1 and 2 on the one with the digit 1, its ports
// 3 and 4 on the one with the digit 3. A record stays until the console has acknowledged it.
class CallRecords {
public:
    // The memory of a channel's address, MCU 1 to 8 and the digit 1 or 3; null for any other text.
    std::deque<CallRecord>* channel(std::string_view address);
    // Gives the record its number and puts it behind the others of its port's channel.
    void add(PortAddress port, CallRecord record);

private:
    std::array<std::deque<CallRecord>, 16> channels;
    int lastNumber = 0;
};

// A call of any type, direction and outcome that ended at this moment.
CallRecord someCallRecord(Random& random, std::chrono::sys_seconds ended);

}  // namespace simulator
