#include "simulator/life_rates.h"

#include "simulator/fields.h"

namespace simulator {

using namespace std::chrono_literals;

bool LifeRates::off() const {
    for (const Milliseconds pause : {callEvery, signalEvery, networkEvery, troubleEvery, alarmEvery}) {
        if (pause.count() > 0) return false;
    }
    return true;
}

LifeRates LifeRates::quiet() {
    LifeRates rates;
    rates.callEvery = 60s;
    rates.signalEvery = 3s;
    rates.networkEvery = 20s;
    rates.troubleEvery = 120s;
    rates.alarmEvery = 180s;
    return rates;
}

LifeRates LifeRates::busy() {
    LifeRates rates;
    rates.callEvery = 2s;
    rates.signalEvery = 500ms;
    rates.networkEvery = 4s;
    rates.troubleEvery = 30s;
    rates.alarmEvery = 30s;
    return rates;
}

LifeRates LifeRates::storm(int linesPerSecond) {
    LifeRates rates = busy();
    rates.callEvery = 1s;
    rates.troubleEvery = 10s;
    rates.alarmEvery = 10s;
    rates.talkMin = 5s;
    rates.talkMax = 60s;
    rates.linesPerSecond = linesPerSecond;
    return rates;
}

std::string readLife(LifeRates& rates, std::string_view wish) {
    if (wish == "off") {
        rates = LifeRates::none();
    } else if (wish == "quiet") {
        rates = LifeRates::quiet();
    } else if (wish == "busy") {
        rates = LifeRates::busy();
    } else if (wish == "storm") {
        rates = LifeRates::storm();
    } else if (wish.starts_with("storm=")) {
        const auto lines = number(wish.substr(6), 1, LifeRates::mostLinesPerSecond);
        if (!lines)
            return "no number of lines from 1 to " + std::to_string(LifeRates::mostLinesPerSecond) + ": " +
                   std::string(wish);
        rates = LifeRates::storm(*lines);
    } else {
        return "none of off, quiet, busy and storm: " + std::string(wish);
    }
    return {};
}

}  // namespace simulator
