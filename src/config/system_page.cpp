#include "config/system_page.h"

#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr const char* formatSection = "CDRConfig";
constexpr int delayedClockTickMs = 1000;
constexpr const char* formatKey = "DateFormat";

std::string padded(std::string_view text) { return pad(text, 2, '0', PadSide::Left); }

bool hasDate(const ClockReport& clock) { return val(clock.day) != 0 && val(clock.month) != 0; }

// What the fields show of the gateway's clock.
RecordForm::Values clockValues(const SystemPage& page, const ClockReport& clock) {
    const auto weekday = val(clock.weekday);
    return {{&page.dtpDate, escaped(padded(clock.day) + "/" + padded(clock.month) + "/20" + padded(clock.year))},
            {&page.dtpClock, escaped(padded(clock.hour) + ":" + padded(clock.minute))},
            {&page.cmbDay, weekday >= 1 && weekday <= 7 ? std::to_string(weekday - 1) : std::string()}};
}

}  // namespace

SystemPage::SystemPage(Session& session, const PageTools& tools)
    : RecordPage(session, {"system", "System", "Clock, version and the gateway's connection", None}, tools),
      settings_(session.setting), clock_(session.platform.clock()) {
    for (InputField* field : std::initializer_list<InputField*>{&dtpDate, &dtpClock, &cmbDay}) form.add(*field);
    addForm(form, "System Time", {cmdUndoClock, cmdClkRefresh, cmdSetTime_},
            {command("R_CLK", "System time"), command("R_SYS", "System Version")}, [this] { return cmdSetTime(); });
    onReport<ClockReport>(session.realTimeUpdate, "CLK", [this](const auto& report) { takeClock(report); });
    onReport<SystemReport>(session.realTimeUpdate, "SYS", [this](const SystemReport& report) {
        tools_.tables.isdn.SystemVersion = report.version;
        TxtSystemVer.setText(escaped(report.version));
    });
    session.panel.staStatusTime.changed().connect([this] { followClock(); });
    dtpDate.valueChanged().connect([this] {
        if (!form.filling()) followDate();
    });
    TmrDelayClkUpdate_ = session.platform.makeTimer([this] { delayedClockTick(); });
    cmdComputerTime.pressed().connect([this] { takeComputerTime(); });
    int index = 0;
    for (auto* button : {&cmdConSwitch_0, &cmdConSwitch_1, &cmdConSwitch_2, &cmdConSwitch_3, &cmdConSwitch_4})
        button->pressed().connect([&session, index = index++] { session.bringUp.cmdConSwitch(index); });
    readDateFormat();
    blank();
}

std::vector<QueueItem> SystemPage::missing() {
    if (!TxtSystemVer.text().empty()) return {};
    return {command("R_CLK", "System time"), command("R_SYS", "System Version")};
}

void SystemPage::begun() {
    TxtSystemVer.setText("");
    readDateFormat();
}

void SystemPage::tornDown() {
    TmrDelayClkUpdate_->stop();
    blank();
}

// The gateway is asked what its clock says, at the second tick.
void SystemPage::delayedClockTick() {
    constexpr int askAt = 2;
    if (++delayedClockTicks_ < askAt) return;
    TmrDelayClkUpdate_->stop();
    session_.objSpool.SendCommand("R_CLK");
}

// Kept for the session: a clock record comes often, and the file need not be read for each.
void SystemPage::readDateFormat() {
    yearFirst_ = settings_.readOr(formatSection, formatKey, "0") == "0";
    cmbDateFormat.setIndex(yearFirst_ ? 0 : 1);
}

void SystemPage::takeClock(const ClockReport& report) {
    reportedDate_ = {std::string(report.day), std::string(report.month), std::string(report.year)};
    lblHoure.setText(escaped(report.hour));
    lblMinute.setText(escaped(report.minute));
    lblSecond.setText("00");
    showDate();
    if (hasDate(report)) form.take(clockValues(*this, report));
}

// The clock runs on between two reports. What the gateway makes of a new day it is asked itself.
void SystemPage::followClock() {
    const auto& [day, month, year, weekday, hour, minute, second] = session_.state.gClockField;
    if (!session_.state.gGotClock || reportedDate_[0].empty()) return;
    const bool nextMinute = lblMinute.text() != escaped(minute);
    lblHoure.setText(escaped(hour));
    lblMinute.setText(escaped(minute));
    lblSecond.setText(escaped(second));
    // Whoever sets the date alone would set the time of the last report with it.
    const ClockReport now{day, month, year, weekday, hour, minute, second};
    if (nextMinute && hasDate(now)) form.take(clockValues(*this, now));
    if (val(day) == val(reportedDate_[0])) return;
    reportedDate_ = {day, month, year};
    showDate();
    askClockSoon();
}

void SystemPage::askClockSoon() {
    delayedClockTicks_ = 0;
    TmrDelayClkUpdate_->start(delayedClockTickMs);
}

void SystemPage::showDate() {
    const auto& [day, month, year] = reportedDate_;
    if (day.empty()) return;
    lblDate.setText(escaped(yearFirst_ ? year + "/" + month + "/" + day : day + "/" + month + "/" + year));
}

void SystemPage::blank() {
    for (auto* label : {&lblHoure, &lblMinute, &lblSecond, &lblDate}) label->setText("");
    reportedDate_ = {};
    form.park(session_.state.gESN);
    TxtSystemVer.setText("");
}

std::optional<std::chrono::year_month_day> SystemPage::enteredDate() const {
    const auto& text = dtpDate.text();
    if (text.size() != 10 || text[2] != '/' || text[5] != '/') return {};
    const auto day = mid(text, 1, 2);
    const auto month = mid(text, 4, 2);
    const auto year = mid(text, 7);
    if (!isWhole(day) || !isWhole(month) || !wholeWithin(year, 2000, 2099)) return {};
    const std::chrono::year_month_day date{std::chrono::year(static_cast<int>(val(year))),
                                           std::chrono::month(static_cast<unsigned>(val(month))),
                                           std::chrono::day(static_cast<unsigned>(val(day)))};
    if (!date.ok()) return {};
    return date;
}

void SystemPage::followDate() {
    if (const auto date = enteredDate())
        cmbDay.setIndex(static_cast<int>(std::chrono::weekday(std::chrono::sys_days(*date)).c_encoding()));
}

void SystemPage::takeComputerTime() {
    const auto now = clock_.localTime();
    const auto midnight = std::chrono::floor<std::chrono::days>(now);
    const std::chrono::year_month_day date(midnight);
    const auto minutes = std::chrono::duration_cast<std::chrono::minutes>(now - midnight).count();
    dtpDate.setText(twoDigits(static_cast<unsigned>(date.day())) + "/" +
                    twoDigits(static_cast<unsigned>(date.month())) + "/" +
                    std::to_string(static_cast<int>(date.year())));
    dtpClock.setText(twoDigits(minutes / 60) + ":" + twoDigits(minutes % 60));
}

std::string SystemPage::buildClockLine() {
    form.clearProblems();
    const auto date = enteredDate();
    const auto& time = dtpClock.text();
    const bool goodTime =
        time.size() == 5 && time[2] == ':' && wholeWithin(mid(time, 1, 2), 0, 23) && wholeWithin(mid(time, 4), 0, 59);
    if (!date)
        return BuiltLine::wrong("The date have to be a day in the form dd/mm/yyyy, 2000 to 2099", dtpDate)
            .orTell(tools_.dialogs);
    if (!goodTime)
        return BuiltLine::wrong("The time have to be in the form hh:mm, 00:00 to 23:59", dtpClock)
            .orTell(tools_.dialogs);
    if (cmbDay.index() == ChoiceField::none)
        return BuiltLine::wrong("Please pick up the day of the week from list", cmbDay).orTell(tools_.dialogs);
    const auto year = std::to_string(static_cast<int>(date->year()));
    return "C_CLK" + twoDigits(static_cast<unsigned>(date->day())) + "," +
           twoDigits(static_cast<unsigned>(date->month())) + "," + std::string(mid(year, 3)) + "," +
           std::to_string(cmbDay.index() + 1) + "," + time.substr(0, 2) + "," + time.substr(3);
}

std::string SystemPage::cmdSetTime() {
    settings_.Write(formatSection, formatKey, std::to_string(cmbDateFormat.index()));
    readDateFormat();
    showDate();
    return buildClockLine();
}

void SystemPage::writing(const std::string&) { askClockSoon(); }

}  // namespace trunvex
