#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "cdr/call_list.h"
#include "platform/durable_file.h"

namespace trunvex {

// What the call list shows, in its order, as a file; row by row, so that a long list can be written in slices. The file
// has its name when it is complete and on the disk. What fails throws std::system_error, and leaves no file.
class CallExport {
public:
    enum class Format { Csv, Xml };

    // CSV: every value, and with `header` every heading, followed by a comma; a blank line behind each line. No value
    // is quoted. XML: an element for each row and in it one for each value, nothing escaped.
    CallExport(const CallList& list, std::filesystem::path path, Format format, bool header);

    // Writes at most so many rows; false when the file is complete.
    bool write(std::size_t most);
    std::size_t written() const { return row_; }

private:
    void addCsvRow();
    void addXmlRow();
    void flush();
    void finish();

    const CallList& list_;
    FreshFile file_;
    Format format_;
    std::string text_;  // what is not written yet
    std::size_t unsynced_ = 0;
    std::size_t row_ = 0;
};

std::unique_ptr<CallExport> CSVExport(const std::filesystem::path& fileName, const CallList& list, bool includeHeader);
std::unique_ptr<CallExport> XMLExport(const CallList& list, const std::filesystem::path& fileName);

// A heading as the name of an element: the first "\" is left out, every blank is "_".
std::string elementName(std::string_view heading);

}  // namespace trunvex
