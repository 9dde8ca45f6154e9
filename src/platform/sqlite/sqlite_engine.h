#pragma once

#include "platform/database.h"

namespace trunvex {

// Databases as SQLite files. Changes go through a write-ahead log beside the file, so a commit costs no wait for the
// disk; makeDurable() and the closing of the database move the log into the file.
class SqliteEngine : public DatabaseEngine {
public:
    std::unique_ptr<Database> open(const std::filesystem::path& path) override;
    void remove(const std::filesystem::path& path) override;
    void removeBeside(const std::filesystem::path& path) override;
};

}  // namespace trunvex
