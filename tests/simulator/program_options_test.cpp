#include "simulator/program_options.h"

#include <gtest/gtest.h>

namespace simulator {

TEST(ProgramOptions, refusesWhatItDoesNotUnderstand) {
    const std::vector<std::vector<std::string>> wrong{{"--unknown"},
                                                      {"4001"},
                                                      {"--listen"},
                                                      {"--listen", "65536"},
                                                      {"--listen", ":1"},
                                                      {"--dial", "4001"},
                                                      {"--dial", "host:0"},
                                                      {"--seed", "-1"},
                                                      {"--seed", "1x"},
                                                      {"--esn", "a,b"},
                                                      {"--esn", ""},
                                                      {"--password", "a,b"},
                                                      {"--password="},
                                                      {"--quiet=1"},
                                                      {"--fault", "lost=2"},
                                                      {"--fault"},
                                                      {"--listen", "1", "--dial", "a:1"},
                                                      {"--pty", "--listen", "1"},
                                                      {"--master-ping", "often"},
                                                      {"--cdma", "33"},
                                                      {"--cdma", "x"},
                                                      {"--life"},
                                                      {"--life", "wild"},
                                                      {"--life", "quiet=3"},
                                                      {"--life", "storm=0"},
                                                      {"--life", "storm=50001"}};
    for (const auto& arguments : wrong) {
        ProgramOptions options;
        EXPECT_NE(parseArguments(arguments, options), "") << testing::PrintToString(arguments);
    }
}

TEST(ProgramOptions, addressesInTheirForms) {
    struct Case {
        std::string argument;
        std::string host;
        std::string port;
    };
    for (const Case& c :
         {Case{"5000", "127.0.0.1", "5000"}, Case{"0.0.0.0:0", "0.0.0.0", "0"}, Case{"[::1]:7", "::1", "7"}}) {
        ProgramOptions options;
        EXPECT_EQ(parseArguments({"--listen", c.argument}, options), "");
        EXPECT_EQ(options.host + " " + options.port, c.host + " " + c.port);
    }
}

TEST(ProgramOptions, howMuchHappensByItself) {
    const auto asked = [](const std::vector<std::string>& arguments) {
        ProgramOptions options;
        EXPECT_EQ(parseArguments(arguments, options), "");
        return options.gateway.life;
    };
    EXPECT_EQ(asked({}).callEvery, LifeRates::quiet().callEvery);
    EXPECT_TRUE(asked({"--life", "off"}).off());
    EXPECT_EQ(asked({"--life=busy"}).callEvery, LifeRates::busy().callEvery);
    EXPECT_EQ(asked({"--life", "storm"}).linesPerSecond, 10'000);
    EXPECT_EQ(asked({"--life=storm=77"}).linesPerSecond, 77);
}

TEST(ProgramOptions, takesAllItIsTold) {
    ProgramOptions options;
    ASSERT_EQ(parseArguments({"--pty", "--seed=9", "--fault", "R_ESN:try=4", "--fault=lost=0.5", "--master-unit", "7",
                              "--password", "abc", "--cdma", "32"},
                             options),
              "");
    EXPECT_EQ(options.way, ProgramOptions::Way::terminal);
    EXPECT_EQ(options.terminalLink, "");
    EXPECT_EQ(options.gateway.seed, 9u);
    EXPECT_EQ(options.gateway.faults.of("R_ESN").answersOnTry, 4);
    EXPECT_EQ(options.gateway.faults.of("R_CLK").lost, 0.5);
    EXPECT_TRUE(options.master);  // a flag of the master asks for one
    EXPECT_EQ(options.gateway.adminPassword, "abc");
    EXPECT_EQ(options.gateway.cdmaPorts, 32);
}

TEST(ProgramOptions, noPasswordInAnErrorText) {
    ProgramOptions options;
    EXPECT_EQ(parseArguments({"--password=se,cret"}, options).find("cret"), std::string::npos);
}

}  // namespace simulator
