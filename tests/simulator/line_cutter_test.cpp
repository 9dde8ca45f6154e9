#include "simulator/line_cutter.h"

#include <gtest/gtest.h>

#include <vector>

namespace simulator {

TEST(LineCutter, sameLinesWhereverTheBytesAreCut) {
    const std::string bytes("R_ESN\r\rC_CPWkestr\r\nR_CLK\r\0R_PPR\rrest", 36);
    const std::vector<std::string> expected{"R_ESN", "", "C_CPWkestr", "\nR_CLK", std::string("\0R_PPR", 6)};
    for (std::size_t first = 0; first <= bytes.size(); ++first) {
        for (std::size_t second = first; second <= bytes.size(); ++second) {
            LineCutter cutter;
            std::vector<std::string> lines;
            const auto take = [&lines](const std::string& line) { lines.push_back(line); };
            cutter.push(std::string_view(bytes).substr(0, first), take);
            cutter.push(std::string_view(bytes).substr(first, second - first), take);
            cutter.push(std::string_view(bytes).substr(second), take);
            ASSERT_EQ(lines, expected) << first << " " << second;
        }
    }
}

TEST(LineCutter, anEndlessLineLosesItsTailAndTheNextIsWhole) {
    LineCutter cutter;
    std::vector<std::string> lines;
    const auto take = [&lines](const std::string& line) { lines.push_back(line); };
    for (int i = 0; i < 3; ++i) cutter.push(std::string(LineCutter::maxLine / 2 + 1, 'x'), take);
    cutter.push("\rR_ESN\r", take);
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0].size(), LineCutter::maxLine);
    EXPECT_EQ(lines[1], "R_ESN");
}

TEST(LineCutter, aLineThatEndsTheLinkTakesTheRestWithIt) {
    LineCutter cutter;
    std::vector<std::string> lines;
    cutter.push("one\rtwo\rhalf", [&](const std::string& line) {
        lines.push_back(line);
        cutter.clear();
    });
    cutter.push("three\r", [&](const std::string& line) { lines.push_back(line); });
    EXPECT_EQ(lines, (std::vector<std::string>{"one", "three"}));
}

}  // namespace simulator
