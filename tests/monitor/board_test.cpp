#include "fakes/console_test.h"

namespace trunvex {
namespace {

using testing::UnorderedElementsAre;

constexpr const char* red = "imgLedRed";
constexpr const char* yellow = "imgLedYellow";
constexpr const char* green = "imgLedGreen";

class Board : public testing::Test {
protected:
    void receive(const std::string& line) { console.session.dispatcher.AnalyzeCmd(line, true); }
    // Port 3 of MCU 5, SIM 1.
    void report(const std::string& code, const std::string& first = "", const std::string& second = "") {
        receive("I_ALR531," + code + "," + first + "," + second + ",");
    }
    const std::string& after(const std::string& line, const LabelField& field) {
        receive(line);
        return field.text();
    }
    Colour colourAfter(const std::string& line, const LabelField& field) {
        receive(line);
        return field.colour();
    }
    PortCell& cell() { return board.cell(19); }

    ConsoleBench bench;
    Console& console = bench.console;
    frmSimStatus& board = bench.console.board;
};

// A call through its life, then what disturbs it, each on top of the one before.
TEST_F(Board, FollowsACallStepByStep) {
    using enum BoardColours::Which;
    constexpr auto connected = "imgConnected";
    const std::tuple<const char*, const char*, const char*, const char*, BoardColours::Which, const char*> steps[] = {
        {"40", "", "SIM ready", "", PORT_ACTIVE, "0"},
        {"2", "0501234567", "DIAL ISDN", "", PORT_ACTIVE, "0"},
        {"3", "", "CONNECTING", "", PORT_CALL, "1"},
        {"16", "", "ALERTING", "", PORT_ALARTING, "0"},
        {"4", "00012:33", "MS CONNECTED", connected, PORT_CONNECTED, "1"},
        {"18", "00013:00", "MS CONNECTED", connected, PORT_CONNECTED, "1"},
        {"20", "", "MS CONNECTED", connected, PORT_CONNECTED, "1"},
        {"5", "", "CLEAR ISDN", "", PORT_ACTIVE, "0"},
        {"12", "", "ISDN CONNECTED", connected, PORT_CONNECTED, "0"},
        {"6", "16", "DISCONNECTED MS (16)", "", PORT_ACTIVE, "0"},
        {"35", "", "PIN CODE wrong", "", PORT_PROBLEM, "0"},
        {"13", "", "ERROR GSM", "", PORT_PROBLEM, "0"},
        {"99", "", "ERROR GSM", "", PORT_PROBLEM, "0"},
    };
    for (const auto& [code, first, message, callPicture, state, loading] : steps) {
        report(code, first);
        EXPECT_EQ(cell().lblMsg.text(), message) << code;
        EXPECT_EQ(cell().imgStatus.picture(), callPicture) << code;
        EXPECT_EQ(cell().shpSim.colour(), board.colours()[state]) << code;
        EXPECT_EQ(board.lblLoading.text(), loading) << code;
    }
    EXPECT_EQ(cell().lblMsgNumber.text(), "0501234567");
    EXPECT_EQ(cell().LblSIM_num.text(), "SIM #1");
    EXPECT_EQ(cell().lblLimit.text(), "Count:00013:00");
    receive("I_ALR530,3,,,");
    EXPECT_EQ(cell().LblSIM_num.text() + cell().lblLimit.text(), "SIM #0Count:") << "no SIM is named";
}

TEST_F(Board, LightsTheLampsOfSimAndNetwork) {
    report("40");
    EXPECT_EQ(cell().imgStatusSim.picture(), green);
    EXPECT_EQ(cell().imgStatusSim.tip(), "sim status:SIM ready");
    const std::tuple<const char*, const char*, const char*> network[] = {{"22", yellow, "Network status:REGISTRATION"},
                                                                         {"23", green, "Network status: REGISTERED"},
                                                                         {"24", red, "Network status:UNREGISTERED"},
                                                                         {"50", green, "Network status: REGISTERED"},
                                                                         {"20", red, "Network status: REGISTERED"}};
    for (const auto& [code, lamp, tip] : network) {
        report(code);
        EXPECT_EQ(cell().imgStatusNet.picture(), lamp) << code;
        EXPECT_EQ(cell().imgStatusNet.tip(), tip) << code;
    }
    EXPECT_EQ(cell().lblRM_HM.text(), "Rm");
    // A code with a leading zero finds no text, and the event ends at its lamp.
    report("4", "00001:00");
    report("026");
    EXPECT_EQ(cell().imgStatusSim.picture(), red);
    EXPECT_EQ(cell().lblMsg.text(), "MS CONNECTED");
}

TEST_F(Board, WipesACellOnceForAMissingSim) {
    report("4", "00012:33");
    report("26");
    EXPECT_EQ(cell().lblMsg.text(), "SIM ABSENCE");
    EXPECT_EQ(cell().lblLimit.text(), "Count:");
    EXPECT_EQ(cell().shpSim.colour(), board.colours()[BoardColours::PORT_NOT_ACTIVE]);
    cell().status.callNumber = "kept";
    report("26");
    EXPECT_EQ(cell().lblMsgNumber.text(), "kept");
    report("25", "40");
    report("26");
    EXPECT_EQ(cell().lblMsgNumber.text(), "");
    // A report without a SIM resets the cell too, but for the signal.
    report("4", "00001:00");
    receive("I_ALR530,25,40,,");
    EXPECT_EQ(cell().lblMsg.text(), "MS CONNECTED");
    receive("I_ALR530,15,61,0,");
    EXPECT_EQ(cell().lblMsg.text(), "");
    EXPECT_EQ(cell().lblNetBCCH.text(), "BCCH: 61");
}

TEST_F(Board, ShowsSignalInRangesWithDecibels) {
    const std::tuple<const char*, const char*, const char*> levels[] = {
        {"1", "-110db", "imgAnt_1"}, {"16", "-95db", "imgAnt_1"},
        {"17", "-94db", "imgAnt_2"}, {"33", "-78db", "imgAnt_2"},
        {"34", "-77db", "imgAnt_3"}, {"49", "-62db", "imgAnt_3"},
        {"50", "-61db", "imgAnt_4"}, {"70", "-41db", "imgAnt_4"},
        {"71", "-40db", "imgAnt_4"}, {"98", "-13db", "imgAnt_4"},
        {"99", "", "imgAnt_0"},      {"70", "-41db", "imgAnt_4"},
        {"0", "", "imgAnt_0"},       {"-9223372036854775808", "", "imgAnt_0"},
        {"x", "", "imgAnt_0"}};
    for (const auto& [level, decibels, bars] : levels) {
        report("25", level);
        EXPECT_EQ(cell().lblStrengthDB.text(), decibels) << level;
        EXPECT_EQ(cell().imgAntenna.picture(), bars) << level;
    }
    EXPECT_EQ(getRSSI(board, 19), "");
}

TEST_F(Board, GrowsDotsWhileAModuleRegisters) {
    report("21", "42501");
    report("22");
    EXPECT_TRUE(cell().lblNetworkID.bold());
    report("21", "");
    std::vector<std::size_t> lengths;
    for (int i = 0; i < 10; ++i) {
        bench.advance(200);
        lengths.push_back(cell().lblNetworkID.text().size());
    }
    EXPECT_THAT(lengths, ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 0, 1));
    report("21", "A long network name");
    bench.advance(400);
    EXPECT_EQ(cell().lblNetworkID.text(), std::string(11, '.')) << "no more dots than there are";
    report("23");
    EXPECT_FALSE(cell().lblNetworkID.bold());
    EXPECT_EQ(bench.platform.loop.runningTimers(), 0);
}

TEST_F(Board, TakesTheReportsAboutTheSystem) {
    receive("A_SYS4.37,0,1,2");
    std::vector<std::string> lamps;
    for (auto& lamp : board.imgSystemStatus) lamps.push_back(lamp.picture());
    EXPECT_THAT(lamps, ElementsAre(red, yellow, green));
    const std::tuple<const char*, int, const char*> events[] = {{"010", 2, green}, {"011", 2, red}, {"10", 2, red},
                                                                {"021", 0, green}, {"024", 0, red}, {"033", 1, yellow}};
    for (const auto& [code, lamp, picture] : events) {
        receive(std::string("I_ALR000,") + code + ",,,");
        EXPECT_EQ(board.imgSystemStatus[static_cast<std::size_t>(lamp)].picture(), picture) << code;
    }
    EXPECT_EQ(after("I_ALR000,100,17,19,", cell().lblBCH), "Port #19,  B-Ch #17");
    EXPECT_EQ(getDynamicBCH(board, 19), 17);
    EXPECT_EQ(after("I_ALR000,120,19,4,", cell().lblBCH), "Port #19,  B-Ch #4");
    EXPECT_EQ(getDynamicBCH(board, 19), 4);
    EXPECT_EQ(after("I_ALR000,120,19,4294967327,", cell().lblBCH), "Port #19,  B-Ch #4294967327");
    EXPECT_EQ(getDynamicBCH(board, 19), 0) << "no channel that there is";
    auto& line = board.row(17);
    EXPECT_EQ(colourAfter("I_ALR000,140,17,,", line.lblSTBBch), bchInCall);
    EXPECT_EQ(after("I_ALR000,113,17,16,", line.lblSTBCause), "16");
    EXPECT_EQ(line.lblSTBBch.colour(), bchIdle);
    EXPECT_EQ(colourAfter("I_ALR000,116,17,0,OK", line.lblSTBBch), bchDisabled);
    EXPECT_EQ(colourAfter("I_ALR000,116,17,1,ERR", line.lblSTBBch), bchDisabled);
    EXPECT_EQ(colourAfter("I_ALR000,136,53,0,OK", cell().lblBCH), 255u);
    // What was not sent is not shown.
    EXPECT_EQ(after("I_ALR531,6", cell().lblMsg), "DISCONNECTED MS ()");
    EXPECT_EQ(after("I_ALR531,21", cell().lblNetworkID) + console.tables.sim({{5, 3}, 1}).network, "");
    EXPECT_EQ(after("I_ALR530,19,0,2,", cell().lblMsg), "DISCONNECTED MS ()") << "a message report is no state";
    // Reports about what is not there end quietly.
    for (const auto* bad : {"I_ALR000,140,0,,", "I_ALR000,140,31,,", "I_ALR000,100,1,33,", "I_ALR000,136,99,1,OK",
                            "I_ALR951,4,1,,", "I_ALR001,4,1,,", "I_ALR000,116,x,1,OK"})
        receive(bad);
}

TEST_F(Board, MarksPortsAndChannelsOnOrOff) {
    EXPECT_EQ(cell().shpSim.tip() + std::to_string(cell().shpSim.colour()), notReadText + std::to_string(cellNotTold));
    EXPECT_EQ(board.row(29).lblSTBBch.colour(), bchNotTold);
    EXPECT_FALSE(cell().status.enabled);
    receive("A_MON" + std::string(31, '1') + "0" + std::string(29, '1') + "0");
    EXPECT_TRUE(board.cell(31).chkSTPEnable.checked());
    EXPECT_EQ(board.cell(31).lblBCH.text(), "Port #31,  B-Ch #");
    EXPECT_EQ(board.cell(32).lblBCH.colour(), 255u);
    EXPECT_EQ(board.row(29).lblSTBBch.colour(), bchIdle);
    EXPECT_EQ(board.row(30).lblSTBBch.colour(), bchDisabled);
    const std::tuple<std::string, const char*, Colour, int> routings[] = {
        {"53,1,31,0", "Port #19 (RESERVED1)", 16711680, 1},
        {"53,0,32,0", "Port #19 (RESERVED2)", 255, 2},
        {"53", "Port #19 (RESERVED2)", 255, 2},    // it has told neither flag nor channel
        {"53,1", "Port #19 (RESERVED2)", 255, 2},  // no channel
        {"53,1,7,0", "Port #19,  B-Ch #7", colourBlack, 7},
    };
    for (const auto& [record, heading, colour, channel] : routings) {
        receive("A_PRT" + record);
        EXPECT_EQ(cell().lblBCH.text(), heading) << record;
        EXPECT_EQ(cell().lblBCH.colour(), colour) << record;
        EXPECT_EQ(getDynamicBCH(board, 19), channel) << record;
        EXPECT_EQ(cell().chkSTPEnable.checked(), record.substr(2, 2) == ",1") << record;
    }
    console.session.realTimeUpdate("PRT", splitString("53,1,31,0", ','));
    receive("I_ALR000,120,19,8,,");
    EXPECT_EQ(cell().lblBCH.text(), "Port #19,  B-Ch #8") << "a port in a call is not reserved";
    receive("A_MON0");
    EXPECT_FALSE(board.cell(1).chkSTPEnable.checked());
    EXPECT_TRUE(board.cell(2).chkSTPEnable.checked()) << "what is not told stays";
    EXPECT_EQ(board.row(29).lblSTBBch.colour(), bchIdle);
}

TEST_F(Board, RestoresACellFromASnapshot) {
    const std::tuple<const char*, const char*, const char*> snapshots[] = {
        {"A_STS53,23,26,,26,,40,00012:33,0,,0,45,42501,8,61",
         "SIM #3|Count:00012:33|MS CONNECTED|42501|BCCH: 61|-66db|1", "a call that stands"},
        {"A_STS53,40,40,00000:10,26,,26,,26,,1,45,42501,12,61",
         "SIM #1|Count:00000:10|CONNECTING|42501|BCCH: AUTO|-66db|1", "being set up wins over connected"},
        {"A_STS53,23,26,,26,,26,,26,,0,45,42501,8,61", "|Count:|REGISTERED||BCCH: 61|-66db|0", "no SIM that is ready"},
        {"A_STS53,35,35,,26,,26,,26,,0,45,,0,61", "|Count:|PIN CODE wrong||BCCH: 61|-66db|0", "a wrong PIN"},
        {"A_STS53,5,26,,26,,26,,26,,0,45", "|Count:|CLEAR ISDN||BCCH: 61|-66db|0", "no SIM, and cut short"},
        {"A_STS53,26,26,,26,,26,,26,,0,45,,0,61", "|Count:|SIM ABSENCE||BCCH: 61|-66db|0", "no SIM at all"},
        {"A_STS53,23,40,1,26,,26,,26,,1,33,42501,8", "SIM #1|Count:|REGISTERED||BCCH: 61|-78db|0", "cut short"},
    };
    for (const auto& [line, expected, what] : snapshots) {
        receive(line);
        std::string all;
        for (const auto* field : {&cell().LblSIM_num, &cell().lblLimit, &cell().lblMsg, &cell().lblNetworkID,
                                  &cell().lblNetBCCH, &cell().lblStrengthDB})
            all += field->text() + "|";
        EXPECT_EQ(all + board.lblLoading.text(), expected) << what;
    }
    console.session.state.gStatusSeen = false;
    for (const auto* bad : {"A_STS", "A_STS5", "A_STS5x,1", "A_STS53,23,40", "A_STS99,1,1,1,1,1,1,1,1,1,1,1,1,1,1"})
        receive(bad);
}

TEST_F(Board, KeepsTheRecordOfEachSim) {
    std::string ready;
    console.session.realTimeUpdate.on(
        "SIM", [&](const Fields& fields) { ready = std::string(fields.at(2)) + std::string(fields.at(3)); });
    const std::pair<const char*, const char*> told[] = {
        {"21", "42501"}, {"22", "REGISTERATION"}, {"23", "REGISTERED"}, {"24", "UNREGISTERED"}, {"40", "UNREGISTERED"}};
    for (const auto& [code, text] : told) {
        report(code, "42501");
        EXPECT_EQ(console.tables.sim({{5, 3}, 1}).network, text);
    }
    EXPECT_EQ(ready, "11");
    for (const auto* bad : {"I_ALR535,21,x,,", "I_ALR951,21,x,,", "I_ALR531,21"}) receive(bad);
}

TEST_F(Board, KeepsACdmaCellFromShowingASim) {
    console.tables.port({5, 3}).Kind = "CDM";
    console.portState.UpdateCDMA();
    report("15", "61", "0");
    EXPECT_EQ(cell().lblNetBCCH.text(), "CDMA");
    std::vector<std::string> hidden;
    cell().forEachField([&](Field& field) {
        if (!field.visible()) hidden.push_back(field.name());
    });
    EXPECT_THAT(hidden, UnorderedElementsAre("LblSIM_num_19", "lblSimLed_19", "imgStatusSim_19", "lblLimit_19",
                                             "lblSimClick_19"));
    EXPECT_TRUE(board.cell(1).LblSIM_num.visible());
    receive("A_MOD53,,,,120,0,51,3,16,60,0,50,0,0,30,00000000");
    EXPECT_TRUE(cell().LblSIM_num.visible()) << "a module of the other kind has taken its place";
    receive("A_MOD53,1,,,120,0,51,3,16,60,0,50,0,0,30,00000000");
    EXPECT_FALSE(cell().LblSIM_num.visible());
    receive("A_PPR" + std::string(32, '1'));
    EXPECT_TRUE(cell().LblSIM_num.visible());
}

TEST_F(Board, AddsUpTheTalkTime) {
    bench.connect();
    bench.advance(1100);
    receive("I_ALR111,4,00010:50,,");
    const std::pair<const char*, const char*> counters[] = {
        {"00001:20", "12 :10"},  {"00001:11", "12 :01"}, {"99999:99", "100011 :29"}, {"1:5", "10 :50"},
        {"000001:05", "10 :50"}, {"x:10", "10 :50"},     {"00001-10", "10 :50"}};
    for (const auto& [counter, total] : counters) {
        receive(std::string("I_ALR121,18,") + counter + ",,");
        bench.advance(1000);
        EXPECT_EQ(board.lblTotalCounter.text(), total) << counter;
        EXPECT_EQ(board.cell(2).lblLimit.text(), std::string("Count:") + counter);
    }
}

TEST_F(Board, RefreshAsksForEveryActivePort) {
    simulator::Gateway gateway(seeded(3));
    board.cmdSTSRefresh.press();
    EXPECT_THAT(bench.platform.boxes.texts(), ElementsAre(notConnectedText));
    bench.logIn(gateway);
    gateway.forgetLinesReceived();
    board.cmdSTSRefresh.press();
    bench.advance(30000);
    const auto& ports = console.session.state.gActivePorts;
    const auto active = static_cast<std::size_t>(std::count(ports.begin(), ports.end(), '1'));
    ASSERT_GT(active, 0u);
    EXPECT_EQ(gateway.linesReceived().size(), active);
    EXPECT_FALSE(console.session.refreshes.bar.visible());
    EXPECT_EQ(bench.platform.boxes.shown.size(), 1u);
}

TEST_F(Board, KeepsItsLastPictureAndReadsAnewWhenItIsOpen) {
    const auto asked = [this](simulator::Gateway& gateway) {
        bench.advance(3000);
        const auto& lines = gateway.linesReceived();
        const auto count = std::count(lines.begin(), lines.end(), "R_MON");
        gateway.forgetLinesReceived();
        return count;
    };
    simulator::Gateway gateway(seeded(3));
    board.setShown(true);
    bench.logIn(gateway);
    EXPECT_EQ(asked(gateway), 1) << "an open board is read at the log-in";
    console.mainWindow.openPage("sim");
    EXPECT_EQ(asked(gateway), 0);
    for (const auto* switched : {"I_ALR000,116,17,0,OK", "I_ALR000,136,53,0,OK"}) {
        receive(switched);
        console.mainWindow.openPage("sim");
        EXPECT_EQ(asked(gateway), 1) << switched;
    }
    report("4", "00012:33");
    report("22");
    receive("I_ALR000,140,17,,");
    bench.platform.peer.closes();
    EXPECT_EQ(cell().lblMsg.text() + board.lblLoading.text(), "REGISTRATION0");
    EXPECT_EQ(board.row(17).lblSTBBch.colour(), bchInCall);
    EXPECT_THAT(board.lblAsOf.text(), testing::MatchesRegex("The link is lost.*as of [0-9][0-9]:[0-9][0-9]."));
    EXPECT_EQ(bench.platform.loop.runningTimers(), 0);
    EXPECT_FALSE(console.portTree.moduleType("MOD11").empty() || board.holdsData);
    board.setShown(false);
    bench.logIn(gateway);
    EXPECT_EQ(cell().lblMsg.text() + board.lblAsOf.text(), "");
    EXPECT_EQ(board.row(17).lblSTBBch.colour(), bchNotTold);
    EXPECT_EQ(asked(gateway), 0);
    report("4", "00012:33");
    EXPECT_EQ(board.lblLoading.text(), "1");
    console.mainWindow.openPage("connect");
    EXPECT_THAT(board.lblAsOf.text(), testing::StartsWith("The session is ended."));
}

TEST_F(Board, KeepsItsColours) {
    report("4", "00001:00");
    BoardColours kept;
    frmColors window(board.colours(), [&](const BoardColours& colours) { board.takeColours(colours); });
    window.lblColor[BoardColours::PORT_CONNECTED].setColour(0x123456);
    EXPECT_EQ(console.files.setting.Read("Colors", "PORT_CONNECTED"), "") << "nothing before Save";
    window.cmdSave.press();
    EXPECT_EQ(console.files.setting.Read("Colors", "PORT_CONNECTED"), std::to_string(0x123456));
    EXPECT_EQ(cell().shpSim.colour(), 0x123456u);
    kept.load(console.files.setting);
    EXPECT_EQ(kept[BoardColours::PORT_CONNECTED], 0x123456u);
    for (const auto* bad : {"x", "-1", "16777216", "99999999999999999999999"}) {
        console.files.setting.Write("Colors", "PORT_CALL", bad);
        kept.load(console.files.setting);
        EXPECT_EQ(kept[BoardColours::PORT_CALL], 8840850u) << bad;
    }
    // Two states in one colour are two states still, and part again.
    window.lblColor[BoardColours::PORT_CONNECTED].setColour(board.colours()[BoardColours::PORT_PROBLEM]);
    window.cmdSave.press();
    EXPECT_EQ(cell().status.state, BoardColours::PORT_CONNECTED);
    window.cmdDefault.press();
    window.cmdSave.press();
    EXPECT_EQ(cell().shpSim.colour(), 14811110u);
}

TEST_F(Board, RemembersTheLastFiveNumbersOfAPort) {
    auto& calls = console.monitor.lastCalls;
    report("2", "100");
    EXPECT_EQ(calls.INIT_lastCalls(19)[0], LastCalls::emptyLine) << "the gateway has not told who it is";
    receive("A_ESN4711");
    for (const auto* number : {"1", "2", "3", "4", "5"}) report("2", number);
    report("2", "6");
    const auto lines = calls.INIT_lastCalls(19);
    EXPECT_THAT(lines[0], HasSubstr("6 ("));
    EXPECT_THAT(lines[4], HasSubstr("5 ("));
    EXPECT_EQ(calls.INIT_lastCalls(18)[0], LastCalls::emptyLine);
    for (int i = 0; i < 300; ++i) report("2", std::to_string(i));
    EXPECT_EQ(bench.platform.loop.runningTimers(), 1) << "written once, a little later";
    bench.advance(LastCalls::writeDelayMs);
    EXPECT_EQ(bench.platform.loop.runningTimers(), 0);
    EXPECT_THAT(console.files.history.Read("PORT471119", "CALL4"), HasSubstr("299 ("));
    cell().cmdResetLimit.press();
    EXPECT_THAT(calls.mnuLastDial[4].caption(), HasSubstr("299 ("));
    calls.mnuLastDial[4].press();
    calls.mnuLastDial[5].press();
    EXPECT_EQ(calls.mnuLastDial[4].caption() + console.files.history.Read("PORT471119", "index"), LastCalls::emptyLine);
    report("2", "7");
    EXPECT_THAT(calls.INIT_lastCalls(19)[0], HasSubstr("7 ("));
}

}  // namespace
}  // namespace trunvex
