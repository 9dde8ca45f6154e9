#pragma once

#include <string>

#include "fields/fields.h"
#include "platform/settings.h"

namespace trunvex {

// The remembered entries of a combo box, newest first, kept in one section of a settings file: "index" holds how many,
// "ip0", "ip1"... the entries.
class HistoryList {
public:
    static constexpr int mostEntries = 20;

    HistoryList(Settings& file, std::string key) : file_(file), key_(std::move(key)) {}

    // The field shows the first entry.
    void load(HistoryField& field) const;
    // Puts the field's present text first and saves the list in one write. That the field was emptied is remembered,
    // but is no entry to choose.
    void save(HistoryField& field) const;

private:
    Settings& file_;
    std::string key_;
};

}  // namespace trunvex
