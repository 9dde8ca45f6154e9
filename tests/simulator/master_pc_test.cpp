#include "simulator/master_pc.h"

#include "console_double.h"

#include <gtest/gtest.h>

namespace simulator {

namespace {

struct Bench {
    explicit Bench(MasterOptions options = {}) : master(gateway, named(std::move(options))), console(master) {
        master.linkUp();
        console.advance(0);
    }

    static MasterOptions named(MasterOptions options) {
        options.sessionId = "42";
        return options;
    }

    Gateway gateway;
    MasterPc master;
    ConsoleDouble console;
};

}  // namespace

TEST(MasterPc, handsNothingOnBeforeItHasAccepted) {
    Bench bench;
    EXPECT_EQ(bench.console.taken(), "SRV42:PSW\r");
    EXPECT_EQ(bench.console.ask("C_CPWkestr"), "");
    EXPECT_TRUE(bench.gateway.linesReceived().empty());
    EXPECT_EQ(bench.console.ask("SRV41:PSWkestr,7"), "");  // another session's
    EXPECT_FALSE(bench.master.accepted());
    EXPECT_EQ(bench.console.ask("SRV42:PSWkestr,7"), "SRV42:STAT1\r");
    EXPECT_EQ(bench.console.ask("C_CPWkestr"), "A_CPW65535\r");
    EXPECT_EQ(bench.console.ask("SRV42:PONG"), "");
    EXPECT_EQ(bench.gateway.linesReceived(), std::vector<std::string>{"C_CPWkestr"});  // no word between the two
    EXPECT_EQ(bench.master.ignored(), 2);
}

TEST(MasterPc, judgesPasswordAndUnit) {
    using Case = std::tuple<const char*, const char*, bool, std::string, const char*>;
    for (const auto& [password, unit, refuses, credentials, answer] :
         {Case{"", "", false, ",", "SRV42:STAT1\r"}, Case{"", "", true, "pw,7", "SRV42:STAT0\r"},
          Case{"pw", "7", false, "pw,7", "SRV42:STAT1\r"}, Case{"pw", "7", false, "pw,8", "SRV42:STAT0\r"},
          Case{"pw", "7", false, "pW,7", "SRV42:STAT0\r"}, Case{"p,w", "7", false, "p,w,7", "SRV42:STAT1\r"},
          Case{"pw", "", false, "pw", ""}}) {
        MasterOptions options;
        options.password = password;
        options.unit = unit;
        options.refuses = refuses;
        Bench bench(options);
        bench.console.taken();
        const std::string reply = bench.console.ask("SRV42:PSW" + credentials);
        EXPECT_EQ(reply, answer) << credentials;
        EXPECT_EQ(bench.console.ask("R_SYS").empty(), reply != "SRV42:STAT1\r") << credentials;
    }
}

}  // namespace simulator
