#include "simulator/life.h"

#include "report_reader.h"
#include "simulator/master_pc.h"

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

TEST(Agenda, keepsTheOrderOfOneMoment) {
    Agenda agenda;
    std::string done;
    for (const char c : {'c', 'd', 'e', 'f', 'g'}) agenda.in(std::chrono::milliseconds(5), [&done, c] { done += c; });
    agenda.in(std::chrono::milliseconds(3), [&] {
        done += 'a';
        agenda.in(std::chrono::milliseconds(-1), [&done] { done += 'b'; });
    });
    while (agenda.nextDue()) agenda.doNext();
    EXPECT_EQ(done, "abcdefg");
}

TEST(Life, whatIsReadIsWhatWasReported) {
    struct Case {
        const char* name;
        LifeRates rates;
        int step;
        int steps;
    };
    for (const Case& c : {Case{"quiet", LifeRates::quiet(), 97'000, 150}, Case{"busy", LifeRates::busy(), 17'000, 300},
                          Case{"storm", LifeRates::storm(), 37, 100}}) {
        SCOPED_TRACE(c.name);
        Gateway gateway(alive(c.rates));
        ConsoleDouble console(gateway);
        ReportReader reader(gateway, console);
        for (int i = 0; i < c.steps; ++i) {
            console.advance(c.step);
            // An operator takes ports and channels away and gives them back, in calls or not.
            const std::string flag = i % 5 < 2 ? ",0" : ",1";
            console.send("C_STP" + PortAddress::ofSlot(i % portCount).text() + flag);
            console.send("C_STB" + std::to_string(i % channelCount + 1) + flag);
            console.advance(0);
            reader.follow(console.taken());
            ASSERT_NO_FATAL_FAILURE(reader.expectTrue());
            if (c.rates.linesPerSecond == 0) {
                EXPECT_LE(reader.oldestCall(), std::chrono::seconds(200));
            }
            ASSERT_FALSE(testing::Test::HasFailure()) << "step " << i;
        }
        EXPECT_GT(reader.calls, 100);
    }
}

TEST(Life, aCdmaPortLivesWithoutEverMissingItsSim) {
    GatewayOptions options = alive(LifeRates::storm());
    options.cdmaPorts = portCount;
    Gateway gateway(options);
    ConsoleDouble console(gateway);
    ReportReader reader(gateway, console);
    console.advance(3000);
    const std::string bytes = console.taken();
    reader.follow(bytes);
    reader.expectTrue();
    EXPECT_GT(reader.calls, 100);
    EXPECT_GT(reader.codes["13"], 0);
    for (int code = 29; code <= 39; ++code) EXPECT_EQ(reader.codes[std::to_string(code)], 0) << code;
    for (int slot = 0; slot < portCount; ++slot) {
        if (gateway.state().ports[static_cast<std::size_t>(slot)].kind != ModuleKind::cdma) continue;
        EXPECT_EQ(bytes.find("I_ALR" + PortAddress::ofSlot(slot).text() + "1,26,"), std::string::npos) << slot;
    }
}

TEST(Life, everyCodeComes) {
    Gateway gateway(alive(LifeRates::storm()));
    ConsoleDouble console(gateway);
    ReportReader reader(gateway, console);
    for (int second = 0; second < 8; ++second) {
        console.advance(1000);
        reader.follow(console.taken());
    }
    std::vector<std::string> expected{"50", "100", "104"};
    for (int code = 0; code <= 40; ++code) {
        if (code != 19) expected.push_back(std::to_string(code));
    }
    for (const char* code : {"010", "011", "020", "021", "022", "023", "024", "030", "031", "032", "033", "034", "100",
                             "101", "102", "110", "111", "112", "113", "114", "115", "116", "120", "136", "140"})
        expected.push_back(std::string("system ") + code);
    for (const std::string& code : expected) {
        EXPECT_GT(reader.codes[code], 0) << code;
    }
    EXPECT_EQ(reader.codes.size(), expected.size());  // and no other
}

TEST(Life, anOfficeHasACallAMinute) {
    Gateway gateway(alive(LifeRates::quiet()));
    ConsoleDouble console(gateway);
    ReportReader reader(gateway, console);
    console.advance(10 * 60 * minute);
    reader.follow(console.taken());
    EXPECT_NEAR(reader.calls, 600, 60);
    EXPECT_NEAR(reader.codes["25"], 12'000, 1'200);
    EXPECT_GE(gateway.state().ports[0].sims[0].talkedSeconds, 60);
}

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

TEST(Life, mostPortsOfABusyGatewayAreInCalls) {
    Gateway gateway(alive(LifeRates::busy()));
    ConsoleDouble console(gateway);
    ReportReader reader(gateway, console);
    const auto ports = std::count_if(gateway.state().ports.begin(), gateway.state().ports.end(),
                                     [](const Port& port) { return port.enabled && port.inService(); });
    int inCall = 0;
    for (int i = 0; i < 60; ++i) {
        console.advance(minute);
        reader.follow(console.taken());
        inCall += reader.inCall();
    }
    EXPECT_GT(inCall, 60 * ports / 2);
}

TEST(Life, aStormKeepsItsPaceEvenly) {
    for (const int pace : {1, 700, 10'000, LifeRates::mostLinesPerSecond}) {
        Gateway gateway(alive(LifeRates::storm(pace)));
        ConsoleDouble console(gateway);
        int total = 0;
        int most = 0;
        for (int ms = 0; ms < 2000; ++ms) {
            console.advance(1);
            const int now = reports(console.taken());
            most = std::max(most, now);
            total += now;
        }
        EXPECT_GE(total, 2 * pace);
        EXPECT_LT(total, 2 * pace + 10);
        EXPECT_LE(most, 64);
    }
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

TEST(Life, aLinkThatBreaksStopsItAtOnceWhateverTheStepsOfTime) {
    const auto left = [](int step) {
        GatewayOptions options = alive(LifeRates::busy());
        options.faults.wire.hangUpAfter = 300;
        Gateway gateway(options);
        ConsoleDouble console(gateway);
        for (int ms = 0; ms < 5 * minute; ms += step) console.advance(step);
        EXPECT_EQ(console.hangUps, 1);
        std::string portrait;
        for (const Port& port : gateway.state().ports) {
            portrait += std::to_string(port.signal) + "," + std::to_string(port.bcch) + " ";
        }
        return portrait;
    };
    EXPECT_EQ(left(5 * minute), left(10));
}

TEST(Life, standsStillWithoutAConsole) {
    for (const LifeRates& rates : {LifeRates::busy(), LifeRates::storm(100)}) {
        Gateway gateway(alive(rates));
        ConsoleDouble console(gateway);
        ReportReader reader(gateway, console);
        console.advance(minute);
        reader.follow(console.taken());
        gateway.linkDown();
        EXPECT_EQ(gateway.nextDue(), std::nullopt);
        console.advance(600 * minute);
        gateway.linkUp();
        EXPECT_EQ(console.taken(), "");
        reader.expectTrue();  // a new console finds what the last one left
        console.advance(minute);
        const std::string bytes = console.taken();
        EXPECT_LT(reports(bytes), 7'000);
        reader.follow(bytes);
        reader.expectTrue();
    }
}

TEST(Life, goesOnThroughShortLinks) {
    Gateway gateway(alive(LifeRates::quiet()));
    ConsoleDouble console(gateway);
    for (int second = 0; second < 120; ++second) {
        gateway.linkUp();
        console.advance(1000);
        gateway.linkDown();
    }
    EXPECT_GT(reports(console.taken()), 40);
}

TEST(Life, whatTheOperatorDisablesStaysSo) {
    Gateway gateway(alive(LifeRates::busy()));
    ConsoleDouble console(gateway);
    // Among so many are some that the gateway itself has taken away for a while.
    for (int i = 0; i < 40; ++i) {
        console.advance(minute / 2);
        for (int slot = 0; slot < portCount; ++slot) console.send("C_STP" + PortAddress::ofSlot(slot).text() + ",0");
        for (int channel = 1; channel <= channelCount; ++channel)
            console.send("C_STB" + std::to_string(channel) + ",0");
        console.advance(minute);
        console.taken();
        EXPECT_EQ(console.ask("R_MON"), "A_MON" + std::string(62, '0') + "\r");
        for (int slot = 0; slot < portCount; ++slot) console.send("C_STP" + PortAddress::ofSlot(slot).text() + ",1");
        for (int channel = 1; channel <= channelCount; ++channel)
            console.send("C_STB" + std::to_string(channel) + ",1");
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
    ReportReader reader(gateway, console);
    EXPECT_EQ(reader.inCall(), 0);
    for (Bearer& bearer : gateway.state().bearers) {
        EXPECT_FALSE(bearer.slot);
        bearer.cause = 0;
    }
    console.advance(10 * minute);  // what was planned for the old calls does not end the new ones
    reader.follow(console.taken());
    reader.expectTrue();
}

TEST(Life, aMasterPcLetsNothingThroughBeforeItHasAccepted) {
    Gateway gateway(alive(LifeRates::storm(100)));
    MasterOptions options;
    options.sessionId = "7";
    MasterPc master(gateway, options);
    ConsoleDouble console(master);
    master.linkUp();
    console.advance(10'000);
    EXPECT_EQ(console.taken(), "SRV7:PSW\r");
    console.ask("SRV7:PSWsecret,1");
    console.advance(1'000);
    EXPECT_GE(reports(console.taken()), 100);
}

}  // namespace simulator
