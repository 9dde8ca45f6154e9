#pragma once

#include <iterator>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "text/split.h"
#include "text/text_rules.h"

// What a settings record and its line on the wire have in common: one table of columns for each kind of record, from
// which it is taken, spelled and compared.
namespace trunvex {

// How a value stands in its record.
template <class Record>
struct Codec {
    // Null where the value is told by more than its own field: the record's own routine takes it.
    void (*take)(Record& record, std::string_view field);
    std::string (*spell)(const Record& record);  // for the wire
    std::string (*words)(const Record& record);  // for people
};

enum class Writer { Console, Gateway };  // Gateway: never taken from a line of the console's own
enum class Empty { Leaves, Clears };     // what an empty field of the console's does to the value

template <class Record>
struct Column {
    std::size_t at;    // number of the field in the gateway's answer
    const char* name;  // for people
    Codec<Record> codec;
    Writer writer = Writer::Console;
    Empty empty = Empty::Leaves;
};

template <class Record>
using Columns = std::type_identity_t<std::span<const Column<Record>>>;

// True when no field of the answer is left out and none stands twice.
template <class Table>
constexpr bool isGapless(const Table& columns) {
    for (std::size_t i = 1; i < columns.size(); ++i)
        if (columns[i].at != columns[i - 1].at + 1) return false;
    return true;
}

// Empty for a field that was not sent.
inline std::string_view sentField(const Fields& fields, std::size_t index) {
    return index + 1 < fields.size() ? fields.at(index) : std::string_view();
}

// Takes a record as the gateway tells it or, acknowledged, as the console wrote it; that line may lack the first
// fields of the answer. A record that is cut short leaves the rest as it was.
template <class Record>
void takeFields(Record& record, Columns<Record> columns, const Fields& fields, bool acknowledged,
                std::size_t lacking = 0) {
    for (const auto& column : columns) {
        if (!column.codec.take || (acknowledged && column.writer == Writer::Gateway)) continue;
        const auto index = column.at - (acknowledged ? lacking : 0);
        if (index + 1 >= fields.size()) continue;
        const auto field = fields.at(index);
        if (acknowledged && field.empty() && column.empty == Empty::Leaves) continue;
        column.codec.take(record, field);
    }
}

// The fields of a record by their numbers, as the gateway tells them.
template <class Record>
std::vector<std::string> spelledFields(const Record& record, Columns<Record> columns) {
    std::vector<std::string> fields(columns.back().at + 1);
    for (const auto& column : columns) fields[column.at] = column.codec.spell(record);
    return fields;
}

struct Difference {
    const char* name;
    std::string from;  // in people's words
    std::string to;
};

template <class Record>
std::vector<Difference> differences(const Record& from, const Record& to, Columns<Record> columns) {
    std::vector<Difference> all;
    for (const auto& column : columns)
        if (column.codec.spell(from) != column.codec.spell(to))
            all.push_back({column.name, column.codec.words(from), column.codec.words(to)});
    return all;
}

namespace codec {

template <class Record>
Record recordOf(std::string Record::*);
template <auto member>
using RecordOf = decltype(recordOf(member));

template <auto member>
void takeText(RecordOf<member>& record, std::string_view field) {
    record.*member = field;
}

template <auto member>
void takeNumber(RecordOf<member>& record, std::string_view field) {
    record.*member = std::to_string(val(field));
}

template <auto member>
std::string held(const RecordOf<member>& record) {
    return record.*member;
}

template <auto member>
std::string shown(const RecordOf<member>& record) {
    return escaped(record.*member);
}

// An index in the words of its list; one beyond it as it is.
template <auto member, const auto& list>
std::string listed(const RecordOf<member>& record) {
    const std::string& index = record.*member;
    return wholeWithin(index, 0, std::ssize(list) - 1) ? list[static_cast<std::size_t>(val(index))] : escaped(index);
}

template <auto member>
inline constexpr Codec<RecordOf<member>> text{takeText<member>, held<member>, shown<member>};

template <auto member>
inline constexpr Codec<RecordOf<member>> number{takeNumber<member>, held<member>, shown<member>};

}  // namespace codec

}  // namespace trunvex
