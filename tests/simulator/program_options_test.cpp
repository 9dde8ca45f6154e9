#include "simulator/program_options.h"

#include <gtest/gtest.h>

#include <sstream>

namespace simulator {

namespace {

std::string parsed(const std::string& words, ProgramOptions& options) {
    std::istringstream in(words);
    std::vector<std::string> arguments;
    for (std::string word; in >> word;) arguments.push_back(word);
    return parseArguments(arguments, options);
}

}  // namespace

TEST(ProgramOptions, refusesWhatItDoesNotUnderstand) {
    std::istringstream refused(
        "--unknown|4001|--listen|--listen 65536|--listen :1|--dial 4001|--dial host:0|--seed -1|--seed 1x|--esn a,b|"
        "--esn=|--password a,b|--password=|--quiet=1|--fault lost=2|--fault|--listen 1 --dial a:1|--pty --listen 1|"
        "--master-ping often|--cdma 33|--cdma x|--life|--life wild|--life quiet=3|--life storm=0|--life storm=50001");
    for (std::string words; std::getline(refused, words, '|');) {
        ProgramOptions options;
        EXPECT_NE(parsed(words, options), "") << words;
    }
    ProgramOptions options;
    EXPECT_EQ(parsed("--password=se,cret", options).find("cret"), std::string::npos);
}

TEST(ProgramOptions, takesAllItIsTold) {
    ProgramOptions options;
    ASSERT_EQ(parsed("--pty --seed=9 --fault R_ESN:try=4 --fault=lost=0.5 --master-unit 7 --password abc --cdma 32 "
                     "--life=storm=77",
                     options),
              "");
    EXPECT_EQ(options.way, ProgramOptions::Way::terminal);
    EXPECT_EQ(options.gateway.seed, 9u);
    EXPECT_EQ(options.gateway.faults.of("R_ESN").answersOnTry, 4);
    EXPECT_EQ(options.gateway.faults.of("R_CLK").lost, 0.5);
    EXPECT_TRUE(options.master);  // a flag of the master asks for one
    EXPECT_EQ(options.gateway.adminPassword, "abc");
    EXPECT_EQ(options.gateway.cdmaPorts, 32);
    EXPECT_EQ(options.gateway.life.linesPerSecond, 77);
    for (const auto& [argument, address] :
         {std::pair{"5000", "127.0.0.1 5000"}, {"0.0.0.0:0", "0.0.0.0 0"}, {"[::1]:7", "::1 7"}}) {
        ProgramOptions listening;
        EXPECT_EQ(parsed(std::string("--listen ") + argument, listening), "");
        EXPECT_EQ(listening.host + " " + listening.port, address);
    }
}

}  // namespace simulator
