// The download of call records by the whole console on the real platform, from the first record to the last, with every
// record on the disk before the gateway may drop it, against twice a blocking request and reply: what a record must
// take on the wire, its read and its acknowledgement.
#include <arpa/inet.h>
#include <benchmark/benchmark.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sched.h>
#include <sys/socket.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <atomic>
#include <chrono>
#include <thread>

#include "fakes/console_bench.h"
#include "platform/qt/qt_platform.h"
#include "simulator/call_records.h"

namespace {

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

constexpr int warmUp = 20;  // records: the files are made, and the pages are in memory
constexpr long tmpfsMagic = 0x01021994;

double secondsSince(Clock::time_point start) { return Seconds(Clock::now() - start).count(); }

// Holds this thread on a processor of its own, as the two ends of a real wire are: where the system puts them on one,
// or moves them, a round trip takes a fifth or five times as long.
class OnProcessor {
public:
    explicit OnProcessor(int number) {
        ::sched_getaffinity(0, sizeof before_, &before_);
        cpu_set_t one;
        CPU_ZERO(&one);
        CPU_SET(number, &one);
        ::sched_setaffinity(0, sizeof one, &one);
    }
    ~OnProcessor() { ::sched_setaffinity(0, sizeof before_, &before_); }
    OnProcessor(const OnProcessor&) = delete;
    OnProcessor& operator=(const OnProcessor&) = delete;

private:
    cpu_set_t before_{};
};

// The simulated gateway behind a wire with this round trip, in a thread of its own. It is held up to the microsecond:
// the simulator's own latency counts in milliseconds, and would hide up to one of what the console takes.
class FarGateway {
public:
    FarGateway(std::chrono::milliseconds roundTrip, int records) : roundTrip_(roundTrip) {
        simulator::Random dice(7);
        for (auto& port : gateway_.state().ports) port.module = '1';
        for (int call = 0; call < records; ++call)
            gateway_.state().callRecords.add(simulator::PortAddress::ofSlot(call % 32),
                                             simulator::someCallRecord(dice, {}));
        listener_ = ::socket(AF_INET, SOCK_STREAM, 0);
        sockaddr_in address = loopback(0);
        socklen_t size = sizeof address;
        if (::bind(listener_, reinterpret_cast<sockaddr*>(&address), size) != 0 || ::listen(listener_, 1) != 0)
            throw std::runtime_error("can't listen on loopback");
        ::getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &size);
        port_ = ntohs(address.sin_port);
        thread_ = std::thread([this] { serve(); });
    }
    ~FarGateway() {
        stop_ = true;
        ::shutdown(listener_, SHUT_RDWR);
        thread_.join();
        ::close(listener_);
    }
    int port() const { return port_; }
    static sockaddr_in loopback(int port) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        address.sin_port = htons(static_cast<std::uint16_t>(port));
        return address;
    }

private:
    void serve() {
        const OnProcessor own(1);
        const int peer = ::accept(listener_, nullptr, nullptr);
        if (peer < 0) return;
        const int on = 1;
        ::setsockopt(peer, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
        gateway_.onOutput = [peer](std::string_view bytes) {
            [[maybe_unused]] const auto sent = ::send(peer, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        };
        gateway_.linkUp();
        std::array<char, 4096> bytes{};
        while (!stop_) {
            pollfd waiting{peer, POLLIN, 0};
            if (::poll(&waiting, 1, 20) > 0) {
                const auto arrived = Clock::now();
                const auto count = ::recv(peer, bytes.data(), bytes.size(), 0);
                if (count <= 0) break;
                if (roundTrip_.count() > 0) std::this_thread::sleep_until(arrived + roundTrip_);
                gateway_.receive({bytes.data(), static_cast<std::size_t>(count)});
            }
            gateway_.advanceTo(std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start_));
        }
        ::close(peer);
    }

    const std::chrono::milliseconds roundTrip_;
    const Clock::time_point start_ = Clock::now();
    simulator::Gateway gateway_{trunvex::fakes::seeded(3)};
    int listener_ = -1;
    int port_ = 0;
    std::atomic<bool> stop_{false};
    std::thread thread_;
};

// Counts the time that the database takes.
class TimedDatabase : public trunvex::Database {
public:
    TimedDatabase(std::unique_ptr<trunvex::Database> of, double& seconds, Clock::time_point& ended)
        : of_(std::move(of)), seconds_(seconds), ended_(ended) {}
    void execute(const std::string& sql) override {
        timed([&] { of_->execute(sql); });
    }
    void execute(const std::string& sql, const std::vector<std::string_view>& values) override {
        timed([&] { of_->execute(sql, values); });
    }
    std::unique_ptr<trunvex::DatabaseRows> query(const std::string& sql) override { return of_->query(sql); }
    int mark() const override { return of_->mark(); }
    void setMark(int mark) override {
        timed([&] { of_->setMark(mark); });
    }
    void makeDurable() override { of_->makeDurable(); }
    std::unique_ptr<trunvex::DatabaseCopy> copyTo(const std::filesystem::path& target) override {
        return of_->copyTo(target);
    }

private:
    template <class Act>
    void timed(Act&& act) {
        const auto start = Clock::now();
        act();
        ended_ = Clock::now();
        seconds_ += Seconds(ended_ - start).count();
    }

    std::unique_ptr<trunvex::Database> of_;
    double& seconds_;
    Clock::time_point& ended_;
};

class TimedEngine : public trunvex::DatabaseEngine {
public:
    explicit TimedEngine(trunvex::DatabaseEngine& of) : of_(of) {}
    std::unique_ptr<trunvex::Database> open(const std::filesystem::path& path) override {
        return std::make_unique<TimedDatabase>(of_.open(path), seconds, ended);
    }
    void remove(const std::filesystem::path& path) override { of_.remove(path); }
    void removeBeside(const std::filesystem::path& path) override { of_.removeBeside(path); }

    double seconds = 0;
    Clock::time_point ended;  // of the last statement

private:
    trunvex::DatabaseEngine& of_;
};

class TimedPlatform : public trunvex::QtPlatform {
public:
    trunvex::DatabaseEngine& databases() override { return engine; }
    TimedEngine engine{QtPlatform::databases()};
};

// Temporary files go to a real disk, if there is one: a record that is synced to memory costs nothing.
void useRealDisk() {
    for (const char* folder : {"/tmp", "/var/tmp", "."}) {
        struct statfs system {};
        if (::statfs(folder, &system) != 0 || system.f_type == tmpfsMagic) continue;
        ::setenv("TMPDIR", folder, 1);
        return;
    }
}

template <int roundTripMs, int records>
void download(benchmark::State& state) {
    useRealDisk();
    for (auto _ : state) {
        const OnProcessor own(0);
        FarGateway gateway(std::chrono::milliseconds{roundTripMs}, records + warmUp);
        const trunvex::fakes::TemporaryFolder folder(CALL_TEMPLATE);
        TimedPlatform platform;
        trunvex::Console console(platform, folder.path());
        console.files.setting.Write("CDRConfig", "Max", "100000");
        console.session.bringUp.showConnectionDialog = [&](trunvex::frmConnectionSelect& dialog) {
            dialog.cmbConSelect.setText("NET");
            dialog.txtIP.setText("127.0.0.1");
            dialog.txtPort.setText(std::to_string(gateway.port()));
            if (!dialog.accept()) dialog.cancel();
        };
        console.mainWindow.openPage("groups");
        double taking = 0;
        double adding = 0;
        console.session.objSpool.AnalyzeCmd = [&, take = console.session.objSpool.AnalyzeCmd](std::string_view line,
                                                                                              bool show) {
            const auto start = Clock::now();
            take(line, show);
            (line.substr(0, 5) == "A_CDR" ? taking : adding) += secondsSince(start);
        };
        int stored = 0;
        double list = 0;
        Clock::time_point start;
        Clock::time_point end;
        console.callStore.added().connect([&](const trunvex::CallRecord&) {
            list += secondsSince(platform.engine.ended);
            end = Clock::now();
            if (++stored == warmUp) {
                start = end;
                taking = adding = list = platform.engine.seconds = 0;
            }
        });
        console.mainWindow.openPage("connect");
        while (console.session.bringUp.phase() != trunvex::SessionPhase::Connected)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        console.cdrDownload.start();
        while (console.cdrDownload.gCDRDownloading) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        if (stored != records + warmUp) state.SkipWithError("calls were lost");
        const double whole = Seconds(end - start).count();
        state.SetIterationTime(whole / records);
        state.counters["journal"] = taking / whole;
        state.counters["database"] = platform.engine.seconds / whole;
        state.counters["list"] = list / whole;
        state.counters["adding"] = adding / whole;
        console.session.bringUp.ConnectChange("disconnect", true);
    }
}

// Two requests and their replies, of the kind that a record takes, on a blocking socket.
template <int roundTripMs, int records>
void roundTrips(benchmark::State& state) {
    for (auto _ : state) {
        const OnProcessor own(0);
        FarGateway gateway(std::chrono::milliseconds{roundTripMs}, records);
        const int peer = ::socket(AF_INET, SOCK_STREAM, 0);
        const int on = 1;
        ::setsockopt(peer, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
        const auto address = FarGateway::loopback(gateway.port());
        if (::connect(peer, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
            state.SkipWithError("connect");
        std::array<char, 4096> bytes{};
        const auto ask = [&](std::string_view line) {
            if (::send(peer, line.data(), line.size(), MSG_NOSIGNAL) < 0) state.SkipWithError("send");
            ssize_t count = 0;
            do count = ::recv(peer, bytes.data(), bytes.size(), 0);
            while (count > 0 && bytes[static_cast<std::size_t>(count - 1)] != '\r');
            if (count <= 0) state.SkipWithError("receive");
        };
        ask("C_CPWkestr\r");
        for (int i = 0; i < warmUp; ++i) ask("R_CDR11,1\r");
        const auto start = Clock::now();
        for (int i = 0; i < 2 * records; ++i) ask("R_CDR11,1\r");
        state.SetIterationTime(secondsSince(start) / records);
        ::close(peer);
    }
}

constexpr auto us = benchmark::kMicrosecond;
BENCHMARK(roundTrips<0, 1000>)->Name("download/wire_0ms")->Iterations(1)->Repetitions(5)->UseManualTime()->Unit(us);
BENCHMARK(download<0, 1000>)->Name("download/console_0ms")->Iterations(1)->Repetitions(5)->UseManualTime()->Unit(us);
BENCHMARK(roundTrips<5, 300>)->Name("download/wire_5ms")->Iterations(1)->Repetitions(3)->UseManualTime()->Unit(us);
BENCHMARK(download<5, 300>)->Name("download/console_5ms")->Iterations(1)->Repetitions(3)->UseManualTime()->Unit(us);
BENCHMARK(roundTrips<50, 100>)->Name("download/wire_50ms")->Iterations(1)->UseManualTime()->Unit(us);
BENCHMARK(download<50, 100>)->Name("download/console_50ms")->Iterations(1)->UseManualTime()->Unit(us);

}  // namespace
