// The cells that a port hears.
#include "fakes/console_test.h"

namespace trunvex {
namespace {

class Cells : public testing::Test {
protected:
    Cells() {
        bench.connect();
        console.session.bringUp.sessionStands();
        bench.advance(3000);
    }
    void open(int index) {
        console.board.cell(index).cmdResetLimit.press();
        console.monitor.menu.mnuGetCell.press();
    }
    // Rows that hold anything, their cells joined; "+" behind one that can be selected.
    std::string shown() {
        std::string all;
        for (std::size_t row = 0; row < CellView::rows; ++row) {
            std::string line;
            for (auto& column : view.cells) line += column[row].text() + "/";
            if (line == "//////") continue;
            all += std::to_string(row) + ":" + line + (view.lblCellSelect[row].visible() ? "+ " : " ");
        }
        return all;
    }
    std::vector<std::string> sent() {
        auto lines = bench.sent();
        bench.platform.peer.sent.clear();
        return lines;
    }

    ConsoleBench bench;
    Console& console = bench.console;
    CellView& view = console.monitor.cells;
};

TEST_F(Cells, TheNeighboursFollowTheServingCellOnceAndOnlyForThePanelsPort) {
    open(19);
    EXPECT_EQ(sent().back(), "R_CLM53");
    bench.receive("A_CLM52,1,2,3,4,5,6");
    EXPECT_EQ(shown(), "");
    bench.receive("A_CLM53,425,02,1F,33,62,40");
    EXPECT_THAT(sent(), ElementsAre("R_CLN53"));
    bench.receive("A_CLN53,425,02,20,34,70,12,425,02,21,35,,99,<end>,7,7");
    EXPECT_EQ(shown(), "0:425/02/1F/33/62/-80db/+ 1:425/02/20/34/70/-99 db/+ 2:425/02/21/35/// ");
    bench.receive("A_CLM53,425,02,1F,33,63,0");
    EXPECT_THAT(shown(), HasSubstr("0:425/02/1F/33/63//+"));
    EXPECT_THAT(sent(), IsEmpty()) << "the neighbours were read already";
    EXPECT_FALSE(view.bar.running());

    open(18);
    EXPECT_EQ(shown(), "") << "the panel belongs to another port now";
    bench.receive("A_CLN53,1,2,3,4,5,6");
    EXPECT_EQ(shown(), "");
    view.cmdCloseCell.press();
    sent();
    bench.receive("A_CLM52,1,2,3,4,5,6");
    EXPECT_THAT(sent(), IsEmpty()) << "it was closed";
    EXPECT_FALSE(view.picBStat.visible());
}

TEST_F(Cells, RowsAreTakenAsFarAsTheyComeAndFit) {
    open(1);
    std::string nine = "A_CLM11";
    for (int row = 0; row < 11; ++row) nine += ",1,2,3,4," + std::to_string(row) + ",9";
    bench.receive(nine);
    EXPECT_TRUE(view.lblCellSelect[8].visible());
    EXPECT_EQ(view.cells[4][8].text(), "8");
    for (std::size_t fields = 0; fields <= 7; ++fields) {
        open(1);
        std::string line = "A_CLN11";
        const char* values[] = {"m", "l", "c", "b", "9", "x", "n"};
        for (std::size_t at = 0; at < fields; ++at) line += std::string(",") + values[at];
        bench.receive(line + ",<end>,8,8,8");
        std::string expected;
        for (std::size_t at = 0; at < 6; ++at) expected += (at < fields ? values[at] : "") + std::string("/");
        EXPECT_EQ(shown(),
                  fields == 0 ? "" : "1:" + expected + (fields > 4 ? "+ " : " ") + (fields > 6 ? "2:n////// " : ""))
            << line;
    }
    for (const char* line : {"A_CLM", "A_CLM1", "A_CLM99,1,2", "A_CLMxx,1"}) bench.receive(line);
    EXPECT_TRUE(view.picBStat.visible());
}

TEST_F(Cells, AModuleIsLockedToTheCellOfARowOrChoosesItself) {
    const std::pair<ActionField*, const char*> presses[] = {{&view.lblCellSelect[1], "C_CLM11,70"},
                                                            {&view.cmdAutoCell, "C_CLM11,0"}};
    for (const auto& [button, line] : presses) {
        open(1);
        bench.receive("A_CLN11,425,02,20,34,70,12");
        sent();
        button->press();
        EXPECT_THAT(sent(), ElementsAre(line));
        EXPECT_FALSE(view.picBStat.visible());
    }
    open(1);
    bench.advance(5000);
    EXPECT_EQ(view.lblCellState.text(), "The module has not answered.");
    bench.platform.peer.closes();
    EXPECT_FALSE(view.picBStat.visible()) << "the link is lost";
    bench.platform.boxes.shown.clear();
    open(1);
    EXPECT_THAT(bench.platform.boxes.texts(), ElementsAre(notConnectedText));
    EXPECT_FALSE(view.picBStat.visible());
}

TEST_F(Cells, ACdmaCellOffersNothingOfASim) {
    console.tables.port({1, 1}).Kind = "CDM";
    console.portState.UpdateCDMA();
    auto& menu = console.monitor.menu;
    for (const int index : {1, 2, 1}) {
        console.board.cell(index).cmdResetLimit.press();
        for (auto* item : {&menu.mnuGetCell, &menu.mnuReadSt, &menu.mnuRestSt}) EXPECT_EQ(item->visible(), index == 2);
    }
    view.cmdGetBcch.press();
    EXPECT_EQ(sent().back(), "R_CLM12");
    console.tables.port({1, 1}).Kind = "ERR";
    console.monitor.versions.cmdGeSID.press();
    EXPECT_EQ(sent().back(), "R_SID12") << "there is no module";
}

}  // namespace
}  // namespace trunvex
