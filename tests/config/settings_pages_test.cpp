#include "config/settings_bench.h"

namespace trunvex {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class SettingsPagesTest : public fakes::SettingsBench {
protected:
    SystemPage& system = pages.system;
};

using Isdn = SettingsPagesTest;
using System = SettingsPagesTest;
using Selection = SettingsPagesTest;
using Edits = SettingsPagesTest;

TEST_F(Isdn, ShowsTheWordsOfItsCodes) {
    bench.receive("A_ISD,4,1,130,852,24,0,7,5550100,A,5,9,2,1,1,005,3");
    EXPECT_EQ(isdn.CmbNetworkAccess.text() + isdn.CmbSynchronization.text() + isdn.CmbIncomingCalls.text(),
              "TESLAVEOverlap");
    EXPECT_EQ(isdn.CmbCountryCode.text() + isdn.CmbISDNVersion.text(), "Hong KongAT&T 4ESS");
    EXPECT_EQ(isdn.cmbTypeOfNumber.text() + isdn.cmbNumIdentif.text(), "ResevedPrivate numbering plan");
    EXPECT_EQ(isdn.cmbISD[0].text() + isdn.cmbISD[1].text(), "CRC4 extendedLong");
    EXPECT_EQ(isdn.CmbIncomingCallsMode.text() + isdn.txtInCallMode.text(), "Imitation Processing5");
    EXPECT_EQ(isdn.TxtISM_VER.text(), "");
    EXPECT_EQ(isdn.buildLine(false), "C_ISD4,1,130,852,24,0,0,5550100,A,5,9,2,1,1,005");
    // A code of no table leaves its list as it is, and a number of no code goes out empty.
    bench.receive("A_ISDISM 4,5,1,2,1,3,0,0,5550100,A,5,5,2,1,1,050,3");
    EXPECT_EQ(isdn.CmbNetworkAccess.text() + isdn.CmbIncomingCalls.text() + isdn.cmbNumIdentif.text(),
              "TEIn blockPrivate numbering plan");
    EXPECT_EQ(isdn.CmbCountryCode.text() + isdn.CmbISDNVersion.text() + isdn.TxtISM_VER.text(),
              "USA and CanadaVN6ISM 4");
}

TEST_F(Isdn, PadsTheTimerAndTakesANumberAway) {
    press(isdn.cmdIsdnRefresh_);
    isdn.CmbIncomingCallsMode.setIndex(1);
    isdn.txtInCallMode.setText("5");
    isdn.TxtLocalNumber.setText("");
    arrived();
    press(isdn.CmdWriteISDN_);
    EXPECT_THAT(arrived(), ElementsAre("C_ISD8,4,2,1000,11,0,0,,,0,1,1,0,1,005"));
    EXPECT_EQ(isdn.txtInCallMode.text(), "5");
    EXPECT_FALSE(isdn.form.edited());
    EXPECT_EQ(gateway.state().isdn.localNumber + console.tables.isdn.LocalNumber, "");
    bench.receive("I_ALR000,OK");
    console.dispatcher.AnalyzeCmd("C_ISD,,,49,,,,,,,,,,,", true);  // of a command file, say
    EXPECT_EQ(console.tables.isdn.IsdnVersion + console.tables.isdn.CountryCode, "1149");
    // Kept for a restore: stored at once, and nothing sent.
    isdn.TxtLocalNumber.setText("123");
    EXPECT_THAT(isdn.buildLine(true), HasSubstr(",123,"));
    EXPECT_EQ(console.tables.isdn.LocalNumber, "123");
    EXPECT_FALSE(isdn.form.edited());
    EXPECT_THAT(arrived(), IsEmpty());
}

TEST_F(Isdn, RefusesInTheOrderOfItsChecks) {
    isdn.TxtLocalNumber.setText("0123456789");
    isdn.TxtLocalSubAddress.setText("12");
    isdn.txtInCallMode.setText("251");
    isdn.CmbISDNVersion.setText("AT&T4ES");  // the list's spelling, which is not the gateway's
    expectOrder(isdn.CmdWriteISDN_,
                {{isdn.CmbNetworkAccess, "", "0", "Error: Network Access"},
                 {isdn.CmbSynchronization, "", "1", "Error: Synchronization"},
                 {isdn.CmbIncomingCalls, "", "1", "Error: Type of incoming calls."},
                 {isdn.CmbCountryCode, "", "2", "There is not such country, Please pick up from list"},
                 {isdn.CmbISDNVersion, "AT&T4ES", "AT&T 4ESS", "Please pick up ISDN version from list"},
                 {isdn.TxtLocalNumber, "0123456789", "012345678", "The local number have to be between 0 to 9 digits"},
                 {isdn.TxtLocalSubAddress, "12", "A", "The local sub adderss have to be 1 digits"},
                 {isdn.txtInCallMode, "251", "250", "The timer 'Alerting' have to be a number between 0 to 250"}});
    EXPECT_EQ(gateway.state().isdn.isdnVersion + gateway.state().isdn.alertTimer, "24250");
    EXPECT_EQ(gateway.state().isdn.localSubAddress, "A");
    isdn.CmbNetworkAccess.setIndex(ChoiceField::none);
    isdn.CmdWriteISDN_.press();
    EXPECT_EQ(boxes.shown.back().title, "Error");
    isdn.form.undo();
    expectNoBreakingOut(isdn.form, isdn.CmdWriteISDN_, {&isdn.TxtLocalNumber, &isdn.TxtLocalSubAddress,
                                                        &isdn.CmbISDNVersion});
    isdn.CmbIncomingCallsMode.setIndex(1);
    isdn.txtInCallMode.setText("1,2");
    EXPECT_NE(refusal(isdn.CmdWriteISDN_), "");
    EXPECT_EQ(gateway.state().isdn.localNumber + console.tables.isdn.LocalNumber, "012345678012345678");
}

TEST_F(System, SetsTheClockWithTwoDigitsAndReadsItAgain) {
    system.dtpDate.setText("05/03/2026");
    EXPECT_EQ(system.cmbDay.text(), "Thursday") << "the weekday follows the date";
    system.dtpClock.setText("07:09");
    system.cmbDateFormat.setText("dd-mm-yy");
    system.cmdSetTime_.press();
    bench.advance(1999);
    EXPECT_THAT(arrived(), ElementsAre("C_CLK05,03,26,5,07,09"));
    EXPECT_EQ(system.lblDate.text(), "05/03/26");
    EXPECT_FALSE(system.form.edited());
    EXPECT_EQ(console.setting.readOr("CDRConfig", "DateFormat", ""), "1");
    bench.advance(3000);
    EXPECT_THAT(arrived(), ElementsAre("R_CLK")) << "once, two ticks after the write";
    system.cmbDay.setIndex(0);
    EXPECT_EQ(system.buildClockLine(), "C_CLK05,03,26,1,07,09") << "the operator has the last word on the day";
}

TEST_F(System, RefusesWhatIsNoDateAndNoTime) {
    const std::string date = "The date have to be a day in the form dd/mm/yyyy, 2000 to 2099";
    const std::string time = "The time have to be in the form hh:mm, 00:00 to 23:59";
    press(system.cmdClkRefresh);
    expectLimits(system.form, system.cmdSetTime_,
                 {{system.dtpDate, "31/02/2026", date}, {system.dtpDate, "29/02/2028", ""},
                  {system.dtpDate, "29/02/2027", date}, {system.dtpDate, "31/12/1999", date},
                  {system.dtpDate, "31/12/2099", ""},   {system.dtpDate, "01/01/2100", date},
                  {system.dtpDate, "5/3/2026", date},   {system.dtpDate, "00/01/2026", date},
                  {system.dtpDate, "01,01/2026", date}, {system.dtpClock, "24:00", time},
                  {system.dtpClock, "23:59", ""},       {system.dtpClock, "00:60", time},
                  {system.dtpClock, "00:00", ""},       {system.dtpClock, "7:00", time},
                  {system.dtpClock, "07:0\r", time}});
    system.dtpClock.setText("x");
    EXPECT_EQ(refusal(system.cmdSetTime_), time);
    bench.receive("A_CLK05,03,26,5,07,09");
    EXPECT_EQ(system.dtpDate.text() + system.dtpClock.problem(), "05/03/2026" + time) << "the fault stands still";
    const auto shown = system.dtpDate.text() + system.dtpClock.text() + system.lblDate.text();
    for (const char* cut : {"A_CLK", "A_CLK05", "A_CLK05,03,26,5,07"}) bench.receive(cut);
    EXPECT_EQ(system.dtpDate.text() + system.dtpClock.text() + system.lblDate.text(), shown);
}

TEST_F(Edits, AreLostByAReadOnlyWhenTheOperatorAgrees) {
    select("MOD11");
    select("SIM112");
    press(isdn.cmdIsdnRefresh_);
    press(system.cmdClkRefresh);
    select("MOD11");
    struct Page {
        TextField& field;
        RecordForm& form;
        ActionField& read;
        std::size_t asks;
    };
    for (const auto& page : {Page{port.TxtIntDigPause, port.form, port.cmdModRefresh_, 1},
                             Page{isdn.TxtLocalNumber, isdn.form, isdn.cmdIsdnRefresh_, 1},
                             Page{system.dtpClock, system.form, system.cmdClkRefresh, 2}}) {
        const auto held = page.field.text();
        page.field.setText("77");
        arrived();
        boxes.answers = {Button::No, Button::Yes};
        press(page.read);
        EXPECT_THAT(arrived(), IsEmpty());
        EXPECT_EQ(page.field.text(), "77");
        press(page.read);
        EXPECT_EQ(arrived().size(), page.asks);
        EXPECT_EQ(page.field.text(), held);
        EXPECT_EQ(told().size(), 2u);
        press(page.read);
        EXPECT_THAT(told(), IsEmpty()) << "nothing to lose any more";
    }
}

TEST_F(Edits, SurviveALookAtAnotherRecordAndALateReport) {
    select("MOD21");
    select("MOD11");
    port.TxtIntDigPause.setText("77");
    select("MOD21");
    EXPECT_EQ(port.TxtIntDigPause.text(), "60");
    EXPECT_THAT(port.form.unwritten(), ElementsAre("MOD11"));
    bench.receive("A_MOD11,,,,61,0,51,3,17,62,0,50,0,0,30,00000000");
    select("MOD11");
    EXPECT_EQ(port.TxtIntDigPause.text() + port.TxtMaxDigits.text() + port.txtNoRegTimer.text(), "771761")
        << "only what was edited stays as it was left";
    EXPECT_EQ(port.TxtIntDigPause.standing(), InputField::Standing::Edited);
    EXPECT_EQ(port.TxtMaxDigits.standing(), InputField::Standing::AsRead);
    bench.receive("A_MOD11,,,,63,0,51,3,18,64,0,50,0,0,30,00000000");
    EXPECT_EQ(port.TxtIntDigPause.text() + port.TxtMaxDigits.text(), "7718");
    press(port.cmdUndoPort);
    EXPECT_EQ(port.TxtIntDigPause.text(), "64");
    EXPECT_THAT(port.form.unwritten(), IsEmpty());
}

TEST_F(SettingsPagesTest, TakeNothingFromAbsurdRecords) {
    select("MOD12");
    select("SIM111");
    const auto simLine = sim.buildForOne("SIM111");
    select("MOD11");
    const auto portLine = port.WriteMod("MOD11", false);
    press(isdn.cmdIsdnRefresh_);
    const auto isdnLine = isdn.buildLine(false);
    for (const std::string address : {"99", "1", "", "x1", "15", "10", "111", "-1", "1111", "115", "110", "xyz", "1 1"})
        for (const char* mnemonic : {"A_MOD", "C_MOD", "A_SIM", "C_SIM"}) {
            if (mnemonic[2] == 'S' && address == "111") continue;
            bench.receive(mnemonic + address + ",1,2,3,4,5,6,7,8,9,1,2,3,4,5,67890123,7,8,9,1,2");
        }
    for (const char* cut : {"A_MOD11", "A_MOD12", "A_SIM111", "A_ISD", "A_SIM214,5550100,1234", "C_ISD", "A_MOD22,"})
        bench.receive(cut);
    EXPECT_EQ(port.WriteMod("MOD11", false), portLine);
    EXPECT_EQ(isdn.buildLine(false), isdnLine);
    EXPECT_TRUE(console.tables.port(1, 2).secondScale());
    EXPECT_FALSE(console.tables.port(2, 2).loaded());
    EXPECT_FALSE(console.tables.sim(2, 1, 4).loaded()) << "half a record is not one to be written back";
    select("SIM111");
    EXPECT_EQ(sim.buildForOne("SIM111"), simLine);
    EXPECT_THAT(told(), IsEmpty());
}

TEST_F(Selection, ReadsWhatItLacksAndNothingTwice) {
    console.mainWindow.openPage("main");
    for (const auto* key : {"MOD12", "MOD21", "MOD22"}) tree.tvGroups[0].select(key);
    bench.advance(3000);
    EXPECT_THAT(arrived(), ElementsAre("R_MOD12", "R_MOD22")) << "who passes by a node does not ask for it";
    EXPECT_EQ(port.TxtIntDigPause.text(), "60");
    select("SIM221");
    EXPECT_THAT(arrived(), ElementsAre("R_SIM221"));
    EXPECT_EQ(pages.main.panel(), MainPage::Panel::Sim);
    select("MOD13");
    arrived();
    group({"MOD11"});
    for (const auto* key : {"MOD12", "MOD22", "SIM221", "CDM13", "ERR14", "MDD01", "GRP01", "PRT01"}) select(key);
    EXPECT_THAT(arrived(), IsEmpty());
    EXPECT_EQ(pages.main.panel(), MainPage::Panel::Port);
    port.form.undo();
    console.mainWindow.openPage("groups");
    tree.tvGroups[0].select("MOD21");
    settle();
    EXPECT_THAT(arrived(), IsEmpty()) << "another page is open";
    EXPECT_EQ(port.shownKey(), "MOD21");
}

TEST_F(Selection, ReadsNothingInASessionThatOnlyWatches) {
    console.mainWindow.openPage("connect");
    bench.dialog = [](frmConnectionSelect& dialog) {
        dialog.cmbConSelect.setText("NET");
        dialog.chkReceivingMode.setChecked(true);
    };
    bench.logIn(gateway);
    settle();
    arrived();
    select("MOD21");
    select("SIM212");
    EXPECT_THAT(arrived(), IsEmpty());
    EXPECT_EQ(sim.lblSimCaption.text(), "Port 5, SIM 2 Setting");
}

TEST_F(Selection, SaysWhatItNeedsBeforeItReadsOrWrites) {
    pages.main.forget();
    EXPECT_EQ(refusal(port.cmdModRefresh_), "Please select first the port in the ports list.");
    EXPECT_EQ(refusal(sim.cmdSimRefresh_), "Please select first the port in the ports list.");
    console.mainWindow.openPage("connect");
    tree.tvGroups[0].select("SIM112");
    tree.tvGroups[0].select("MOD12");
    EXPECT_EQ(refusal(port.cmdModRefresh_), "Please connect first the gateway.");
    for (auto* button : {&port.cmdWritePort, &isdn.CmdWriteISDN_, &system.cmdSetTime_, &isdn.cmdIsdnRefresh_})
        EXPECT_EQ(refusal(*button), button->enabled() ? notConnectedText : "nothing happened") << button->name();
}

}  // namespace
}  // namespace trunvex
