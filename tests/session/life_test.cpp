#include "fakes/console_test.h"

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

}  // namespace
}  // namespace trunvex
