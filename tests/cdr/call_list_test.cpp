// The list of calls in memory: what is searched and sorted in slices, and what it all comes to.
#include "cdr/call_list.h"

#include <algorithm>
#include <random>

#include "fakes/matchers.h"
#include "text/split.h"

namespace trunvex {
namespace {

TEST(RowSort, OrdersAsAStableSortDoes) {
    const auto pieces = splitLong(
        "0||05|0525001122|abcdefgh|abcdefghi|abcdefghijklmnop|-64db|-9db|2.05|12.00|12-31-08 23:59:59 We| 00:00:00|"
        "\xff\xfe|7",
        '|');
    std::mt19937 random(5);
    for (const std::string front : {"", "99901", "abcdefghijklmnop"}) {
        for (const auto kind : {SortKind::Text, SortKind::Number, SortKind::Stamp, SortKind::Duration}) {
            for (const std::size_t count : {0, 1, 2, 500}) {
                std::vector<std::string> texts;
                std::vector<RowSort::Row> rows;
                for (std::size_t row = 0; row < count; ++row) {
                    texts.push_back(front + std::string(pieces[random() % pieces.size()]));
                    if (random() % 4 == 0) texts.back() += pieces[random() % pieces.size()];
                    if (random() % 5 != 0) rows.push_back(static_cast<RowSort::Row>(row));
                }
                std::shuffle(rows.begin(), rows.end(), random);
                for (const bool ascending : {true, false}) {
                    auto expected = rows;
                    std::stable_sort(expected.begin(), expected.end(), [&](auto one, auto other) {
                        if (!ascending) std::swap(one, other);
                        return kind == SortKind::Text ? texts[one] < texts[other]
                                                      : sortKey(texts[one], kind) < sortKey(texts[other], kind);
                    });
                    RowSort sort(
                        rows, [&](auto row) { return std::string_view(texts[row]); }, kind, ascending);
                    int before = 0;
                    while (sort.work(1 + random() % 300)) {
                        EXPECT_GE(sort.percent(), before);
                        before = sort.percent();
                    }
                    EXPECT_EQ(sort.percent(), 100);
                    EXPECT_EQ(std::move(sort).take(), expected) << front << static_cast<int>(kind) << ascending;
                }
            }
        }
    }
}

class CallListed : public testing::Test {
protected:
    void add(const std::string& dialled) {
        CallRecord record;
        record.Dialed_CLI = dialled;
        list.add(record);
    }
    std::vector<std::string> shown() const {
        std::vector<std::string> numbers;
        for (std::size_t row = 0; row < list.size(); ++row) numbers.emplace_back(list.text(row, 5));
        return numbers;
    }
    void finish() {
        while (list.work(1)) {
        }
    }
    static constexpr CallList::Order byNumber{5, true};

    CallList list;
};

TEST_F(CallListed, ShowsTheOldUntilTheNewIsComplete) {
    for (const char* number : {"31", "12", "23", "11"}) add(number);
    list.sort(byNumber);
    list.work(1);
    EXPECT_THAT(shown(), ElementsAre("31", "12", "23", "11"));
    add("05");  // comes to the end, whenever it comes
    EXPECT_EQ(shown().back(), "05");
    finish();
    EXPECT_THAT(shown(), ElementsAre("11", "12", "23", "31", "05"));
    EXPECT_EQ(list.sums().all().calls, 5u);
    list.search("1");
    list.work(2);
    add("01");
    add("02");
    EXPECT_EQ(list.size(), 7u);
    finish();
    EXPECT_THAT(shown(), ElementsAre("11", "12", "31", "01"));
    EXPECT_EQ(list.sums().all().calls, 4u);
    list.search("1x");
    list.work(1);
    list.giveUp();
    EXPECT_EQ(list.searched(), "1");
    EXPECT_FALSE(list.working());
    list.search("12");
    finish();
    EXPECT_THAT(shown(), ElementsAre("12"));
    list.search("");
    finish();
    EXPECT_THAT(shown(), ElementsAre("01", "02", "05", "11", "12", "23", "31")) << "the order is kept";
    EXPECT_EQ(list.sums().all().calls, 7u);
}

TEST_F(CallListed, TakesTheLastWishAndLosesNone) {
    for (const char* number : {"31", "12", "23", "11"}) add(number);
    list.search("2");
    list.work(1);
    list.sort({5, false});
    list.work(3);
    list.search("1");
    list.sort(byNumber);
    list.work(2);
    list.sort({5, false});
    finish();
    EXPECT_THAT(shown(), ElementsAre("31", "12", "11"));
    EXPECT_EQ(list.order(), (CallList::Order{5, false}));
    list.sort(byNumber);
    list.search("1");  // what is in force already
    finish();
    EXPECT_THAT(shown(), ElementsAre("11", "12", "31"));
    list.search("3");
    list.search("1");
    finish();
    EXPECT_EQ(list.searched(), "1");
    EXPECT_EQ(list.size(), 3u);
    list.sort({5, false});
    list.clear();
    EXPECT_FALSE(list.work(1));
    add("41");
    add("52");
    EXPECT_THAT(shown(), ElementsAre("41")) << "the search stays for what comes next";
    EXPECT_EQ(list.sums().all().calls, 1u);
}

std::vector<std::string> told(const CallSums& sums, CallSums::By by) {
    std::vector<std::string> groups;
    for (const auto& [name, totals] : sums.by(by))
        if (totals.calls > 0)
            groups.push_back(name + ": " + std::to_string(totals.answered) + " of " + std::to_string(totals.calls) +
                             ", " + std::to_string(totals.talkSeconds) + " s");
    return groups;
}

TEST(CallSums, AreByPortSimOperatorAndHour) {
    CallSums sums;
    EXPECT_THAT(sums.by(CallSums::By::Hour), IsEmpty());
    const std::array<const char*, 5> calls[] = {{"2", "0", "03-25-09 07:59:59 We", "2.05", "42501"},
                                                {"2", "3", "03-25-09 07:00:00 We", "0", "42501"},
                                                {"32", "7", "03-25-09 23:10:00 We", "0.07", ""},
                                                {"33", "1", " 00:00:00", "0", "42502"},
                                                {"1", "x", "yesterday", "", "42502"}};
    for (const auto& [port, sim, originated, duration, network] : calls) {
        CallTexts texts;
        texts[0] = port;
        texts[1] = sim;
        texts[7] = originated;
        texts[10] = duration;
        texts[15] = network;
        sums.add(texts);
    }
    using By = CallSums::By;
    EXPECT_THAT(told(sums, By::Port), ElementsAre("2: 1 of 2, 125 s", "32: 1 of 1, 7 s", "-: 0 of 2, 0 s"));
    EXPECT_THAT(told(sums, By::Sim),
                ElementsAre("2/0: 1 of 1, 125 s", "2/3: 0 of 1, 0 s", "32/7: 1 of 1, 7 s", "-: 0 of 2, 0 s"));
    EXPECT_THAT(told(sums, By::Operator), ElementsAre("-: 1 of 1, 7 s", "42501: 1 of 2, 125 s", "42502: 0 of 2, 0 s"));
    EXPECT_THAT(told(sums, By::Hour), ElementsAre("07: 1 of 2, 125 s", "23: 1 of 1, 7 s", "-: 0 of 2, 0 s"));
    EXPECT_EQ(sums.by(By::Hour).size(), 25u) << "quiet hours too";
}

}  // namespace
}  // namespace trunvex
