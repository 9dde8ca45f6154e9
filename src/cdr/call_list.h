#pragma once

#include <sigc++/sigc++.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "cdr/call_record.h"
#include "platform/database.h"

namespace trunvex {

// The rows of the call report, in the order in which they are shown. A row costs its texts and less than 50 bytes, so
// that a million calls stay in memory. Rows are numbered from 0 as shown.
class CallList {
public:
    CallList() = default;
    CallList(const CallList&) = delete;
    CallList& operator=(const CallList&) = delete;

    void clear();
    void add(const CallRecord& record);
    // Adds at most `most` rows of a query of the whole table; false when the query has come to its end. A row with a
    // null value ends it too.
    bool addFrom(DatabaseRows& rows, std::size_t most);

    // Rows shown, and all that are held.
    std::size_t size() const { return shown_.size(); }
    std::size_t held() const { return offsets_.size(); }
    // Lives until the next change of the list.
    std::string_view text(std::size_t row, std::size_t column) const { return textOf(shown_.at(row), column); }
    CallRecord record(std::size_t row) const;

    // Shows only rows that hold the text in some column, letters of either case alike; empty shows all. Keeps the
    // order.
    void search(std::string text);
    const std::string& searched() const { return search_; }
    // Orders what is shown by a column's kind of value; rows of equal value keep their order. New rows go to the end.
    void sort(std::size_t column, bool ascending);

    // Rows came to the end of what is shown.
    sigc::signal<void(std::size_t count)>& added() { return added_; }
    // All may be different.
    sigc::signal<void()>& changed() { return changed_; }

private:
    using Row = std::uint32_t;

    std::string_view textOf(Row row, std::size_t column) const;
    bool matches(Row row) const;
    Row append(const std::array<std::string_view, callColumnCount>& texts);
    void show(Row row);

    static constexpr std::size_t blockBytes = 1 << 20;
    // A row is its sixteen lengths and its texts, in one of the blocks.
    std::vector<std::unique_ptr<char[]>> blocks_;
    std::size_t blockUsed_ = blockBytes;
    std::vector<const char*> offsets_;
    std::vector<Row> shown_;
    std::string search_;
    sigc::signal<void(std::size_t)> added_;
    sigc::signal<void()> changed_;
};

// A value's place among others of its column: a stamp by year first, a duration by its length, a number by its value.
std::int64_t sortKey(std::string_view text, SortKind kind);

}  // namespace trunvex
