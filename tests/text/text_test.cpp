#include <gmock/gmock.h>

#include <stdexcept>

#include "text/split.h"
#include "text/text_rules.h"

namespace trunvex {
namespace {

std::vector<std::string> split(std::string_view text, char separator = ',') {
    const auto fields = splitString(text, separator);
    std::vector<std::string> all;
    for (std::size_t i = 0; i < fields.size(); ++i) all.emplace_back(fields.at(i));
    return all;
}

// The search for the first separator skips the first character.
TEST(SplitString, CutsWithItsQuirks) {
    using Parts = std::vector<std::string>;
    const std::pair<const char*, Parts> cases[] = {
        {"a,b,c", {"a", "b", "c"}}, {"", {""}},   {"a", {"a"}},     {"a,b,", {"a", "b", ""}}, {"a,,b", {"a", "", "b"}},
        {",a,b", {",a", "b"}},      {",", {","}}, {",,", {",", ""}}};
    for (auto [text, parts] : cases) {
        parts.push_back("<end>");
        EXPECT_EQ(split(text), parts) << text;
    }
    EXPECT_EQ(split("x+y", '+'), (Parts{"x", "y", "<end>"}));
}

TEST(SplitString, HoldsFiftyFieldsAndNoMore) {
    const std::string fifty = "1" + std::string(49, ',');
    EXPECT_EQ(splitString(fifty, ',').size(), 51u);
    EXPECT_THROW(splitString(fifty + ",", ','), std::out_of_range);
    EXPECT_THROW(splitString("a", ',').at(2), std::out_of_range);
}

TEST(GetIndexs, TakesDigitsOnly) {
    const auto indexes = getIndexs("842");
    EXPECT_EQ(indexes.at(0), 8);
    EXPECT_EQ(indexes.at(2), 2);
    EXPECT_THROW(indexes.at(3), std::out_of_range);
    EXPECT_EQ(getIndexs("").count, 0u);
    EXPECT_EQ(getIndexs("01234567890").count, 11u);
    EXPECT_THROW(getIndexs("012345678901"), std::out_of_range);
    for (const auto* bad : {"1a", "-1", " 1", "\xB2"}) EXPECT_THROW(getIndexs(bad), std::invalid_argument) << bad;
}

TEST(Val, IsTheLeadingNumber) {
    const std::pair<const char*, std::int64_t> cases[] = {{"12", 12}, {" \t7x", 7}, {"-3", -3}, {"+5", 5},  {"ab", 0},
                                                          {"", 0},    {"-", 0},     {"1,2", 1}, {"007", 7}, {"+-5", 0}};
    for (const auto& [text, number] : cases) EXPECT_EQ(val(text), number) << text;
    EXPECT_EQ(val("99999999999999999999"), 0);
    for (const auto* numeric : {"12", " 12 ", "-1", "+0"}) EXPECT_TRUE(isNumeric(numeric)) << numeric;
    for (const auto* other : {"", "-", "1a", "1 2", "1.5"}) EXPECT_FALSE(isNumeric(other)) << other;
}

TEST(Like, KnowsOnlyTheStar) {
    const std::pair<const char*, const char*> alike[] = {{"OK#12", "OK*"},
                                                         {"SRV12:PSW", "*SRV*:*"},
                                                         {"abc", "abc"},
                                                         {"", "*"},
                                                         {"", ""},
                                                         {"aXbXc", "*X*c"},
                                                         {"mississippi", "*iss*ip*"},
                                                         {"a?c", "a?c"},
                                                         {"ALR113,25,4", "*ALR*,25*"}};
    const std::pair<const char*, const char*> unlike[] = {
        {"xOK", "OK*"}, {"SRV12", "*SRV*:*"}, {"abc", "ABC"}, {"a", ""}, {"abc", "a?c"}};
    for (const auto& [text, pattern] : alike) EXPECT_TRUE(like(text, pattern)) << text << pattern;
    for (const auto& [text, pattern] : unlike) EXPECT_FALSE(like(text, pattern)) << text << pattern;
    // A pattern of many stars must not take time that grows with their power.
    std::string stars;
    for (int i = 0; i < 200; ++i) stars += "*a";
    EXPECT_FALSE(like(std::string(20000, 'a') + "b", stars + "c"));
}

TEST(TextRules, PositionsPaddingAndRounding) {
    EXPECT_EQ(mid("C_CPWx", 3, 3), "CPW");
    EXPECT_EQ(mid("ab", 3), "");
    EXPECT_EQ(mid("ab", 0), "");
    EXPECT_EQ(right("12345", 2), "45");
    EXPECT_EQ(pad("5", 3, '0', PadSide::Left), "005");
    EXPECT_EQ(pad("12345", 3, '0', PadSide::Left), "12345");
    EXPECT_EQ(pad("ab", 4, ' ', PadSide::Right), "ab  ");
    EXPECT_EQ(roundedDivision(100, 8), 13);
    EXPECT_EQ(roundedDivision(100, 3), 33);
    EXPECT_EQ(roundedDivision(-5, 2), -3);
    EXPECT_EQ(fileNamePart("../../etc/passwd"), "_._.._etc_passwd");
    EXPECT_EQ(fileNamePart("A-1_b.c"), "A-1_b.c");
    EXPECT_EQ(escaped("a\r\xFF%s"), "a\\x0D\\xFF%s");
}

}  // namespace
}  // namespace trunvex
