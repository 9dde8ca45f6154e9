#pragma once

#include <filesystem>

#include "platform/database.h"

namespace trunvex {

// How a gateway's database comes to be, and what outlives it: the tables SMS and LOG stand in the same file as the
// calls, and are not cleared with them. What fails throws DatabaseError or std::system_error.
class CallFiles {
public:
    // `folder` holds the template, "CDR.mdb".
    CallFiles(DatabaseEngine& engine, const std::filesystem::path& folder);

    // A database that does not exist: what was kept for it, or the template. What one that was taken away has left
    // beside it is removed first.
    void make(const std::filesystem::path& database);
    // Puts the rows of SMS and LOG aside for the next database of this name. The files of what is kept need not exist
    // behind it: there may be no such row.
    void keepMessages(Database& from, const std::filesystem::path& database);
    void dropKept(const std::filesystem::path& database);

private:
    DatabaseEngine& engine_;
    std::filesystem::path template_;
};

}  // namespace trunvex
