#include "config/grid_rows.h"

#include <algorithm>
#include <utility>

#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr int tableReadBudgetMs = 1000;

// "3 to 5, 9": numbers that follow on one another together. They are in order, and counted from 1 for people.
std::string spans(const std::vector<std::size_t>& rows) {
    std::string text;
    for (std::size_t i = 0; i < rows.size();) {
        std::size_t last = i;
        while (last + 1 < rows.size() && rows[last + 1] == rows[last] + 1) ++last;
        text += (text.empty() ? "" : ", ") + std::to_string(rows[i] + 1);
        if (last > i) text += (last == i + 1 ? ", " : " to ") + std::to_string(rows[last] + 1);
        i = last + 1;
    }
    return text;
}

}  // namespace

bool isBlank(const TextRow& row) {
    return std::all_of(row.begin(), row.end(), [](const std::string& cell) { return cell.empty(); });
}

std::vector<TextRow> rowsOf(const GridField& grid) {
    std::vector<TextRow> rows;
    for (std::size_t row = 0; row < grid.rowCount(); ++row) rows.push_back(grid.row(row));
    return rows;
}

std::vector<std::size_t> filledRows(const GridField& grid) {
    std::vector<std::size_t> rows;
    for (std::size_t row = 0; row < grid.rowCount(); ++row)
        if (!isBlank(grid.row(row))) rows.push_back(row);
    return rows;
}

std::string heldRows(const BlockTable& table) {
    auto rows = table.rows();
    for (auto& row : rows)
        for (auto& cell : row) cell = escaped(cell);
    return GridField::valueOf(rows);
}

BuiltLine gridFault(GridField& grid, const BlockTable& table) {
    if (const auto word = incompleteText(table); !word.empty()) return BuiltLine::wrong(word, grid);
    const auto wrong = grid.firstProblem();
    if (!wrong) return {};
    return BuiltLine::wrong("Row " + std::to_string(wrong->row + 1) + ": " + grid.problemOf(*wrong), grid);
}

std::string incompleteText(const BlockTable& table) {
    using enum BlockTable::State;
    if (table.state() == Unread) return nothingReadText;
    if (table.state() == Coming) return "The table is still being read. Write it when that has ended.";
    if (table.state() == Whole) return {};
    auto missing = table.missing();
    if (missing.empty()) return "The table came incomplete. Read it again before it is written.";
    for (auto& block : missing) --block;
    return "The table came incomplete: block " + spans(missing) + " is missing. Read it again before it is written.";
}

ReadBack::ReadBack(const PageTools& tools, BlockTable& table, QueueItem read,
                   std::function<void(const std::string&)> tell)
    : tools_(tools), table_(table), read_(std::move(read)), tell_(std::move(tell)) {
    table_.changed().connect([this] { compare(); });
}

std::vector<std::size_t> ReadBack::standing() const {
    std::vector<std::size_t> rows;
    const auto& held = table_.rows();
    for (std::size_t row = 0; row < held.size(); ++row) {
        const bool isWritten = row < written_->size() && !isBlank((*written_)[row]);
        const bool same = isWritten ? held[row] == (*written_)[row] : isBlank(held[row]);
        if (!same) rows.push_back(row);
    }
    return rows;
}

void ReadBack::begin(std::vector<TextRow> written) {
    written_ = std::move(written);
    reads_ = table_.reads();
    if (standing().empty())
        written_.reset();
    else
        tools_.read(read_.Key, {read_}, tableReadBudgetMs);
}

void ReadBack::compare() {
    if (!written_) return;
    if (table_.state() == BlockTable::State::Unread) written_.reset();
    if (!written_ || !table_.whole() || table_.reads() == reads_) return;
    const auto rows = standing();
    written_.reset();
    if (!rows.empty())
        tell_("What was taken away still stands in the gateway, which can't be told to drop it: row " + spans(rows));
}

}  // namespace trunvex
