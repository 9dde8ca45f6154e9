#include "fields/grid_field.h"

#include <algorithm>

#include "text/text_rules.h"

namespace trunvex {

namespace {

// What parts cells and rows in the field's value. No cell holds them.
constexpr char unitSeparator = '\x1F';
constexpr char recordSeparator = '\x1E';
constexpr std::size_t mostSteps = 50;

bool isBlank(const TextRow& cells) {
    return std::all_of(cells.begin(), cells.end(), [](const std::string& cell) { return cell.empty(); });
}

std::string withoutSeparators(std::string text) {
    std::erase_if(text, [](char c) { return c == unitSeparator || c == recordSeparator; });
    return text;
}

std::vector<TextRow> rowsOf(std::string_view value) {
    std::vector<TextRow> rows;
    while (!value.empty()) {
        auto line = value.substr(0, value.find(recordSeparator));
        value.remove_prefix(std::min(line.size() + 1, value.size()));
        auto& row = rows.emplace_back();
        for (;;) {
            const auto end = line.find(unitSeparator);
            row.emplace_back(line.substr(0, end));
            if (end == std::string_view::npos) break;
            line.remove_prefix(end + 1);
        }
    }
    return rows;
}

// Whether one text stands before the other in a sorted column; empty ones are left to the caller.
bool sortsBefore(const std::string& one, const std::string& other) {
    const bool oneIsNumber = isWhole(one);
    if (oneIsNumber != isWhole(other)) return oneIsNumber;
    return oneIsNumber ? val(one) < val(other) : one < other;
}

}  // namespace

GridField::GridField(std::string name, std::vector<Column> columns, std::size_t mostRows)
    : InputField(std::move(name)), columns_(std::move(columns)), mostRows_(mostRows) {}

void GridField::setHeading(std::size_t column, std::string heading) {
    columns_.at(column).heading = std::move(heading);
    replaced().emit();
}

GridField::Row GridField::makeRow(TextRow cells) const {
    cells.resize(columns_.size());
    for (auto& cell : cells) cell = withoutSeparators(std::move(cell));
    return {std::move(cells), nowhere, {}};
}

GridField::Row GridField::withCell(const Row& row, std::size_t column, const std::string& text) const {
    auto changed = row;
    changed.cells.at(column) = withoutSeparators(text);
    changed.problem.clear();
    return changed;
}

void GridField::setCell(Cell cell, const std::string& text) {
    if (columns_.at(cell.column).fixed) return;
    if (cell.row >= rows_.size()) {
        if (text.empty() || !hasRoom()) return;
        take({{rows_.size(), {}, {withCell(makeRow({}), cell.column, text)}}});
        return;
    }
    const auto& row = rows_[cell.row];
    auto changed = withCell(row, cell.column, text);
    if (changed.cells != row.cells) take({{cell.row, {row}, {std::move(changed)}}});
}

void GridField::clearCells(std::span<const Cell> cells) {
    Step step;
    std::vector<Cell> sorted(cells.begin(), cells.end());
    std::sort(sorted.begin(), sorted.end(), [](Cell one, Cell other) { return one.row < other.row; });
    for (const auto& cell : sorted) {
        if (cell.row >= rows_.size() || columns_.at(cell.column).fixed) continue;
        const bool sameRow = !step.empty() && step.back().first == cell.row;
        if (!sameRow) step.push_back({cell.row, {rows_[cell.row]}, {rows_[cell.row]}});
        auto& after = step.back().after.front();
        after = withCell(after, cell.column, {});
    }
    std::erase_if(step, [](const Swap& swap) { return swap.before.front().cells == swap.after.front().cells; });
    take(std::move(step));
}

void GridField::insertRow(std::size_t before) {
    if (hasRoom()) take({{std::min(before, rows_.size()), {}, {makeRow({})}}});
}

void GridField::removeRows(std::vector<std::size_t> rows) {
    if (rowsFixed_) return;
    std::sort(rows.begin(), rows.end(), std::greater());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    Step step;  // from the last row to the first, so that none moves another; neighbours go together
    for (const auto row : rows) {
        if (row >= rows_.size()) continue;
        if (!step.empty() && step.back().first == row + 1) {
            step.back().first = row;
            step.back().before.push_back(rows_[row]);
        } else {
            step.push_back({row, {rows_[row]}, {}});
        }
    }
    for (auto& swap : step) std::reverse(swap.before.begin(), swap.before.end());
    take(std::move(step));
}

std::size_t GridField::paste(Cell at, const std::vector<TextRow>& texts) {
    const auto first = std::min(at.row, rows_.size());
    const auto last = rowsFixed_ ? rows_.size() : mostRows_;
    const auto fitting = std::min(texts.size(), last - std::min(first, last));
    const auto over = std::min(fitting, rows_.size() - first);
    Swap swap{first,
              Rows(rows_.begin() + static_cast<std::ptrdiff_t>(first),
                   rows_.begin() + static_cast<std::ptrdiff_t>(first + over)),
              {}};
    for (std::size_t i = 0; i < fitting; ++i) {
        auto row = i < over ? swap.before[i] : makeRow({});
        for (std::size_t column = 0; column < texts[i].size() && at.column + column < columns_.size(); ++column)
            if (!columns_[at.column + column].fixed) row = withCell(row, at.column + column, texts[i][column]);
        swap.after.push_back(std::move(row));
    }
    if (fitting > 0) take({std::move(swap)});
    return texts.size() - fitting;
}

std::size_t GridField::replaceAll(const std::vector<TextRow>& rows) {
    const auto fitting = std::min(rows.size(), mostRows_);
    Swap swap{0, rows_, {}};
    for (std::size_t i = 0; i < fitting; ++i) {
        swap.after.push_back(makeRow(rows[i]));
        if (i < held_.size()) swap.after.back().origin = i;
    }
    take({std::move(swap)});
    return rows.size() - fitting;
}

void GridField::sort(std::size_t column, bool ascending) {
    if (rowsFixed_) return;
    auto sorted = rows_;
    std::stable_sort(sorted.begin(), sorted.end(), [column, ascending](const Row& one, const Row& other) {
        const auto& left = one.cells[column];
        const auto& right = other.cells[column];
        if (left.empty() || right.empty()) return !left.empty() && right.empty();
        return ascending ? sortsBefore(left, right) : sortsBefore(right, left);
    });
    const bool moved = !std::equal(rows_.begin(), rows_.end(), sorted.begin(),
                                   [](const Row& one, const Row& other) { return one.cells == other.cells; });
    if (moved) take({{0, rows_, std::move(sorted)}});
}

// A step is done and can be undone; what was undone before it is gone.
void GridField::take(Step step) {
    if (step.empty()) return;
    steps_.resize(done_);
    for (const auto& part : step) swap(part.first, part.before, part.after);
    steps_.push_back(std::move(step));
    if (steps_.size() > mostSteps) steps_.pop_front();
    done_ = steps_.size();
    tellValue();
}

void GridField::undoStep() {
    if (!canUndo()) return;
    const auto& step = steps_[--done_];
    for (auto part = step.rbegin(); part != step.rend(); ++part) swap(part->first, part->after, part->before);
    tellValue();
}

void GridField::redoStep() {
    if (!canRedo()) return;
    const auto& step = steps_[done_++];
    for (const auto& part : step) swap(part.first, part.before, part.after);
    tellValue();
}

void GridField::swap(std::size_t first, const Rows& out, const Rows& in) {
    const Splice splice{first, out.size(), in.size()};
    splicing().emit(splice);
    const auto at = rows_.begin() + static_cast<std::ptrdiff_t>(first);
    const auto kept = std::min(out.size(), in.size());
    std::copy_n(in.begin(), kept, at);
    const auto rest = at + static_cast<std::ptrdiff_t>(kept);
    if (out.size() > kept)
        rows_.erase(rest, rest + static_cast<std::ptrdiff_t>(out.size() - kept));
    else
        rows_.insert(rest, in.begin() + static_cast<std::ptrdiff_t>(kept), in.end());
    spliced().emit(splice);
}

bool GridField::edited(Cell cell) const {
    if (standing() == Standing::Free) return false;
    const auto& row = rows_.at(cell.row);
    return row.origin >= held_.size() || row.cells.at(cell.column) != held_[row.origin].at(cell.column);
}

std::string GridField::problemOf(Cell cell) const {
    const auto& row = rows_.at(cell.row);
    if (!row.problem.empty()) return row.problem;
    return isBlank(row.cells) ? std::string() : faultOf(cell.column, row.cells.at(cell.column));
}

std::string GridField::faultOf(std::size_t column, const std::string& text) const {
    const auto& rules = columns_.at(column);
    if (rules.check)
        if (auto word = rules.check(text); !word.empty()) return word;
    if (rules.greatestLength > 0 && text.size() > rules.greatestLength)
        return rules.heading + ": at most " + std::to_string(rules.greatestLength) + " characters.";
    if (!rules.allowed.empty() && text.find_first_not_of(rules.allowed) != std::string::npos)
        return rules.heading + ": only the characters " + rules.allowed + ".";
    return {};
}

void GridField::setProblemOf(std::size_t row, std::string problem) {
    const Splice itself{row, 1, 1};
    splicing().emit(itself);
    rows_.at(row).problem = std::move(problem);
    spliced().emit(itself);
    changed().emit();
}

std::optional<Table::Cell> GridField::firstProblem() const {
    for (std::size_t row = 0; row < rows_.size(); ++row)
        for (std::size_t column = 0; column < columns_.size(); ++column)
            if (!problemOf({row, column}).empty()) return Cell{row, column};
    return {};
}

std::string GridField::valueOf(const std::vector<TextRow>& rows) {
    std::string value;
    for (const auto& row : rows) {
        for (std::size_t column = 0; column < row.size(); ++column) {
            if (column > 0) value += unitSeparator;
            value += row[column];
        }
        value += recordSeparator;
    }
    return value;
}

std::string GridField::value() const {
    std::vector<TextRow> rows;
    rows.reserve(rows_.size());
    for (const auto& row : rows_) rows.push_back(row.cells);
    return valueOf(rows);
}

void GridField::setValue(const std::string& value) {
    Rows rows;
    for (auto& cells : rowsOf(value)) rows.push_back(makeRow(std::move(cells)));
    replaceRows(rows);
}

void GridField::forgetSteps() {
    steps_.clear();
    done_ = 0;
}

// Only the rows between the first and the last that differ are put in anew: an eye on the others keeps its place.
void GridField::replaceRows(const Rows& rows) {
    const auto same = [](const Row& one, const Row& other) { return one.cells == other.cells; };
    const auto front = std::mismatch(rows_.begin(), rows_.end(), rows.begin(), rows.end(), same);
    const auto first = static_cast<std::size_t>(front.first - rows_.begin());
    const auto back = std::mismatch(rows_.rbegin(), std::make_reverse_iterator(front.first), rows.rbegin(),
                                    std::make_reverse_iterator(front.second), same);
    const Rows out(front.first, back.first.base());
    const Rows in(front.second, back.second.base());
    if (out.empty() && in.empty()) return;
    forgetSteps();
    swap(first, out, in);
    findOrigins();
    tellValue();
}

void GridField::setHeld(const std::string& value) {
    auto held = rowsOf(value);
    for (auto& row : held) row.resize(columns_.size());
    held_ = std::move(held);
    forgetSteps();  // their rows were made from others
    findOrigins();
    changed().emit();
}

// Which row was made from which of the gateway's: those before and behind all differences are as they were, and between
// them one follows the other.
void GridField::findOrigins() {
    const auto count = rows_.size();
    std::size_t front = 0;
    while (front < count && front < held_.size() && rows_[front].cells == held_[front]) ++front;
    std::size_t back = 0;
    while (back < count - front && back < held_.size() - front &&
           rows_[count - 1 - back].cells == held_[held_.size() - 1 - back])
        ++back;
    for (std::size_t row = 0; row < count; ++row) {
        const bool behind = row >= count - back;
        const auto origin = behind ? row + held_.size() - count : row;
        rows_[row].origin = behind || origin < held_.size() - back ? origin : nowhere;
    }
}

}  // namespace trunvex
