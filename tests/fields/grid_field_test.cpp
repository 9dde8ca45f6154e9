#include "fields/grid_field.h"

#include <random>

#include "fakes/matchers.h"
#include "fields/record_form.h"
#include "text/split.h"

namespace trunvex {
namespace {

using Rows = std::vector<TextRow>;

class Grid : public testing::Test {
protected:
    Grid() {
        form.add(grid);
        // What a view would hold that only hears of the changes.
        grid.splicing().connect(
            [this](Table::Splice splice) { ASSERT_LE(splice.first + splice.removed, seen.size()); });
        grid.spliced().connect([this](Table::Splice splice) {
            const auto at = seen.begin() + static_cast<std::ptrdiff_t>(splice.first);
            const auto rest = seen.erase(at, at + static_cast<std::ptrdiff_t>(splice.removed));
            std::vector<TextRow> fresh;
            for (auto row = splice.first; row < splice.first + splice.inserted; ++row) fresh.push_back(grid.row(row));
            seen.insert(rest, fresh.begin(), fresh.end());
        });
        form.turnTo("table");
    }
    void hold(const Rows& rows) { form.take({{&grid, GridField::valueOf(rows)}}); }
    Rows rows() const {
        Rows all;
        for (std::size_t row = 0; row < grid.rowCount(); ++row) all.push_back(grid.row(row));
        return all;
    }
    // The edited cells, as "row.column".
    std::string edited() const {
        std::string cells;
        for (std::size_t row = 0; row < grid.rowCount(); ++row)
            for (std::size_t column = 0; column < 2; ++column)
                if (grid.edited({row, column})) cells += std::to_string(row) + "." + std::to_string(column) + " ";
        return cells;
    }

    static constexpr std::size_t most = 6;
    RecordForm form;
    static std::string missing(const std::string& text) { return text.empty() ? "Missing." : ""; }
    static std::string noBad(const std::string& text) { return text == "bad" ? "No bad ones." : ""; }
    GridField grid{"grid", {{"Number", 4, "0123456789", true, missing}, {"Name", 0, {}, false, noBad}}, most};
    Rows seen;
};

TEST_F(Grid, MarksWhatDiffersFromWhatTheGatewayHolds) {
    hold({{"1", "a"}, {"2", "b"}, {"3", "c"}});
    EXPECT_EQ(edited(), "");
    grid.setCell({1, 1}, "x");
    EXPECT_EQ(edited(), "1.1 ");
    grid.insertRow(0);
    EXPECT_EQ(edited(), "0.0 0.1 2.1 ") << "a row that moved was not edited";
    grid.removeRows({0});
    grid.setCell({1, 1}, "b");
    EXPECT_EQ(grid.standing(), InputField::Standing::AsRead);
    grid.sort(0, false);
    EXPECT_EQ(edited(), "");
    EXPECT_EQ(grid.standing(), InputField::Standing::Edited);
    form.settle([](const InputField&, const std::string&) { return true; });
    EXPECT_EQ(form.unwritten().size(), 0u);
    EXPECT_FALSE(grid.canUndo());
    grid.removeRows({0});
    const auto written = Rows{{"3", "c"}, {"2", "b"}, {"1", "a"}};
    for (const bool drafted : {true, false}) {
        form.turnTo("another");
        form.turnTo("table");
        hold(written);
        EXPECT_EQ(grid.rowCount(), drafted ? 2u : 3u);
        EXPECT_EQ(edited(), "") << "rows behind one that is gone";
        form.undo();
    }
    form.propose({{&grid, GridField::valueOf(written)}});
    grid.setCell({0, 0}, "8");
    EXPECT_EQ(edited(), "") << "what is proposed to many is compared to none";
}

TEST_F(Grid, IsAFieldLikeAnyOtherOfItsRecord) {
    hold({{"1", "a"}, {"2", "b"}});
    grid.setCell({2, 0}, "3");
    hold({{"1", "a"}, {"2", "b"}});
    EXPECT_TRUE(grid.canUndo()) << "a report without news leaves the edits alone";
    form.turnTo("another");
    EXPECT_EQ(grid.rowCount(), 0u);
    form.turnTo("table");
    hold({{"1", "a"}, {"2", "told anew"}});
    EXPECT_EQ(rows().back(), (TextRow{"3", ""})) << "an edit outlives a look at another record";
    grid.setCell({0, 0}, "7");
    form.undo();
    EXPECT_FALSE(grid.canUndo() || grid.canRedo());
    EXPECT_THAT(rows(), ElementsAre(TextRow{"1", "a"}, TextRow{"2", "told anew"}));
    EXPECT_EQ(seen, rows());
}

TEST_F(Grid, KeepsAndMarksWhatCannotBeWritten) {
    hold({});
    EXPECT_EQ(grid.paste({0, 0}, {{"12345", "long"}, {"1a", "letters"}, {"", ""}, {"7", "bad"}, {"", "x"}}), 0u);
    const std::string words[] = {"Number: at most 4", "Number: only the characters", "", "No bad", "Missing"};
    for (std::size_t row = 0; row < 5; ++row)
        EXPECT_THAT(grid.problemOf({row, row == 3 ? 1u : 0u}), testing::StartsWith(words[row])) << row;
    EXPECT_EQ(grid.problemOf({2, 0}), "") << "an empty row is none";
    EXPECT_EQ(grid.cell(0, 0), "12345");
    EXPECT_EQ(grid.firstProblem(), (Table::Cell{0, 0}));
    grid.setProblemOf(2, "The gateway refused it.");
    EXPECT_FALSE(grid.problemOf({2, 1}).empty());
    grid.setCell({2, 0}, "8888");
    EXPECT_EQ(grid.problemOf({2, 0}) + grid.problemOf({2, 1}) + grid.problemOf({2, 0}), "");
    grid.setCell({5, 0}, "");
    EXPECT_EQ(grid.rowCount(), 5u) << "nothing begins no row";
    grid.undoStep();
    grid.setCell({0, 0}, "1");
    EXPECT_FALSE(grid.canRedo());
    grid.undoStep();
    EXPECT_EQ(grid.cell(0, 0), "12345");
    grid.undoStep();
    EXPECT_EQ(grid.rowCount(), 0u);
}

TEST_F(Grid, PastesOverAndBehindWhatIsThereUpToItsMostRows) {
    hold({{"1", "a"}, {"2", "b"}});
    EXPECT_EQ(grid.paste({1, 1}, {{"x", "beyond"}, {"y"}}), 0u);
    EXPECT_THAT(rows(), ElementsAre(TextRow{"1", "a"}, TextRow{"2", "x"}, TextRow{"", "y"}));
    EXPECT_EQ(grid.paste({3, 0}, Rows(5, {"9"})), 2u);
    EXPECT_EQ(grid.rowCount(), most);
    grid.setCell({most, 0}, "1");
    grid.insertRow(0);
    EXPECT_EQ(grid.rowCount(), most);
    grid.undoStep();
    EXPECT_EQ(grid.rowCount(), 3u);
    EXPECT_EQ(grid.paste({0, 0}, {{"4\x1F\x1E", ""}}), 0u);
    EXPECT_EQ(grid.cell(0, 0), "4") << "what parts the cells in the value is in none";
}

TEST_F(Grid, SortsNumbersByValueAndEmptyCellsLast) {
    hold({{"10", "a"}, {"", "b"}, {"9", "c"}, {"x", "d"}, {"9", "e"}});
    const auto names = [&] {
        std::string all;
        for (const auto& row : rows()) all += row[1];
        return all;
    };
    grid.sort(0, true);
    EXPECT_EQ(names(), "ceadb");
    grid.sort(0, false);
    EXPECT_EQ(names(), "daceb");
    grid.undoStep();
    grid.undoStep();
    EXPECT_EQ(names(), "abcde");
    hold({{"9", "A"}, {"9", "b"}, {"9", "c"}});
    EXPECT_EQ(grid.find("B", {1, 1}, true), (Table::Cell{1, 1})) << "round and back to itself";
    EXPECT_EQ(grid.find("a", {1, 1}, true), (Table::Cell{0, 1}));
    EXPECT_EQ(grid.find("9", {0, 0}, true), (Table::Cell{1, 0}));
    EXPECT_EQ(grid.find("9", {0, 0}, false), (Table::Cell{2, 0}));
    EXPECT_EQ(grid.find("none", {0, 0}, true), std::nullopt);
}

// Any run of edits: what hears of the changes holds the same rows, and each step goes back and forth.
TEST_F(Grid, UndoesAndRedoesAnyRunOfEdits) {
    std::mt19937 chance(7);
    const auto below = [&](std::size_t bound) { return static_cast<std::size_t>(chance() % bound); };
    hold({{"1", "a"}, {"2", "b"}, {"3", "c"}});
    std::vector<Rows> history{rows()};
    for (int turn = 0; turn < 300; ++turn) {
        const Table::Cell cell{below(most + 1), below(2)};
        const std::function<void()> edits[] = {[&] { grid.setCell(cell, std::to_string(below(20))); },
                                               [&] { grid.insertRow(cell.row); },
                                               [&] {
                                                   grid.removeRows({cell.row, below(most), below(most)});
                                               },
                                               [&] {
                                                   grid.paste(cell, Rows(below(4), {"7", "p"}));
                                               },
                                               [&] {
                                                   grid.clearCells(std::vector<Table::Cell>{cell, {0, 0}, {0, 1}});
                                               },
                                               [&] { grid.sort(cell.column, below(2) == 0); },
                                               [&] {
                                                   grid.replaceAll(Rows(below(4), {std::to_string(below(9)), "r"}));
                                               }};
        edits[below(std::size(edits))]();
        ASSERT_EQ(seen, rows());
        if (rows() != history.back()) history.push_back(rows());
        if (turn % 20 != 19) continue;
        std::size_t undone = 0;
        for (; undone < 5 && grid.canUndo(); ++undone) grid.undoStep();
        ASSERT_EQ(seen, rows());
        for (; undone > 0; --undone) grid.redoStep();
        ASSERT_EQ(rows(), history.back());
    }
    for (auto step = history.rbegin(); grid.canUndo(); ++step) {
        ASSERT_EQ(rows(), *step);
        grid.undoStep();
    }
}

TEST(TextTable, ReadsWhatSpreadsheetsWriteAndWritesWhatTheyRead) {
    const std::pair<const char*, Rows> cases[] = {
        {"", {}},
        {"a", {{"a"}}},
        {"a;b\r\nc;\r\n", {{"a", "b"}, {"c", ""}}},
        {"a\rb\n\nc", {{"a"}, {"b"}, {""}, {"c"}}},
        {"\xEF\xBB\xBF\"a;\"\"b\"\"\nc\";d", {{"a;\"b\"\nc", "d"}}},
        {"5\"; \"x", {{"5\"", " \"x"}}},
        {"\"never closed;\n1", {{"never closed;\n1"}}},
        {"\"a\"b;", {{"ab", ""}}},
    };
    for (const auto& [text, rows] : cases) EXPECT_EQ(readTextTable(text, ';'), rows) << text;
    const Rows hard{{"a;b", "\"", "x\ny"}, {"", "\r"}};
    EXPECT_EQ(readTextTable(writeTextTable(hard, ';'), ';'), hard);
}

TEST(SplitLong, CutsAsTheBoundedOneDoesAndBeyondFifty) {
    for (const std::string text : {"", ",", ",,", "a", ",a,b", "a,,b,"}) {
        const auto bounded = splitString(text, ',');
        const auto parts = splitLong(text, ',');
        ASSERT_EQ(parts.size() + 1, bounded.size()) << text;
        for (std::size_t i = 0; i < parts.size(); ++i) EXPECT_EQ(parts[i], bounded.at(i)) << text;
    }
    EXPECT_EQ(splitLong("1" + std::string(54, ','), ',').size(), 55u);
}

}  // namespace
}  // namespace trunvex
