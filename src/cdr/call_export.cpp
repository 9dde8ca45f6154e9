#include "cdr/call_export.h"

#include <array>

#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr const char* lineEnd = "\r\n";
constexpr const char* rowIndent = "          ";
constexpr const char* valueIndent = "               ";
constexpr std::size_t flushBytes = std::size_t{256} * 1024;
constexpr std::size_t syncBytes = std::size_t{4} * 1024 * 1024;

}  // namespace

std::string elementName(std::string_view heading) {
    std::string name(trim(heading));
    if (const auto slash = name.find('\\'); slash != std::string::npos) name.erase(slash, 1);
    for (char& c : name)
        if (c == ' ') c = '_';
    return name;
}

CallExport::CallExport(const CallList& list, std::filesystem::path path, Format format, bool header)
    : list_(list), file_(std::move(path)), format_(format) {
    file_.create();
    if (format_ == Format::Xml) {
        text_ = std::string("<?xml version=\"1.0\"?>") + lineEnd + "<root>" + lineEnd;
    } else if (header) {
        for (const auto& column : callColumns) (text_ += column.heading) += ',';
        (text_ += lineEnd) += lineEnd;
    }
}

void CallExport::addCsvRow() {
    for (std::size_t column = 0; column < callColumnCount; ++column) (text_ += list_.text(row_, column)) += ',';
    (text_ += lineEnd) += lineEnd;
}

void CallExport::addXmlRow() {
    // What stands before each value and behind it.
    static const auto tags = [] {
        std::array<std::pair<std::string, std::string>, callColumnCount> made;
        for (std::size_t column = 0; column < callColumnCount; ++column) {
            const auto name = elementName(callColumns[column].heading);
            made[column] = {valueIndent + ("<" + name) + " > ", " </" + name + ">" + lineEnd};
        }
        return made;
    }();
    const auto number = std::to_string(row_ + 1);
    text_ += rowIndent + ("<RECORD_" + number) + ">" + lineEnd;
    for (std::size_t column = 0; column < callColumnCount; ++column)
        ((text_ += tags[column].first) += list_.text(row_, column)) += tags[column].second;
    text_ += rowIndent + ("</RECORD_" + number) + ">" + lineEnd;
}

bool CallExport::write(std::size_t most) {
    for (std::size_t count = 0; count < most && row_ < list_.size(); ++count, ++row_) {
        format_ == Format::Csv ? addCsvRow() : addXmlRow();
        if (text_.size() >= flushBytes) flush();
    }
    if (row_ < list_.size()) {
        if (unsynced_ >= syncBytes) {
            file_.sync();
            unsynced_ = 0;
        }
        return true;
    }
    finish();
    return false;
}

void CallExport::flush() {
    file_.write(text_);
    unsynced_ += text_.size();
    text_.clear();
}

void CallExport::finish() {
    if (format_ == Format::Xml) (text_ += "</root>") += lineEnd;
    flush();
    file_.putInPlace();
}

std::unique_ptr<CallExport> CSVExport(const std::filesystem::path& fileName, const CallList& list, bool includeHeader) {
    return std::make_unique<CallExport>(list, fileName, CallExport::Format::Csv, includeHeader);
}

std::unique_ptr<CallExport> XMLExport(const CallList& list, const std::filesystem::path& fileName) {
    return std::make_unique<CallExport>(list, fileName, CallExport::Format::Xml, false);
}

}  // namespace trunvex
