#pragma once

#include <filesystem>

#include "monitor/event_list.h"
#include "platform/database.h"

namespace trunvex {

// The events of a gateway on disk, in a database beside its calls. What fails throws.
class EventStore {
public:
    explicit EventStore(DatabaseEngine& engine) : engine_(engine) {}

    // Fills the list with what was kept for this gateway.
    void open(const std::filesystem::path& path, EventList& list);
    bool isOpen() const { return !path_.empty(); }
    // Takes over what has changed in the list.
    void keep(EventList& list);

private:
    DatabaseEngine& engine_;
    std::filesystem::path path_;
};

}  // namespace trunvex
