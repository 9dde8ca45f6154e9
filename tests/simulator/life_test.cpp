#include "simulator/life.h"

#include "console_double.h"
#include "simulator/fields.h"
#include "simulator/gateway.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace simulator {

namespace {

GatewayOptions alive(const LifeRates& rates, std::uint64_t seed = 3) {
    GatewayOptions options;
    options.seed = seed;
    options.life = rates;
    return options;
}

constexpr int minute = 60'000;

int reports(const std::string& bytes) { return static_cast<int>(std::count(bytes.begin(), bytes.end(), '\r')); }

}  // namespace

TEST(Life, talkCountersStartAnewAfterFiveDigitsOfMinutes) {
    Gateway gateway(alive(LifeRates::busy()));
    ConsoleDouble console(gateway);
    for (Port& port : gateway.state().ports) {
        for (Sim& sim : port.sims) sim.talkedSeconds = 99'999 * 60 + 59;
    }
    console.advance(30 * minute);
    const std::string status = console.ask("R_STS11");
    const std::string counter = splitFields(status.substr(status.rfind("A_STS")))[3];
    EXPECT_EQ(counter.size(), 8u) << counter;
    EXPECT_EQ(counter.substr(0, 3), "000") << counter;
}

TEST(Life, repeatsItselfWhateverTheStepsOfTime) {
    const auto lived = [](const LifeRates& rates, std::uint64_t seed, int step) {
        Gateway gateway(alive(rates, seed));
        ConsoleDouble console(gateway);
        for (int ms = 0; ms < 5 * minute; ms += step) console.advance(step);
        return console.taken();
    };
    const std::string once = lived(LifeRates::busy(), 5, 10);
    EXPECT_EQ(lived(LifeRates::busy(), 5, minute), once);
    EXPECT_NE(lived(LifeRates::busy(), 6, minute), once);
    EXPECT_EQ(lived(LifeRates::storm(50), 5, 1000), lived(LifeRates::storm(50), 5, 30'000));
    EXPECT_EQ(lived(LifeRates::none(), 5, minute), "");
}

TEST(Life, standsStillWithoutAConsole) {
    for (const LifeRates& rates : {LifeRates::busy(), LifeRates::storm(100)}) {
        Gateway gateway(alive(rates));
        ConsoleDouble console(gateway);
        console.advance(minute);
        console.taken();
        gateway.linkDown();
        EXPECT_EQ(gateway.nextDue(), std::nullopt);
        console.advance(600 * minute);
        gateway.linkUp();
        EXPECT_EQ(console.taken(), "");
        console.advance(minute);
        EXPECT_LT(reports(console.taken()), 7'000);
    }
}

TEST(Life, aRestartCutsTheCalls) {
    Gateway gateway(alive(LifeRates::busy()));
    ConsoleDouble console(gateway);
    console.advance(5 * minute);
    console.taken();
    console.send("C_RSM");
    console.advance(minute);
    EXPECT_EQ(console.taken(), "");
    EXPECT_EQ(console.hangUps, 1);
    gateway.linkUp();
    for (const Bearer& bearer : gateway.state().bearers) EXPECT_FALSE(bearer.slot);
}

}  // namespace simulator
