#include "fakes/console_test.h"
#include "text/text_rules.h"

namespace trunvex {
namespace {

std::vector<std::string> shownBy(frmSimStatus& board) {
    std::vector<std::string> cells;
    for (int index = 1; index <= portCount; ++index) {
        auto& cell = board.cell(index);
        auto& text = cells.emplace_back(std::to_string(index) + (cell.lblBCH.colour() == 255 ? " off " : " on ") +
                                        cell.lblNetBCCH.text());
        if (!cell.imgStatus.picture().empty())
            text += " " + cell.lblStrengthDB.text() + " " + cell.lblNetworkID.text() + " " + cell.lblLimit.text();
    }
    return cells;
}

// What the reports have made of the board is what the gateway says when it is asked. Of a SIM without a call an answer
// tells more: the report that it was missing has wiped the cell.
TEST(LivingGateway, IsTheSameInItsReportsAndInItsAnswers) {
    for (const auto& rates : {simulator::LifeRates::busy(), simulator::LifeRates::storm(60)}) {
        auto options = seeded(3);
        options.life = rates;
        simulator::Gateway gateway(options);
        ConsoleBench bench;
        bench.logIn(gateway);
        std::size_t longest = 0;
        for (int minute = 0; minute < 10; ++minute) {
            const auto told = shownBy(bench.console.board);
            for (int slot = 0; slot < simulator::portCount; ++slot)
                gateway.receiveLine("R_STS" + simulator::PortAddress::ofSlot(slot).text());
            gateway.receiveLine("R_MON");
            bench.runStation();
            bench.advance(0);
            EXPECT_TRUE(minute == 0 || shownBy(bench.console.board) == told) << minute;
            for (const auto& cell : told) longest = std::max(longest, cell.size());
            bench.advance(60000);
        }
        EXPECT_GT(longest, 40u) << "there are calls";
    }
}

struct Talk {
    std::int64_t dialled = 0;
    std::int64_t succeeded = 0;
    std::int64_t seconds = 0;
    bool operator==(const Talk&) const = default;
};

// By the digits of the SIM: what the call records come to that the console has fetched.
std::map<std::string, Talk> billed(CallList& calls) {
    std::map<std::string, Talk> sims;
    for (std::size_t row = 0; row < calls.size(); ++row) {
        const auto port = PortAddress::ofNumber(val(calls.text(row, 0)));
        auto& talk = sims[SimAddress(port, static_cast<int>(val(calls.text(row, 1)))).digits()];
        ++talk.dialled;
        talk.succeeded += calls.text(row, 10) == "0" ? 0 : 1;
        talk.seconds += sortKey(calls.text(row, 10), SortKind::Duration);
    }
    return sims;
}

TEST(LivingGateway, CountsWhatItBillsAndWhatItsBoardHasShown) {
    auto options = seeded(5);
    options.life = simulator::LifeRates::busy();
    options.life.troubleEvery = options.life.alarmEvery = {};
    simulator::Gateway gateway(options);
    for (auto& port : gateway.state().ports)
        for (auto& sim : port.sims) sim.dialled = sim.successful = sim.talkedSeconds = 0;
    ConsoleBench bench;
    auto& console = bench.console;
    bench.logIn(gateway);
    bench.advance(10 * 60'000);
    for (int port = 1; port <= portCount; ++port) console.monitor.operations.enablePort(port, false);
    bench.advance(5 * 60'000);
    ASSERT_EQ(console.board.gateway().portsInCall, 0) << "a port that is disabled takes no new call";
    gateway.restLife();

    console.mainWindow.openPage("call");
    console.calls.cmdCDRExport[6].press();
    bench.advance(10 * 60'000);
    const auto bills = billed(console.calls.lsvCallReport);
    auto& statistics = console.monitor.statistics;
    statistics.cmdGetAllSTR.press();
    bench.advance(5 * 60'000);
    std::map<std::string, Talk> counted;
    std::size_t boards = 0;
    for (std::size_t row = 0; row < statistics.lstASR.rowCount(); ++row) {
        const auto& sim = statistics.figures(row);
        const Talk talk{sim.dialled, sim.succeeded, sim.talkSeconds()};
        if (talk != Talk{}) counted[sim.sim.digits()] = talk;
        const auto& status = console.board.cell(sim.sim.port()).status;
        if (status.sim != sim.sim.sim() || status.counter.empty()) continue;
        EXPECT_EQ(status.talked.minutes * 60 + status.talked.seconds, talk.seconds) << sim.sim.digits();
        boards += talk.seconds > 0 ? 1 : 0;
    }
    EXPECT_EQ(counted, bills);
    EXPECT_GT(boards, 5u);
}

}  // namespace
}  // namespace trunvex
