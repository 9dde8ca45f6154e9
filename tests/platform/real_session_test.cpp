// The real platform: a console on Qt's loop and sockets against the program of the simulated gateway.
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QTcpServer>
#include <QTcpSocket>

#include "fakes/console_test.h"
#include "platform/qt/qt_platform.h"

namespace trunvex {
namespace {

constexpr int patienceMs = 20000;

// Runs the loop until the condition holds; false when it never does.
bool waitFor(const std::function<bool()>& condition) {
    QElapsedTimer since;
    since.start();
    while (!condition()) {
        if (since.elapsed() > patienceMs) return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    return true;
}

int freePort() {
    QTcpServer server;
    server.listen(QHostAddress::LocalHost);
    return server.serverPort();
}

// The program trunvex-gateway, as far as the first line that it prints.
class GatewayProgram {
public:
    explicit GatewayProgram(const QStringList& arguments) {
        program_.setProcessChannelMode(QProcess::MergedChannels);
        program_.start(QCoreApplication::applicationDirPath() + "/trunvex-gateway", arguments);
        waitFor([this] { return program_.canReadLine() || program_.state() == QProcess::NotRunning; });
        firstLine = program_.readLine();
    }
    ~GatewayProgram() { stop(); }
    void stop() {
        program_.terminate();
        program_.waitForFinished(patienceMs);
    }
    QString port() const { return firstLine.section(':', -1).trimmed(); }

    QString firstLine;

private:
    QProcess program_;
};

// The real platform, but for the boxes, which a script answers, and the list of serial devices.
class RealPlatform : public QtPlatform {
public:
    Dialogs& dialogs() override { return boxes; }
    std::vector<SerialDevice> serialDevices() override { return devices; }

    fakes::ScriptedDialogs boxes;
    std::vector<SerialDevice> devices;
};

class RealSession : public testing::Test {
protected:
    RealSession() {
        console.session.bringUp.showConnectionDialog = [this](frmConnectionSelect& shown) {
            dialog(shown);
            if (!shown.accept()) shown.cancel();
        };
    }
    void press() { console.session.connectButton.press(); }
    bool reaches(SessionPhase phase) {
        return waitFor([&] { return console.session.bringUp.phase() == phase; });
    }
    void chooseNet(const QString& port, bool server = false) {
        dialog = [port, server](frmConnectionSelect& shown) {
            shown.cmbConSelect.setText("NET");
            shown.txtIP.setText("127.0.0.1");
            shown.txtPort.setText(port.toStdString());
            shown.chkSERVER.setChecked(server);
        };
    }

    fakes::TemporaryFolder folder;
    RealPlatform platform;
    Console console{platform, folder.path()};
    std::function<void(frmConnectionSelect&)> dialog;
};

TEST_F(RealSession, LogsInOverTcpReadsAPageAndSeesTheGatewayLeave) {
    GatewayProgram gateway({"--listen", "127.0.0.1:0", "--life", "off", "--esn", "4711", "--fault", "pieces=3"});
    chooseNet(gateway.port());
    press();
    ASSERT_TRUE(reaches(SessionPhase::Connected));
    EXPECT_EQ(console.session.state.gESN, "4711");
    console.mainWindow.openPage("system");
    EXPECT_TRUE(waitFor([&] { return !console.pages.system.TxtSystemVer.text().empty(); }));
    gateway.stop();
    EXPECT_TRUE(reaches(SessionPhase::Idle));
    EXPECT_THAT(platform.boxes.shown, IsEmpty());
}

TEST_F(RealSession, IsCalledByAGatewayAgainAndAgain) {
    const auto port = QString::number(freePort());
    chooseNet(port, true);
    press();
    ASSERT_EQ(console.session.bringUp.phase(), SessionPhase::Listening);
    for (int call = 0; call < 2; ++call) {
        GatewayProgram gateway({"--dial", "127.0.0.1:" + port, "--master", "--life", "off"});
        ASSERT_TRUE(reaches(SessionPhase::Connected)) << call;
        EXPECT_NE(console.session.state.gMasterSessionId, "");
        gateway.stop();
        ASSERT_TRUE(reaches(SessionPhase::Listening)) << call;
    }
    press();
    EXPECT_EQ(console.session.bringUp.phase(), SessionPhase::Idle);
    EXPECT_THAT(platform.boxes.shown, IsEmpty());
}

TEST_F(RealSession, TellsAPeerThatRefuses) {
    chooseNet(QString::number(freePort()));
    press();
    ASSERT_TRUE(waitFor([&] { return !platform.boxes.shown.empty(); }));
    EXPECT_TRUE(reaches(SessionPhase::Idle));
    EXPECT_THAT(console.mainWindow.lblNotice.text(), HasSubstr("refused"));
}

TEST_F(RealSession, LogsInOverASerialLineAndSeesItGo) {
    const auto link = folder.path().string() + "/line";
    GatewayProgram gateway({"--life", "off", "--pty", QString::fromStdString(link)});
    platform.devices = {{link, "pseudo-terminal"}};
    dialog = [](frmConnectionSelect& shown) { shown.cmbConSelect.setText("COM"); };
    press();
    ASSERT_TRUE(reaches(SessionPhase::Connected)) << console.mainWindow.lblNotice.text();
    EXPECT_TRUE(console.session.state.gGotActivePorts);
    gateway.stop();
    EXPECT_TRUE(reaches(SessionPhase::Idle));
}

TEST(RealPipe, TellsWhyItDoesNotOpen) {
    QtPlatform platform;
    QTcpServer other;
    other.listen(QHostAddress::Any);
    const auto serial = [](const char* device) { return SerialTarget{.deviceOf = [device](int) { return device; }}; };
    const std::pair<PipeTarget, const char*> cases[] = {{serial(""), "COM 1 has no device"},
                                                        {serial("/dev/none"), "no such device"},
                                                        {serial("/dev/null"), "/dev/null"},
                                                        {ListenTarget{other.serverPort()}, "Can't listen on port"}};
    for (const auto& [target, reason] : cases) {
        const auto pipe = platform.makePipe(target);
        std::string told;
        try {
            pipe->open();
        } catch (const LinkError& error) {
            told = error.what();
        }
        EXPECT_THAT(told, HasSubstr(reason));
        EXPECT_EQ(pipe->state(), BytePipe::State::Closed);
    }
}

TEST(RealTimer, TicksAtOnceOneTickAnEventAndStopsWhenTold) {
    QtPlatform platform;
    int ticks = 0;
    std::unique_ptr<Timer> timer;
    timer = platform.makeTimer([&] {
        if (++ticks == 5) timer->stop();
    });
    timer->start(2);
    timer->start(1);
    EXPECT_EQ(ticks, 0) << "never from within the call";
    for (int i = 0; i < 20; ++i) QCoreApplication::sendPostedEvents();
    EXPECT_EQ(ticks, 5);
    timer->start(1);
    timer->start(60000);
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(ticks, 5) << "slowed down before the posted tick came";
}

// A caller's bytes may have come before it was taken, and its hang-up with them.
TEST(RealPipe, DeliversWhatCameBeforeThePeerLeft) {
    QtPlatform platform;
    QTcpServer server;
    server.listen(QHostAddress::LocalHost);
    for (const bool called : {false, true}) {
        const auto port = freePort();
        const auto pipe = called ? platform.makePipe(ListenTarget{port})
                                 : platform.makePipe(TcpTarget{"127.0.0.1", server.serverPort()});
        std::vector<std::string> events;
        pipe->onUp = [&] { events.emplace_back("up"); };
        pipe->onCalled = [&] { events.emplace_back("called"); };
        pipe->onReceived = [&](std::string_view bytes) { events.emplace_back(bytes); };
        pipe->onLost = [&](const Loss& loss) {
            events.emplace_back(pipe->farEnd() + (loss.cause == Loss::Cause::PeerClosed ? " left" : loss.reason));
            pipe->close();
        };
        pipe->open();
        QTcpSocket caller;
        if (called) caller.connectToHost("127.0.0.1", port);
        ASSERT_TRUE(waitFor([&] { return called ? caller.isOpen() : server.hasPendingConnections(); }));
        auto* peer = called ? &caller : server.nextPendingConnection();
        peer->write("last");
        peer->disconnectFromHost();
        ASSERT_TRUE(waitFor([&] { return events.size() == 3; })) << called;
        EXPECT_THAT(events, ElementsAre(called ? "called" : "up", "last", HasSubstr("127.0.0.1")));
        EXPECT_THAT(events.back(), HasSubstr(" left"));
        EXPECT_EQ(pipe->state(), BytePipe::State::Closed);
    }
}

}  // namespace
}  // namespace trunvex
