#pragma once

#include <array>
#include <deque>

#include "monitor/board_operations.h"

namespace trunvex {

// The panel "  ISDN Statistic": what the E1 line has counted since it was reset.
class IsdnCounters {
public:
    static constexpr std::array<const char*, 5> captions{"Signal lost", "Remote Alarm/RAI", "Alarm Indication/AIS",
                                                         "CRC Errors", "Deactivation"};

    IsdnCounters(Session& session, BoardOperations& operations);

    std::deque<LabelField> lblIsdnStatus;  // numbers, in the order of the captions; empty while they are not told
    ActionField cmdIsdnRefresh{"cmdIsdnRefresh", "Refresh"};
    ActionField cmdResetIsdn{"cmdResetIsdn", "Reset"};

private:
    void take(const Fields& fields);
    void setAll(const char* text);
    void reset();

    Session& session_;
    BoardOperations& operations_;
};

}  // namespace trunvex
