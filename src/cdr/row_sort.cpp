#include "cdr/row_sort.h"

#include <algorithm>
#include <numeric>

namespace trunvex {

namespace {

constexpr std::size_t chunkBytes = 8;
constexpr std::size_t longestSorted = 256;  // bytes of a text; one absurd text must not make the work endless
constexpr std::size_t percentOfMeasuring = 10;
constexpr std::uint64_t signBit = std::uint64_t{1} << 63;

}  // namespace

RowSort::RowSort(std::vector<Row> rows, TextOf textOf, SortKind kind, bool ascending)
    : rows_(std::move(rows)), textOf_(std::move(textOf)), kind_(kind), ascending_(ascending), step_(Step::Measure) {
    given_.resize(rows_.empty() ? 0 : *std::max_element(rows_.begin(), rows_.end()) + std::size_t{1});
    for (const auto row : rows_) given_[row] = true;
    if (kind_ == SortKind::Text) {
        lengths_.resize(given_.size());
        if (!rows_.empty()) common_ = textOf_(rows_[0]);
        return;
    }
    // A number is one chunk.
    ends_ = {0, rows_.size()};
    all_ = given_.size() + rows_.size() * (1 + digits);
    chunk_ = 1;
    beginChunk();
}

bool RowSort::work(std::size_t most) {
    for (std::size_t left = most; step_ != Step::Done && left > 0;) {
        const auto end = std::min(rowsOfStep(), at_ + left);
        left -= end - at_;
        done_ += end - at_;
        for (; at_ < end; ++at_) workOn(at_);
        if (at_ == rowsOfStep()) {
            at_ = 0;
            endStep();
        }
    }
    return step_ != Step::Done;
}

std::size_t RowSort::rowsOfStep() const {
    switch (step_) {
        case Step::Measure:
        case Step::Read:
            return given_.size();
        case Step::Divide:
            return rows_.size();
        default:
            return keyed_.size();
    }
}

void RowSort::workOn(std::size_t row) {
    switch (step_) {
        case Step::Measure:
            return measure(row);
        case Step::Divide:
            return divide(row);
        case Step::Read:
            return read(row);
        case Step::Join:
            return join(row);
        case Step::Digit:
            return moveByDigit(row);
        case Step::Done:
            return;
    }
}

void RowSort::endStep() {
    switch (step_) {
        case Step::Measure:
            endMeasure();
            step_ = Step::Divide;
            return;
        case Step::Divide:
            rows_.swap(divided_);
            divided_ = {};
            chunk_ = ends_.size() - 1;
            return chunk_ > 0 ? beginChunk() : endChunk();
        case Step::Read:
            step_ = Step::Join;
            return;
        case Step::Join:
            keyed_.swap(moved_);
            digit_ = 0;
            return nextDigit();
        case Step::Digit:
            keyed_.swap(moved_);
            ++digit_;
            return nextDigit();
        case Step::Done:
            return;
    }
}

void RowSort::measure(std::size_t row) {
    if (!given_[row]) return;
    const auto text = textOf_(static_cast<Row>(row)).substr(0, longestSorted);
    lengths_[row] = static_cast<std::uint16_t>(text.size());
    const auto same = std::mismatch(common_.begin(), common_.end(), text.begin(), text.end()).first;
    common_ = common_.substr(0, static_cast<std::size_t>(same - common_.begin()));
}

std::size_t RowSort::chunksOf(std::size_t length) const {
    return (length - common_.size() + chunkBytes - 1) / chunkBytes;
}

void RowSort::endMeasure() {
    divided_.resize(rows_.size());
    const auto longest = rows_.empty() ? 0 : *std::max_element(lengths_.begin(), lengths_.end());
    ends_.assign(chunksOf(std::max<std::size_t>(longest, common_.size())) + 1, 0);
    for (const auto row : rows_) ++ends_[chunksOf(lengths_[row])];
    std::partial_sum(ends_.begin(), ends_.end(), ends_.begin());
    places_.assign(ends_.size(), 0);
    std::copy(ends_.begin(), ends_.end() - 1, places_.begin() + 1);
    done_ = 0;
    all_ = rows_.size();
    for (std::size_t chunk = 1; chunk < ends_.size(); ++chunk)
        all_ += given_.size() + (rows_.size() - ends_[chunk - 1]) * (1 + digits);
}

void RowSort::divide(std::size_t at) { divided_[places_[chunksOf(lengths_[rows_[at]])]++] = rows_[at]; }

// Rows that are longer are in order among themselves by what lies behind; those that end in this chunk join them. Where
// all eight bytes are the same, the shorter text is the smaller one.
void RowSort::beginChunk() {
    step_ = Step::Read;
    counts_ = {};
    keys_.resize(given_.size());
    const auto all = rows_.size() - ends_[chunk_ - 1];
    keyed_.resize(all);
    moved_.resize(all);
}

std::uint64_t RowSort::keyOf(std::string_view text) const {
    std::uint64_t key = 0;
    if (kind_ != SortKind::Text) {
        key = static_cast<std::uint64_t>(sortKey(text, kind_)) ^ signBit;
    } else {
        const auto from = common_.size() + (chunk_ - 1) * chunkBytes;
        for (std::size_t byte = from; byte < from + chunkBytes; ++byte)
            key = key << 8 | (byte < text.size() ? static_cast<unsigned char>(text[byte]) : 0U);
    }
    return ascending_ ? key : ~key;
}

void RowSort::read(std::size_t row) {
    const bool reaches = given_[row] && (kind_ != SortKind::Text || chunksOf(lengths_[row]) >= chunk_);
    if (reaches) keys_[row] = keyOf(textOf_(static_cast<Row>(row)));
}

void RowSort::join(std::size_t at) {
    const auto longer = keyed_.size() - joining();
    const bool joins = ascending_ ? at < joining() : at >= longer;
    const auto place = ascending_ == joins ? at : at - (ascending_ ? joining() : longer);
    const Row row = joins ? rows_[ends_[chunk_ - 1] + place] : keyed_[place].row;
    moved_[at] = {keys_[row], row};
    for (std::size_t digit = 0; digit < digits; ++digit) ++counts_[digit][keys_[row] >> (8 * digit) & 0xFF];
}

// A digit that is the same in all rows moves nothing.
void RowSort::nextDigit() {
    for (; digit_ < digits; ++digit_) {
        auto& counts = counts_[digit_];
        if (std::find(counts.begin(), counts.end(), keyed_.size()) == counts.end()) {
            std::exclusive_scan(counts.begin(), counts.end(), counts.begin(), std::size_t{0});
            step_ = Step::Digit;
            return;
        }
        done_ += keyed_.size();
    }
    endChunk();
}

void RowSort::moveByDigit(std::size_t at) {
    moved_[counts_[digit_][keyed_[at].key >> (8 * digit_) & 0xFF]++] = keyed_[at];
}

void RowSort::endChunk() {
    if (chunk_ > 1) {
        --chunk_;
        beginChunk();
    } else {
        step_ = Step::Done;
    }
}

// How many steps there are is known once the texts are measured.
int RowSort::percent() const {
    if (step_ == Step::Measure)
        return static_cast<int>(at_ * percentOfMeasuring / std::max<std::size_t>(1, given_.size()));
    const auto from = kind_ == SortKind::Text ? percentOfMeasuring : 0;
    return static_cast<int>(from + (all_ == 0 ? 100 - from : done_ * (100 - from) / all_));
}

// Rows with nothing behind what all begin with took part in no chunk.
std::vector<RowSort::Row> RowSort::take() && {
    const auto alike = ends_.empty() ? 0 : ends_[0];
    std::vector<Row> all;
    all.reserve(rows_.size());
    if (ascending_) all.insert(all.end(), rows_.begin(), rows_.begin() + static_cast<std::ptrdiff_t>(alike));
    for (const auto& keyed : keyed_) all.push_back(keyed.row);
    if (!ascending_) all.insert(all.end(), rows_.begin(), rows_.begin() + static_cast<std::ptrdiff_t>(alike));
    return all;
}

}  // namespace trunvex
