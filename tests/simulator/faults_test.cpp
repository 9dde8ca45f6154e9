#include "simulator/faults.h"

#include "console_double.h"
#include "simulator/gateway.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace simulator {

namespace {

// A gateway with one fault, and what is known to come from it.
struct Bench {
    explicit Bench(std::initializer_list<const char*> wishes) {
        for (const char* wish : wishes) EXPECT_EQ(switchOn(gateway.faults(), wish), "") << wish;
    }

    Gateway gateway;
    ConsoleDouble console{gateway};
    std::string esn = "A_ESN" + gateway.state().esn;
};

}  // namespace

TEST(Faults, wishesThatMakeNoSenseChangeNothing) {
    for (const char* wish : {"",          "loud",        "lost=1.1",    "lost=-0.1",     "lost=x",         "lost=nan",
                             "lost=0.5x", "latency=5-2", "latency=-",   "latency=1-2-3", "late=0.5-x",     "try=0",
                             "silent=2",  "refuse=no",   "pieces=0",    "R_ESN:nul",     "R_ESN:bad-line", "ESN:silent",
                             ":silent",   "R_ESN:",      "R_ESN:lost=2"}) {
        Faults faults;
        EXPECT_NE(switchOn(faults, wish), "") << wish;
        EXPECT_TRUE(faults.perMnemonic.empty()) << wish;
        EXPECT_EQ(faults.replies.lost, 0) << wish;
        EXPECT_EQ(faults.replies.latencyMin.count(), 0) << wish;
    }
}

TEST(Faults, oneCommandCanBeWorseThanTheRest) {
    Bench bench({"R_ESN:silent", "C_ILS:refuse=alarm", "R_SYS:refuse", "C_UPW:lost=1"});
    ConsoleDouble& console = bench.console;
    EXPECT_EQ(console.ask("R_ESN"), "");
    EXPECT_EQ(console.ask("C_CPWkestr"), "A_CPW65535\r");
    EXPECT_EQ(console.ask("R_SYS"), "ERROR\r");
    bench.gateway.state().isdnCounters = {9, 9, 9, 9, 9};
    EXPECT_EQ(console.ask("C_ILS"), "I_ALR000,ERROR\r");
    EXPECT_EQ(console.ask("R_ILS"), "A_ILS00009,00009,00009,00009,00009\r");  // refused is not done
    EXPECT_EQ(console.ask("C_UPW00004,usr"), "");
    EXPECT_EQ(console.ask("C_CPWusr"), "A_CPW4\r");  // the reply was lost, not the change
}

TEST(Faults, answersOnTheThirdTryOfEachLine) {
    Bench bench({"try=3"});
    std::string heard;
    for (int i = 0; i < 6; ++i) heard += bench.console.ask("R_ESN").empty() ? "-" : "A";
    EXPECT_EQ(heard, "--A--A");
    EXPECT_EQ(bench.console.ask("R_SYS"), "");
    EXPECT_EQ(std::count(bench.gateway.linesReceived().begin(), bench.gateway.linesReceived().end(), "R_ESN"), 6);
}

TEST(Faults, latencyKeepsTheOrderAndLateRepliesBreakIt) {
    Bench bench({"latency=50", "R_ESN:late=1-1000", "R_ESN:latency=10"});
    ConsoleDouble& console = bench.console;
    console.send("R_ESN");
    console.send("R_SYS");
    console.send("C_CPWkestr");
    console.advance(49);
    EXPECT_EQ(console.taken(), "");
    console.advance(1);
    EXPECT_EQ(console.taken(), "A_SYS4.37,2,2,2\rA_CPW65535\r");
    EXPECT_EQ(bench.gateway.nextDue(), std::chrono::milliseconds(1010));
    console.advance(959);
    EXPECT_EQ(console.taken(), "");
    console.advance(1);
    EXPECT_EQ(console.taken(), bench.esn + "\r");
    EXPECT_EQ(bench.gateway.nextDue(), std::nullopt);

    // A quick reply behind a slow one waits for it.
    bench.gateway.faults().perMnemonic["R_CLK"].latencyMin = std::chrono::milliseconds(0);
    console.send("R_SYS");
    console.send("R_CLK");
    console.advance(49);
    EXPECT_EQ(console.taken(), "");
    console.advance(1);
    const std::string both = console.taken();
    EXPECT_EQ(std::count(both.begin(), both.end(), '\r'), 2);
}

TEST(Faults, piecesAndGapsLoseNoByte) {
    Bench bench({"pieces=4-10", "nul"});
    ConsoleDouble& console = bench.console;
    console.send("R_ESN");
    console.send("R_SYS");
    console.advance(0);
    ASSERT_EQ(console.pieces.size(), 1u);
    while (const auto due = bench.gateway.nextDue()) console.advance(static_cast<int>((*due - console.time).count()));
    // The gap is kept from piece to piece; the second line starts with the last piece of the first.
    EXPECT_EQ(console.time.count(), 10 * (static_cast<int>(console.pieces.size()) - 2));
    EXPECT_TRUE(std::all_of(console.pieces.begin(), console.pieces.end(),
                            [](const std::string& piece) { return !piece.empty() && piece.size() <= 4; }));
    using namespace std::string_literals;
    EXPECT_EQ(console.taken(), bench.esn + "\r\0A_SYS4.37,2,2,2\r\0"s);
}

TEST(Faults, floodComesOnceALinkAndTheLinkDiesAfterItsLines) {
    Bench bench({"flood=100000", "hangup=2"});
    ConsoleDouble& console = bench.console;
    for (int link = 1; link <= 2; ++link) {
        console.send("R_ESN");
        console.send("R_SYS");
        console.send("R_ESN");
        console.advance(0);
        const std::string all = console.taken();
        EXPECT_EQ(all.find('\r'), 100000u);
        EXPECT_EQ(all.substr(100001), bench.esn + "\rA_SYS4.37,2,2,2\r");
        EXPECT_EQ(console.hangUps, link);
        EXPECT_EQ(console.ask("R_ESN"), "");
        bench.gateway.linkUp();
    }
}

}  // namespace simulator
