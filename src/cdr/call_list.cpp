#include "cdr/call_list.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "text/text_rules.h"

namespace trunvex {

namespace {

using Length = std::uint32_t;
constexpr std::size_t headBytes = callColumnCount * sizeof(Length);

Length lengthAt(const char* row, std::size_t column) {
    Length length;
    std::memcpy(&length, row + column * sizeof(Length), sizeof(Length));
    return length;
}

}  // namespace

void CallList::clear() {
    // In an empty list what was asked for is in force at once.
    if (const auto asked = std::exchange(work_, {})) {
        order_ = asked->order;
        if (asked->searching) {
            searched_ = asked->text;
            folded_ = asked->folded;
        }
        workChanged_.emit();
    }
    blocks_.clear();
    blockUsed_ = blockBytes;
    rows_ = {};
    shown_ = {};
    sums_ = {};
    changed_.emit();
}

CallList::Row CallList::append(const CallTexts& texts) {
    std::size_t bytes = headBytes;
    for (const auto& text : texts) bytes += text.size();
    if (blockUsed_ + bytes > blockBytes) {
        blocks_.push_back(std::make_unique_for_overwrite<char[]>(std::max(bytes, blockBytes)));
        blockUsed_ = 0;
    }
    char* row = blocks_.back().get() + blockUsed_;
    char* to = row + headBytes;
    for (std::size_t column = 0; column < callColumnCount; ++column) {
        const auto length = static_cast<Length>(texts[column].size());
        std::memcpy(row + column * sizeof(Length), &length, sizeof(Length));
        std::memcpy(to, texts[column].data(), length);
        to += length;
    }
    blockUsed_ += bytes;
    rows_.push_back(row);
    return static_cast<Row>(rows_.size() - 1);
}

std::string_view CallList::textOf(Row row, std::size_t column) const {
    const char* at = rows_[row];
    const char* text = at + headBytes;
    for (std::size_t before = 0; before < column; ++before) text += lengthAt(at, before);
    return {text, lengthAt(at, column)};
}

CallTexts CallList::textsOf(Row row) const {
    CallTexts texts;
    const char* text = rows_[row] + headBytes;
    for (std::size_t column = 0; column < callColumnCount; ++column) {
        texts[column] = {text, lengthAt(rows_[row], column)};
        text += texts[column].size();
    }
    return texts;
}

void CallList::show(Row row) {
    if (!matches(row, folded_)) return;
    shown_.push_back(row);
    sums_.add(textsOf(row));
}

void CallList::add(const CallRecord& record) {
    const auto before = shown_.size();
    show(append(trunvex::textsOf(record)));
    added_.emit(shown_.size() - before);
}

bool CallList::addFrom(DatabaseRows& rows, std::size_t most, bool marked) {
    const auto before = shown_.size();
    bool more = true;
    CallTexts texts;
    for (std::size_t row = 0; row < most && more; ++row) {
        more = rows.next();
        if (!more || (marked && rows.text(callColumnCount) != "1")) continue;
        for (std::size_t column = 0; column < callColumnCount && more; ++column) {
            texts[column] = rows.text(static_cast<int>(column));
            more = texts[column].data() != nullptr;
        }
        if (more) show(append(texts));
    }
    added_.emit(shown_.size() - before);
    return more;
}

bool CallList::matches(Row row, std::string_view part) const {
    if (part.empty()) return true;
    const auto texts = textsOf(row);
    return std::any_of(texts.begin(), texts.end(),
                       [part](std::string_view text) { return containsFolded(text, part); });
}

CallList::Work& CallList::ask() {
    if (work_) return *work_;
    work_ = std::make_unique<Work>();
    auto& work = *work_;
    work.text = searched_;
    work.order = order_;
    return work;
}

// A longer word can only leave rows out, and keeps an order that is in force; any other begins anew.
void CallList::search(const std::string& text) {
    if (text == (work_ ? work_->text : searched_)) return;
    auto& work = ask();
    const bool ordering = work.ordering;
    const auto order = work.order;
    work = Work();
    work.text = text;
    work.folded = folded(text);
    work.searching = true;
    work.within = !folded_.empty() && contains(work.folded, folded_);
    work.order = order;
    work.ordering = ordering || (order && !work.within);
    workChanged_.emit();
}

void CallList::sort(Order order) {
    auto& work = ask();
    work.order = order;
    work.ordering = true;
    work.sort.reset();
    if (!work.searching) work.upTo.reset();
    workChanged_.emit();
}

void CallList::sortAgain() {
    if (const auto order = work_ ? work_->order : order_) sort(*order);
}

void CallList::begin() {
    auto& work = *work_;
    work.upTo = rows_.size();
    if (!work.searching) work.found = shown_;
}

std::size_t CallList::searchSome(std::size_t most) {
    auto& work = *work_;
    // Rows that came since it began are the last ones of what is shown.
    const auto all = work.within ? shown_.size() : *work.upTo;
    const auto end = std::min(all, work.at + most);
    const auto handled = end - work.at;
    for (; work.at < end; ++work.at) {
        const Row row = work.within ? shown_[work.at] : static_cast<Row>(work.at);
        if (row >= *work.upTo || !matches(row, work.folded)) continue;
        work.found.push_back(row);
        work.sums.add(textsOf(row));
    }
    return handled;
}

bool CallList::work(std::size_t most) {
    if (!work_) return false;
    auto& work = *work_;
    if (!work.upTo) begin();
    if (work.searching && !work.sort) {
        const auto handled = searchSome(most);
        if (handled == most) return true;
        most -= handled;
    }
    if (work.ordering) {
        if (!work.sort) {
            const auto column = work.order->column;
            work.sort = std::make_unique<RowSort>(
                work.found, [this, column](Row row) { return textOf(row, column); }, callColumns.at(column).sort,
                work.order->ascending);
        }
        if (work.sort->work(most)) return true;
        work.found = std::move(*work.sort).take();
    }
    endWork();
    return false;
}

void CallList::endWork() {
    auto work = std::move(*work_);
    work_.reset();
    order_ = work.order;
    shown_ = std::move(work.found);
    if (work.searching) {
        searched_ = work.text;
        folded_ = work.folded;
        sums_ = std::move(work.sums);
    }
    for (auto row = static_cast<Row>(*work.upTo); row < rows_.size(); ++row) {
        if (!matches(row, folded_)) continue;
        shown_.push_back(row);
        if (work.searching) sums_.add(textsOf(row));  // otherwise they are in it already
    }
    changed_.emit();
    workChanged_.emit();
}

void CallList::giveUp() {
    if (!std::exchange(work_, {})) return;
    workChanged_.emit();
}

int CallList::percent() const {
    if (!work_ || !work_->upTo) return 0;
    if (work_->sort) return work_->sort->percent();
    const auto all = work_->within ? shown_.size() : *work_->upTo;
    return all == 0 ? 100 : static_cast<int>(work_->at * 100 / all);
}

}  // namespace trunvex
