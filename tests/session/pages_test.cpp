#include "fakes/console_test.h"

namespace trunvex {
namespace {

class Pages : public testing::Test {
protected:
    void logIn() {
        bench.logIn(gateway);
        gateway.forgetLinesReceived();
    }
    simulator::Gateway gateway{seeded(3)};
    ConsoleBench bench;
    FrmPRIGroups& window = bench.console.mainWindow;
};

TEST_F(Pages, ReadWhatTheyLackAndNotTwice) {
    logIn();
    window.tool("system").press();
    bench.advance(1000);
    EXPECT_THAT(gateway.linesReceived(), ElementsAre("R_CLK", "R_SYS"));
    EXPECT_NE(bench.console.pages.system.TxtSystemVer.text(), "");
    window.tool("sim").press();
    bench.advance(2000);
    EXPECT_TRUE(bench.console.board.holdsData);
    gateway.forgetLinesReceived();
    window.tool("sim").press();
    for (const auto* key : {"system", "main", "groups", "hst", "dbg", "stc", "call"}) {
        window.tool(key).press();
        bench.advance(1000);
        EXPECT_EQ(window.page(), key);
    }
    EXPECT_THAT(gateway.linesReceived(), ElementsAre("R_MOD11")) << "of the port that is selected";
    EXPECT_THAT(bench.platform.boxes.shown, IsEmpty());
}

TEST_F(Pages, WaitForTheBatchThatRuns) {
    logIn();
    window.tool("sim").press();
    window.tool("isdn").press();
    bench.advance(3000);
    EXPECT_THAT(gateway.linesReceived(), ElementsAre("R_SYS", "R_ILS", "R_MON", "R_ISD"));
    EXPECT_TRUE(bench.console.board.holdsData) << "the first batch was shown before the second began";
}

TEST_F(Pages, WaitBehindABatchThatFailsOrIsCutOff) {
    logIn();
    simulator::switchOn(gateway.faults(), "R_ISD:silent");
    window.tool("isdn").press();
    window.tool("system").press();
    bench.advance(5000);
    EXPECT_THAT(gateway.linesReceived(), ElementsAre("R_ISD", "R_ISD", "R_ISD", "R_CLK", "R_SYS"));
    EXPECT_TRUE(bench.console.session.reads.formEnabled());
    window.tool("sim").press();
    window.tool("isdn").press();
    bench.platform.peer.closes();
    EXPECT_TRUE(bench.console.session.reads.formEnabled());
    EXPECT_EQ(bench.platform.loop.runningTimers(), 0);
    bench.advance(1);
    gateway.forgetLinesReceived();
    bench.connect();
    bench.advance(3000);
    EXPECT_THAT(gateway.linesReceived(), testing::UnorderedElementsAre("C_CPWkestr", "R_ESN", "R_CLK", "R_PPR", "R_ISD",
                                                                       "R_ISD", "R_ISD", "R_CLK"))
        << "the page that is open, and nothing else of the old session; two are due at one moment";
    window.tool("system").press();
    bench.advance(2000);
    EXPECT_THAT(gateway.linesReceived(), testing::Contains("R_SYS")) << "another gateway, another version";
}

TEST_F(Pages, OpenedDuringTheLogInAreReadAtItsEnd) {
    simulator::switchOn(gateway.faults(), "R_PPR:late=1-500");
    bench.attach(gateway);
    bench.connect();
    bench.advance(300);
    window.tool("sim").press();
    window.tool("system").press();
    EXPECT_THAT(bench.console.session.notices.lblNotice.text(), "");
    bench.advance(3000);
    EXPECT_THAT(gateway.linesReceived(), ElementsAre("C_CPWkestr", "R_ESN", "R_CLK", "R_PPR", "R_CLK", "R_SYS", "R_SYS",
                                                     "R_ILS", "R_MON", "R_CLK"));
}

TEST_F(Pages, AreShownWithoutALink) {
    for (auto* tool : window.tools())
        if (tool->name() != "tool_connect") tool->press();
    EXPECT_THAT(bench.platform.boxes.shown, IsEmpty());
    EXPECT_EQ(window.page(), "dbg") << "exit is no page";
}

TEST_F(Pages, ReadNothingByThemselvesInASessionThatOnlyWatches) {
    bench.dialog = [](frmConnectionSelect& dialog) { dialog.chkReceivingMode.setChecked(true); };
    int shown = 0;
    bench.console.board.asked().connect([&] { ++shown; });
    bench.logIn(gateway);
    EXPECT_EQ(shown, 1);
    bench.advance(2000);
    EXPECT_EQ(gateway.linesReceived().size(), 7u);
    window.tool("isdn").press();
    bench.advance(1000);
    EXPECT_EQ(gateway.linesReceived().size(), 7u);
}

TEST_F(Pages, TimersAndTrayOfTheWindow) {
    bench.logIn(gateway);
    bench.advance(5000);
    EXPECT_THAT(gateway.linesReceived(), ElementsAre("C_CPWkestr", "R_ESN", "R_CLK", "R_PPR", "R_CLK"));
    std::vector<bool> shown;
    window.windowShown().connect([&](bool visible) { shown.push_back(visible); });
    window.cmbTrayIcon.press();
    EXPECT_EQ(bench.platform.trayIcon.tip, "Trunvex");
    bench.platform.trayIcon.onRestore();
    EXPECT_THAT(shown, ElementsAre(false, true));
    bench.platform.trayIcon.present = false;
    window.cmbTrayIcon.press();
    EXPECT_EQ(shown.size(), 2u);
    EXPECT_THAT(window.lblNotice.text(), HasSubstr("notification area"));
}

}  // namespace
}  // namespace trunvex
