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

    void load(HistoryField& field) const;
    // Puts the field's present text first (an empty one is not remembered) and saves the list.
    void save(HistoryField& field) const;

private:
    Settings& file_;
    std::string key_;
};

}  // namespace trunvex
