// A mixed trace of a busy gateway through the whole dispatcher, against cutting and splitting the same bytes alone:
// once as far as the reports' records, once with all that the board's rules make of them.
#include <benchmark/benchmark.h>

#include <random>

#include "fakes/console_bench.h"
#include "link/line_cutter.h"
#include "text/split.h"

namespace {

std::string mixedTrace() {
    const char* lines[] = {"I_ALR113,25,40,,",
                           "I_ALR842,25,31,,",
                           "I_ALR211,2,0501234567,,",
                           "I_ALR213,4,00012:33,,",
                           "I_ALR000,140,17,,",
                           "I_ALR000,101,17,16,",
                           "I_ALR521,23,42501,,",
                           "I_ALR523,15,61,0,",
                           "A_STS11,23,40,00012:33,0,,0,,0,,0,45,42501,8,61",
                           "A_CLK01,02,26,3,10,30",
                           "A_SYS6.24,1,1,1",
                           "A_MON11111111111111111111111111111111111111111111111111111111111111",
                           "A_ESN4711",
                           "A_ILS0,0,0,12,0",
                           "OK"};
    std::mt19937 random(1);
    std::string trace;
    for (int i = 0; i < 20000; ++i) {
        // Nine of ten lines of a busy gateway are reports of a port or a channel.
        const auto pick = random() % 10 ? random() % 8 : random() % std::size(lines);
        trace += lines[pick];
        trace += '\r';
    }
    return trace;
}

void split(benchmark::State& state) {
    const auto trace = mixedTrace();
    for (auto _ : state) {
        trunvex::LineCutter cutter;
        std::size_t fields = 0;
        cutter.feed(trace, [&](std::string_view line) {
            fields += trunvex::splitString(line.substr(std::min<std::size_t>(5, line.size())), ',').size();
        });
        benchmark::DoNotOptimize(fields);
    }
}

void deliver(benchmark::State& state, trunvex::fakes::ConsoleBench& bench) {
    const auto trace = mixedTrace();
    bench.connect();
    for (auto _ : state) bench.platform.peer.deliver(trace);
}

void analyze(benchmark::State& state) {
    trunvex::fakes::ConsoleBench bench;
    bench.console.session.dispatcher.on(
        "I_ALR", [](const trunvex::Record& record) { benchmark::DoNotOptimize(record.fields().size()); });
    deliver(state, bench);
}

void analyzeWithBoard(benchmark::State& state) {
    trunvex::fakes::ConsoleBench bench;
    deliver(state, bench);
}

BENCHMARK(split)->Name("dispatch/split")->Repetitions(7)->Unit(benchmark::kMillisecond);
BENCHMARK(analyze)->Name("dispatch/AnalyzeCmd")->Repetitions(7)->Unit(benchmark::kMillisecond);
BENCHMARK(analyzeWithBoard)->Name("dispatch/AnalyzeCmd+board")->Repetitions(7)->Unit(benchmark::kMillisecond);

}  // namespace
