#pragma once

#include "link/analyze_cmd.h"
#include "link/session_bring_up.h"
#include "widgets/fields.h"

namespace trunvex {

// The status board: the gateway's identity and clock, and whether it has been read in this session.
class frmSimStatus {
public:
    frmSimStatus(Dispatcher& dispatcher, SessionState& session, SessionBringUp& bringUp,
                 RealTimeUpdate& realTimeUpdate, ReadQueue& reads);

    // The board holds what a first read has brought; opening it asks the gateway no more.
    bool holdsData = false;

    LabelField lblESN{"lblESN"};
    LabelField lblHoure{"lblHoure"};
    LabelField lblMinute{"lblMinute"};
    LabelField lblSecond{"lblSecond"};
    LabelField lblDate{"lblDate"};

private:
    void takeClock(const Fields& fields);
};

}  // namespace trunvex
