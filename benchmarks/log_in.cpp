// A log-in over loopback on the real platform, from the press of Connect to "Connected", against what it is prescribed
// to take: the first tick of the connect budget (1000 ms), at which the link is found up, and four round trips.
#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <chrono>
#include <thread>

#include "echo_gateway.h"
#include "fakes/console_bench.h"
#include "platform/qt/qt_platform.h"

namespace {

constexpr auto firstTick = std::chrono::milliseconds(1000);
constexpr auto roundTrip = std::chrono::milliseconds(20);
constexpr int roundTrips = 4;

// Answers the log-in's lines a round trip later.
void answerLater(trunvex::BytePipe& peer, std::string_view bytes, trunvex::Timer& timer, std::string& answer) {
    (void)peer;
    const std::string_view mnemonic = bytes.substr(0, 5);
    answer = mnemonic == "C_CPW"   ? "A_CPW65535\r"
             : mnemonic == "R_ESN" ? "A_ESN4711\r"
             : mnemonic == "R_CLK" ? "A_CLK01,02,26,3,10,30\r"
                                   : "A_PPR11111111000000000000000000000000\r";
    timer.start(static_cast<int>(roundTrip.count()));
}

void logIn(benchmark::State& state) {
    const trunvex::fakes::TemporaryFolder folder;
    trunvex::QtPlatform platform;
    trunvex::Console console(platform, folder.path());
    constexpr int port = 45171;
    auto gateway = platform.makePipe(trunvex::ListenTarget{port});
    std::string answer;
    auto timer = platform.makeTimer([&] {
        gateway->send(answer);
        answer.clear();
    });
    // One answer a command: the timer rests until the next one comes.
    gateway->onReceived = [&](std::string_view bytes) {
        if (bytes.substr(0, 3) != "SRV") answerLater(*gateway, bytes, *timer, answer);
    };
    console.session.bringUp.showConnectionDialog = [&](trunvex::frmConnectionSelect& dialog) {
        dialog.cmbConSelect.setText("NET");
        dialog.txtIP.setText("127.0.0.1");
        dialog.txtPort.setText(std::to_string(port));
        if (!dialog.accept()) dialog.cancel();
    };
    for (auto _ : state) {
        gateway->open();
        const auto start = std::chrono::steady_clock::now();
        console.mainWindow.openPage("connect");
        while (console.session.bringUp.phase() != trunvex::SessionPhase::Connected)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
        state.SetIterationTime(took.count());
        timer->stop();
        console.mainWindow.openPage("connect");
        for (int i = 0; i < 20; ++i) QCoreApplication::processEvents();
    }
}

void prescribed(benchmark::State& state) {
    for (auto _ : state) {
        const auto start = std::chrono::steady_clock::now();
        std::this_thread::sleep_for(firstTick + roundTrips * roundTrip);
        const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
        state.SetIterationTime(took.count());
    }
}

BENCHMARK(prescribed)
    ->Name("login/prescribed")
    ->Iterations(1)
    ->Repetitions(3)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(logIn)->Name("login/console")->Iterations(1)->Repetitions(3)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
