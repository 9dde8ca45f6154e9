#include "fields/history_list.h"

#include <algorithm>

#include "text/text_rules.h"

namespace trunvex {

void HistoryList::load(HistoryField& field) const {
    std::vector<std::string> entries;
    const auto count = std::clamp<std::int64_t>(val(file_.Read(key_, "index")), 0, mostEntries);
    for (std::int64_t i = 0; i < count; ++i) entries.push_back(file_.Read(key_, "ip" + std::to_string(i)));
    const auto first = entries.empty() ? std::string() : entries.front();
    std::erase(entries, "");
    field.setEntries(std::move(entries));
    field.setText(first);
}

void HistoryList::save(HistoryField& field) const {
    auto entries = field.entries();
    if (field.text().empty() && entries.empty()) return;
    std::erase(entries, field.text());
    entries.insert(entries.begin(), field.text());
    if (entries.size() > mostEntries) entries.resize(mostEntries);
    std::vector<Settings::Entry> rows{{key_, "index", std::to_string(entries.size())}};
    for (std::size_t i = 0; i < entries.size(); ++i) rows.push_back({key_, "ip" + std::to_string(i), entries[i]});
    file_.WriteAll(rows);
    std::erase(entries, "");
    field.setEntries(std::move(entries));
}

}  // namespace trunvex
