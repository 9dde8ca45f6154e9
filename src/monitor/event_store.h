#pragma once

#include <filesystem>

#include "monitor/event_list.h"
#include "platform/database.h"

namespace trunvex {

// The events of a gateway on disk, in a database beside its calls. What fails throws.
class EventStore {
public:
    explicit EventStore(DatabaseEngine& engine) : engine_(engine) {}

    // Fills the list with what was kept for this gateway. What can't be read is not written either: the rows of a new
    // list would take the place of those.
    void open(const std::filesystem::path& path, EventList& list);
    const std::filesystem::path& path() const { return path_; }
    // Takes over what has changed in the list, which is forgotten there only when it is on the disk.
    void keep(EventList& list);

private:
    void read(const std::filesystem::path& path, EventList& list);

    DatabaseEngine& engine_;
    std::filesystem::path path_;
};

}  // namespace trunvex
