// Runs every benchmark in turn and prints one table of ratios. The machines are shared and noisy: only ratios to a
// peer of the same run say something, so each pair is repeated and its medians are compared.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QEvent>
#include <algorithm>
#include <cstdio>
#include <map>

#include "cdr/call_record.h"
#include "platform/qt/qt_tcp_pipe.h"
#include "ratios.h"
#include "start_up.h"
#include "storm.h"

namespace bench {

const std::vector<Ratio>& ratios() {
    using Of = Ratio::Of;
    static const std::vector<Ratio> all = {
        {"cutting lines / bare memchr scan (rates)", "cut/LineCutter", "cut/memchr", 0.6, false, Of::Rates},
        {"cutting lines / QByteArray indexOf and mid (rates)", "cut/LineCutter", "cut/QByteArray", 3, false, Of::Rates},
        {"dispatch of a mixed trace / cutting and splitting it (times)", "dispatch/AnalyzeCmd", "dispatch/split", 8,
         true, Of::Times},
        {"the same with the board's fields (times)", "dispatch/AnalyzeCmd+board", "dispatch/split", 0, true, Of::Times},
        {"queued reads / blocking ping-pong over loopback (rates)", "loopback/queued", "loopback/blocking", 0.5, false,
         Of::Rates},
        {"log-in / its first tick and four round trips of 20 ms (times)", "login/console", "login/prescribed", 0, true,
         Of::Times},
        {"listing a million calls / stepping through them and keeping the text (times)", "calls/list", "calls/step",
         1.5, true, Of::Times},
        {"writing them as CSV / the database shell (rates)", "calls/csv", "calls/shell_csv", 1, false, Of::Rates},
        {"a call downloaded / its two round trips, of 0 ms (times)", "download/console_0ms", "download/wire_0ms", 4,
         true, Of::Times},
        {"the same, of 5 ms", "download/console_5ms", "download/wire_5ms", 1.2, true, Of::Times},
        {"the same, of 50 ms", "download/console_50ms", "download/wire_50ms", 1.05, true, Of::Times},
        {"the console's window shown / an empty one of Qt's (times)", "start/console", "start/empty", 4, true,
         Of::Times},
        {"scrolling 10,000 edited rows / rows of plain texts in a plain view (times)", "grid/edited", "grid/plain", 3,
         true, Of::Times},
        {"encoding a message / by a library for phones (rates)", "message/encode", "message/library_encode", 10, false,
         Of::Rates},
        {"decoding a message / by the same (rates)", "message/decode", "message/library_decode", 10, false, Of::Rates},
        {"a storm with the board open / a bare painting program (times)", "storm/program", "storm/bare", 3, true,
         Of::Times},
    };
    return all;
}

namespace {

// Keeps the real time of every repetition and the items and counters of the last, by benchmark.
class Collector : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const auto& run : runs) {
            if (run.run_type != Run::RT_Iteration || run.error_occurred) continue;
            const auto& [function, argument] = std::pair(run.run_name.function_name, run.run_name.args);
            const auto name = argument.empty() ? function : function + "/" + argument;
            times[name].push_back(run.real_accumulated_time / static_cast<double>(run.iterations));
            for (const auto& [counter, value] : run.counters) counters[name][counter] = value;
        }
        ConsoleReporter::ReportRuns(runs);
    }

    double median(const std::string& name) {
        auto& all = times[name];
        if (all.empty()) return 0;
        std::sort(all.begin(), all.end());
        return all[all.size() / 2];
    }

    std::map<std::string, std::vector<double>> times;
    std::map<std::string, std::map<std::string, double>> counters;
};

void printTable(Collector& figures) {
    std::printf("\n%-64s %8s  %s\n", "ratio", "measured", "target");
    for (const auto& ratio : ratios()) {
        const double above = figures.median(ratio.measured);
        const double below = figures.median(ratio.peer);
        if (above <= 0 || below <= 0) continue;
        const double value = ratio.of == Ratio::Of::Rates ? below / above : above / below;
        if (ratio.target <= 0) {
            std::printf("%-64s %8.2f  -\n", ratio.what.c_str(), value);
            continue;
        }
        const bool met = ratio.atMost ? value <= ratio.target : value >= ratio.target;
        std::printf("%-64s %8.2f  %s %g%s\n", ratio.what.c_str(), value, ratio.atMost ? "<=" : ">=", ratio.target,
                    met ? "" : "  MISSED");
    }
}

// Beside each other, what the storm's two programs have measured: a wait that the bare one has too is the machine's.
void printStorm(Collector& figures) {
    auto& bare = figures.counters["storm/bare"];
    auto& program = figures.counters["storm/program"];
    if (bare.empty() || program.empty()) return;
    std::printf("\n%-64s %8s  %8s\n", "storm", "program", "bare");
    for (const char* name : {"longest_wait_ms", "bursts_over_50_ms", "memory_growth_MB"})
        std::printf("%-64s %8.2f  %8.2f\n", name, program[name], bare[name]);
}

void printStart(Collector& figures) {
    const double console = figures.counters["start/console"]["private_MiB"];
    const double empty = figures.counters["start/empty"]["private_MiB"];
    if (const double sessions = figures.counters["start/sessions"]["private_MiB"]; sessions > 0)
        std::printf("\n%-64s %8.1f\n", "MiB of private memory of a thousand sessions without windows", sessions);
    if (empty > 0)
        std::printf("\n%-64s %8.1f  target <= 12\n", "MiB of private memory that the console's window adds",
                    console - empty);
}

// Where the processor time of the storm's program goes. Painting and taking lines are measured in the storm; how the
// lines' time divides is measured by itself, stage upon stage on the same lines, for a line is too short for a clock.
void printShares(Collector& figures) {
    auto& program = figures.counters["storm/program"];
    const double whole = figures.median("storm/program");
    const double cut = figures.median("share/cutting");
    const double dispatched = figures.median("share/cutting+dispatch");
    const double moved = figures.median("share/cutting+dispatch+fields");
    if (whole <= 0 || moved <= 0) return;
    const double lines = program["lines_s"];
    const double painting = program["painting_s"];
    const std::pair<const char*, double> shares[] = {{"cutting", lines * cut / moved},
                                                     {"dispatch", lines * (dispatched - cut) / moved},
                                                     {"fields", lines * (moved - dispatched) / moved},
                                                     {"painting", painting},
                                                     {"socket, timers, layouts, event loop", whole - lines - painting}};
    std::printf("\n%-64s %8.2f s\n", "processor time of the storm's program", whole);
    for (const auto& [name, seconds] : shares)
        std::printf("  %-62s %8.2f s  %5.1f %%\n", name, seconds, 100 * seconds / whole);
}

// Sorting by each column beside the engine's ORDER BY, the memory of a row, and how long keys waited.
void printCalls(Collector& figures) {
    std::vector<std::pair<double, std::string>> sorts;
    for (std::size_t column = 0; column < trunvex::callColumnCount; ++column) {
        const double sorted = figures.median("calls/sort/" + std::to_string(column));
        const double ordered = figures.median("calls/order_by/" + std::to_string(column));
        if (ordered > 0) sorts.emplace_back(sorted / ordered, trunvex::callColumns[column].name);
    }
    std::sort(sorts.rbegin(), sorts.rend());
    if (!sorts.empty())
        std::printf("\n%-64s %8s  target <= 1\n", "sorting a million calls / ORDER BY (times)", "ratio");
    for (const auto& [ratio, column] : sorts) std::printf("  %-62s %8.2f\n", column.c_str(), ratio);
    for (const auto& [state, bytes] : figures.counters["calls/memory"])
        std::printf("%-64s %8.0f  target < 300\n", ("bytes of memory a row, " + state).c_str(), bytes);
    std::vector<std::pair<double, std::string>> waits;
    for (const auto& [work, wait] : figures.counters["calls/window"]) waits.emplace_back(wait, work);
    std::sort(waits.rbegin(), waits.rend());
    if (!waits.empty()) std::printf("\n%-64s %8s  target <= 100\n", "longest wait of a key press meanwhile", "ms");
    for (const auto& [wait, work] : waits) std::printf("  %-62s %8.1f\n", work.c_str(), wait);
}

// Where a call's time goes in its download. The time of its first line is the journal's: of 100 us the rest is a few.
void printDownload(Collector& figures) {
    for (const std::string trip : {"0ms", "5ms", "50ms"}) {
        const double whole = figures.median("download/console_" + trip);
        if (whole <= 0) continue;
        auto& part = figures.counters["download/console_" + trip];
        const std::pair<const char*, double> shares[] = {
            {"journal, until the call is on the disk", part["journal"]},
            {"database", part["database"]},
            {"list", part["list"]},
            {"the rest of adding it", part["adding"] - part["database"] - part["list"]},
            {"wire, gateway, timers, event loop", 1 - part["journal"] - part["adding"]}};
        std::printf("\n%-64s %8.0f us\n", ("a call downloaded, round trips of " + trip).c_str(), 1e6 * whole);
        for (const auto& [name, share] : shares)
            std::printf("  %-62s %8.0f us  %5.1f %%\n", name, 1e6 * whole * share, 100 * share);
    }
}

// Tells the painting and the taking of lines from the rest of what events do.
class Application : public QApplication {
public:
    using QApplication::QApplication;
    bool notify(QObject* receiver, QEvent* event) override {
        bool taken = false;
        WorkClock::run(workOf(receiver, event), [&] { taken = QApplication::notify(receiver, event); });
        return taken;
    }

private:
    static WorkClock::Work workOf(QObject* receiver, const QEvent* event) {
        switch (event->type()) {
            case QEvent::UpdateRequest:
            case QEvent::Paint:
            case QEvent::Expose:
                return WorkClock::Painting;
            case QEvent::MetaCall:  // what a socket has read is taken up from the loop
                return dynamic_cast<trunvex::QtTcpPipe*>(receiver) ? WorkClock::TakingLines : WorkClock::Else;
            default:
                return WorkClock::Else;
        }
    }
};

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");  // windows without a screen: they are painted all the same
    if (const std::string_view argument = argc > 1 ? argv[1] : ""; argument.rfind(bench::windowArgument, 0) == 0)
        return bench::showWindow(argc, argv, argument.substr(bench::windowArgument.size()));
    bench::Application application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
    bench::Collector figures;
    benchmark::RunSpecifiedBenchmarks(&figures);
    bench::printTable(figures);
    bench::printStart(figures);
    bench::printCalls(figures);
    bench::printStorm(figures);
    bench::printShares(figures);
    bench::printDownload(figures);
}
