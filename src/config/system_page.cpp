#include "config/system_page.h"

#include "text/text_rules.h"

namespace trunvex {

SystemPage::SystemPage(RealTimeUpdate& realTimeUpdate, SessionBringUp& bringUp, Settings& settings)
    : settings_(settings) {
    realTimeUpdate.on("CLK", [this](const Fields& fields) { takeClock(fields); });
    realTimeUpdate.on("SYS", [this](const Fields& fields) { TxtSystemVer.setText(escaped(fields.at(0))); });
    bringUp.tornDown.connect([this] { blank(); });
    readDateFormat();
    bringUp.resetTables.connect([this] {
        TxtSystemVer.setText("");
        readDateFormat();
    });
    int index = 0;
    for (auto* button : {&cmdConSwitch_0, &cmdConSwitch_1, &cmdConSwitch_2, &cmdConSwitch_3, &cmdConSwitch_4})
        button->pressed().connect([&bringUp, index = index++] { bringUp.cmdConSwitch(index); });
}

// Kept for the session: a clock record comes often, and the file need not be read for each.
void SystemPage::readDateFormat() { yearFirst_ = settings_.readOr("CDRConfig", "DateFormat", "0") == "0"; }

// Day, month, two-digit year, weekday (1 is Sunday), hour, minute.
void SystemPage::takeClock(const Fields& fields) {
    const auto day = std::string(fields.at(0));
    const auto month = std::string(fields.at(1));
    const auto year = std::string(fields.at(2));
    lblHoure.setText(escaped(fields.at(4)));
    lblMinute.setText(escaped(fields.at(5)));
    lblSecond.setText("00");
    lblDate.setText(escaped(yearFirst_ ? year + "/" + month + "/" + day : day + "/" + month + "/" + year));
    if (val(day) == 0 || val(month) == 0) return;
    dtpDate.setText(escaped(pad(day, 2, '0', PadSide::Left) + "/" + pad(month, 2, '0', PadSide::Left) + "/20" + year));
    const auto weekday = val(fields.at(3));
    cmbDay.setIndex(weekday >= 1 && weekday <= 7 ? static_cast<int>(weekday) - 1 : ChoiceField::none);
}

void SystemPage::blank() {
    for (auto* label : {&lblHoure, &lblMinute, &lblSecond, &lblDate}) label->setText("");
    dtpDate.setText("");
    cmbDay.setIndex(ChoiceField::none);
    TxtSystemVer.setText("");
}

}  // namespace trunvex
