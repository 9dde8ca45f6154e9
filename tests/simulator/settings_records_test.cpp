#include "console_double.h"
#include "simulator/fields.h"
#include "simulator/gateway.h"

#include <gtest/gtest.h>

namespace simulator {

namespace {

// Ports 11 to 13 have a module of each kind, with a SIM in use in the second place; 14 is an empty slot.
void furnish(GatewayState& state) {
    state.ports.fill(Port{});
    for (const ModuleKind kind : {ModuleKind::gsm, ModuleKind::gsmSecondScale, ModuleKind::cdma}) {
        Port& port = state.ports[static_cast<std::size_t>(kind)];
        port.module = '1';
        port.kind = kind;
        port.sims[1].state = simReady;
        port.bcch = 7;
    }
}

}  // namespace

TEST(SettingsRecords, answersEachLine) {
    const std::vector<std::pair<const char*, const char*>> cases{
        {"R_MOD12", "A_MOD12,2,,,120,0,51,3,16,60,0,50,0,0,30,00000000\r"},
        // An empty slot, and a module that takes no SIM: nothing to read, nothing to set.
        {"R_MOD14", "A_MOD14,,,,,,,,,,,,,,,\r"},
        {"R_SIM132", "A_SIM132,,,,,,,,,,,,,,,,,,,,\r"},
        {"C_MOD14,,,,,,,,,,,,,,,,", "I_ALR140,OK\r"},
        {"C_MOD14,,,,60,,,,,,,,,,,,", "I_ALR140,ERROR\r"},
        {"C_SIM144,,,,,,,,,,,,,,,,,,,,", "I_ALR144,OK\r"},
        {"C_SIM132,,,,1,,,,,,,,,,,,,,,,", "I_ALR132,ERROR\r"},
        // A line is made for CDMA or for GSM.
        {"C_MOD13,1,,,60,,,,,,,,,,,,", "I_ALR130,OK\r"},
        {"C_MOD11,1,,,60,,,,,,,,,,,,", "I_ALR110,ERROR\r"},
        {"C_MOD12,2,,,60,,,,,,,,,,,,", "I_ALR120,ERROR\r"},
        {"C_MOD14,1,,,,,,,,,,,,,,,", "I_ALR140,ERROR\r"},
        // The two limits of a number's length, also when one of them stays as it is.
        {"C_MOD11,,,,,,,7,6,,,,,,,,", "I_ALR110,ERROR\r"},
        {"C_MOD11,,,,,,,6,6,,,,,,,,", "I_ALR110,OK\r"},
        {"C_MOD11,,,,,,,7,,,,,,,,,", "I_ALR110,ERROR\r"},
        {"C_MOD11,,,,,,,,5,,,,,,,,", "I_ALR110,ERROR\r"},
        // Numbers are kept as such; what is known of the module itself is not written.
        {"C_MOD11,,b,c,060,,,005,0008,,,,,,,,,", "I_ALR110,OK\r"},
        {"R_MOD11", "A_MOD11,,,,60,0,51,5,8,60,0,50,0,0,30,00000000\r"},
        {"C_ISD,,,,,,,,A,,,,,,5", "I_ALR000,OK\r"},
        {"R_ISD", "A_ISDISM 3.11,8,4,2,1000,11,0,0,,A,0,1,1,0,0,005,0\r"},  // the number is taken away
        {"R_SIM112", "A_SIM112,,,,0,59999,0,00000,0,0,0,00005923,127,00000000,0,00000000,0,00000000,0,0,1\r"},
        // A fresh line leaves no more than who the SIM is.
        {"C_SIM112,+999,12,9,2,10,7,0,5,60,99901,00010001,1,00010001,2,00010001,3,00010001,4,96,", "I_ALR112,OK\r"},
        {"C_SIM112,,,,,59999,,0,0,0,0,00005923,127,00000000,0,00000000,0,00000000,0,0,", "I_ALR112,OK\r"},
        {"R_SIM112", "A_SIM112,+999,12,9,2,59999,7,00000,0,0,0,00005923,127,00000000,0,00000000,0,00000000,0,0,1\r"},
        // One bad value and the whole line is refused, the good ones beside it too.
        {"C_MOD11,,,,59,,,,,9,,,,,,,,", "I_ALR110,ERROR\r"},
        {"C_MOD11,,,,,5,,,,9,,,,,,,,", "I_ALR110,ERROR\r"},
        {"C_MOD12,,,,,,5,,,9,,,,,,,,", "I_ALR120,ERROR\r"},
        {"C_MOD13,1,,,,,3,,,9,,,,,,,,", "I_ALR130,ERROR\r"},
        {"C_MOD11,,,,,,,,,9,,,16,,,,,", "I_ALR110,ERROR\r"},
        {"C_SIM112,5,12a4,,,,,,,,,,,,,,,,,,", "I_ALR112,ERROR\r"},
        {"C_SIM112,5,,,,,,,,,,00240000,,,,,,,,,", "I_ALR112,ERROR\r"},
        {"C_SIM112,5,,,,,,,,,,,128,,,,,,,,", "I_ALR112,ERROR\r"},
        {"C_SIM112,5,,,,,,,,29,,,,,,,,,,,", "I_ALR112,ERROR\r"},
        {"R_MOD11", "A_MOD11,,,,60,0,51,5,8,60,0,50,0,0,30,00000000\r"},
        {"R_SIM112", "A_SIM112,+999,12,9,2,59999,7,00000,0,0,0,00005923,127,00000000,0,00000000,0,00000000,0,0,1\r"},
    };
    Gateway gateway;
    furnish(gateway.state());
    ConsoleDouble console(gateway);
    for (const auto& [line, reply] : cases) EXPECT_EQ(console.ask(line), reply) << line;
    // One field too few or too many, and what stands where nothing should.
    for (const char* line :
         {"C_MOD11,,,,,,,,,,,,,,,", "C_MOD11,,,,,,,,,,,,,,,,,,", "C_MOD11,,,,,,,,,,,,,,,,1",
          "C_SIM112,,,,,,,,,,,,,,,,,,,", "C_SIM112,,,,,,,,,,,,,,,,,,,,,", "C_SIM112,,,,,,,,,,,,,,,,,,,,0",
          "C_SIM115,,,,,,,,,,,,,,,,,,,,", "C_MOD", "R_MOD91", "R_MOD111", "R_SIM110", "R_SIM1"})
        EXPECT_EQ(console.ask(line), "ERROR\r") << line;
}

TEST(SettingsRecords, aPortStaysOnTheCellOfItsSim) {
    // The state's end is BCCH mode and BCCH.
    using Case = std::tuple<std::string, std::string, const char*, const char*, const char*>;
    Gateway gateway;
    furnish(gateway.state());
    ConsoleDouble console(gateway);
    for (const auto& [sim, lock, reports, kept, ofStatus] :
         {Case{"112", "1024", "I_ALR112,OK\rI_ALR112,15,1024,0,\r", "01024", "0 1024"},
          Case{"112", "01024", "I_ALR112,OK\r", "01024", "0 1024"},
          Case{"111", "44", "I_ALR111,OK\r", "00044", "0 1024"},  // not in use
          Case{"112", "1025", "I_ALR112,ERROR\r", "01024", "0 1024"},
          Case{"112", "0", "I_ALR112,OK\rI_ALR112,15,1024,1,\r", "00000", "1 1024"}}) {
        const std::string index = "_SIM" + sim;
        EXPECT_EQ(console.ask("C" + index + ",,,,,,," + lock + ",,,,,,,,,,,,,"), reports) << lock;
        const auto status = splitFields(console.ask("R_STS11"));
        EXPECT_EQ(status[10] + " " + status[14], ofStatus + std::string("\r")) << lock;
        EXPECT_EQ(splitFields(console.ask("R" + index))[7], kept) << lock;
    }
}

}  // namespace simulator
