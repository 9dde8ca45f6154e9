// What a line of the storm costs, stage upon stage: cutting it, taking it through the dispatcher as far as its record,
// and moving the board's fields, which marks the cells of its open window as stale. What the program takes beyond that
// is painting and reading the socket.
#include <benchmark/benchmark.h>

#include "fakes/console_bench.h"
#include "link/line_cutter.h"
#include "screens/screens.h"
#include "storm.h"

namespace {

constexpr int traceLines = 20000;

void cutting(benchmark::State& state) {
    const auto bytes = bench::stormTrace(traceLines);
    for (auto _ : state) {
        trunvex::LineCutter cutter;
        std::size_t length = 0;
        cutter.feed(bytes, [&](std::string_view line) { length += line.size(); });
        benchmark::DoNotOptimize(length);
    }
    state.SetItemsProcessed(state.iterations() * traceLines);
}

// Everything but the board: its part of the reports is split and dropped.
void dispatching(benchmark::State& state) {
    const auto bytes = bench::stormTrace(traceLines);
    trunvex::fakes::ConsoleBench bench;
    bench.console.session.dispatcher.on(
        "I_ALR", [](const trunvex::Record& record) { benchmark::DoNotOptimize(record.fields().size()); });
    bench.connect();
    for (auto _ : state) bench.platform.peer.deliver(bytes);
    state.SetItemsProcessed(state.iterations() * traceLines);
}

// No time passes here, so what is marked is never painted.
void withFields(benchmark::State& state) {
    const auto bytes = bench::stormTrace(traceLines);
    trunvex::fakes::ConsoleBench bench;
    const auto scripted = bench.console.session.bringUp.showConnectionDialog;
    trunvex::Screens screens(bench.console);
    bench.console.session.bringUp.showConnectionDialog = scripted;
    screens.startWithoutSplash();
    bench.connect();
    bench.receive("A_ESN4711");
    bench.console.board.opened();
    for (auto _ : state) bench.platform.peer.deliver(bytes);
    state.SetItemsProcessed(state.iterations() * traceLines);
}

BENCHMARK(cutting)->Name("share/cutting")->Unit(benchmark::kMillisecond);
BENCHMARK(dispatching)->Name("share/cutting+dispatch")->Unit(benchmark::kMillisecond);
BENCHMARK(withFields)->Name("share/cutting+dispatch+fields")->Unit(benchmark::kMillisecond);

}  // namespace
