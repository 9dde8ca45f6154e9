#pragma once

#include <algorithm>
#include <deque>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "fields/record_form.h"
#include "text/text_rules.h"

namespace trunvex {

// How the fields of a page stand to the columns of its record: the one table from which a page has its form, the values
// in it, the fields of its line and the captions of its include boxes.
template <class Record>
class PageTable {
public:
    // What a field holds of a record.
    struct Shown {
        InputField& field;
        std::function<std::string(const Record& record)> held;
    };
    // What the page writes into a column of the record `to`; empty where that is to keep its value.
    struct Sent {
        std::size_t at;
        std::function<std::string(const Record& to)> wire;
    };
    // What one include box includes.
    struct Row {
        std::size_t box;
        const char* caption;
        std::vector<Shown> shown;
        std::vector<Sent> sent;
    };
    static constexpr std::size_t noBox = static_cast<std::size_t>(-1);  // always included

    void add(Row row) { rows_.push_back(std::move(row)); }

    void addFieldsTo(RecordForm& form) const {
        for (const auto& row : rows_)
            for (const auto& shown : row.shown) form.add(shown.field);
    }

    void addBoxesTo(std::deque<CheckField>& boxes, const char* name) const {
        for (auto row = boxRow(boxes.size()); row != rows_.end(); row = boxRow(boxes.size()))
            boxes.emplace_back(arrayName(name, static_cast<int>(boxes.size())), row->caption);
    }

    // Each field with the box it stands behind.
    std::vector<std::pair<InputField*, std::size_t>> boxedFields() const {
        std::vector<std::pair<InputField*, std::size_t>> all;
        for (const auto& row : rows_)
            for (const auto& shown : row.shown) all.emplace_back(&shown.field, row.box);
        return all;
    }

    // True when an empty field of the box has the gateway keep what it holds.
    bool silent(std::size_t box, const Record& to) const {
        const auto row = boxRow(box);
        return std::any_of(row->sent.begin(), row->sent.end(), [&to](const Sent& one) { return one.wire(to).empty(); });
    }

    RecordForm::Values held(const Record& record) const {
        RecordForm::Values values;
        for (const auto& row : rows_)
            for (const auto& shown : row.shown) values[&shown.field] = shown.held(record);
        return values;
    }

    // The fields of a line by their numbers, up to `last`; `included` is asked for each box.
    template <class Included>
    std::vector<std::string> line(const Record& to, std::size_t last, const Included& included) const {
        std::vector<std::string> fields(last + 1);
        for (const auto& row : rows_) {
            if (row.box != noBox && !included(row.box)) continue;
            for (const auto& sent : row.sent) fields.at(sent.at) = sent.wire(to);
        }
        return fields;
    }

private:
    auto boxRow(std::size_t box) const {
        return std::find_if(rows_.begin(), rows_.end(), [box](const Row& row) { return row.box == box; });
    }

    std::vector<Row> rows_;
};

// True while the field shows what the gateway holds: the operator has not touched it, and nothing is wrong with that.
inline bool untouched(const InputField& field) { return field.standing() == InputField::Standing::AsRead; }

// For a column that is written as its field has it; but what nobody touched goes back as it is held, fit for a line or
// not: it has come in one.
template <class Record>
auto contentOrHeld(const InputField& field, std::string Record::*member) {
    return [&field, member](const Record& to) { return untouched(field) ? to.*member : field.value(); };
}

// For a field that shows its column as it is, made fit for the eye.
template <class Record>
auto told(std::string Record::*member) {
    return [member](const Record& record) { return escaped(record.*member); };
}

}  // namespace trunvex
