#include "console_double.h"
#include "simulator/fields.h"
#include "simulator/gateway.h"

#include <gmock/gmock.h>

#include <array>
#include <map>

namespace simulator {

namespace {

// Port 53 with SIM 3 in use, a CDMA module beside it at 54, and an empty slot at 52.
void furnish(GatewayState& state) {
    state.ports.fill(Port{});
    Port& port = state.ports[18];
    port.module = '1';
    port.state = registeredRoaming;
    port.sims[2] = {simReady, 61 * 60 + 5, {}, 7, 5, "12.50"};
    port.sims[3] = {simAbsent, 60, {}, 3, 2};
    port.bcch = 77;
    port.signal = 41;
    port.network = "NORTHCELL";
    port.slaveVersion = "2.12";
    port.heardCells = {{77, 41}, {5, 30}, {124, 12}};
    state.ports[19] = port;
    state.ports[19].kind = ModuleKind::cdma;
}

int seconds(const std::string& counter) {
    return std::stoi(counter.substr(0, counter.size() - 3)) * 60 + std::stoi(counter.substr(counter.size() - 2));
}

std::string address(int slot) { return PortAddress::ofSlot(slot).text(); }

}  // namespace

TEST(GatewayMonitor, answersEachCommand) {
    const std::string first = ",99901,4601,12849,27,77,41";
    const std::string second = ",99901,4600,10185,35,5,30";
    const std::string third = ",99901,4603,14588,36,124,12";
    const std::vector<std::pair<const char*, std::string>> cases{
        {"R_CLM53", "A_CLM53" + first + "\r"},
        {"R_CLN53", "A_CLN53" + second + third + "\r"},
        {"R_CLM54", "A_CLM54\r"},  // CDMA has no such cells
        {"R_CLN54", "A_CLN54\r"},
        {"C_CLM54,5", "I_ALR540,ERROR\r"},
        {"C_CLM52,5", "I_ALR520,ERROR\r"},
        {"C_CLM53,124", "I_ALR530,OK\rI_ALR533,15,124,0,\rI_ALR533,25,12,,\r"},
        {"R_CLM53", "A_CLM53" + third + "\r"},
        {"R_CLN53", "A_CLN53" + first + second + "\r"},
        {"C_CLM53,0", "I_ALR530,OK\rI_ALR533,15,124,1,\rI_ALR533,25,12,,\r"},
        {"C_CLM53,9", "I_ALR530,OK\rI_ALR533,15,9,0,\rI_ALR533,25,99,,\r"},  // not heard
        {"R_STR53,3,", "A_STR53,3,00061:05,7,5,12.50,999010000000075,999015550000075\r"},
        {"R_STR53,4,", "A_STR53,4,00001:00,3,2,,,\r"},  // the card is out
        {"C_ABF53,3,-3.05,", "I_ALR533,OK\r"},
        {"C_ABF53,3,,", "I_ALR533,OK\r"},
        {"C_STR53,3,", "OK\r"},
        {"R_STR53,3,", "A_STR53,3,00000:00,0,0,-3.05,999010000000075,999015550000075\r"},
        {"R_STS53", "A_STS53,50,26,00000:00,26,00000:00,40,00000:00,26,00001:00,0,99,NORTHCELL,0,9\r"},
        {"C_STR52,1,", "I_ALR521,ERROR\r"},
        {"C_ABF52,1,5,", "I_ALR521,ERROR\r"},
        {"C_RST52", "I_ALR520,ERROR\r"},
    };
    Gateway gateway;
    furnish(gateway.state());
    ConsoleDouble console(gateway);
    for (const auto& [line, reply] : cases) EXPECT_EQ(console.ask(line), reply) << line;
    for (const char* balance : {"abc", "5.", ".5", "-", "1.2.3", "12345678901"})
        EXPECT_EQ(console.ask("C_ABF53,3," + std::string(balance) + ","), "I_ALR533,ERROR\r") << balance;
    for (const char* line : {"R_CLM", "R_CLM52", "R_CLN533", "C_CLM53", "C_CLM53,1025", "C_CLM53,x", "R_STR53,3",
                             "R_STR53,5,", "R_STR52,1,", "R_STR533,,", "R_STR5,33,", "C_STR53,0,", "C_STR53,3,,",
                             "C_ABF53,3,5", "C_ABF53,3,1,5,", "C_RST", "C_RST95", "C_RST531"})
        EXPECT_EQ(console.ask(line), "ERROR\r") << line;
}

TEST(GatewayMonitor, aResetPortComesBack) {
    Gateway gateway;
    furnish(gateway.state());
    Port& port = gateway.state().ports[18];
    ConsoleDouble console(gateway);
    console.advance(3'600'000);
    EXPECT_EQ(console.ask("C_RST53"), "I_ALR530,OK\rI_ALR533,0,,,\rI_ALR533,100,2.12,,\r");
    EXPECT_EQ(splitFields(console.ask("R_STS53"))[1], "0");
    console.ask("C_RST53");  // and once more: it signs on once
    console.advance(60'000);
    const std::string back = console.taken();
    EXPECT_EQ(back.find("I_ALR533,40,"), 0u);
    EXPECT_EQ(back.rfind("I_ALR533,40,"), 0u);
    EXPECT_TRUE(port.inService());
    port.sims[2].state = port.state = simAbsent;  // no reset puts a SIM in
    EXPECT_EQ(console.ask("C_RST53"), "I_ALR530,OK\rI_ALR530,0,,,\rI_ALR530,100,2.12,,\rI_ALR531,26,,,\r");
    console.advance(60'000);
    EXPECT_EQ(console.taken(), "");
}

// The statistics of a SIM, what the board was told of its talk, and its call records tell one story, also of calls that
// a reset of the port or of the whole gateway has cut. And whatever a reset comes upon, no port is left halfway.
TEST(GatewayMonitor, countersAgreeAndPortsComeBackAfterAnyReset) {
    for (std::uint64_t seed = 1; seed <= 10; ++seed) {
        GatewayOptions options;
        options.seed = seed;
        options.life = LifeRates::busy();
        options.life.troubleEvery = std::chrono::milliseconds(800);
        options.cdmaPorts = 2;
        Gateway gateway(options);
        ConsoleDouble console(gateway);
        auto& ports = gateway.state().ports;
        for (Port& port : ports)
            for (Sim& sim : port.sims) sim.talkedSeconds = sim.dialled = sim.successful = 0;

        std::array<bool, portCount> cameBack{};
        std::string told;
        for (int second = 0; second < 900; ++second) {
            if (second < 300) console.send("C_RST" + address(second * 11 % portCount));
            if (second == 200 || second == 899) console.send("C_RSM");
            console.advance(1'000);
            told += console.taken();
            if (second == 200) gateway.linkUp();
            for (std::size_t slot = 0; second >= 300 && slot < portCount; ++slot)
                cameBack[slot] = cameBack[slot] || ports[slot].inService() || ports[slot].activeSim() == 0;
        }
        EXPECT_THAT(cameBack, testing::Each(true)) << seed;

        gateway.linkUp();
        std::map<std::string, std::array<int, 3>> billed, stated;  // by SIM: talk, dialled, successful
        std::map<std::string, int> board;
        for (const std::string& line : splitFields(told, '\r')) {
            const auto fields = splitFields(line);
            if (line.starts_with("I_ALR") && (fields[1] == "4" || fields[1] == "104" || fields[1] == "18"))
                board[fields[0].substr(5)] = seconds(fields[2]);
        }
        for (int slot = 0; slot < portCount; ++slot) {
            const PortAddress at = PortAddress::ofSlot(slot);
            const std::string channel = std::to_string(at.mcu) + (at.module < 3 ? "1" : "3");
            for (const CallRecord& record : *gateway.state().callRecords.channel(channel)) {
                if (record.secondPort != (at.module % 2 == 0)) continue;
                auto& [talk, dialled, successful] = billed[at.text() + std::to_string(record.sim)];
                ++dialled;
                if (record.answered) talk += static_cast<int>((record.disconnected - *record.answered).count());
                if (record.answered) ++successful;
            }
            EXPECT_LE(splitFields(console.ask("R_CLN" + address(slot))).size(), 1u + 8 * 6);  // what a panel holds
            for (int sim = 1; sim <= simsPerPort && ports[static_cast<std::size_t>(slot)].fitted(); ++sim) {
                const auto fields = splitFields(console.ask("R_STR" + address(slot) + "," + std::to_string(sim) + ","));
                const auto key = address(slot) + fields[1];
                if (fields[3] != "0") stated[key] = {seconds(fields[2]), std::stoi(fields[3]), std::stoi(fields[4])};
                EXPECT_EQ(board[key], seconds(fields[2])) << seed << ": " << key;
            }
        }
        EXPECT_EQ(stated, billed) << seed;
        EXPECT_GT(billed.size(), 20u) << seed;
    }
}

}  // namespace simulator
