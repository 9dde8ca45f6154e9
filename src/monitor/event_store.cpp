#include "monitor/event_store.h"

#include <fstream>

#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr const char* makeTable =
    "CREATE TABLE IF NOT EXISTS EVENTS (id INTEGER PRIMARY KEY, kind INTEGER, port INTEGER, sim INTEGER, what TEXT, "
    "first INTEGER, last INTEGER, lasted INTEGER, count INTEGER, acknowledged INTEGER, aside INTEGER)";
constexpr const char* all =
    "SELECT id, kind, port, sim, what, first, last, lasted, count, acknowledged, aside FROM EVENTS ORDER BY id";

std::chrono::local_seconds moment(std::string_view text) {
    return std::chrono::local_seconds(std::chrono::seconds(val(text)));
}

std::string number(std::chrono::local_seconds when) { return std::to_string(when.time_since_epoch().count()); }

}  // namespace

void EventStore::open(const std::filesystem::path& path, EventList& list) {
    list.forget();
    path_.clear();
    read(path, list);
    path_ = path;
}

void EventStore::read(const std::filesystem::path& path, EventList& list) {
    if (path.empty() || !std::filesystem::exists(path)) return;
    const auto database = engine_.open(path);
    database->execute(makeTable);
    const auto rows = database->query(all);
    while (rows->next()) {
        BoardEvent event;
        const auto whole = [&rows](int column) { return static_cast<int>(val(rows->text(column))); };
        event.id = whole(0);
        if (whole(1) < 0 || whole(1) >= static_cast<int>(BoardEvent::kindNames.size())) continue;
        event.kind = static_cast<BoardEvent::Kind>(whole(1));
        event.port = whole(2);
        event.sim = whole(3);
        event.what = rows->text(4);
        event.first = moment(rows->text(5));
        event.last = moment(rows->text(6));
        event.lastedSeconds = val(rows->text(7));
        event.count = whole(8);
        event.acknowledged = whole(9) != 0;
        event.asideUntil = moment(rows->text(10));
        list.restore(std::move(event));
    }
}

void EventStore::keep(EventList& list) {
    if (path_.empty() || (list.changed().empty() && list.gone().empty())) return;
    if (!std::filesystem::exists(path_)) std::ofstream{path_};  // an empty file is an empty database
    const auto database = engine_.open(path_);
    database->execute("BEGIN IMMEDIATE");
    database->execute(makeTable);
    for (const int id : list.gone()) {
        const auto key = std::to_string(id);
        database->execute("DELETE FROM EVENTS WHERE id = ?", {key});
    }
    for (const int id : list.changed()) {
        const auto* event = list.find(id);
        if (!event) continue;
        const std::string values[] = {std::to_string(id),
                                      std::to_string(static_cast<int>(event->kind)),
                                      std::to_string(event->port),
                                      std::to_string(event->sim),
                                      event->what,
                                      number(event->first),
                                      number(event->last),
                                      std::to_string(event->lastedSeconds),
                                      std::to_string(event->count),
                                      event->acknowledged ? "1" : "0",
                                      number(event->asideUntil)};
        database->execute("REPLACE INTO EVENTS VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)",
                          {std::begin(values), std::end(values)});
    }
    database->execute("COMMIT");
    list.forgetChanges();
}

}  // namespace trunvex
