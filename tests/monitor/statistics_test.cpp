// What the gateway counts of its SIMs.
#include "fakes/console_test.h"
#include "text/text_rules.h"

namespace trunvex {
namespace {

TEST(SimFigures, AreCutAndNotRounded) {
    const std::tuple<const char*, const char*, int, bool, const char*> fractions[] = {
        {"0.66666", ".", 2, false, "0.66"},
        {"0.66666", ".", 0, false, "0"},
        {"1", ".", 2, false, "1"},
        {"-0.5", ".", 2, false, "-0.5"},
        {"0", ":", 2, true, "0 Minutes "},
        {".59", ":", 2, true, "0 Minutes 59 Seconds "},
        {"1.05", ":", 2, true, "1 Minutes 05 Seconds "},
        {"2.", ":", 2, true, "2 Minutes 0 Seconds "},
        {"2.10", ":", 0, true, "2 Minutes "}};
    for (const auto& [value, separator, decimals, minutes, text] : fractions)
        EXPECT_EQ(formatFraction(value, separator, decimals, minutes), text) << value;

    const std::tuple<const char*, const char*, const char*> records[] = {
        {"11,1,00000:00,0,0,,,,", "0", "0 Minutes"},
        {"11,1,00012:33,3,0,,,,", "0", "0 Minutes"},
        {"11,1,00000:59,1,1,,,,", "100", "0 Minutes 59 Seconds "},
        {"11,1,00002:00,3,1,,,,", "33", "2 Minutes 00 Seconds "},
        {"11,4,00010:00,3,2,,,,", "66", "5 Minutes 00 Seconds "},
        {"11,1,00001:01,7,5,,,,", "71", "0 Minutes 12 Seconds "},
        {"11,1,00001:00,100,29,,,,", "29", "0 Minutes 02 Seconds "},
        {"11,1,00001:00,3,5,,,,", "166", "0 Minutes 12 Seconds "},  // more succeeded than were dialled
        {"11,1,00001:00,5,-5,,,,", "-100", "0 Minutes "},
        {"11,1,,abc,9,,,,", "0", "0 Minutes "},
        {"11,1,99999999999999999999:59,1,1,,,,", "100", "0 Minutes 59 Seconds "},
        {"84,4,00001:00,9223372036854775807,1,,,,", "0", "1 Minutes 00 Seconds "}};
    for (const auto& [record, asr, acd] : records) {
        const auto figures = SimFigures::of(splitString(record, ','));
        EXPECT_EQ(figures->asr(), asr) << record;
        EXPECT_EQ(figures->acd(), acd) << record;
    }
    for (const char* none : {"11,0,0:00,1,1", "11,5,0:00,1,1", "11,,0:00,1,1", "11,x"})
        EXPECT_FALSE(SimFigures::of(splitString(none, ','))) << none;
    for (const char* cut : {"11", "11,1", "11,1,0:00", "11,1,0:00,3", "11,1,0:00,<end>,3,4", "91,1,0:00,1,1"})
        EXPECT_ANY_THROW(SimFigures::of(splitString(cut, ',')).value().asr()) << cut;
}

TEST(SimHistory, AWordStandsForWhatIsWellBelowTheUsual) {
    struct Reads {
        int count;
        int dialled;
        int succeeded;
    };
    const std::pair<std::vector<Reads>, const char*> histories[] = {{{{5, 100, 60}, {1, 100, 43}}, ""},
                                                                    {{{5, 100, 60}, {1, 100, 41}}, "ASR low"},
                                                                    {{{4, 100, 60}, {1, 100, 20}}, ""},
                                                                    {{{5, 100, 60}, {1, 9, 1}}, ""},
                                                                    {{{5, 100, 20}, {6, 5, 5}, {1, 100, 20}}, ""},
                                                                    {{{40, 100, 60}, {29, 100, 20}, {1, 100, 20}}, ""}};
    fakes::ManualPlatform platform;
    for (const auto& [reads, word] : histories) {
        SimHistory history(platform.databaseFiles);
        SimFigures sim{.sim = {{1, 1}, 1}, .talked = ""};
        for (const auto& [count, dialled, succeeded] : reads)
            for (int read = 0; read < count; ++read) {
                sim.dialled = dialled;
                sim.succeeded = succeeded;
                sim.talked = minutesAndSeconds(succeeded * 60);
                history.add({sim}, {});
            }
        EXPECT_EQ(history.wordOn(sim), word) << testing::PrintToString(reads.back().succeeded);
        EXPECT_LE(history.of(sim).size(), SimHistory::kept);
    }
}

class Statistics : public testing::Test {
protected:
    Statistics() { bench.logIn(gateway); }
    void read(const char* sim, const char* figures) { bench.receive(std::string("A_STR") + sim + "," + figures); }
    // The whole batch, each SIM answered by what `figures` gives.
    void readAll(const std::function<std::string(SimAddress)>& figures) {
        simulator::switchOn(gateway.faults(), "silent");
        statistics.cmdGetAllSTR.press();
        for (int sim = 0; sim < 128 && console.session.reads.running(); ++sim) {
            const auto line = console.session.reads.walk().item().Key;
            const auto address = SimAddress::parse(line.substr(5, 2) + line.substr(8, 1));
            bench.receive("A_STR" + line.substr(5) + figures(address));
            bench.advance(20);
        }
        gateway.faults() = {};
        bench.advance(1000);
    }
    std::string cell(std::size_t row, std::size_t column) { return grid.text(row, column); }
    std::size_t rowOf(const char* sim) {
        for (std::size_t row = 0; row < grid.rowCount(); ++row)
            if (grid.row(row).key == sim) return row;
        return SIZE_MAX;
    }
    std::vector<std::string> changes() {
        std::vector<std::string> lines;
        for (const auto& line : bench.sent())
            if (line.rfind("C_STR", 0) == 0 || line.rfind("C_ABF", 0) == 0) lines.push_back(line);
        return lines;
    }

    simulator::Gateway gateway{seeded(3)};
    ConsoleBench bench;
    Console& console = bench.console;
    SimStatistics& statistics = console.monitor.statistics;
    ListTable& grid = statistics.lstASR;
};

TEST_F(Statistics, ThePanelOpensForTheSimThatTheMenuAskedFor) {
    auto& menu = console.monitor.menu;
    read("53,1", "00001:00,3,2,9.5,ID,IMSI");
    EXPECT_FALSE(statistics.framMSG.visible()) << "nobody asked";
    console.board.cell(19).cmdResetLimit.press();
    menu.mnuReadSim[1].press();
    EXPECT_EQ(bench.sent().back(), "R_STR53,2,");
    const auto text = [this] { return statistics.framMSG.visible() ? statistics.lblMSG_BOX.text() : "closed"; };
    for (const char* other : {"53,1", "52,2"}) {
        read(other, "00001:00,3,2,9.5,ID,IMSI");
        EXPECT_EQ(text(), "closed") << other;
    }
    read("53,2", "00001:00,3,2,9.5,ID,IMSI");
    EXPECT_EQ(statistics.framMSG.text(), "Statistics for sim : 2 ,Port : 19");
    EXPECT_EQ(text(),
              "Minutes of the conversation : 00001:00\r\nNumber dialed calls : 3\r\nNumber success calls : 2\r\n"
              "ASR : 66 %\r\nACD : 0 Minutes 30 Seconds \r\nSIM ID : ID\r\nIMSI : IMSI\r\nBalance : 9.5\r\n");
    menu.mnuReadSim[2].press();
    EXPECT_EQ(text(), "closed") << "it belongs to another SIM now";
    read("53,2", "00001:00,3,2");
    EXPECT_EQ(text(), "closed");
    read("53,3", "0:01,1,1");
    EXPECT_THAT(text(), HasSubstr("Number dialed calls : 1\r\n"));
    statistics.cmdMSG_BOX.press();
    read("53,3", "0:01,1,1");
    EXPECT_EQ(text(), "closed") << "it was closed, and the answer comes twice";
    EXPECT_EQ(grid.rowCount(), 0u) << "a single SIM is no row";
}

TEST_F(Statistics, AllSimsAreReadIntoTheGridOncePerSim) {
    readAll(
        [](SimAddress sim) { return "00010:00,10," + std::to_string(sim.sim()) + ",5,ID" + sim.digits() + ",IMSI"; });
    std::size_t fitted = 0;
    for (const auto& port : console.tables.gPorts) fitted += port.Kind != "ERR" ? 1 : 0;
    ASSERT_EQ(grid.rowCount(), 4 * fitted);
    const auto row = rowOf("112");
    EXPECT_EQ(
        cell(row, SimStatistics::Asr) + "|" + cell(row, SimStatistics::Acd) + "|" + cell(row, SimStatistics::Imsi),
        "20 %|5 Minutes 00 Seconds |IMSI");
    console.board.cell(1).cmdResetLimit.press();
    bench.platform.boxes.answers = {Button::Yes};
    console.monitor.menu.mnuResetSim[1].press();
    bench.advance(500);
    EXPECT_EQ(cell(row, SimStatistics::Talk) + cell(row, SimStatistics::Dialled) + cell(row, SimStatistics::SimId),
              "00000:000ID112")
        << "it was reset";
    read("11,2", "00010:00,0,0");
    read("11,9", "00010:00,0,0");
    EXPECT_EQ(grid.rowCount(), 4 * fitted);
    EXPECT_EQ(cell(row, SimStatistics::Dialled) + cell(row, SimStatistics::Asr) + cell(row, SimStatistics::Acd),
              "00 %0 Minutes");
    grid.sort(SimStatistics::Success, false);
    EXPECT_EQ(cell(0, SimStatistics::Success), "4");
    statistics.txtASRSearch.setText("id113");
    ASSERT_EQ(grid.rowCount(), 1u);
    EXPECT_EQ(statistics.lblASRSums.text(), "1 SIM · talk time 10:00 · 10 dialed · 3 success · ASR 30 % · ACD 3:20");
}

TEST_F(Statistics, TheFlagOfAReadFallsHoweverItsBatchEnds) {
    const std::function<void()> ends[] = {[this] { console.session.reads.cancel(); },
                                          [this] { console.session.reads.start({command("R_CLK", "clock")}); },
                                          [this] { bench.platform.peer.closes(); }};
    for (const auto& end : ends) {
        if (!console.session.objSpool.isConnected()) bench.logIn(gateway);
        simulator::switchOn(gateway.faults(), "silent");
        statistics.cmdGetAllSTR.press();
        read("11,1", "0:01,1,1");
        EXPECT_EQ(grid.rowCount(), 1u);
        end();
        read("11,2", "0:01,1,1");
        EXPECT_EQ(grid.rowCount(), 1u) << "it comes too late to be of the read";
        gateway.faults() = {};
        bench.advance(3000);
    }
}

TEST_F(Statistics, AResetAsksAndThatOfAllMayReadFirst) {
    using enum Button;
    auto& boxes = bench.platform.boxes;
    console.board.cell(19).cmdResetLimit.press();
    const std::tuple<std::deque<Button>, std::function<void()>, std::size_t> presses[] = {
        {{No}, [this] { console.monitor.menu.mnuResetSim[0].press(); }, 0},
        {{Yes}, [this] { console.monitor.menu.mnuResetSim[0].press(); }, 1},
        {{No}, [this] { statistics.cmdResetAllASR.press(); }, 0},
        {{Yes, No}, [this] { statistics.cmdResetAllASR.press(); }, 1}};
    for (const auto& [answers, press, lines] : presses) {
        bench.platform.peer.sent.clear();
        boxes.answers = answers;
        boxes.shown.clear();
        press();
        EXPECT_EQ(boxes.texts().front(), "Are you sure you want to reset the sim statistics ?");
        EXPECT_EQ(changes().size(), lines);
        console.session.writes.cancel();
    }
    boxes.answers = {Yes, Yes};
    bench.platform.peer.sent.clear();
    simulator::switchOn(gateway.faults(), "silent");
    statistics.cmdResetAllASR.press();
    console.session.reads.cancel();
    EXPECT_THAT(changes(), IsEmpty()) << "what was not read is not reset";
}

TEST_F(Statistics, ASimIsMeasuredAgainstItselfAlsoAfterARestart) {
    const auto figures = [](bool bad) {
        return [bad](SimAddress sim) {
            return sim.digits() == "111" && bad
                       ? "00010:00,100,20,,ID,"
                       : "00200:00,100,60,," + (sim.digits() == "111" ? "ID" : sim.digits()) + ",";
        };
    };
    for (int time = 0; time < 6; ++time) readAll(figures(false));
    EXPECT_EQ(cell(rowOf("111"), SimStatistics::Word), "");
    Console again(bench.platform, bench.folder.path());
    again.session.dispatcher.AnalyzeCmd("A_ESN4711", true);
    EXPECT_EQ(again.monitor.statistics.lstASR.rowCount(), 0u);
    readAll(figures(true));
    EXPECT_EQ(cell(rowOf("111"), SimStatistics::Word), "ASR and ACD low");
    EXPECT_EQ(cell(rowOf("112"), SimStatistics::Word), "");
    EXPECT_EQ(cell(rowOf("111"), SimStatistics::Trend), "60 60 60 60 60 60 20");
    statistics.askForCalls(rowOf("111"));
    EXPECT_EQ(console.mainWindow.page() + console.calls.cmbCDRColumn.text() + console.calls.cmbCDRValue.text(),
              "callSim IDID");
    SimHistory kept(bench.platform.databaseFiles);
    kept.open(bench.folder.path() / "data" / "STA4711.mdb");
    EXPECT_EQ(kept.wordOn(statistics.figures(rowOf("111"))), "ASR and ACD low") << "what was read is on the disk";
}

TEST_F(Statistics, ABalanceIsWrittenForTheChosenRow) {
    readAll([](SimAddress) { return "0:01,1,1,5,ID,"; });
    simulator::switchOn(gateway.faults(), "silent");
    const std::pair<const char*, std::vector<std::string>> balances[] = {
        {"", {}}, {"1,5", {}}, {"abc", {}}, {" 7.25", {"C_ABF11,2,7.25,"}}};
    for (const auto& [text, lines] : balances) {
        statistics.choose(rowOf("112"));
        EXPECT_EQ(statistics.txtBalance.text(), "5");
        statistics.txtBalance.setText(text);
        statistics.cmdUpdateBalance.press();
        EXPECT_EQ(changes(), lines) << text;
        EXPECT_EQ(statistics.txtBalance.problem().empty(), !lines.empty());
    }
    bench.receive("OK");
    bench.advance(100);
    EXPECT_EQ(cell(rowOf("112"), SimStatistics::Balance), "7.25");
}

TEST_F(Statistics, TheGridIsExportedAsItIsShown) {
    auto& boxes = bench.platform.boxes;
    statistics.cmdExportCsv.press();
    EXPECT_EQ(boxes.texts().back(), "There is no data to export ! ");
    readAll([](SimAddress) { return "0:01,2,1,5,ID,IM"; });
    grid.sort(SimStatistics::Port, false);
    boxes.file = (bench.folder.path() / "out.csv").string();
    statistics.cmdExportCsv.press();
    const auto written = contentOf(boxes.file);
    EXPECT_EQ(written.substr(0, written.find('\r')),
              "#,Port,Sim,Talk time,Dialed,Success,ASR,ACD,SIM ID,IMSI,balance,update,");
    EXPECT_THAT(written, HasSubstr(",1,0:01,2,1,50 %,0 Minutes 01 Seconds ,ID,IM,5,,\r\n"));
    EXPECT_EQ(std::ranges::count(written, '\n'), static_cast<std::ptrdiff_t>(grid.rowCount() + 1));
    boxes.answers = {Button::No};
    grid.clear();
    statistics.cmdExportCsv.press();
    EXPECT_EQ(contentOf(boxes.file), written);
}

}  // namespace
}  // namespace trunvex
