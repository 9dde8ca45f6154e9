#include "simulator/gateway.h"

#include "console_double.h"
#include "simulator/fields.h"

#include <gtest/gtest.h>

#include <regex>

namespace simulator {

namespace {

using namespace std::chrono;

// A gateway of which all that the seed decides is known.
GatewayOptions knownGateway() {
    GatewayOptions options;
    options.esn = "40000017";
    options.start = sys_days(2026y / February / 28) + 23h + 58min;
    return options;
}

void furnish(GatewayState& state) {
    state.ports.fill(Port{});
    Port& port = state.ports[18];  // MCU 5, module 3
    port.module = '1';
    port.state = registeredRoaming;
    port.sims[2] = {simReady, 61 * 60 + 5};
    port.fixedBcch = true;
    port.bcch = 77;
    port.signal = 41;
    port.network = "NORTHCELL";
    port.connected = true;
    port.slaveVersion = "2.12";
    state.isdnCounters = {1, 20, 300, 4000, 50000};
}

}  // namespace

TEST(Gateway, answersEachCommand) {
    const std::string none32(32, '0');
    const std::string port19 = std::string(none32).replace(18, 1, "1");
    const std::vector<std::pair<const char*, std::string>> cases{
        {"C_CPWkestr", "A_CPW65535\r"},
        {"C_CPWkestR", "A_CPW0\r"},
        {"C_ILS", "I_ALR000,ERROR\r"},  // a stranger changes nothing
        {"C_CPWkestr", "A_CPW65535\r"},
        {"R_ESN", "A_ESN40000017\r"},
        {"R_CLK", "A_CLK28,02,26,7,23,58\r"},
        {"R_PPR", "A_PPR" + port19 + "\r"},
        {"R_SYS", "A_SYS4.37,2,2,2\r"},
        {"R_ILS", "A_ILS00001,00020,00300,04000,50000\r"},
        {"C_ILS", "OK\r"},
        {"R_ILS", "A_ILS00000,00000,00000,00000,00000\r"},
        {"R_STS53", "A_STS53,50,26,00000:00,26,00000:00,40,00061:05,26,00000:00,0,41,NORTHCELL,8,77\r"},
        {"R_SID53", "A_SID53,2.12\r"},
        {"R_MON", "A_MON" + port19 + std::string(30, '1') + "\r"},
        {"C_STP53,0", "I_ALR530,OK\rI_ALR000,136,53,0,OK\r"},
        {"C_STB30,0", "I_ALR000,OK\rI_ALR000,116,30,0,OK\r"},
        {"R_MON", "A_MON" + none32 + std::string(29, '1') + "0\r"},
        {"C_STP52,1", "I_ALR520,ERROR\r"},
        {"SRV:CLOSE", ""},
    };
    Gateway gateway(knownGateway());
    furnish(gateway.state());
    ConsoleDouble console(gateway);
    for (const auto& [line, reply] : cases) EXPECT_EQ(console.ask(line), reply) << line;
    EXPECT_EQ(gateway.linesReceived().size(), cases.size());
    // An empty slot, what there is none of, and what is no command.
    for (const char* line : {"R_ESN1", "R_STS52", "R_STS95", "R_STS5", "C_STP53,2", "C_STP53", "C_STB31,1", "C_STB0,1",
                             "OK", "", "\nR_ESN", "R_XYZ", "C_MDM"})
        EXPECT_EQ(console.ask(line), "ERROR\r") << line;
}

TEST(Gateway, passwordsAndRights) {
    Gateway gateway;
    ConsoleDouble console(gateway);
    EXPECT_EQ(console.ask("C_UPW00004,"), "OK\r");
    EXPECT_EQ(console.ask("C_CPW"), "A_CPW0\r");  // rights without a password open nothing
    EXPECT_EQ(console.ask("C_UPW02045,usr"), "I_ALR000,ERROR\r");
    gateway.linkUp();
    EXPECT_EQ(console.ask("C_UPW02045,usr"), "OK\r");  // nobody becomes an admin by the lowest bit
    EXPECT_EQ(console.ask("C_CPWusr"), "A_CPW2044\r");
    EXPECT_EQ(console.ask("C_UPW,new"), "OK\r");
    EXPECT_EQ(console.ask("C_CPWnew"), "A_CPW2044\r");
    EXPECT_EQ(console.ask("C_UPW00004,"), "OK\r");
    EXPECT_EQ(console.ask("C_CPWnew"), "A_CPW4\r");
    for (const char* line : {"C_UPW2044,usr", "C_UPW02044", "C_UPW99999,usr", "C_APW", "C_APWa,b"})
        EXPECT_EQ(console.ask(line), "ERROR\r") << line;
    EXPECT_EQ(console.ask("C_APWboss"), "OK\r");
    EXPECT_EQ(console.ask("C_CPWkestr"), "A_CPW0\r");
    EXPECT_EQ(console.ask("C_CPWboss"), "A_CPW65535\r");
}

TEST(Gateway, clockRunsAndIsSet) {
    Gateway gateway(knownGateway());
    ConsoleDouble console(gateway);
    console.advance(119'999);
    EXPECT_EQ(console.ask("R_CLK"), "A_CLK28,02,26,7,23,59\r");
    console.advance(1);
    EXPECT_EQ(console.ask("R_CLK"), "A_CLK01,03,26,1,00,00\r");
    EXPECT_EQ(console.ask("C_CLK31,12,27,6,23,59"), "A_CLK31,12,27,6,23,59\r");
    console.advance(60'000);
    EXPECT_EQ(console.ask("R_CLK"), "A_CLK01,01,28,7,00,00\r");
    EXPECT_EQ(console.ask("C_CLK,,,,12,"), "A_CLK01,01,28,7,12,00\r");           // empty: as it was
    EXPECT_EQ(console.ask("C_CLK05,01,28,2,12,00"), "A_CLK05,01,28,2,12,00\r");  // a Wednesday called Monday
    console.advance(24 * 3600 * 1000);
    EXPECT_EQ(console.ask("R_CLK"), "A_CLK06,01,28,3,12,00\r");
    for (const char* line :
         {"C_CLK30,02,28,1,00,00", "C_CLK01,13,28,1,00,00", "C_CLK01,01,28,8,00,00", "C_CLK01,01,28,1,24,00",
          "C_CLK01,01,28,1,-1,00", "C_CLK31,02,28,1,00,00", "C_CLK29,02,27,1,00,00", "C_CLK00,01,28,1,00,00",
          "C_CLK01,01,28,0,00,00", "C_CLK01,01,28,1,00,60"})
        EXPECT_EQ(console.ask(line), "I_ALR000,ERROR\r") << line;
    EXPECT_EQ(console.ask("C_CLK01,01,28,1,00"), "ERROR\r");
    EXPECT_EQ(console.ask("R_CLK"), "A_CLK06,01,28,3,12,00\r");
}

TEST(Gateway, isdnRecordIsWrittenWholeOrNotAtAll) {
    Gateway gateway;
    ConsoleDouble console(gateway);
    const std::string page = "4,1,130,49,23,0,0,123456789,7,3,14,2,1,1,005";
    EXPECT_EQ(console.ask("C_ISD" + page), "I_ALR000,OK\r");
    EXPECT_EQ(console.ask("R_ISD"), "A_ISDISM 3.11," + page + ",0\r");
    EXPECT_EQ(console.ask("C_ISD,,,33,,,,123456789,7,,,,,,"), "I_ALR000,OK\r");
    EXPECT_EQ(console.ask("C_ISD,,,,,,,123456789,7,,,,,,,9"), "I_ALR000,OK\r");  // the form of a backup
    const std::string kept = console.ask("R_ISD");
    EXPECT_EQ(kept, "A_ISDISM 3.11,4,1,130,33,23,0,0,123456789,7,3,14,2,1,1,005,9\r");

    // One value a field that the record refuses, the others good.
    const std::vector<std::string> bad{"5",  "2", "3",  "48", "12", "x", "x",  "1234567890",
                                       "12", "8", "16", "3",  "2",  "2", "251"};
    for (std::size_t i = 0; i < bad.size(); ++i) {
        std::vector<std::string> fields = splitFields("8,4,2,1,11,0,0,55,,0,1,1,0,0,050");
        fields[i] = bad[i];
        EXPECT_EQ(console.ask("C_ISD" + joinFields(fields)), "I_ALR000,ERROR\r") << i;
    }
    EXPECT_EQ(console.ask("C_ISD8,4,2"), "ERROR\r");
    EXPECT_EQ(console.ask("R_ISD"), kept);
}

TEST(Gateway, dropsTheLinkWhenItRestarts) {
    for (const char* line : {"C_COM", "C_NET", "C_MDM1", "C_RSM"}) {
        Gateway gateway;
        ConsoleDouble console(gateway);
        const std::string identity = console.ask("R_ESN");
        EXPECT_EQ(console.ask(line), "") << line;
        EXPECT_EQ(console.ask("R_ESN"), "") << line;
        ASSERT_EQ(gateway.nextDue(), Gateway::restartDelay);
        console.advance(static_cast<int>(Gateway::restartDelay.count()) - 1);
        EXPECT_EQ(console.hangUps, 0) << line;
        console.advance(1);
        EXPECT_EQ(console.hangUps, 1) << line;
        EXPECT_EQ(console.ask("R_ESN"), "") << line;
        gateway.linkUp();
        EXPECT_EQ(console.ask("R_ESN"), identity) << line;
    }
}

TEST(Gateway, nothingFollowsAHangUpThatIsSeenLate) {
    Gateway gateway;
    ConsoleDouble console(gateway);
    ASSERT_EQ(switchOn(gateway.faults(), "R_SYS:latency=5000"), "");
    console.send("R_SYS");
    console.send("C_RSM");
    console.advance(10'000);
    EXPECT_EQ(console.taken(), "");
    EXPECT_EQ(console.hangUps, 1);
}

TEST(Gateway, aNewLinkStartsClean) {
    Gateway gateway;
    ConsoleDouble console(gateway);
    console.send("R_PPR");  // never fetched
    gateway.receive("R_E");
    gateway.linkDown();
    gateway.linkUp();
    EXPECT_EQ(console.ask("R_ESN"), "A_ESN" + gateway.state().esn + "\r");
}

TEST(Gateway, aSeedMakesOneGateway) {
    const auto portrait = [](std::uint64_t seed, double lost) {
        GatewayOptions options;
        options.seed = seed;
        options.faults.wire.garbage = lost;
        Gateway gateway(options);
        ConsoleDouble console(gateway);
        std::string all = console.ask("R_ESN") + console.ask("R_CLK") + console.ask("R_PPR") + console.ask("R_ILS");
        for (int slot = 0; slot < portCount; ++slot) all += console.ask("R_STS" + PortAddress::ofSlot(slot).text());
        return all;
    };
    EXPECT_EQ(portrait(7, 0), portrait(7, 0));
    EXPECT_EQ(portrait(7, 0.5), portrait(7, 0.5));
    EXPECT_NE(portrait(7, 0), portrait(8, 0));
    // A fault does not make another gateway: without the garbage the same lines remain.
    EXPECT_NE(portrait(7, 0.5), portrait(7, 0));
    EXPECT_EQ(std::regex_replace(portrait(7, 1), std::regex("[^\r]*\xFE\r"), ""), portrait(7, 0));
}

}  // namespace simulator
