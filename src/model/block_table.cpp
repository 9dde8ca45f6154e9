#include "model/block_table.h"

#include <algorithm>
#include <stdexcept>

#include "queues/queue_item.h"

namespace trunvex {

namespace {

bool isBlank(const TextRow& row) {
    return std::all_of(row.begin(), row.end(), [](const std::string& cell) { return cell.empty(); });
}

}  // namespace

BlockTable::BlockTable(Platform& platform, Shape shape)
    : shape_(shape), quiet_(platform.makeTimer([this] { settle(); })) {}

void BlockTable::checked(std::size_t block) const {
    if (block > shape_.mostBlocks) throw std::out_of_range("no such block");
}

// A block that follows on the last of a run was only late; any other begins a new run.
void BlockTable::tell(std::size_t block, std::vector<TextRow> rows) {
    checked(block);
    const bool follows = !blocks_.empty() && block == blocks_.rbegin()->first + 1;
    if (state_ != State::Coming && !follows) {
        blocks_.clear();
        damaged_ = false;
    }
    state_ = State::Coming;
    // A separator behind the last row begins none. A block of one row may leave out what is empty at its end.
    if (rows.size() > 1 && rows.back().size() < shape_.columns && isBlank(rows.back())) rows.pop_back();
    const bool isCut = shape_.rowsPerBlock > 1 && !rows.empty() && rows.back().size() < shape_.columns;
    damaged_ = damaged_ || isCut || rows.size() > shape_.rowsPerBlock;
    if (block > 0) {
        for (auto& row : rows) row.resize(shape_.columns);
        blocks_[block] = std::move(rows);
    }
    quiet_->start(tableQuietMs);
}

void BlockTable::settle() {
    quiet_->stop();
    if (state_ != State::Coming) {
        changed_.emit();
        return;
    }
    ++reads_;
    state_ = missing().empty() && !damaged_ ? State::Whole : State::Incomplete;
    std::vector<TextRow> rows;
    for (const auto& [block, told] : blocks_) {
        if (shape_.sparse) rows.resize((block - 1) * shape_.rowsPerBlock, TextRow(shape_.columns));
        rows.insert(rows.end(), told.begin(), told.end());
    }
    setRows(std::move(rows));
}

void BlockTable::doubt() {
    if (state_ != State::Whole) return;
    state_ = State::Incomplete;
    changed_.emit();
}

std::vector<std::size_t> BlockTable::missing() const {
    std::vector<std::size_t> gaps;
    if (shape_.sparse || blocks_.empty()) return gaps;
    for (std::size_t block = 1; block < blocks_.rbegin()->first; ++block)
        if (!blocks_.contains(block)) gaps.push_back(block);
    return gaps;
}

void BlockTable::trimRows() {
    while (!rows_.empty() && isBlank(rows_.back())) rows_.pop_back();
}

void BlockTable::setRows(std::vector<TextRow> rows) {
    rows_ = std::move(rows);
    trimRows();
    changed_.emit();
}

void BlockTable::lay(std::vector<TextRow>& over, std::size_t first, const std::vector<TextRow>& rows) const {
    if (over.size() < first + rows.size()) over.resize(first + rows.size(), TextRow(shape_.columns));
    for (std::size_t i = 0; i < rows.size(); ++i)
        for (std::size_t column = 0; column < std::min(rows[i].size(), shape_.columns); ++column)
            if (!rows[i][column].empty()) over[first + i][column] = rows[i][column];
}

void BlockTable::overlay(std::size_t block, const std::vector<TextRow>& rows) {
    checked(block);
    // Of a table that is on its way the gateway tells the other blocks as they are by now.
    if (const auto told = blocks_.find(block); state_ == State::Coming && told != blocks_.end())
        lay(told->second, 0, rows);
    if (block == 0 || state_ != State::Whole) return;
    lay(rows_, (block - 1) * shape_.rowsPerBlock, rows);
    trimRows();
    blocks_.clear();
    quiet_->start(tableQuietMs);
}

void BlockTable::erase() {
    quiet_->stop();
    blocks_.clear();
    state_ = State::Whole;
    setRows({});
}

void BlockTable::putRow(std::size_t row, TextRow cells) {
    checked(row / shape_.rowsPerBlock + 1);
    auto table = rows_;
    if (table.size() <= row) table.resize(row + 1, TextRow(shape_.columns));
    cells.resize(shape_.columns);
    table[row] = cells;
    if (state_ == State::Coming)
        blocks_[row / shape_.rowsPerBlock + 1] = {std::move(cells)};
    else
        blocks_.clear();
    setRows(std::move(table));
}

void BlockTable::forget() {
    quiet_->stop();
    blocks_.clear();
    state_ = State::Unread;
    setRows({});
}

}  // namespace trunvex
