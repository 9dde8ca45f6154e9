#include "cdr/call_export.h"

#include <cerrno>
#include <system_error>

#include "platform/quietly.h"
#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr const char* lineEnd = "\r\n";
constexpr const char* rowIndent = "          ";
constexpr const char* valueIndent = "               ";
constexpr std::size_t all = static_cast<std::size_t>(-1);

bool writeAll(const CallList& list, const std::filesystem::path& path, CallExport::Format format, bool header) {
    return quietly("export", [&] { CallExport(list, path, format, header).write(all); });
}

}  // namespace

std::string elementName(std::string_view heading) {
    std::string name(trim(heading));
    if (const auto slash = name.find('\\'); slash != std::string::npos) name.erase(slash, 1);
    for (char& c : name)
        if (c == ' ') c = '_';
    return name;
}

CallExport::CallExport(const CallList& list, std::filesystem::path path, Format format, bool header)
    : list_(list), path_(std::move(path)), fresh_(path_), format_(format) {
    fresh_ += ".new";
    file_.open(fresh_, std::ios::binary | std::ios::trunc);
    if (!file_) fail();
    if (format_ == Format::Xml) {
        file_ << "<?xml version=\"1.0\"?>" << lineEnd << "<root>" << lineEnd;
    } else if (header) {
        for (const auto& column : callColumns) file_ << column.heading << ',';
        file_ << lineEnd << lineEnd;
    }
}

CallExport::~CallExport() {
    if (complete_) return;
    file_.close();
    std::error_code error;
    std::filesystem::remove(fresh_, error);
}

void CallExport::fail() const {
    throw std::system_error(errno != 0 ? errno : EIO, std::generic_category(), path_.filename().string());
}

void CallExport::writeRow() {
    if (format_ == Format::Csv) {
        for (std::size_t column = 0; column < callColumnCount; ++column) file_ << list_.text(row_, column) << ',';
        file_ << lineEnd << lineEnd;
    } else {
        static const auto names = [] {
            std::array<std::string, callColumnCount> made;
            for (std::size_t column = 0; column < callColumnCount; ++column)
                made[column] = elementName(callColumns[column].heading);
            return made;
        }();
        file_ << rowIndent << "<RECORD_" << row_ + 1 << '>' << lineEnd;
        for (std::size_t column = 0; column < callColumnCount; ++column)
            file_ << valueIndent << '<' << names[column] << " > " << list_.text(row_, column) << " </" << names[column]
                  << '>' << lineEnd;
        file_ << rowIndent << "</RECORD_" << row_ + 1 << '>' << lineEnd;
    }
    ++row_;
}

bool CallExport::write(std::size_t most) {
    for (std::size_t count = 0; count < most && row_ < list_.size(); ++count) writeRow();
    if (!file_) fail();
    if (row_ < list_.size()) return true;
    finish();
    return false;
}

void CallExport::finish() {
    if (format_ == Format::Xml) file_ << "</root>" << lineEnd;
    file_.flush();
    if (!file_) fail();
    file_.close();
    std::filesystem::rename(fresh_, path_);
    complete_ = true;
}

bool CSVExport(const std::filesystem::path& fileName, const CallList& list, bool includeHeader) {
    return writeAll(list, fileName, CallExport::Format::Csv, includeHeader);
}

bool XMLExport(const CallList& list, const std::filesystem::path& fileName) {
    return writeAll(list, fileName, CallExport::Format::Xml, false);
}

}  // namespace trunvex
