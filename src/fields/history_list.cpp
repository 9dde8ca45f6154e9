#include "fields/history_list.h"

#include <algorithm>

#include "text/text_rules.h"

namespace trunvex {

void HistoryList::load(HistoryField& field) const {
    std::vector<std::string> entries;
    const auto count = std::clamp<std::int64_t>(val(file_.Read(key_, "index")), 0, mostEntries);
    for (std::int64_t i = 0; i < count; ++i) {
        auto entry = file_.Read(key_, "ip" + std::to_string(i));
        if (!entry.empty()) entries.push_back(std::move(entry));
    }
    field.setEntries(std::move(entries));
}

void HistoryList::save(HistoryField& field) const {
    if (field.text().empty()) return;
    auto entries = field.entries();
    std::erase(entries, field.text());
    entries.insert(entries.begin(), field.text());
    if (entries.size() > mostEntries) entries.resize(mostEntries);
    file_.Write(key_, "index", std::to_string(entries.size()));
    for (std::size_t i = 0; i < entries.size(); ++i) file_.Write(key_, "ip" + std::to_string(i), entries[i]);
    field.setEntries(std::move(entries));
}

}  // namespace trunvex
