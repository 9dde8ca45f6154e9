#include "fakes/console_test.h"
#include "simulator/master_pc.h"

namespace trunvex {
namespace {

using testing::Contains;
using testing::Each;

// And the clock once more, a moment later.
const std::vector<std::string> logInLines = {"C_CPWkestr", "R_ESN", "R_CLK", "R_PPR", "R_CLK"};

class LogIn : public testing::Test {
protected:
    simulator::Gateway gateway{seeded(3)};
    ConsoleBench bench;
};

TEST_F(LogIn, AsksOneAtATimeAndEndsConnected) {
    bench.logIn(gateway);
    EXPECT_EQ(gateway.linesReceived(), logInLines);
    EXPECT_EQ(bench.console.session.bringUp.phase(), SessionPhase::Connected);
    EXPECT_EQ(bench.panelText(), "Connected        ");
    EXPECT_EQ(bench.console.mainWindow.lblESN.text(), "4711");
    EXPECT_EQ(bench.console.session.state.gCDRFile, bench.folder.path().string() + "/data/CDR4711.mdb");
    EXPECT_EQ(bench.console.session.connectButton.caption(), "Disconnect");
    EXPECT_EQ(bench.console.mainWindow.caption.text(), std::string(windowTitle) + " {192.168.1.100:4001}");
    EXPECT_THAT(bench.platform.boxes.shown, IsEmpty());
    bench.advance(10000);
    EXPECT_THAT(bench.console.mainWindow.lblTimePanel.text(), Not(HasSubstr("end")));
    bench.console.mainWindow.openPage("Connect");
    EXPECT_EQ(bench.panelText(), "Disconnected");
    EXPECT_EQ(bench.platform.loop.runningTimers(), 0);
    EXPECT_EQ(bench.console.session.connectButton.caption(), "Connect");
}

TEST(LogInOnABadWire, SurvivesEveryWayTheWireCanCutAndDoubleLines) {
    for (const auto* wish : {"pieces=1", "pieces=3", "coalesce=400", "nul", "garbage=0.9", "flood=1048576", "doubled=1",
                             "latency=100-900"}) {
        auto options = seeded(3);
        ASSERT_EQ(simulator::switchOn(options.faults, wish), "");
        simulator::Gateway gateway(options);
        ConsoleBench bench;
        bench.logIn(gateway);
        bench.advance(5000);
        EXPECT_EQ(bench.console.session.bringUp.phase(), SessionPhase::Connected) << wish;
        EXPECT_EQ(gateway.linesReceived(), logInLines) << wish;
        EXPECT_TRUE(bench.console.session.state.gGotActivePorts) << wish;
        EXPECT_THAT(bench.platform.boxes.shown, IsEmpty()) << wish;
    }
}

TEST_F(LogIn, LetsTheOperatorDecideOnAnItemThatIsNotAnswered) {
    simulator::switchOn(gateway.faults(), "R_ESN:silent");
    bench.platform.boxes.answers = {Button::Retry, Button::Ignore};
    bench.logIn(gateway);
    bench.advance(5000);
    EXPECT_THAT(gateway.linesReceived(), ElementsAre("C_CPWkestr", "R_ESN", "R_ESN", "R_CLK", "R_PPR"));
    EXPECT_EQ(bench.platform.boxes.shown[0].title, "Request ESN ID");
    EXPECT_EQ(bench.console.session.bringUp.phase(), SessionPhase::Connected);
    EXPECT_EQ(bench.console.session.state.gESN, "");
    EXPECT_EQ(bench.console.mainWindow.lblSessionState.text(), "Connected, log-in not complete");
    bench.receive("A_ESN4711");
    bench.advance(1000);
    EXPECT_EQ(bench.console.mainWindow.lblSessionState.text(), "Connected") << "a late answer counts";
}

TEST_F(LogIn, TellsForHowLongAGatewayThatWasAskedIsSilent) {
    bench.logIn(gateway);
    simulator::switchOn(gateway.faults(), "silent");
    const auto& said = bench.console.mainWindow.lblSilence;
    bench.advance(100000);
    EXPECT_EQ(said.text(), "") << "nobody has asked it anything";
    bench.console.session.objSpool.SendCommand("R_SYS");
    bench.advance(29000);
    EXPECT_EQ(said.text(), "");
    bench.advance(30000);
    EXPECT_EQ(said.text(), "Last heard 2 min ago");
    bench.receive("x");
    bench.advance(1000);
    EXPECT_EQ(said.text(), "");
}

TEST_F(LogIn, GoesOnWithAWrongPasswordSaysSoAndWritesNothing) {
    bench.dialog = [](frmConnectionSelect& dialog) { dialog.txtPass.setText("wrong"); };
    bench.logIn(gateway);
    EXPECT_EQ(gateway.linesReceived().size(), 5u);
    EXPECT_EQ(bench.console.session.bringUp.phase(), SessionPhase::Connected);
    const auto& notice = bench.console.mainWindow.lblNotice;
    EXPECT_THAT(notice.text(), HasSubstr("password"));
    EXPECT_EQ(bench.console.mainWindow.lblSessionState.text(), "Connected, no rights");
    WriteBatch batch;
    batch.items = {command("C_APWmine", "Password")};
    EXPECT_FALSE(bench.console.session.writes.start(batch));
    bench.console.pages.system.cmdConSwitch_4.press();
    bench.console.cdrDownload.start();
    EXPECT_EQ(notice.text() + bench.console.cdrDownload.lblCDRStatus.text(), std::string(noRightsText) + noRightsText);
    bench.advance(1000);
    EXPECT_EQ(gateway.linesReceived().size(), 5u);
    gateway.receiveLine("C_APWmine");
    EXPECT_EQ(gateway.state().accounts.adminPassword, "kestr") << "the gateway would refuse it";
    bench.console.mainWindow.openPage("connect");
    EXPECT_EQ(notice.text(), "");
}

// At every moment of connecting and logging in, also behind the boxes.
TEST(LogInCutOff, EndsCleanlyWhereverTheLinkFalls) {
    for (int moment = 0; moment <= 3000; moment += 37) {
        auto options = seeded(3);
        simulator::switchOn(options.faults, "latency=50-120");
        simulator::Gateway gateway(options);
        ConsoleBench bench;
        auto& session = bench.console.session;
        int announced = 0;
        session.events.loggedIn.connect([&](LogInOutcome) { ++announced; });
        bench.attach(gateway);
        bench.connect();
        bench.advance(moment);
        EXPECT_EQ(announced, session.state.phase == SessionPhase::Connected) << moment;
        const int before = announced;
        gateway.linkDown();
        bench.platform.peer.closes();
        EXPECT_EQ(announced, before) << "what is cut off is no end of a log-in";
        EXPECT_EQ(session.bringUp.phase(), SessionPhase::Idle) << moment;
        EXPECT_EQ(bench.platform.loop.runningTimers(), 0) << moment;
        bench.advance(200000);
        EXPECT_THAT(bench.platform.boxes.shown, IsEmpty()) << moment;
        gateway.forgetLinesReceived();
        bench.connect();
        bench.advance(4000);
        EXPECT_EQ(gateway.linesReceived(), logInLines) << moment;
    }
}

TEST(Connecting, TellsThatItFailedAndRetriesWithoutTheDialog) {
    for (const bool refused : {false, true}) {
        ConsoleBench bench;
        int dialogs = 0;
        bench.dialog = [&](frmConnectionSelect&) { ++dialogs; };
        bench.platform.boxes.answers = {Button::Retry};
        bench.console.mainWindow.openPage("connect");
        bench.advance(99999);
        EXPECT_THAT(bench.platform.boxes.shown, IsEmpty());
        refused ? bench.platform.peer.fails("Connection refused") : bench.advance(1);
        EXPECT_THAT(bench.platform.boxes.texts(),
                    ElementsAre(refused ? "Error: can't connect to the gateway ,please check your connection"
                                        : "Error: Time out, unable to connect to the gateway!!"));
        EXPECT_EQ(bench.panelText(), "Retrying Connecting...");
        EXPECT_EQ(bench.platform.peer.state, BytePipe::State::Opening);
        refused ? bench.platform.peer.fails("Connection refused") : bench.advance(100000);
        EXPECT_EQ(bench.panelText(), "Connection failed");
        EXPECT_THAT(bench.console.mainWindow.lblNotice.text(), HasSubstr(refused ? "gateway: Connection refused" : ""));
        EXPECT_EQ(bench.console.session.bringUp.phase(), SessionPhase::Idle);
        EXPECT_EQ(bench.platform.loop.runningTimers(), 0);
        EXPECT_EQ(dialogs, 1);
    }
}

TEST_F(LogIn, SerialBindsOpensAndLosesTheLine) {
    bench.platform.devices = {{"/dev/ttyS0", ""}};
    bench.dialog = [](frmConnectionSelect& dialog) {
        dialog.cmbConSelect.setText("COM");
        dialog.cmbRate.setText("9600");
    };
    auto& line = bench.platform.peer;
    bench.console.mainWindow.openPage("connect");
    const auto& target = std::get<SerialTarget>(line.target);
    EXPECT_EQ(target.settings, "9600,n,8,1");
    EXPECT_EQ(target.deviceOf(target.number), "/dev/ttyS0");
    EXPECT_TRUE(line.reached() && target.rtsEnable);
    bench.advance(1100);
    EXPECT_EQ(line.sent, "C_CPWkestr\r");
    EXPECT_EQ(bench.console.session.panel.getPanelText("ready"), "0%") << "the log-in has only begun";
    line.deliver("A_CPW65535\r");
    bench.advance(1);
    line.changesDsr();
    EXPECT_THAT(bench.console.notices.lblLink.text(), HasSubstr(": DSR fell."));
    EXPECT_EQ(line.sent, "C_CPWkestr\rR_ESN\r") << "no farewell on a serial line";
    EXPECT_FALSE(line.reached());
    EXPECT_EQ(bench.console.session.bringUp.phase(), SessionPhase::Idle);
    line.changesDsr();
    EXPECT_EQ(bench.console.session.bringUp.phase(), SessionPhase::Idle);
    EXPECT_EQ(bench.platform.loop.runningTimers(), 0);
    line.refusal = "Can't open COM 1 (/dev/ttyS0): no permission.";
    bench.console.mainWindow.openPage("connect");
    EXPECT_EQ(bench.console.mainWindow.lblNotice.text(), line.refusal);
    bench.advance(100000);
    EXPECT_EQ(bench.platform.boxes.shown.size(), 1u);
}

// A box is open while the session behind it goes its own way; the answer then finds another one.
TEST_F(LogIn, IsNotDisturbedByABoxOfTheSessionBefore) {
    bench.logIn(gateway);
    WriteBatch batch;
    batch.items = {command("C_A", "a"), command("C_B", "b")};
    simulator::switchOn(gateway.faults(), "silent");
    bench.console.session.writes.start(batch);
    bench.platform.boxes.answers = {Button::Ignore, Button::Ok};
    bench.advance(1000);
    bench.receive("OK");
    gateway.faults() = {};
    bench.platform.boxes.behind = [&](const MessageBox& box) {
        EXPECT_THAT(box.text, HasSubstr("not complete"));
        bench.platform.peer.closes();
        bench.connect();
    };
    bench.advance(3000);
    EXPECT_EQ(bench.console.session.bringUp.phase(), SessionPhase::Connected);
    EXPECT_EQ(bench.console.session.state.gESN, "4711");
}

// Which link, when, why, and what of the work it has cut short; it is told until there is a link again.
TEST_F(LogIn, TellsOfALostLinkAndWhatItLeftUndone) {
    auto options = seeded(3);
    options.callRecords = 60;
    simulator::Gateway full(options);
    bench.logIn(full);
    auto& download = bench.console.cdrDownload;
    download.start();
    bench.advance(300);
    bench.console.mainWindow.hideToTray();
    WriteBatch batch;
    batch.items = {command("C_A", "Port 1"), command("C_B", "Port 2"), command("C_C", "Port 3")};
    bench.console.session.writes.start(batch);
    bench.platform.peer.closes();
    const std::string lost = "The link to gateway was lost at 00:00: closed by the gateway.";
    EXPECT_EQ(bench.console.notices.lblLink.text(), lost);
    EXPECT_EQ(bench.platform.trayIcon.tip, "(!) Trunvex - " + lost);
    EXPECT_THAT(bench.console.mainWindow.lblNotice.text(), HasSubstr("Not written: Port 1 and 2 more"));
    EXPECT_THAT(download.lblCDRStatus.text(), testing::AllOf(HasSubstr("calls fetched."), HasSubstr("channels ")));
    EXPECT_EQ(download.ucCDRProg.text(), "Cut short");
    bench.logIn(full);
    EXPECT_EQ(bench.console.notices.lblLink.text() + bench.platform.trayIcon.tip, "Trunvex");
    batch.items = {restartRequest()};
    bench.console.session.writes.start(batch);
    bench.platform.peer.closes();
    EXPECT_EQ(bench.console.mainWindow.lblNotice.text(), "") << "it was to end the link";
}

class Master : public LogIn {
protected:
    void chooseMaster(bool server) {
        bench.dialog = [server](frmConnectionSelect& dialog) {
            dialog.chkSERVER.setChecked(server);
            dialog.chkMasterLog.setChecked(true);
            dialog.txtUnitID.setText("unit9");
        };
    }
    static simulator::MasterOptions options() {
        simulator::MasterOptions made;
        made.sessionId = "12";
        made.password = "kestr";
        made.unit = "unit9";
        return made;
    }
};

TEST_F(Master, IsAnsweredThenTheOrdinaryLogInRuns) {
    simulator::MasterPc master(gateway, options());
    chooseMaster(false);
    bench.logIn(master);
    EXPECT_TRUE(master.accepted());
    EXPECT_EQ(gateway.linesReceived(), logInLines);
    EXPECT_EQ(bench.console.session.bringUp.phase(), SessionPhase::Connected);
    master.ping();
    master.announce();
    master.tellUpdate("40 %");
    bench.runStation();
    bench.advance(100);
    EXPECT_EQ(master.pongs(), 2);
    EXPECT_EQ(bench.console.session.state.gESN, "4711");
    EXPECT_THAT(bench.console.mainWindow.lblUpdateStatus.text(), HasSubstr("Master Updating"));
    bench.console.mainWindow.openPage("connect");
    EXPECT_EQ(bench.sent().back(), "SRV12:CLOSE");
    EXPECT_EQ(bench.console.mainWindow.lblUpdateStatus.text(), "");
}

TEST_F(Master, RefusesTheConsole) {
    auto refusing = options();
    refusing.refuses = true;
    simulator::MasterPc master(gateway, refusing);
    chooseMaster(false);
    bench.platform.boxes.behind = [this](const MessageBox&) { bench.advance(60000); };
    bench.logIn(master);
    EXPECT_THAT(bench.platform.boxes.texts(), ElementsAre("Rejected by PC Master ."));
    EXPECT_EQ(bench.console.session.bringUp.phase(), SessionPhase::Idle);
    EXPECT_EQ(bench.platform.loop.runningTimers(), 0);
}

TEST_F(Master, CallsAListeningConsoleAgainAndAgain) {
    simulator::MasterPc master(gateway, options());
    chooseMaster(true);
    bench.attach(master);
    bench.console.mainWindow.openPage("connect");
    EXPECT_EQ(bench.panelText(), "Server status: Listening");
    EXPECT_EQ(bench.console.session.connectButton.caption(), "Stop server");
    for (int call = 0; call < 3; ++call) {
        gateway.forgetLinesReceived();
        bench.platform.peer.calls();
        bench.advance(call == 1 ? 1100 : 3000);  // the second call falls in the middle of its log-in
        if (call != 1) {
            EXPECT_EQ(gateway.linesReceived(), logInLines) << call;
        }
        master.linkDown();
        bench.platform.peer.closes();
        EXPECT_EQ(bench.platform.peer.state, BytePipe::State::Waiting);
        EXPECT_EQ(bench.console.session.bringUp.phase(), SessionPhase::Listening);
        bench.advance(20000);
        EXPECT_THAT(bench.platform.boxes.shown, IsEmpty());
    }
    // A probe of the port that leaves before anything was said.
    bench.platform.peer.calls();
    bench.platform.peer.closes();
    bench.advance(200000);
    EXPECT_THAT(bench.platform.boxes.shown, IsEmpty());
    bench.console.mainWindow.openPage("connect");
    EXPECT_EQ(bench.platform.peer.state, BytePipe::State::Closed);
    bench.console.mainWindow.openPage("connect");
    bench.platform.peer.refusal = "Can't listen on port 4001: in use";
    bench.platform.peer.calls();
    bench.platform.peer.closes();
    EXPECT_EQ(bench.console.session.bringUp.phase(), SessionPhase::Idle) << "the port is gone";
    bench.console.mainWindow.openPage("connect");
    EXPECT_EQ(bench.console.session.bringUp.phase(), SessionPhase::Idle);
    EXPECT_THAT(bench.console.mainWindow.lblNotice.text(), HasSubstr("in use"));
}

TEST_F(LogIn, ConSwitchRefusesTheModeThatStands) {
    auto& system = bench.console.pages.system;
    system.cmdConSwitch_0.press();
    bench.logIn(gateway);
    gateway.forgetLinesReceived();
    system.cmdConSwitch_1.press();
    EXPECT_THAT(bench.platform.boxes.texts(), ElementsAre(notConnectedText, "no change in connection mode!!"));
    bench.platform.boxes.answers = {Button::Yes, Button::Yes};
    system.cmdConSwitch_2.press();
    bench.advance(5000);
    EXPECT_THAT(gateway.linesReceived(), ElementsAre("C_MDM1", "C_RSM"));
    EXPECT_EQ(bench.panelText(), "Disconnected");
}

// No flow starts the receive run today; a later one must find it working.
TEST_F(LogIn, ReceiveWatchdogRepeatsTheRequestsUntilTheSessionIsKnown) {
    bench.connect();
    auto& console = bench.console;
    console.mainWindow.openPage("groups");  // a page that reads nothing by itself
    console.session.panel.StartProgress("receive");
    bench.advance(500);
    EXPECT_THAT(bench.sent(), ElementsAre("R_ESN"));
    bench.receive("A_ESN1");
    bench.receive("A_CPW7");
    bench.receive("A_CLK1,2,26,4,5,6");
    bench.advance(500);
    EXPECT_EQ(bench.sent().back(), "R_PPR");
    bench.receive("A_PPR1");
    bench.advance(100 + 99 * 10);
    EXPECT_EQ(console.session.bringUp.phase(), SessionPhase::Connected);

    console.session.panel.StartProgress("receive");
    bench.receive("A_CPW0");
    bench.platform.boxes.behind = [&](const MessageBox&) { bench.advance(60000); };
    bench.advance(100);
    EXPECT_THAT(bench.platform.boxes.texts(), ElementsAre("Error Password !"));
    EXPECT_EQ(console.session.bringUp.phase(), SessionPhase::Idle);
}

TEST_F(LogIn, PasswordsAreNeverShown) {
    std::vector<std::string> shown;
    bench.console.session.objSpool.sent().connect([&](std::string_view line, bool) { shown.emplace_back(line); });
    bench.console.session.dispatcher.debugDisplay.connect([&](std::string_view line) { shown.emplace_back(line); });
    bench.logIn(gateway);
    bench.console.session.objSpool.SendCommand("C_APWsecret");
    bench.console.session.objSpool.SendCommand("C_UPW02044,secret");
    bench.console.session.objSpool.SendCommand("SRV9:PSWsecret,unit");
    bench.receive("A_CPW7,kestr");
    EXPECT_THAT(shown, Contains("R_ESN"));
    EXPECT_THAT(shown, Each(Not(testing::AnyOf(HasSubstr("kestr"), HasSubstr("secret"), HasSubstr("A_CPW")))));
}

}  // namespace
}  // namespace trunvex
