#include "config/settings_bench.h"

namespace trunvex::fakes {
namespace {

using Isdn = SettingsBench;
using System = SettingsBench;
using Edits = SettingsBench;
using Selection = SettingsBench;

TEST_F(Isdn, ShowsTheWordsOfItsCodesAndLeavesAListForACodeOfNoTable) {
    bench.receive("A_ISD,4,1,130,82,25,0,7,5550100,A,5,9,2,1,1,005,3");
    EXPECT_EQ(isdn.buildLine(false), "C_ISD4,1,130,82,25,0,0,5550100,A,5,9,2,1,1,005");
    bench.receive("A_ISDISM 4,5,1,9,2,99,0,0,,,0,5,1,0,0,050,3");
    EXPECT_EQ(isdn.CmbNetworkAccess.text() + isdn.CmbIncomingCalls.text() + isdn.cmbNumIdentif.text() +
                  isdn.CmbCountryCode.text() + isdn.CmbISDNVersion.text() + isdn.TxtISM_VER.text(),
              "TEOverlapPrivate numbering planKoreaKoreaISM 4");
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
    console.session.dispatcher.AnalyzeCmd("C_ISD,,,49,,,,,,,,,,,", true);  // of a command file, say
    const auto& held = console.tables.isdn;
    EXPECT_EQ(held.NetworkAccess + held.IsdnVersion + held.CountryCode, "81149");
    bench.receive("A_ISD,,4,2,49,11,0,0,,,0,1,1,0,1,005,3");
    isdn.TxtLocalNumber.setText("123");
    EXPECT_THAT(isdn.buildLine(true), HasSubstr(",123,"));
    EXPECT_EQ(console.tables.isdn.LocalNumber, "123") << "stored at once, and nothing sent";
    EXPECT_FALSE(isdn.form.edited());
    EXPECT_THAT(arrived(), IsEmpty());
}

TEST_F(Isdn, ChecksItsFields) {
    press(isdn.cmdIsdnRefresh_);
    isdn.CmbIncomingCallsMode.setIndex(1);
    EXPECT_EQ(refusal(isdn.CmdWriteISDN_), "");
    expectChecks(
        isdn.form, isdn.CmdWriteISDN_,
        {{isdn.CmbNetworkAccess, {""}, "0", "Error: Network Access"},
         {isdn.CmbSynchronization, {""}, "1", "Error: Synchronization"},
         {isdn.CmbIncomingCalls, {""}, "1", "Error: Type of incoming calls."},
         {isdn.CmbCountryCode, {""}, "2", "There is not such country, Please pick up from list"},
         {isdn.CmbISDNVersion, {"AT&T4ES"}, "AT&T 4ESS", "Please pick up ISDN version from list"},
         {isdn.TxtLocalNumber, {"0123456789"}, "012345678", "The local number have to be between 0 to 9 digits"},
         {isdn.TxtLocalSubAddress, {"12"}, "A", "The local sub adderss have to be 1 digits"},
         {isdn.txtInCallMode, {"251"}, "250", "The timer 'Alerting' have to be a number between 0 to 250"}});
    const auto& kept = gateway.state().isdn;
    EXPECT_EQ(kept.isdnVersion + kept.localSubAddress + kept.alertTimer, "24A250");
    isdn.CmbNetworkAccess.setIndex(ChoiceField::none);
    isdn.CmdWriteISDN_.press();
    EXPECT_EQ(boxes.shown.back().title, "Error");
    isdn.form.undo();
    isdn.txtInCallMode.setText("9");
    isdn.CmbIncomingCallsMode.setIndex(0);
    EXPECT_EQ(isdn.txtInCallMode.text(), "250") << "greyed, it is what the gateway holds";
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
    EXPECT_EQ(console.files.setting.readOr("CDRConfig", "DateFormat", ""), "1");
    bench.advance(3000);
    EXPECT_THAT(arrived(), ElementsAre("R_CLK")) << "once, two ticks after the write";
    system.cmbDay.setIndex(0);
    EXPECT_EQ(system.buildClockLine(), "C_CLK05,03,26,1,07,09") << "the operator has the last word on the day";
}

TEST_F(System, RunsTheClockOverMidnightInAllPlaces) {
    const auto& board = console.board;
    bench.receive("A_CLK1,2,26,3,4,5");
    EXPECT_THAT(console.session.state.gClockField, ElementsAre("01", "02", "26", "3", "04", "05", "00"));
    for (const auto& [report, next] :
         {std::pair{"31,12,26,7,23,59,58", "01/01/27"}, {"28,02,28,1,23,59,58", "29/02/28"}}) {
        bench.receive(std::string("A_CLK") + report);
        arrived();
        bench.advance(3000);
        EXPECT_EQ(board.lblDate.text(), next) << report;
        EXPECT_EQ(system.lblHoure.text() + board.lblHoure.text() + system.lblMinute.text(), "000000");
        EXPECT_EQ(system.lblSecond.text(), board.lblSecond.text());
        EXPECT_THAT(console.session.panel.getPanelText("time"), HasSubstr(" 00:00:0"));
        bench.advance(1500);
        EXPECT_THAT(arrived(), ElementsAre("R_CLK")) << "what the gateway makes of the new day";
    }
    bench.receive("A_CLK05,03,26,5,07,09");
    system.dtpDate.setText("06/03/2026");
    bench.advance(120000);
    EXPECT_EQ(system.buildClockLine(), "C_CLK06,03,26,6,07,11") << "a new date does not set the clock back";
    system.form.undo();
    bench.receive("A_CLK00,00,26,1,07,09");
    bench.advance(60000);
    EXPECT_EQ(system.dtpDate.text(), "05/03/2026") << "a day of none is no date";
}

TEST_F(System, RefusesWhatIsNoDateAndNoTime) {
    const std::string time = "The time have to be in the form hh:mm, 00:00 to 23:59";
    press(system.cmdClkRefresh);
    expectChecks(system.form, system.cmdSetTime_,
                 {{system.dtpDate,
                   {"31/02/2026", "29/02/2027", "31/12/1999", "01/01/2100", "5/3/2026", "01,01/2026"},
                   "29/02/2028",
                   "The date have to be a day in the form dd/mm/yyyy, 2000 to 2099"},
                  {system.dtpClock, {"24:00", "00:60", "7:00", "07:0\r"}, "07:08", time}});
    system.dtpClock.setText("x");
    EXPECT_EQ(refusal(system.cmdSetTime_), time);
    bench.receive("A_CLK05,03,26,5,07,09");
    EXPECT_EQ(system.dtpDate.text() + system.dtpClock.problem(), "05/03/2026" + time) << "the fault stands still";
    for (const char* cut : {"A_CLK", "A_CLK06", "A_CLK06,03,26,5,08"}) bench.receive(cut);
    EXPECT_EQ(system.dtpDate.text() + system.lblDate.text() + system.lblMinute.text(), "05/03/202626/03/0509");
}

TEST_F(Edits, AreLostByAReadOnlyWhenTheOperatorAgrees) {
    select("MOD11");
    press(isdn.cmdIsdnRefresh_);
    press(system.cmdClkRefresh);
    using Page = std::tuple<TextField&, RecordForm&, ActionField&, std::size_t>;
    for (const auto& [field, form, read, asks] : {Page{port.TxtIntDigPause, port.form, port.cmdModRefresh, 1},
                                                  Page{isdn.TxtLocalNumber, isdn.form, isdn.cmdIsdnRefresh_, 1},
                                                  Page{system.dtpClock, system.form, system.cmdClkRefresh, 2}}) {
        const auto held = field.text();
        field.setText("77");
        arrived();
        boxes.answers = {Button::No, Button::Yes};
        press(read);
        EXPECT_EQ(field.text(), "77");
        EXPECT_THAT(arrived(), IsEmpty());
        press(read);
        EXPECT_EQ(field.text(), held);
        EXPECT_EQ(arrived().size(), asks);
        EXPECT_EQ(told().size(), 2u);
        press(read);
        EXPECT_THAT(told(), IsEmpty()) << "nothing to lose any more";
    }
}

// A lost link loses nothing that was typed; an end on purpose does, and asks.
TEST_F(Edits, WaitForTheirGatewayAndAreNamedBeforeTheyAreLost) {
    const auto connect = [this] { console.mainWindow.openPage("connect"); };
    select("MOD11");
    port.TxtIntDigPause.setText("77");
    group({"MOD21"});
    bench.platform.peer.closes();
    simulator::Gateway other(seeded(5, "4712"));
    bench.logIn(other);
    select("MOD11");
    EXPECT_NE(port.TxtIntDigPause.text() + std::to_string(tree.ports("PRT01").size()), "771");
    told();
    connect();
    EXPECT_THAT(told(), IsEmpty()) << "nothing of this gateway is at stake";
    bench.logIn(gateway);
    EXPECT_THAT(notice(), HasSubstr("not written yet: Groups, Port 1"));
    select("MOD11");
    EXPECT_EQ(port.TxtIntDigPause.text(), "77");
    EXPECT_THAT(tree.ports("PRT01"), ElementsAre("MOD21"));
    boxes.answers = {Button::No, Button::No, Button::Yes};
    EXPECT_FALSE(console.mainWindow.queryUnload());
    connect();
    EXPECT_EQ(console.session.state.phase, SessionPhase::Connected);
    connect();
    EXPECT_THAT(told(), testing::AllOf(testing::SizeIs(3), testing::Each(HasSubstr("\r\nGroups\r\nPort 1"))));
    bench.logIn(gateway);
    select("MOD11");
    EXPECT_EQ(port.form.unwritten().size() + tree.ports("PRT01").size(), 0u);
    boxes.answers = {Button::Yes};
    EXPECT_TRUE(console.mainWindow.queryUnload());
    EXPECT_THAT(told(), ElementsAre("Do you really want to exit the software?"));
    EXPECT_EQ(bench.sent().back(), "SRV:CLOSE");
}

// Nothing that was made, asked or written for one gateway reaches another that answers in its place.
TEST_F(Edits, StayWithTheirGatewayWhenAnotherAnswersOnTheLine) {
    const auto answerAs = [this](const std::string& esn) {
        gateway.state().esn = esn;
        bench.receive("A_ESN" + esn);
        settle();
    };
    select("MOD11");
    port.TxtIntDigPause.setText("77");
    simulator::switchOn(gateway.faults(), "C_MOD:latency=300-300");
    console.session.firmware.updateAll({"C_MOD12,,1,", "C_MOD21,,1,", "C_MOD22,,1,"});
    bench.advance(10);
    arrived();
    answerAs("4712");
    bench.receive("I_ALR000,90,,'RESTART' Command is completed");
    bench.advance(10);
    EXPECT_THAT(arrived(), testing::AllOf(Contains(HasSubstr("R_PPR")), testing::Not(Contains(HasSubstr("C_MOD")))));
    EXPECT_EQ(console.session.state.phase, SessionPhase::Connected);
    select("MOD11");
    EXPECT_EQ(port.TxtIntDigPause.text(), "60");
    answerAs("4711");
    select("MOD11");
    EXPECT_EQ(port.TxtIntDigPause.text(), "77");
}

TEST_F(Edits, OfASessionWithoutANameJoinThoseThatWaitForIt) {
    simulator::switchOn(gateway.faults(), "R_ESN:silent");
    for (const bool leaves : {false, true}) {
        select("MOD11");
        port.form.undo();
        port.TxtIntDigPause.setText("77");
        bench.platform.peer.closes();
        boxes.answers = {Button::Ignore};
        bench.logIn(gateway);
        bench.advance(3000);
        select("MOD11");
        port.TxtMinDigits.setText("7");
        if (leaves) select("MOD21");
        bench.receive("A_ESN4711");
        if (leaves) select("MOD11");
        EXPECT_EQ(port.TxtIntDigPause.text() + port.TxtMinDigits.text(), "777") << leaves;
    }
}

TEST_F(Edits, StayWhenTheirWriteDoesNotBegin) {
    select("MOD11");
    port.txtNoRegTimer.setText("");
    WriteBatch batch;
    batch.items = {command("C_MOD12,,1,", "Port 2")};
    console.session.writes.start(std::move(batch));
    port.cmdWritePort.press();
    EXPECT_THAT(notice(), HasSubstr("still being written"));
    EXPECT_TRUE(port.form.edited(port.txtNoRegTimer));
    settle();
    port.cmdWritePort.press();
    tree.tvGroups[0].select("MOD21");
    settle();
    EXPECT_EQ(port.form.word(), "") << "it is about another port";
    press(port.cmdWritePort);
    EXPECT_THAT(port.form.word(), HasSubstr("Port 5 written"));
    select("MOD11");
    EXPECT_EQ(port.form.word(), "");
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
    EXPECT_FALSE(port.cmdUndoPort.enabled() || !port.form.unwritten().empty());
    port.TxtIntDigPause.setText("77");
    pages.main.forget();
    EXPECT_THAT(port.form.unwritten(), IsEmpty());
}

TEST_F(Edits, TakeNothingFromAbsurdRecords) {
    const auto lines = [this] {
        select("SIM111");
        const auto line = sim.build("SIM111", true).line;
        select("MOD11");
        return line + port.WriteMod("MOD11", false).line + isdn.buildLine(false);
    };
    select("MOD12");
    press(isdn.cmdIsdnRefresh_);
    const auto before = lines();
    for (const char* index : {"MOD99", "MOD1", "MOD", "MODx1", "MOD15", "MOD10", "MOD111", "MOD-1", "MOD1 1", "SIM11",
                              "SIM1", "SIM", "SIM1111", "SIM115", "SIM110", "SIM0", "SIMxyz"})
        for (const std::string letter : {"A_", "C_"})
            bench.receive(letter + index + ",1,2,3,4,5,6,7,8,9,1,2,3,4,5,67890123,7,8,9,1,2");
    for (const char* cut : {"A_MOD11", "A_MOD12", "A_SIM111", "A_ISD", "A_SIM214,5550100,1234", "C_ISD", "A_MOD22,",
                            "A_SIM132,,,,,,,,,,,,,,,,,,,,"})
        bench.receive(cut);
    EXPECT_TRUE(console.tables.port({1, 2}).secondScale());
    EXPECT_FALSE(console.tables.port({2, 2}).loaded());
    EXPECT_FALSE(console.tables.sim({{2, 1}, 4}).loaded()) << "half a record is not one to be written back";
    EXPECT_FALSE(console.tables.sim({{1, 3}, 2}).loaded()) << "a record of nothing is none";
    EXPECT_EQ(lines(), before);
    EXPECT_THAT(told(), IsEmpty());
}

TEST_F(Selection, ReadsWhatItLacksAndNothingTwice) {
    console.mainWindow.openPage("main");
    for (const auto* key : {"MOD12", "MOD21", "MOD22"}) tree.tvGroups[0].select(key);
    settle();
    EXPECT_THAT(arrived(), ElementsAre("R_MOD11", "R_MOD22")) << "who passes by a node does not ask for it";
    EXPECT_EQ(port.TxtIntDigPause.text(), "60");
    tree.tvGroups[0].select("SIM221");
    EXPECT_EQ(console.session.reads.bar.text(), "Loading SIM 1");
    settle();
    EXPECT_THAT(arrived(), ElementsAre("R_SIM221"));
    EXPECT_EQ(pages.main.panel(), MainPage::Panel::Sim);
    select("MOD13");
    arrived();
    group({"MOD11"});
    for (const auto* key : {"MOD11", "MOD22", "SIM221", "CDM13", "ERR14", "MDD01", "GRP01", "PRT01"}) select(key);
    EXPECT_THAT(arrived(), IsEmpty());
    EXPECT_EQ(pages.main.panel(), MainPage::Panel::Port);
    console.mainWindow.openPage("groups");
    tree.tvGroups[0].select("SIM222");
    settle();
    console.mainWindow.openPage("main");
    settle();
    EXPECT_THAT(arrived(), ElementsAre("R_SIM222")) << "what is selected when the page is opened";
    console.tables.forgetRecords();
    pages.sim.forget();
    tree.cmdRefreshTree.press();
    settle();
    EXPECT_THAT(arrived(), ElementsAre("R_SIM222"));
    tree.tvGroups[0].select("MOD11");
    settle();
    arrived();
    console.mainWindow.openPage("groups");
    for (const auto* key : {"SIM212", "MOD21"}) {
        tree.tvGroups[0].select(key);
        settle();
        EXPECT_THAT(arrived(), IsEmpty()) << "another page is open";
        console.session.tell("");
        (key[0] == 'S' ? sim.cmdWriteSIM : port.cmdWritePort).press();
        EXPECT_THAT(notice(), HasSubstr("read here yet"));
    }
    EXPECT_THAT(arrived(), IsEmpty());
}

TEST_F(Selection, ReadsNothingInASessionThatOnlyWatches) {
    console.mainWindow.openPage("connect");
    bench.dialog = [](frmConnectionSelect& dialog) { dialog.chkReceivingMode.setChecked(true); };
    bench.logIn(gateway);
    settle();
    arrived();
    select("MOD21");
    select("SIM212");
    EXPECT_THAT(arrived(), IsEmpty());
    EXPECT_EQ(sim.lblSimCaption.text(), "Port 5, SIM 2 Setting");
}

TEST_F(Selection, WritesNoRecordThatWasNeverRead) {
    pages.forget();
    system.form.forgetAll();
    system.cmdComputerTime.press();
    for (auto* button : {&isdn.CmdWriteISDN_, &system.cmdSetTime_}) {
        press(*button);
        EXPECT_EQ(notice(), nothingReadText) << button->name();
        console.notices.tell("");
    }
    EXPECT_THAT(arrived(), IsEmpty());
}

TEST_F(Selection, SaysWhatItNeedsBeforeItReadsOrWrites) {
    pages.main.forget();
    EXPECT_EQ(refusal(port.cmdModRefresh), "Please select first the port in the ports list.");
    EXPECT_EQ(refusal(sim.cmdSimRefresh), "Please select first the port in the ports list.");
    console.mainWindow.openPage("connect");
    for (const auto* key : {"SIM112", "MOD12"}) tree.tvGroups[0].select(key);
    EXPECT_EQ(refusal(port.cmdModRefresh), "Please connect first the gateway.");
    for (auto* button : {&isdn.CmdWriteISDN_, &system.cmdSetTime_, &isdn.cmdIsdnRefresh_, &system.cmdClkRefresh})
        EXPECT_EQ(refusal(*button), notConnectedText) << button->name();
}

}  // namespace
}  // namespace trunvex::fakes
