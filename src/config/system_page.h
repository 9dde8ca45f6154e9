#pragma once

#include "link/real_time_update.h"
#include "link/session_bring_up.h"
#include "platform/settings.h"
#include "widgets/fields.h"

namespace trunvex {

// The page "system": the gateway's clock as last reported, its firmware version, and the buttons that change how the
// gateway itself connects.
class SystemPage {
public:
    SystemPage(RealTimeUpdate& realTimeUpdate, SessionBringUp& bringUp, Settings& settings);

    LabelField lblHoure{"lblHoure"};
    LabelField lblMinute{"lblMinute"};
    LabelField lblSecond{"lblSecond"};
    LabelField lblDate{"lblDate"};
    TextField dtpDate{"dtpDate"};  // dd/mm/yyyy
    ChoiceField cmbDay{"cmbDay",
                       {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"}};
    TextField TxtSystemVer{"TxtSystemVer"};
    ActionField cmdConSwitch_0{"cmdConSwitch_0", "Serial"};
    ActionField cmdConSwitch_1{"cmdConSwitch_1", "TCP"};
    ActionField cmdConSwitch_2{"cmdConSwitch_2", "Modem"};
    ActionField cmdConSwitch_3{"cmdConSwitch_3", "Passwords..."};
    ActionField cmdConSwitch_4{"cmdConSwitch_4", "Reset"};

private:
    void takeClock(const Fields& fields);
    void blank();
    void readDateFormat();

    Settings& settings_;
    bool yearFirst_ = true;
};

}  // namespace trunvex
