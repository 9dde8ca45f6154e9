// Queued reads over loopback on the real platform, against a blocking socket's ping-pong of the same lines.
#include <arpa/inet.h>
#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QEventLoop>

#include "echo_gateway.h"
#include "link/c_spooling.h"
#include "platform/qt/qt_platform.h"
#include "queues/read_queue.h"

namespace {

constexpr int readsPerBatch = 100;

std::string line(int i) { return "R_BCH" + std::to_string(1000 + i); }

void blocking(benchmark::State& state) {
    bench::EchoGateway gateway;
    const int peer = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(static_cast<std::uint16_t>(gateway.port()));
    const int on = 1;
    ::setsockopt(peer, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    if (::connect(peer, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0) state.SkipWithError("connect");
    char bytes[256];
    for (auto _ : state)
        for (int i = 0; i < readsPerBatch; ++i) {
            const auto sent = line(i) + '\r';
            if (::write(peer, sent.data(), sent.size()) < 0 || ::read(peer, bytes, sizeof bytes) <= 0)
                state.SkipWithError("ping-pong");
        }
    ::close(peer);
    state.SetItemsProcessed(state.iterations() * readsPerBatch);
}

void queued(benchmark::State& state) {
    bench::EchoGateway gateway;
    trunvex::QtPlatform platform;
    trunvex::SessionState session;
    trunvex::ucProgress panel(platform);
    trunvex::ActionField button("tool_connect");
    trunvex::CSpooling spool(platform, session, panel, button);
    trunvex::ReadQueue reads(platform, spool, trunvex::pageReads);
    spool.AnalyzeCmd = [&](std::string_view received, bool) { reads.takeAnswer(received); };
    spool.InitNET("127.0.0.1", std::to_string(gateway.port()));
    spool.FillBuffer();
    while (!spool.isConnected()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    std::vector<trunvex::QueueItem> batch;
    for (int i = 0; i < readsPerBatch; ++i) batch.push_back(trunvex::command(line(i), "read"));
    for (auto _ : state) {
        reads.start(batch, 5000);
        while (reads.formEnabled() == false) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        if (reads.walk().index() != readsPerBatch - 1 || reads.walk().reply() != trunvex::Walk::Reply::Accepted)
            state.SkipWithError("reads were lost");
    }
    spool.Disconnect();
    state.SetItemsProcessed(state.iterations() * readsPerBatch);
}

BENCHMARK(blocking)->Name("loopback/blocking")->Repetitions(7)->UseRealTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(queued)->Name("loopback/queued")->Repetitions(7)->UseRealTime()->Unit(benchmark::kMicrosecond);

}  // namespace
