#include "monitor/event_list.h"

#include <algorithm>

namespace trunvex {

namespace {

std::string counted(int count, const char* what) {
    return std::to_string(count) + " " + what + (count == 1 ? " fault" : " faults");
}

}  // namespace

int EventList::raise(const BoardEvent& event, std::chrono::local_seconds now, bool stands) {
    const auto [known, isNew] = ids_.try_emplace(keyOf(event), nextId_);
    auto& row = events_[known->second];
    if (isNew) {
        row = event;
        row.id = nextId_++;
        row.first = now;
    }
    if (row.standing && stands) return 0;
    const bool flaps = !isNew && now - row.last < flapping;
    if (event.sim != 0) row.sim = event.sim;
    row.last = now;
    ++row.count;
    row.standing = stands;
    row.acknowledged = false;
    if (stands) since_[row.id] = now;
    changed_.insert(row.id);
    const int news = stands && !flaps && !row.isAside(now) ? row.id : 0;
    if (isNew) makeRoom();
    return news;
}

void EventList::end(BoardEvent& event, std::chrono::local_seconds now) {
    event.standing = false;
    event.lastedSeconds = lastedSeconds(event, now);
    since_.erase(event.id);
    changed_.insert(event.id);
}

std::int64_t EventList::lastedSeconds(const BoardEvent& event, std::chrono::local_seconds now) const {
    const auto since = since_.find(event.id);
    const auto standing = since == since_.end() ? 0 : std::max<std::int64_t>(0, (now - since->second).count());
    return event.lastedSeconds + standing;
}

void EventList::forgetChanges() {
    changed_.clear();
    gone_.clear();
}

bool EventList::clear(BoardEvent::Kind kind, int port, std::chrono::local_seconds now, std::string_view but) {
    bool any = false;
    for (auto stood = since_.begin(); stood != since_.end();) {
        auto& event = events_[(stood++)->first];  // its end takes it away
        if (event.kind != kind || event.port != port || (!but.empty() && event.what == but)) continue;
        end(event, now);
        any = true;
    }
    return any;
}

void EventList::clearGateway(std::chrono::local_seconds now) {
    for (auto stood = since_.begin(); stood != since_.end();) {
        auto& event = events_[(stood++)->first];
        if (event.kind != BoardEvent::Kind::Link) end(event, now);
    }
}

void EventList::acknowledge(int id) {
    const auto row = events_.find(id);
    if (row == events_.end()) return;
    row->second.acknowledged = true;
    changed_.insert(id);
}

void EventList::setAside(int id, std::chrono::local_seconds until) {
    const auto row = events_.find(id);
    if (row == events_.end()) return;
    row->second.asideUntil = until;
    changed_.insert(id);
}

void EventList::restore(BoardEvent event) {
    event.standing = false;
    nextId_ = std::max(nextId_, event.id + 1);
    ids_[keyOf(event)] = event.id;
    events_[event.id] = std::move(event);
}

void EventList::forget() { *this = {}; }

const BoardEvent* EventList::find(int id) const {
    const auto row = events_.find(id);
    return row == events_.end() ? nullptr : &row->second;
}

void EventList::makeRoom() {
    if (events_.size() <= mostKept) return;
    auto oldest = events_.end();
    for (auto row = events_.begin(); row != events_.end(); ++row)
        if (!row->second.standing && (oldest == events_.end() || row->second.last < oldest->second.last)) oldest = row;
    if (oldest == events_.end()) return;
    ids_.erase(keyOf(oldest->second));
    gone_.insert(oldest->first);
    events_.erase(oldest);
}

std::string standingWords(const EventList& list, std::chrono::local_seconds now) {
    std::array<int, BoardEvent::kindNames.size()> counts{};
    for (const auto& [id, event] : list.all())
        if (event.standing && !event.isAside(now)) ++counts[static_cast<std::size_t>(event.kind)];
    std::string words;
    for (std::size_t kind = 0; kind < counts.size(); ++kind) {
        if (counts[kind] == 0) continue;
        const bool link = kind == static_cast<std::size_t>(BoardEvent::Kind::Link);
        words +=
            (words.empty() ? "" : ", ") + (link ? "link lost" : counted(counts[kind], BoardEvent::kindNames[kind]));
    }
    return words;
}

}  // namespace trunvex
