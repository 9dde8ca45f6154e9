// The whole program in a storm: 10,000 mixed reports a second over loopback for a minute, with the board open. Against
// it, in the same run, a bare Qt program that reads the same bytes and paints 62 cells of the same size at the same
// frame rate. Both are measured by the processor time of their thread.
#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <QApplication>
#include <QPainter>
#include <QTcpServer>
#include <QTcpSocket>
#include <QThread>
#include <QTimer>
#include <QWidget>
#include <atomic>
#include <chrono>
#include <fstream>
#include <random>
#include <thread>

#include "fakes/console_bench.h"
#include "platform/qt/qt_platform.h"
#include "screens/screens.h"
#include "storm.h"

namespace {

using Clock = std::chrono::steady_clock;

constexpr int linesPerSecond = 10000;
constexpr int burstLines = 50;
constexpr auto stormLength = std::chrono::seconds(60);
constexpr auto warmUp = std::chrono::seconds(5);
constexpr int frameMs = 20;
constexpr int cellCount = 62;
constexpr const char* stampPrefix = "I_ALR000,102,0,";  // a report that changes nothing and carries its time

double threadSeconds() {
    rusage usage{};
    ::getrusage(RUSAGE_THREAD, &usage);
    const auto seconds = [](const timeval& time) { return static_cast<double>(time.tv_sec) + time.tv_usec * 1e-6; };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

double residentMegabytes() {
    std::ifstream file("/proc/self/statm");
    long total = 0;
    long resident = 0;
    file >> total >> resident;
    return static_cast<double>(resident) * 4096 / 1e6;
}

// Sends the storm from a thread of its own to whoever connects; the last line of each burst carries its time.
class StormGateway {
public:
    StormGateway() : thread_([this] { run(); }) {
        while (port_ == 0) std::this_thread::yield();
    }
    ~StormGateway() {
        stop_ = true;
        thread_.join();
    }
    int port() const { return port_; }

private:
    void run() {
        QTcpServer server;
        server.listen(QHostAddress::LocalHost);
        port_ = server.serverPort();
        while (!stop_ && !server.waitForNewConnection(100)) {
        }
        auto* peer = server.nextPendingConnection();
        if (!peer) return;
        std::mt19937 random(1);
        auto next = Clock::now();
        while (!stop_ && peer->state() == QAbstractSocket::ConnectedState) {
            QByteArray burst;
            for (int i = 1; i < burstLines; ++i) burst += QByteArray::fromStdString(bench::stormLine(random)) + '\r';
            burst += stampPrefix + QByteArray::number(qlonglong(Clock::now().time_since_epoch().count())) + ",\r";
            peer->write(burst);
            peer->flush();
            peer->readAll();
            next += std::chrono::microseconds(1000000LL * burstLines / linesPerSecond);
            std::this_thread::sleep_until(next);
            peer->waitForReadyRead(0);
        }
        delete peer;
    }

    std::atomic<int> port_{0};
    std::atomic<bool> stop_{false};
    std::thread thread_;
};

struct Measured {
    double processorSeconds = 0;
    double memoryGrowth = 0;  // MB between the warm-up and the end
};

// Runs the loop for the length of the storm and measures all of it but the warm-up.
Measured measureLoop() {
    const auto until = [](Clock::time_point end) {
        while (Clock::now() < end) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
    };
    const auto start = Clock::now();
    until(start + warmUp);
    const double before = threadSeconds();
    const double memory = residentMegabytes();
    until(start + warmUp + stormLength);
    return {threadSeconds() - before, residentMegabytes() - memory};
}

void wholeProgram(benchmark::State& state) {
    for (auto _ : state) {
        StormGateway gateway;
        const trunvex::fakes::TemporaryFolder folder;
        trunvex::QtPlatform platform;
        trunvex::Console console(platform, folder.path());
        trunvex::Screens screens(console);
        console.bringUp.showConnectionDialog = [&](trunvex::frmConnectionSelect& dialog) {
            dialog.cmbConSelect.setText("NET");
            dialog.txtIP.setText("127.0.0.1");
            dialog.txtPort.setText(std::to_string(gateway.port()));
            if (!dialog.accept()) dialog.cancel();
        };
        long lines = 0;
        Clock::duration longest{};
        console.dispatcher.relay.connect([&](std::string_view line) {
            ++lines;
            if (line.substr(0, 15) != stampPrefix) return;
            const Clock::duration sent(std::stoll(std::string(line.substr(15))));
            longest = std::max(longest, Clock::now().time_since_epoch() - sent);
        });
        screens.startWithoutSplash();
        console.mainWindow.openPage("connect");
        // The storm answers no log-in; its batch is left alone, so that no box stops the clock.
        QTimer::singleShot(1500, [&] {
            console.writes.abandon();
            console.panel.StartProgress("connected");
        });
        console.board.show();
        const auto measured = measureLoop();
        state.SetIterationTime(measured.processorSeconds);
        const double expected = linesPerSecond * std::chrono::duration<double>(stormLength + warmUp).count();
        if (static_cast<double>(lines) < 0.95 * expected) state.SkipWithError("the storm was not kept up with");
        state.counters["lines"] = static_cast<double>(lines);
        state.counters["longest_wait_ms"] = std::chrono::duration<double, std::milli>(longest).count();
        state.counters["memory_growth_MB"] = measured.memoryGrowth;
        if (console.session.sessionFlag) console.bringUp.ConnectChange("disconnect", true);
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
        StormGateway gateway;
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
        QObject::connect(&socket, &QTcpSocket::readyRead, [&] { bytes += socket.readAll().size(); });
        QTimer frame;
        QObject::connect(&frame, &QTimer::timeout, [&] {
            for (auto* cell : cells) {
                cell->figure = static_cast<int>(bytes);
                cell->update();
            }
        });
        frame.start(frameMs);
        const auto measured = measureLoop();
        state.SetIterationTime(measured.processorSeconds);
        if (bytes == 0) state.SkipWithError("nothing was read");
    }
}

BENCHMARK(bareProgram)->Name("storm/bare")->Iterations(1)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(wholeProgram)->Name("storm/program")->Iterations(1)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
