#include "cdr/call_list.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include "text/text_rules.h"

namespace trunvex {

namespace {

using Length = std::uint16_t;
constexpr std::size_t longestText = 4096;
constexpr std::size_t headBytes = callColumnCount * sizeof(Length);

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

Length lengthAt(const char* row, std::size_t column) {
    Length length;
    std::memcpy(&length, row + column * sizeof(Length), sizeof(Length));
    return length;
}

}  // namespace

// "MM-DD-YY HH:MM:SS Wd": the year counts first. No number, and a stamp without its date, is before everything else.
std::int64_t sortKey(std::string_view text, SortKind kind) {
    switch (kind) {
        case SortKind::Stamp: {
            if (text.size() < 8 || text[2] != '-') return std::numeric_limits<std::int64_t>::min();
            const auto time = val(mid(text, 10, 2)) * 10000 + val(mid(text, 13, 2)) * 100 + val(mid(text, 16, 2));
            const auto day = val(mid(text, 7, 2)) * 10000 + val(mid(text, 1, 2)) * 100 + val(mid(text, 4, 2));
            return day * 1000000 + time;
        }
        case SortKind::Duration: {
            const auto point = text.find('.');
            const auto seconds = point == std::string_view::npos ? 0 : val(text.substr(point + 1));
            return val(text) * 60 + seconds;
        }
        case SortKind::Number:
            return text.empty() ? std::numeric_limits<std::int64_t>::min() : val(text);
        case SortKind::Text:
            break;
    }
    return 0;
}

void CallList::clear() {
    blocks_.clear();
    blockUsed_ = blockBytes;
    offsets_.clear();
    offsets_.shrink_to_fit();
    shown_.clear();
    shown_.shrink_to_fit();
    changed_.emit();
}

CallList::Row CallList::append(const std::array<std::string_view, callColumnCount>& texts) {
    std::size_t bytes = headBytes;
    for (const auto& text : texts) bytes += std::min(text.size(), longestText);
    if (blockUsed_ + bytes > blockBytes) {
        blocks_.push_back(std::make_unique_for_overwrite<char[]>(blockBytes));
        blockUsed_ = 0;
    }
    char* row = blocks_.back().get() + blockUsed_;
    char* to = row + headBytes;
    for (std::size_t column = 0; column < callColumnCount; ++column) {
        const auto length = static_cast<Length>(std::min(texts[column].size(), longestText));
        std::memcpy(row + column * sizeof(Length), &length, sizeof(Length));
        std::memcpy(to, texts[column].data(), length);
        to += length;
    }
    blockUsed_ += bytes;
    offsets_.push_back(row);
    return static_cast<Row>(offsets_.size() - 1);
}

std::string_view CallList::textOf(Row row, std::size_t column) const {
    const char* at = offsets_[row];
    const char* text = at + headBytes;
    for (std::size_t before = 0; before < column; ++before) text += lengthAt(at, before);
    return {text, lengthAt(at, column)};
}

void CallList::show(Row row) {
    if (matches(row)) shown_.push_back(row);
}

void CallList::add(const CallRecord& record) {
    std::array<std::string_view, callColumnCount> texts;
    for (std::size_t column = 0; column < callColumnCount; ++column) texts[column] = record.*callColumns[column].value;
    const auto before = shown_.size();
    show(append(texts));
    added_.emit(shown_.size() - before);
}

bool CallList::addFrom(DatabaseRows& rows, std::size_t most) {
    const auto before = shown_.size();
    bool more = true;
    std::array<std::string_view, callColumnCount> texts;
    for (std::size_t row = 0; row < most && more; ++row) {
        more = rows.next();
        for (std::size_t column = 0; column < callColumnCount && more; ++column) {
            more = !rows.isNull(static_cast<int>(column));
            texts[column] = rows.text(static_cast<int>(column));
        }
        if (more) show(append(texts));
    }
    added_.emit(shown_.size() - before);
    return more;
}

CallRecord CallList::record(std::size_t row) const {
    CallRecord record;
    for (std::size_t column = 0; column < callColumnCount; ++column)
        record.*callColumns[column].value = text(row, column);
    return record;
}

bool CallList::matches(Row row) const {
    if (search_.empty()) return true;
    for (std::size_t column = 0; column < callColumnCount; ++column) {
        const auto text = textOf(row, column);
        const auto found = std::search(text.begin(), text.end(), search_.begin(), search_.end(),
                                       [](char one, char other) { return lower(one) == other; });
        if (found != text.end()) return true;
    }
    return false;
}

void CallList::search(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), lower);
    if (text == search_) return;
    // A longer word can only leave rows out, and keeps an order that was sorted; any other begins anew.
    const bool narrower = !search_.empty() && contains(text, search_);
    search_ = std::move(text);
    if (narrower) {
        std::erase_if(shown_, [this](Row row) { return !matches(row); });
    } else {
        shown_.clear();
        for (Row row = 0; row < offsets_.size(); ++row) show(row);
    }
    changed_.emit();
}

void CallList::sort(std::size_t column, bool ascending) {
    const auto kind = callColumns.at(column).sort;
    if (kind == SortKind::Text) {
        std::stable_sort(shown_.begin(), shown_.end(), [&](Row one, Row other) {
            return ascending ? textOf(one, column) < textOf(other, column)
                             : textOf(other, column) < textOf(one, column);
        });
    } else {
        // The keys are worked out once a row.
        std::vector<std::pair<std::int64_t, Row>> keyed;
        keyed.reserve(shown_.size());
        for (const auto row : shown_) keyed.emplace_back(sortKey(textOf(row, column), kind), row);
        std::stable_sort(keyed.begin(), keyed.end(), [&](const auto& one, const auto& other) {
            return ascending ? one.first < other.first : other.first < one.first;
        });
        for (std::size_t i = 0; i < keyed.size(); ++i) shown_[i] = keyed[i].second;
    }
    changed_.emit();
}

}  // namespace trunvex
