#pragma once

#include <array>
#include <chrono>
#include <random>
#include <string>

namespace bench {

inline constexpr int stormLinesPerSecond = 10000;
// 60 s, or what STORM_SECONDS says: a shorter storm is enough while something is being tuned.
std::chrono::seconds stormLength();

// One line of a mixed storm of reports: calls, signals, channels and registrations over all ports.
inline std::string stormLine(std::mt19937& random) {
    // A report ends in its first argument's first characters or in its last comma.
    static constexpr std::array port{",25,",      ",25,",  ",25,", ",2,0501234", ",3,",  ",16,",    ",12,",
                                     ",4,00012:", ",104,", ",5,",  ",6,",        ",22,", ",23,",    ",50,",
                                     ",24,",      ",26,",  ",35,", ",40,",       ",15,", ",21,4250"};
    static constexpr std::array system{",140,", ",101,", ",100,"};
    const auto pick = [&](unsigned bound) { return std::to_string(1 + random() % bound); };
    if (random() % 10 == 0)
        return "I_ALR000" + std::string(system[random() % system.size()]) + pick(30) + "," + pick(30) + ",";
    return "I_ALR" + pick(8) + pick(4) + pick(4) + port[random() % port.size()] + std::to_string(10 + random() % 50) +
           ",,";
}

// A stretch of the storm, the same at each call, each line with its end.
inline std::string stormTrace(int lines) {
    std::mt19937 random(1);
    std::string trace;
    for (int i = 0; i < lines; ++i) trace += stormLine(random) + '\r';
    return trace;
}

// Processor seconds of this thread.
double threadSeconds();

// The processor time of the work that the events of this thread's loop set off.
class WorkClock {
public:
    enum Work { Painting, TakingLines, Else };

    static double seconds(Work work) { return seconds_[work]; }
    // Runs what an event does and counts all of it, further events that it sets off too, as the work of the first.
    template <class Body>
    static void run(Work work, Body&& body) {
        if (work == Else || running_) return body();
        running_ = true;
        const double before = threadSeconds();
        body();
        seconds_[work] += threadSeconds() - before;
        running_ = false;
    }

private:
    static inline std::array<double, Else> seconds_{};
    static inline bool running_ = false;
};

}  // namespace bench
