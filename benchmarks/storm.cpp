// The whole program in a storm: 10,000 mixed reports a second over loopback for a minute, with a gateway logged in and
// the board open. Against it, in the same run, a bare Qt program that reads the same bytes and paints 62 cells of the
// same size at the same frame rate. Both are measured by the processor time of their thread, and both tell the longest
// time that a line waited to be taken: what the machine itself holds up shows in both.
#include "storm.h"

#include <benchmark/benchmark.h>
#include <time.h>

#include <QApplication>
#include <QEventLoop>
#include <QPainter>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>
#include <QWidget>
#include <atomic>
#include <fstream>
#include <thread>

#include "fakes/console_bench.h"
#include "platform/qt/qt_platform.h"
#include "screens/screens.h"
#include "simulator/gateway.h"

namespace bench {

std::chrono::seconds stormLength() {
    constexpr int standard = 60;
    const int wanted = qEnvironmentVariableIntValue("STORM_SECONDS");
    return std::chrono::seconds(wanted > 0 ? wanted : standard);
}

double threadSeconds() {
    timespec time{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

}  // namespace bench

namespace {

using Clock = std::chrono::steady_clock;
using bench::WorkClock;

constexpr int burstLines = 50;
constexpr int traceBursts = 400;
constexpr auto burstEvery = std::chrono::microseconds(1000000LL * burstLines / bench::stormLinesPerSecond);
constexpr auto warmUp = std::chrono::seconds(5);
constexpr auto longestWait = std::chrono::milliseconds(50);
constexpr int frameMs = 20;
constexpr int cellCount = 62;
constexpr const char* stampPrefix = "I_ALR000,102,0,";  // a report that changes nothing and carries its time
constexpr std::size_t stampAt = std::char_traits<char>::length(stampPrefix);

double residentMegabytes() {
    std::ifstream file("/proc/self/statm");
    long total = 0;
    long resident = 0;
    file >> total >> resident;
    return static_cast<double>(resident) * 4096 / 1e6;
}

// Serves one peer from a thread of its own. A console is let to log in and to read its board first; then, or at once
// for a bare peer, comes the storm. The last line of each burst carries the time when it was sent.
class StormGateway {
public:
    enum class Peer { Console, Bare };

    explicit StormGateway(Peer peer) : storming_(peer == Peer::Bare), thread_([this] { run(); }) {
        while (port_ == 0) std::this_thread::yield();
    }
    ~StormGateway() {
        stop_ = true;
        thread_.join();
    }
    int port() const { return port_; }
    long linesSent() const { return linesSent_; }

private:
    void run() {
        QTcpServer server;
        server.listen(QHostAddress::LocalHost);
        port_ = server.serverPort();
        while (!stop_ && !server.waitForNewConnection(100)) {
        }
        const std::unique_ptr<QTcpSocket> peer(server.nextPendingConnection());
        if (!peer) return;
        peer->setSocketOption(QAbstractSocket::LowDelayOption, 1);  // or a burst waits 40 ms for the last one's receipt
        auto gateway = simulator::Gateway(trunvex::fakes::seeded(1));
        gateway.onOutput = [&](std::string_view bytes) { peer->write(bytes.data(), qint64(bytes.size())); };
        const auto bursts = makeBursts();
        const auto start = Clock::now();
        auto next = start;
        while (!stop_ && peer->state() == QAbstractSocket::ConnectedState) {
            gateway.advanceTo(std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start));
            const auto heard = peer->readAll();
            gateway.receive({heard.constData(), static_cast<std::size_t>(heard.size())});
            if (storming_) sendBurst(*peer, bursts);
            peer->flush();
            next += burstEvery;
            std::this_thread::sleep_until(next);
            peer->waitForReadyRead(0);
            // The last of what a console reads when it opens its board.
            if (!storming_) storming_ = !gateway.linesReceived().empty() && gateway.linesReceived().back() == "R_MON";
        }
    }

    static std::vector<std::string> makeBursts() {
        std::mt19937 random(1);
        std::vector<std::string> bursts(traceBursts);
        for (auto& burst : bursts)
            for (int i = 1; i < burstLines; ++i) burst += bench::stormLine(random) + '\r';
        return bursts;
    }

    void sendBurst(QTcpSocket& peer, const std::vector<std::string>& bursts) {
        const auto& lines = bursts[static_cast<std::size_t>(linesSent_ / burstLines) % bursts.size()];
        peer.write(lines.data(), static_cast<qint64>(lines.size()));
        peer.write(stampPrefix + QByteArray::number(qlonglong(Clock::now().time_since_epoch().count())) + ",\r");
        linesSent_ += burstLines;
    }

    std::atomic<int> port_{0};
    std::atomic<bool> stop_{false};
    std::atomic<long> linesSent_{0};
    bool storming_;
    std::thread thread_;
};

// How long lines waited, by their stamps.
class Waits {
public:
    void note(std::string_view digits) {
        const Clock::duration sent(std::strtoll(digits.data(), nullptr, 10));
        const auto waited = Clock::now().time_since_epoch() - sent;
        longest_ = std::max(longest_, waited);
        if (waited > longestWait) ++tooLong_;
    }
    void report(benchmark::State& state) const {
        state.counters["longest_wait_ms"] = std::chrono::duration<double, std::milli>(longest_).count();
        state.counters["bursts_over_50_ms"] = static_cast<double>(tooLong_);
    }

private:
    Clock::duration longest_{};
    long tooLong_ = 0;
};

// Runs the loop for the length of the storm and reports all of it but the warm-up.
void measureLoop(benchmark::State& state) {
    QEventLoop loop;
    double before = 0;
    double paintingBefore = 0;
    double linesBefore = 0;
    double memory = 0;
    QTimer::singleShot(warmUp, Qt::PreciseTimer, [&] {
        memory = residentMegabytes();
        paintingBefore = WorkClock::seconds(WorkClock::Painting);
        linesBefore = WorkClock::seconds(WorkClock::TakingLines);
        before = bench::threadSeconds();
    });
    QTimer::singleShot(warmUp + bench::stormLength(), Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
    state.SetIterationTime(bench::threadSeconds() - before);
    state.counters["painting_s"] = WorkClock::seconds(WorkClock::Painting) - paintingBefore;
    state.counters["lines_s"] = WorkClock::seconds(WorkClock::TakingLines) - linesBefore;
    state.counters["memory_growth_MB"] = residentMegabytes() - memory;
}

void wholeProgram(benchmark::State& state) {
    for (auto _ : state) {
        StormGateway gateway(StormGateway::Peer::Console);
        const trunvex::fakes::TemporaryFolder folder;
        trunvex::QtPlatform platform;
        trunvex::Console console(platform, folder.path());
        trunvex::Screens screens(console);
        console.session.bringUp.showConnectionDialog = [&](trunvex::frmConnectionSelect& dialog) {
            dialog.cmbConSelect.setText("NET");
            dialog.txtIP.setText("127.0.0.1");
            dialog.txtPort.setText(std::to_string(gateway.port()));
            if (!dialog.accept()) dialog.cancel();
        };
        console.session.events.loggedIn.connect([&](trunvex::LogInOutcome) { console.mainWindow.openPage("sim"); });
        long lines = 0;
        Waits waits;
        console.session.dispatcher.relay.connect([&](std::string_view line) {
            ++lines;
            if (line.substr(0, stampAt) == stampPrefix) waits.note(line.substr(stampAt));
        });
        screens.startWithoutSplash();
        console.mainWindow.openPage("connect");
        measureLoop(state);
        waits.report(state);
        state.counters["lines"] = static_cast<double>(lines);
        const auto expected = bench::stormLinesPerSecond * (bench::stormLength() + warmUp / 2).count();
        if (console.session.state.gESN.empty() || !console.board.holdsData)
            state.SkipWithError("the console did not log in");
        else if (lines < expected || lines < gateway.linesSent() - bench::stormLinesPerSecond / 2)
            state.SkipWithError("the storm was not kept up with");
        console.session.bringUp.ConnectChange("disconnect", true);
    }
}

// What the peer paints: as many texts and rectangles as a cell of the board has.
class BareCell : public QWidget {
public:
    using QWidget::QWidget;
    int figure = 0;

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), Qt::white);
        painter.fillRect(0, 24, width(), 48, QColor(0x90, 0xEF, 0xBA));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
        for (int row = 0; row < 8; ++row) {
            const QRect line(4, 2 + row * 18, width() - 8, 18);
            painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter, QString::number(figure + row));
        }
        for (int mark = 0; mark < 4; ++mark) painter.drawEllipse(6 + mark * 20, 80, 12, 12);
    }
};

void bareProgram(benchmark::State& state) {
    for (auto _ : state) {
        StormGateway gateway(StormGateway::Peer::Bare);
        QWidget window;
        window.resize(1280, 720);
        std::vector<BareCell*> cells;
        for (int i = 0; i < cellCount; ++i) {
            auto* cell = new BareCell(&window);
            const bool isPort = i < 32;
            cell->setGeometry(isPort ? QRect(i % 8 * 142, 60 + i / 8 * 164, 136, 158)
                                     : QRect(1146, 60 + (i - 32) * 22, 126, 21));
            cells.push_back(cell);
        }
        window.show();
        QTcpSocket socket;
        socket.connectToHost("127.0.0.1", static_cast<quint16>(gateway.port()));
        qint64 bytes = 0;
        Waits waits;
        QObject::connect(&socket, &QTcpSocket::readyRead, [&] {
            const auto read = socket.readAll();
            bytes += read.size();
            // The first stamp of a read is the one that has waited longest.
            const auto at = read.indexOf(stampPrefix);
            if (at >= 0) waits.note(std::string_view(read).substr(static_cast<std::size_t>(at) + stampAt));
        });
        QTimer frame;
        QObject::connect(&frame, &QTimer::timeout, [&] {
            for (auto* cell : cells) {
                cell->figure = static_cast<int>(bytes);
                cell->update();
            }
        });
        frame.setTimerType(Qt::PreciseTimer);
        frame.start(frameMs);
        measureLoop(state);
        waits.report(state);
        if (bytes == 0) state.SkipWithError("nothing was read");
    }
}

BENCHMARK(bareProgram)->Name("storm/bare")->Iterations(1)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(wholeProgram)->Name("storm/program")->Iterations(1)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
