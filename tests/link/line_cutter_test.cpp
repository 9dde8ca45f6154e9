#include "link/line_cutter.h"

#include <gmock/gmock.h>

#include <vector>

namespace trunvex {
namespace {

using Lines = std::vector<std::string>;

Lines cutPieces(const std::vector<std::string>& pieces) {
    LineCutter cutter;
    Lines lines;
    for (const auto& piece : pieces) cutter.feed(piece, [&](std::string_view line) { lines.emplace_back(line); });
    return lines;
}

TEST(LineCutter, GivesTheSameLinesWhereverTheBytesAreCut) {
    const std::string bytes = "A_ESN12\rA_CLK1,2\r\rI_ALR110,\xFF\n\rOK\r";
    const Lines expected = {"A_ESN12", "A_CLK1,2", "", "I_ALR110,\xFF\n", "OK"};
    for (std::size_t cut = 0; cut <= bytes.size(); ++cut)
        EXPECT_EQ(cutPieces({bytes.substr(0, cut), bytes.substr(cut)}), expected) << cut;
    std::vector<std::string> single;
    for (const char c : bytes) single.emplace_back(1, c);
    EXPECT_EQ(cutPieces(single), expected);
}

TEST(LineCutter, TakesANulOnlyRightBehindTheReturnInTheSameRead) {
    using namespace std::string_literals;
    EXPECT_EQ(cutPieces({"a\r\0b\r\0"s}), (Lines{"a", "b"}));
    EXPECT_EQ(cutPieces({"a\r"s, "\0b\r"s}), (Lines{"a", "\0b"s}));
    EXPECT_EQ(cutPieces({"a\r\0\0b\r"s}), (Lines{"a", "\0b"s}));
    EXPECT_EQ(cutPieces({"x"s, "y\r\0z"s, "\r"s}), (Lines{"xy", "z"}));
}

TEST(LineCutter, KeepsAnUnendedLineOnlyUpToItsBound) {
    LineCutter cutter;
    Lines lines;
    const auto keep = [&](std::string_view line) { lines.emplace_back(line); };
    for (int i = 0; i < 3; ++i) cutter.feed(std::string(1u << 20, 'x'), keep);
    EXPECT_TRUE(lines.empty());
    cutter.feed("\rA_ESN1\r", keep);
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0].size(), LineCutter::longestLine);
    EXPECT_EQ(lines[1], "A_ESN1");
}

// A box opened by a line lets further reads come in before its handler returns.
TEST(LineCutter, KeepsTheOrderWhenALineLetsFurtherReadsIn) {
    LineCutter cutter;
    Lines lines;
    std::function<void(std::string_view)> keep = [&](std::string_view line) {
        lines.emplace_back(line);
        if (line == "box") cutter.feed("ner\r4\r5", keep);
    };
    cutter.feed("1\rbo", keep);
    cutter.feed("x\r2\r3\rin", keep);
    cutter.feed("\r", keep);
    EXPECT_EQ(lines, (Lines{"1", "box", "2", "3", "inner", "4", "5"}));
}

TEST(LineCutter, ForgetsTheRestOfAReadWhenCleared) {
    LineCutter cutter;
    Lines lines;
    cutter.feed("1\r2\r3", [&](std::string_view line) {
        lines.emplace_back(line);
        cutter.clear();
    });
    cutter.feed("4\r", [&](std::string_view line) { lines.emplace_back(line); });
    EXPECT_EQ(lines, (Lines{"1", "4"}));
}

}  // namespace
}  // namespace trunvex
