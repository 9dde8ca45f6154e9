#pragma once

#include <sigc++/sigc++.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cdr/call_record.h"
#include "cdr/call_sums.h"
#include "cdr/row_sort.h"
#include "platform/database.h"

namespace trunvex {

// The rows of the call report, in the order in which they are shown. A row costs its texts and less than 90 bytes, so
// that a million calls stay in memory. Rows are numbered from 0 as shown.
//
// Searching and sorting a long list takes a while: what is asked for is worked out by work(), slice by slice, and comes
// into force as a whole. Until then the list shows what it showed.
class CallList {
public:
    struct Order {
        std::size_t column = 0;
        bool ascending = true;
        bool operator==(const Order&) const = default;
    };

    CallList() = default;
    CallList(const CallList&) = delete;
    CallList& operator=(const CallList&) = delete;

    // Search and order stay, also what was asked for of them, for what comes next.
    void clear();
    // A new row goes to the end.
    void add(const CallRecord& record);
    // Takes at most `most` rows of a query of the whole table; false when the query has come to its end. A row with a
    // null value ends it too. With `marked`, the query has one column more, and only rows that hold "1" in it are
    // added.
    bool addFrom(DatabaseRows& rows, std::size_t most, bool marked = false);

    // Rows shown, and all that are held.
    std::size_t size() const { return shown_.size(); }
    std::size_t held() const { return rows_.size(); }
    // Lives until the next change of the list.
    std::string_view text(std::size_t row, std::size_t column) const { return textOf(shown_.at(row), column); }
    // What is shown comes to.
    const CallSums& sums() const { return sums_; }

    // Asks for the rows that hold the text in some column, letters of either case alike; empty asks for all.
    void search(const std::string& text);
    // Asks for an order by a column's kind of value; rows of equal value keep theirs.
    void sort(Order order);
    // Asks for the order in force again, for the rows that have come since.
    void sortAgain();
    bool working() const { return work_ != nullptr; }
    // About so many rows; false when all is done.
    bool work(std::size_t most);
    // How far it is: 0 to 100.
    int percent() const;
    bool sorting() const { return work_ && work_->sort; }
    // Forgets what was asked for and is not in force.
    void giveUp();
    // What is in force.
    const std::string& searched() const { return searched_; }
    const std::optional<Order>& order() const { return order_; }

    // Rows came to the end of what is shown.
    sigc::signal<void(std::size_t count)>& added() { return added_; }
    // All may be different.
    sigc::signal<void()>& changed() { return changed_; }
    // Work has begun, or has ended, or was given up.
    sigc::signal<void()>& workChanged() { return workChanged_; }

private:
    using Row = RowSort::Row;

    struct Work {
        std::string text;
        std::optional<Order> order;
        bool searching = false;
        bool ordering = false;            // also when the search leaves rows as they were
        std::optional<std::size_t> upTo;  // rows that were held when it began; those behind follow at the end
        std::size_t at = 0;               // of what is searched
        std::string folded;               // the text in small letters
        bool within = false;              // what is shown is searched, not all
        std::vector<Row> found;
        CallSums sums;
        std::unique_ptr<RowSort> sort;
    };

    std::string_view textOf(Row row, std::size_t column) const;
    CallTexts textsOf(Row row) const;
    bool matches(Row row, std::string_view part) const;  // in small letters
    Row append(const CallTexts& texts);
    void show(Row row);
    Work& ask();
    void begin();
    std::size_t searchSome(std::size_t most);
    void endWork();

    static constexpr std::size_t blockBytes = 1 << 20;
    // A row is its sixteen lengths and its texts, in one of the blocks.
    std::vector<std::unique_ptr<char[]>> blocks_;
    std::size_t blockUsed_ = blockBytes;
    std::vector<const char*> rows_;
    std::vector<Row> shown_;
    CallSums sums_;
    std::string searched_;
    std::string folded_;  // the same in small letters
    std::optional<Order> order_;
    std::unique_ptr<Work> work_;
    sigc::signal<void(std::size_t)> added_;
    sigc::signal<void()> changed_;
    sigc::signal<void()> workChanged_;
};

}  // namespace trunvex
