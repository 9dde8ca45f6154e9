// Which SIM is active at what time of a day.
#include "fakes/console_test.h"

namespace trunvex {
namespace {

class Chart : public testing::Test {
protected:
    // Times and days of the four rows of a SIM.
    void sim(const std::string& digits, const std::string& rows) {
        bench.receive("A_SIM" + digits + ",,,,1,59999,0,00000,0,0,0," + rows + ",0,1,");
    }
    std::string drawn(int day) {
        std::string all;
        for (const auto& span : chart.DrawChart(day))
            all += std::to_string(span.port.number()) + "." + std::to_string(span.sim) + ":" +
                   std::to_string(span.from) + "-" + std::to_string(span.to) + " ";
        return all;
    }

    ConsoleBench bench;
    Console& console = bench.console;
    TimeChart& chart = console.monitor.chart;
};

TEST_F(Chart, DrawsTheWindowsThatTheDaysBitFlags) {
    bench.connect();
    constexpr const char* none = ",00000000,0,00000000,0,00000000,0";
    const std::tuple<const char*, const char*, const char*> rows[] = {
        {"00083020,64", "1.1:480-1230 ", ""},  // MMHHMMHH; 64 is Sunday
        {"00083020,32", "", "1.1:480-1230 "},  // Monday
        {"00005923,127", "1.1:0-1440 ", "1.1:0-1440 "},
        {"00220006,96", "1.1:1320-1440 1.1:0-360 ", "1.1:1320-1440 1.1:0-360 "},
        {"00220000,96", "1.1:1320-1440 ", "1.1:1320-1440 "},
        {"00120012,127", "", ""},
        {"00250012,127", "", ""},
        {"60080012,127", "", ""},
        {"0008,127", "1.1:480-1440 ", "1.1:480-1440 "},
        {",", "", ""},
        {"00083020,x", "", ""},
        {"00083020,127,00213022,64", "1.1:480-1230 1.1:1260-1350 ", "1.1:480-1230 "}};
    for (const auto& [row, sunday, monday] : rows) {
        console.tables.gSims = {};
        sim("111", row + std::string(none));
        EXPECT_EQ(drawn(0), sunday) << row;
        EXPECT_EQ(drawn(1), monday) << row;
    }
    sim("844", std::string("00080009,127") + none);
    EXPECT_THAT(drawn(6), HasSubstr("32.4:480-540 "));
}

TEST_F(Chart, ReadsFourSimsAPortAndDrawsAnewAtTheEnd) {
    bench.connect();
    console.session.bringUp.sessionStands();
    for (auto& port : console.tables.gPorts) port.Kind = "ERR";
    console.tables.port({5, 3}).Kind = "GSM";
    bench.advance(3000);
    bench.platform.peer.sent.clear();
    chart.cmdGetASRSimData.press();
    for (int number = 1; number <= 4; ++number) {
        EXPECT_EQ(bench.sent().back(), "R_SIM53" + std::to_string(number));
        sim("53" + std::to_string(number), "00080009,127,00000000,0,00000000,0,00000000,0");
        bench.advance(200);
    }
    EXPECT_EQ(bench.sent().size(), 4u);
    EXPECT_FALSE(console.session.reads.running());
    EXPECT_EQ(chart.DrawChart(3).size(), 4u);
}

TEST_F(Chart, KeepsItsColoursAndFollowsTheGatewaysDay) {
    auto& setting = console.files.setting;
    const std::pair<const char*, Colour> kept[] = {
        {"", 65280}, {"16777215", 16777215}, {"16777216", 65280}, {"red", 65280}};
    for (const auto& [text, colour] : kept) {
        setting.Write("STA", "COL2", text);
        ConsoleBench again(bench.folder.path());
        EXPECT_EQ(again.console.monitor.chart.colour(2), colour) << text;
    }
    chart.setColour(4, 0x123456);
    EXPECT_EQ(setting.Read("STA", "COL4"), std::to_string(0x123456));
    simulator::Gateway gateway(seeded(3));
    bench.logIn(gateway);
    bench.receive("A_CLK03,11,26,3,10,30,00");  // a Tuesday
    EXPECT_EQ(std::pair(chart.day(), chart.now().value_or(0)), std::pair(2, 630));
    int drawn = 0;
    chart.changed.connect([&drawn] { ++drawn; });
    bench.advance(61'000);
    EXPECT_EQ(std::pair(chart.now().value_or(0), drawn), std::pair(631, 1)) << "the gateway's clock runs on";
    bench.receive("A_CLK03,11,26,3,23,59,30");
    bench.advance(31'000);
    EXPECT_EQ(std::pair(chart.day(), chart.now().value_or(-1)), std::pair(3, 0)) << "and so do its days";
    chart.cmdDay[5].press();
    bench.receive("A_CLK03,11,26,3,10,31,00");
    EXPECT_EQ(std::pair(chart.day(), chart.now().has_value()), std::pair(5, false)) << "the operator's choice stays";
}

TEST_F(Chart, PastCallsAreRehearsedAgainstTheTablesAsEdited) {
    constexpr bool in = false, out = true;
    std::vector<Rehearsal::Call> calls{
        {"1", "1", "11-22-26 08:30:00 Su", in, "425"}, {"1", "1", "11-22-26 21:00:00 Su", out, "425"},
        {"1", "1", "11-23-26 08:30:00 Mo", in, "425"}, {"2", "1", "11-22-26 08:30:00 Su", in, "425"},
        {"", "1", "11-22-26 08:30:00 Su", in, ""},     {"1", "1", "11-22-26 08:30:00", in, ""},
        {"1", "1", "11-22-26 28:30:00 Su", in, ""}};
    auto& rehearsal = console.monitor.rehearsal;
    rehearsal.follow({{}, [&calls] { return calls.size(); }, [&calls](std::size_t at) { return calls[at]; }});
    bench.connect();
    sim("111", "00083020,64,00000000,0,00000000,0,00000000,0");
    const auto words = [&rehearsal](const char* missed) {
        EXPECT_EQ(rehearsal.lblRehearsal.text(),
                  std::string("Of 4 calls ") + missed + " would have found no SIM by the tables as they are edited.");
    };
    rehearsal.chkRehearse.press();
    words("3");
    EXPECT_EQ(rehearsal.marks().size(), 3u) << "of the Sunday";
    bench.receive("A_PPR" + std::string(32, '1'));
    console.portTree.tvGroups[0].select("SIM111");
    auto& table = console.pages.sim.timeTable;
    ASSERT_EQ(table.txtTimeIntTo[0].text(), "20:30");
    table.txtTimeIntTo[0].setText("21:30");
    words("2");
    table.chkSIMDayOfWk[0][1].press();
    words("1");
    console.portTree.tvGroups[0].select("SIM112");
    words("1");
    EXPECT_EQ(drawn(1), "1.1:480-1290 ");
    calls.resize(1);
    calls.push_back({"3", "2", "11-22-26 09:30:00 Su", out, "425"});  // port 1 has a SIM of that network
    calls.push_back({"3", "2", "11-22-26 09:31:00 Su", in, "425"});
    calls.push_back({"3", "3", "11-22-26 09:32:00 Su", out, "426"});
    calls.push_back({"3", "2", "11-22-26 22:00:00 Su", out, "425"});
    chart.cmdASRefresh.press();
    EXPECT_THAT(rehearsal.lblRehearsal.text(), testing::StartsWith("Of 5 calls 3 would"));
    const auto marks = rehearsal.marks();
    EXPECT_EQ(std::ranges::count(marks, true, &Rehearsal::Mark::missed), 3);
    rehearsal.chkRehearse.press();
    EXPECT_EQ(drawn(1), "") << "without it the chart is the gateway's";
}

}  // namespace
}  // namespace trunvex
