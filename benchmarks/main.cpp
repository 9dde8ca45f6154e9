// Runs every benchmark in turn and prints one table of ratios. The machines are shared and noisy: only ratios to a
// peer of the same run say something, so each pair is repeated and its medians are compared.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <algorithm>
#include <cstdio>
#include <map>

#include "ratios.h"

namespace bench {

const std::vector<Ratio>& ratios() {
    using Of = Ratio::Of;
    static const std::vector<Ratio> all = {
        {"cutting lines / bare memchr scan (rates)", "cut/LineCutter", "cut/memchr", 0.6, false, Of::Rates},
        {"cutting lines / QByteArray indexOf and mid (rates)", "cut/LineCutter", "cut/QByteArray", 3, false, Of::Rates},
        {"dispatch of a mixed trace / cutting and splitting it (times)", "dispatch/AnalyzeCmd", "dispatch/split", 8,
         true, Of::Times},
        {"queued reads / blocking ping-pong over loopback (rates)", "loopback/queued", "loopback/blocking", 0.5, false,
         Of::Rates},
        {"log-in / its first tick and four round trips of 20 ms (times)", "login/console", "login/prescribed", 0, true,
         Of::Times},
        {"a storm with the board open / a bare painting program (times)", "storm/program", "storm/bare", 3, true,
         Of::Times},
    };
    return all;
}

namespace {

// Keeps the real time of every repetition, by benchmark.
class Collector : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const auto& run : runs) {
            if (run.run_type != Run::RT_Iteration || run.error_occurred) continue;
            times[run.run_name.function_name].push_back(run.real_accumulated_time /
                                                        static_cast<double>(run.iterations));
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
        std::printf("%-64s %8.2f  %s %.1f%s\n", ratio.what.c_str(), value, ratio.atMost ? "<=" : ">=", ratio.target,
                    met ? "" : "  MISSED");
    }
}

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");  // windows without a screen: they are painted all the same
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
    bench::Collector figures;
    benchmark::RunSpecifiedBenchmarks(&figures);
    bench::printTable(figures);
}
