// The console is killed in the middle of a download, again and again; the gateway and the disk go on.
#include <poll.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <thread>

#include "cdr/calls_bench.h"

namespace trunvex {
namespace {

constexpr int records = 2000;
constexpr int kills = 200;
constexpr int patienceMs = 20000;

// The gateway's end of a socket, seen from the console's process. What is awaited is waited for, so that the console's
// clock, which is turned by hand, does not run away from a gateway in another process.
class FarGateway : public simulator::Station {
public:
    explicit FarGateway(int fd) : fd_(fd) {}
    void linkUp() override { up_ = true; }
    void linkDown() override { up_ = false; }
    void receive(std::string_view bytes) override {
        awaited_ += std::count(bytes.begin(), bytes.end(), '\r');
        if (::send(fd_, bytes.data(), bytes.size(), MSG_NOSIGNAL) < 0) std::_Exit(0);
    }
    void advanceTo(std::chrono::milliseconds now) override {
        now_ = now;
        pollfd waiting{fd_, POLLIN, 0};
        while (::poll(&waiting, 1, awaited_ > 0 ? patienceMs : 0) > 0) {
            std::array<char, 4096> bytes{};
            const auto count = ::recv(fd_, bytes.data(), bytes.size(), 0);
            if (count <= 0) std::_Exit(0);
            const std::string_view text(bytes.data(), static_cast<std::size_t>(count));
            awaited_ = std::max<long>(0, awaited_ - std::count(text.begin(), text.end(), '\r'));
            if (up_ && onOutput) onOutput(text);
        }
    }
    std::optional<std::chrono::milliseconds> nextDue() const override {
        return up_ ? std::optional(now_ + std::chrono::milliseconds(1)) : std::nullopt;
    }

private:
    int fd_;
    bool up_ = false;
    long awaited_ = 0;
    std::chrono::milliseconds now_{0};
};

// The life of one console: it logs in and downloads until nothing is left, or until it is killed.
[[noreturn]] void downloadAll(int fd, const std::filesystem::path& home) {
    fakes::ConsoleBench bench(home);
    FarGateway gateway(fd);
    bench.logIn(gateway);
    bench.console.cdrDownload.start();
    while (bench.console.cdrDownload.gCDRDownloading) bench.advance(10);
    std::_Exit(0);
}

class KilledConsole : public testing::Test {
protected:
    KilledConsole() {
        fakes::fillCalls(gateway, records);
        kept = fakes::callsIn(gateway);
    }

    // Serves a console until it ends, or kills it when so many lines have come: before the last of them is answered, or
    // a moment behind the answer that nothing decides: in the journal's write, in a commit, in the next command.
    void serve(int linesUntilKill, bool answerLast, std::chrono::microseconds behind = {}) {
        int ends[2];
        ASSERT_EQ(::socketpair(AF_UNIX, SOCK_STREAM, 0, ends), 0);
        const auto child = ::fork();
        if (child == 0) {
            ::close(ends[0]);
            downloadAll(ends[1], home.path());
        }
        ::close(ends[1]);
        gateway.onOutput = [&](std::string_view bytes) { ::send(ends[0], bytes.data(), bytes.size(), MSG_NOSIGNAL); };
        gateway.linkUp();
        std::array<char, 4096> bytes{};
        for (int lines = 0; lines < linesUntilKill;) {
            const auto count = ::recv(ends[0], bytes.data(), bytes.size(), 0);
            if (count <= 0) break;
            const std::string_view text(bytes.data(), static_cast<std::size_t>(count));
            lines += static_cast<int>(std::count(text.begin(), text.end(), '\r'));
            if (lines >= linesUntilKill && !answerLast) break;
            gateway.receive(text);
            gateway.advanceTo(now += std::chrono::milliseconds(1));
        }
        if (answerLast) std::this_thread::sleep_for(behind);
        ::kill(child, SIGKILL);
        int status = 0;
        ::waitpid(child, &status, 0);
        // What the console sent before its end is in the socket, and the gateway acts on it.
        for (ssize_t count; (count = ::recv(ends[0], bytes.data(), bytes.size(), MSG_DONTWAIT)) > 0;) {
            gateway.receive({bytes.data(), static_cast<std::size_t>(count)});
            gateway.advanceTo(now += std::chrono::milliseconds(1));
        }
        gateway.linkDown();
        gateway.onOutput = nullptr;
        ::close(ends[0]);
    }

    simulator::Random dice{11};
    simulator::Gateway gateway{fakes::seeded(3)};
    std::chrono::milliseconds now{0};
    fakes::TemporaryFolder home{CALL_TEMPLATE};
    std::multiset<std::string> kept;
};

TEST_F(KilledConsole, LeavesEveryCallOnceInTheTable) {
    constexpr int logInLines = 20;  // log-in and counting
    for (int round = 0; round < kills; ++round)
        serve(logInLines + static_cast<int>(dice.between(1, 24)), dice.chance(0.75),
              std::chrono::microseconds(dice.between(0, 800)));
    serve(1 << 30, true);  // one that lives
    fakes::ConsoleBench last(home.path());
    last.console.callStore.setGateway("4711");
    last.console.callStore.recover();
    EXPECT_EQ(fakes::callsIn(last.console.callStore), kept);
}

}  // namespace
}  // namespace trunvex
