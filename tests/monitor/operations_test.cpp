// What the operator does to ports and channels from the board.
#include "fakes/console_test.h"

namespace trunvex {
namespace {

class Operations : public testing::Test {
protected:
    void stand(const char* rights = "511") {
        bench.connect();
        console.session.bringUp.sessionStands();
        bench.receive(std::string("A_CPW") + rights);
        bench.advance(3000);
        bench.platform.peer.sent.clear();
    }
    // What went out, and the boxes that came, since the last look.
    std::vector<std::string> seen() {
        auto all = bench.sent();
        for (const auto& text : bench.platform.boxes.texts()) all.push_back("box: " + text);
        bench.platform.peer.sent.clear();
        bench.platform.boxes.shown.clear();
        return all;
    }

    ConsoleBench bench;
    Console& console = bench.console;
    frmSimStatus& board = console.board;
    MonitorTools& monitor = console.monitor;
};

class Pressed : public Operations {
public:
    void TestBody() override {}
    using Operations::bench, Operations::board, Operations::console, Operations::monitor, Operations::seen,
        Operations::stand;
};

TEST(OperationsOfTheBoard, SendTheirLineWhenTheyMayAndNothingOtherwise) {
    const std::tuple<const char*, std::function<void(Pressed&)>, const char*, bool> presses[] = {
        {"check of a port", [](Pressed& p) { p.board.cell(19).chkSTPEnable.press(); }, "C_STP53,1", true},
        {"check of a channel", [](Pressed& p) { p.board.row(30).chkSTBEnable.press(); }, "C_STB30,1", true},
        {"menu: enable", [](Pressed& p) { p.monitor.menu.mnuPortEnable.press(); }, "C_STP53,1", true},
        {"menu: refresh", [](Pressed& p) { p.monitor.menu.mnuRefreshPort.press(); }, "R_STS53", false},
        {"menu: reset", [](Pressed& p) { p.monitor.menu.mnuResetPort.press(); }, "C_RST53", true},
        {"RESET", [](Pressed& p) { p.board.cell(32).cmdResetSlave.press(); }, "C_RST84", true},
        {"counters", [](Pressed& p) { p.monitor.counters.cmdIsdnRefresh.press(); }, "R_ILS", false},
        {"counters: reset", [](Pressed& p) { p.monitor.counters.cmdResetIsdn.press(); }, "C_ILS", true},
        {"versions", [](Pressed& p) { p.monitor.versions.cmdGeSID.press(); }, "R_SID11", false},
    };
    for (const auto& [what, press, line, changes] : presses) {
        Pressed off, on, without, foreign, writing;
        const auto run = [&press = press](Pressed& scene) {
            scene.board.cell(19).cmdResetLimit.press();
            scene.seen();
            press(scene);
            return scene.seen();
        };
        EXPECT_THAT(run(off), ElementsAre("box: " + std::string(notConnectedText))) << what;
        on.stand();
        EXPECT_THAT(run(on), ElementsAre(line)) << what;
        const auto expected = changes ? std::vector<std::string>{} : std::vector<std::string>{line};
        without.stand("0");
        EXPECT_EQ(run(without), expected) << what;
        foreign.stand("128");
        EXPECT_EQ(run(foreign), expected) << what;
        writing.stand();
        WriteBatch batch;
        batch.items = {command("C_MOD11,,1,", "Port 1")};
        writing.console.session.writes.start(std::move(batch));
        EXPECT_EQ(run(writing), expected) << what << ": its OK would count for the write";
    }
}

TEST_F(Operations, AReportOfTheGatewaySendsNothing) {
    stand();
    bench.receive("A_MON" + std::string(62, '0'));
    bench.receive("A_MON" + std::string(62, '1'));
    bench.receive("I_ALR000,116,5,0,OK");
    bench.receive("I_ALR000,136,11,0,OK");
    EXPECT_THAT(seen(), IsEmpty());
    board.cell(1).chkSTPEnable.press();
    EXPECT_FALSE(board.cell(1).chkSTPEnable.checked());
    bench.receive("A_MON" + std::string(62, '1'));
    EXPECT_TRUE(board.cell(1).chkSTPEnable.checked()) << "the flags told anew are what counts";
    EXPECT_THAT(seen(), ElementsAre("C_STP11,0"));
}

TEST_F(Operations, MarkedPortsAreResetTogetherByTheMenuOfOneOfThem) {
    stand();
    monitor.menu.marked = {3, 1, 32};
    const std::tuple<int, const char*, std::vector<std::string>> menus[] = {
        {1, "Reset Ports 3", {"C_RST11", "C_RST13", "C_RST84"}}, {2, "Reset Port", {"C_RST12"}}};
    for (const auto& [port, caption, lines] : menus) {
        board.cell(port).cmdResetLimit.press();
        EXPECT_EQ(monitor.menu.mnuResetPort.caption(), caption);
        monitor.menu.mnuResetPort.press();
        EXPECT_EQ(seen(), lines);
    }
}

TEST_F(Operations, AChangeThatIsRefusedOrNotAnsweredIsTold) {
    stand();
    const std::pair<std::vector<std::string>, std::vector<std::string>> answers[] = {
        {{"I_ALR110,OK", "I_ALR130,OK", "I_ALR000,OK"}, {}},
        {{"I_ALR130,ERROR", "I_ALR110,OK", "ERROR"}, {"Refused: reset of port 3", "Refused: enabling of channel 5"}},
        {{"I_ALR000,136,11,1,OK", "I_ALR840,OK", "OK", "I_ALR130,OK"}, {"Not answered: enabling of channel 5"}},
        {{},
         {"Not answered: reset of port 1", "Not answered: reset of port 3", "Not answered: enabling of channel 5"}}};
    std::vector<std::string> told;
    monitor.operations.failed.connect([&told](const std::string& words) { told.push_back(words); });
    for (const auto& [lines, words] : answers) {
        monitor.operations.resetPorts({1, 3});
        monitor.operations.enableChannel(5, true);
        for (const auto& line : lines) bench.receive(line);
        bench.advance(BoardOperations::answerMs);
        EXPECT_EQ(told, words) << testing::PrintToString(lines);
        bench.receive("ERROR");
        told.clear();
    }
    EXPECT_EQ(monitor.events.lsvEvents.text(0, 4), "Not answered: enabling of channel 5");
    monitor.operations.resetPorts({1});
    console.session.reads.start({command("R_STS22", "an empty slot")});
    bench.receive("ERROR");
    EXPECT_THAT(told, IsEmpty()) << "it may be the word on what was read";
    bench.platform.peer.closes();
    bench.advance(BoardOperations::answerMs);
    EXPECT_THAT(told, IsEmpty()) << "the loss of the link is told";
}

TEST_F(Operations, IsdnCountersShowWhatIsToldAndAResetThatFailedShowsNothing) {
    const auto shown = [this] {
        std::string all;
        for (auto& label : monitor.counters.lblIsdnStatus) all += label.text() + ";";
        return all;
    };
    const std::pair<const char*, const char*> records[] = {
        {"A_ILS00012,00000,00001,65535,00007", "12;0;1;65535;7;"},
        {"A_ILS3,4", "3;4;1;65535;7;"},
        {"A_ILS0, ,x\x01,99999999999999999999", "0;;x\\x01;99999999999999999999;7;"},
        {"A_ILS1,2,3,4,5,6,7", "1;2;3;4;5;"}};
    for (const auto& [record, text] : records) {
        bench.connect();
        bench.receive(record);
        EXPECT_EQ(shown(), text) << record;
    }
    Pressed scene;
    scene.stand();
    scene.bench.receive(records[0].first);
    scene.bench.platform.boxes.answers = {Button::Cancel};
    scene.monitor.counters.cmdResetIsdn.press();
    EXPECT_EQ(scene.monitor.counters.lblIsdnStatus[3].text(), "0");
    scene.bench.receive("ERROR");
    scene.bench.advance(2000);
    EXPECT_EQ(scene.monitor.counters.lblIsdnStatus[3].text(), "");
}

TEST_F(Operations, AVersionTakesTheRowOfItsPort) {
    auto& list = monitor.versions.lstSID;
    for (const char* line : {"A_SID84,2.1", "A_SID11,1.0", "A_SID11,1.1", "A_SID99,7", "A_SID12", "A_SID"})
        bench.connect(), bench.receive(line);
    list.sort(0, true);
    ASSERT_EQ(list.rowCount(), 2u);
    EXPECT_EQ(list.text(0, 0) + list.text(0, 1) + list.text(1, 0) + list.text(1, 1), "Port 11.1Port 322.1");
}

TEST_F(Operations, OneMessageWindowAPortAndOneDiallerForAll) {
    stand();
    int opened = 0, raised = 0, dialled = 0;
    monitor.windows.messagesOpened.connect([&](frmSMS& window) {
        ++opened;
        window.raised.connect([&raised] { ++raised; });
    });
    monitor.windows.diallerAsked.connect([&dialled] { ++dialled; });
    for (const int port : {19, 1, 19}) {
        board.cell(port).cmdResetLimit.press();
        monitor.menu.mnuMessages.press();
        monitor.menu.mnuDTMFDialer.press();
    }
    EXPECT_EQ(std::tuple(opened, raised, dialled), std::tuple(2, 1, 3));
    EXPECT_EQ(monitor.windows.openSMS.front().lblPort.text() + monitor.windows.lblDiallerPort.text(), "Port 53Port 53");
}

}  // namespace
}  // namespace trunvex
