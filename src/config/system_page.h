#pragma once

#include <chrono>
#include <optional>

#include "config/record_page.h"
#include "fields/fields.h"
#include "model/status_reports.h"

namespace trunvex {

// The page "system": the gateway's clock as last reported and as it is to be set, its firmware version, and the buttons
// that change how the gateway itself connects.
class SystemPage final : public RecordPage {
public:
    SystemPage(Session& session, const PageTools& tools);
    std::vector<QueueItem> missing() override;

    // The line that sets the gateway's clock; empty after a message.
    std::string buildClockLine();

    LabelField lblHoure{"lblHoure"};
    LabelField lblMinute{"lblMinute"};
    LabelField lblSecond{"lblSecond"};
    LabelField lblDate{"lblDate"};
    TextField dtpDate{"dtpDate"};    // dd/mm/yyyy
    TextField dtpClock{"dtpClock"};  // hh:mm
    ChoiceField cmbDay{"cmbDay", {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"}};
    ChoiceField cmbDateFormat{"cmbDateFormat", {"yy-mm-dd", "dd-mm-yy"}};
    TextField TxtSystemVer{"TxtSystemVer"};
    ActionField cmdSetTime_{"cmdSetTime", "Write"};
    ActionField cmdClkRefresh{"cmdClkRefresh", "Read"};
    ActionField cmdUndoClock{"cmdUndoClock", "Undo"};
    ActionField cmdComputerTime{"cmdComputerTime", "This computer's time"};
    ActionField cmdConSwitch_0{"cmdConSwitch_0", "Serial"};
    ActionField cmdConSwitch_1{"cmdConSwitch_1", "TCP"};
    ActionField cmdConSwitch_2{"cmdConSwitch_2", "Modem"};
    ActionField cmdConSwitch_3{"cmdConSwitch_3", "Passwords..."};
    ActionField cmdConSwitch_4{"cmdConSwitch_4", "Reset"};

    RecordForm form;

private:
    void begun() override;
    void tornDown() override;
    void writing(const std::string& line) override;
    void delayedClockTick();
    void askClockSoon();
    void followClock();
    void takeClock(const ClockReport& report);
    void showDate();
    void blank();
    void readDateFormat();
    void followDate();
    std::string cmdSetTime();
    void takeComputerTime();
    std::optional<std::chrono::year_month_day> enteredDate() const;

    Settings& settings_;
    Clock& clock_;
    std::array<std::string, 3> reportedDate_;  // day, month, year of the last report
    bool yearFirst_ = true;
    std::unique_ptr<Timer> TmrDelayClkUpdate_;
    int delayedClockTicks_ = 0;
};

}  // namespace trunvex
