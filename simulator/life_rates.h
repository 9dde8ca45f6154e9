#pragma once

#include <chrono>
#include <string>
#include <string_view>

namespace simulator {

// How much happens on the gateway by itself. The pauses are means over the whole gateway, each real one lies
// between half and one and a half of it; 0 is never.
struct LifeRates {
    using Milliseconds = std::chrono::milliseconds;

    static constexpr int mostLinesPerSecond = 50'000;
    static constexpr int usualStorm = 10'000;

    Milliseconds callEvery{0};          // a call is tried; without a free port or channel nothing comes of it
    Milliseconds signalEvery{0};        // some port's signal
    Milliseconds networkEvery{0};       // some port's cell or network identity
    Milliseconds troubleEvery{0};       // a port loses its network or SIM, or fails, for a while
    Milliseconds alarmEvery{0};         // a lamp of the system, or something is taken out of service for a while
    Milliseconds counterEvery{10'000};  // talk counter of each connected call
    Milliseconds absenceEvery{5'000};   // each port without a SIM says so
    Milliseconds talkMin{20'000};
    Milliseconds talkMax{180'000};
    // Above 0: this many lines a second. The gateway's day then runs as fast as it takes, so the pauses above
    // say only how the lines mix.
    int linesPerSecond = 0;

    bool off() const;

    static LifeRates none() { return {}; }
    // An office: a call a minute, a signal every few seconds.
    static LifeRates quiet();
    // Most ports in calls.
    static LifeRates busy();
    static LifeRates storm(int linesPerSecond = usualStorm);
};

// Reads off, quiet, busy or storm[=LINES_PER_SECOND]. Returns an empty text, or what is wrong with the wish, in
// which case nothing has changed.
std::string readLife(LifeRates& rates, std::string_view wish);

}  // namespace simulator
