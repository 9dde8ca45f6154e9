#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

#include "cdr/call_record.h"

namespace trunvex {

// Brings numbered rows into the order of one value each, in slices, so that a long list can be sorted while keys are
// answered. Rows of equal value keep their order, whichever way the sorting goes.
//
// A radix sort: no two rows are ever compared, so a slice takes the same time whatever the rows hold. Texts are ordered
// by their bytes, eight at a time from the last to the first; what all of them begin with is left out, and each row
// joins in where its text ends; what lies behind the first 256 bytes counts no more. The texts are read in the order of
// the rows' numbers, which is that of their memory.
class RowSort {
public:
    using Row = std::uint32_t;
    using TextOf = std::function<std::string_view(Row)>;

    // The texts must stay as they are until the work is done.
    RowSort(std::vector<Row> rows, TextOf textOf, SortKind kind, bool ascending);

    // Handles about so many rows once; false when all is done.
    bool work(std::size_t most);
    // 0 to 100.
    int percent() const;
    // The rows in order, when the work is done.
    std::vector<Row> take() &&;

private:
    struct Keyed {
        std::uint64_t key;
        Row row;
    };
    enum class Step { Measure, Divide, Read, Join, Digit, Done };
    static constexpr std::size_t digits = sizeof(std::uint64_t);
    static constexpr std::size_t digitValues = 256;

    std::size_t rowsOfStep() const;
    void workOn(std::size_t row);
    void endStep();
    void measure(std::size_t at);
    void endMeasure();
    void divide(std::size_t at);
    void read(std::size_t row);
    void join(std::size_t at);
    void moveByDigit(std::size_t at);
    void beginChunk();
    void nextDigit();
    void endChunk();
    std::size_t joining() const { return ends_[chunk_] - ends_[chunk_ - 1]; }
    std::size_t chunksOf(std::size_t length) const;
    std::uint64_t keyOf(std::string_view text) const;

    std::vector<Row> rows_;
    std::vector<bool> given_;  // by row: it is to be sorted
    TextOf textOf_;
    SortKind kind_;
    bool ascending_;
    Step step_;
    std::size_t at_ = 0;              // the next row of this step
    std::size_t done_ = 0, all_ = 0;  // rows handled, of all steps

    std::string_view common_;             // what all texts begin with
    std::vector<std::uint16_t> lengths_;  // of the texts, by row
    std::vector<std::size_t> ends_;       // behind the last row, in rows_, that has so many chunks of eight bytes
    std::vector<std::size_t> places_;     // where the next row with so many chunks goes
    std::vector<Row> divided_;            // rows_ by the number of chunks
    std::size_t chunk_ = 0;               // in hand, from 1
    std::vector<std::uint64_t> keys_;     // of this chunk, by row
    std::vector<Keyed> keyed_, moved_;    // the rows that reach this chunk
    std::array<std::array<std::size_t, digitValues>, digits> counts_{};
    std::size_t digit_ = 0;  // from the lowest
};

}  // namespace trunvex
