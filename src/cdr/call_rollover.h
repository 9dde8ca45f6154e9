#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

#include "cdr/call_export.h"
#include "cdr/call_list.h"
#include "cdr/call_store.h"

namespace trunvex {

// The whole table of calls on its way into a file of its own, in slices. No row may come into the table meanwhile: it
// is emptied behind the file. What fails throws, and leaves no file.
class CallRollover {
public:
    enum class Format { Access, Csv, Xml };
    // Of the setting: 1 is CSV, 2 XML, any other the database.
    static Format formatOf(std::int64_t setting);
    // "CDR_4711 (1 - 3-2026 0,5,0).csv", by the local clock.
    static std::string fileName(const std::string& esn, std::chrono::local_seconds now, Format format);

    // What the page shows plays no part: the table itself is read.
    CallRollover(CallStore& store, std::filesystem::path file, Format format, bool header);

    // Some ms of work; false when the file is complete and on the disk.
    bool write();
    std::string progress() const;

private:
    void begin();

    CallStore& store_;
    std::filesystem::path file_;
    Format format_;
    bool header_;
    std::unique_ptr<CallCopy> copying_;
    CallList table_;
    std::unique_ptr<DatabaseRows> rows_;
    std::unique_ptr<CallExport> writing_;
};

}  // namespace trunvex
