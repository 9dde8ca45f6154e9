#pragma once

#include "simulator/fields.h"

#include <optional>
#include <span>
#include <string>
#include <type_traits>
#include <vector>

namespace simulator {

// A field of a settings record: where it is kept and what may be written into it.
template <class Record>
struct Column {
    std::string Record::*text;
    bool (*allowed)(const std::string&);
    // Above 0 the gateway keeps a number and answers it with at least so many digits, however it was written;
    // with 0 it keeps the text.
    int digits = 0;
    bool emptiable = false;  // an empty field of a write takes the value away
};

// The columns in the order of the wire.
template <class Record>
using Columns = std::span<const Column<Record>>;

template <class Record>
std::string joinColumns(const Record& record, std::type_identity_t<Columns<Record>> columns) {
    std::vector<std::string> fields;
    for (const Column<Record>& column : columns) fields.push_back(record.*column.text);
    return joinFields(fields);
}

// The record after a write of the first fields.size() columns; an empty field keeps its value, unless the column
// may be emptied. Nothing when one
// of the values is not allowed: a record is written whole or not at all.
template <class Record>
std::optional<Record> written(Record record, std::type_identity_t<Columns<Record>> columns,
                              std::span<const std::string> fields) {
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const Column<Record>& column = columns[i];
        if (fields[i].empty()) {
            if (column.emptiable) (record.*column.text).clear();
            continue;
        }
        if (!column.allowed(fields[i])) return std::nullopt;
        const auto value = column.digits > 0 ? number(fields[i], 0, 999'999'999) : std::nullopt;
        record.*column.text = value ? padded(*value, column.digits) : fields[i];
    }
    return record;
}

}  // namespace simulator
