#include "cdr/call_journal.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <cstdint>
#include <fstream>
#include <limits>
#include <sstream>
#include <system_error>
#include <utility>

#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr char separator = '\t';
constexpr const char* recordLine = "R";
constexpr const char* addedLine = "A";
constexpr mode_t ownersOnly = 0600;  // numbers of callers are nobody else's business

// FNV-1a, 64 bits.
std::string checkSum(std::string_view text) {
    std::uint64_t sum = 0xcbf29ce484222325;
    for (const char c : text) sum = (sum ^ static_cast<unsigned char>(c)) * 0x100000001b3;
    std::array<char, 16> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), sum, 16).ptr;
    return {digits.data(), end};
}

// A value without separators and line ends of its own.
std::string packed(std::string_view value) {
    std::string text;
    for (const char c : value) {
        switch (c) {
            case '\\':
                text += "\\\\";
                break;
            case '\t':
                text += "\\t";
                break;
            case '\n':
                text += "\\n";
                break;
            default:
                text += c;
        }
    }
    return text;
}

std::string unpacked(std::string_view text) {
    std::string value;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\' || i + 1 == text.size())
            value += text[i];
        else if (const char next = text[++i]; next == 't' || next == 'n')
            value += next == 't' ? '\t' : '\n';
        else
            value += next;
    }
    return value;
}
std::string sealed(const std::string& body) { return body + separator + checkSum(body) + '\n'; }

std::string lineOf(const CallJournal::Entry& entry) {
    std::string body = recordLine;
    const auto add = [&body](std::string_view value) { body += separator + packed(value); };
    add(std::to_string(entry.number));
    add(std::to_string(entry.slot));
    add(entry.record.RecordID);
    for (const auto& column : callColumns) add(entry.record.*column.value);
    return sealed(body);
}

// The parts of a line whose check sum is right, else nothing.
std::vector<std::string> partsOf(const std::string& line) {
    const auto seal = line.rfind(separator);
    if (seal == std::string::npos || seal == 0) return {};
    if (line.substr(seal + 1) != checkSum(std::string_view(line).substr(0, seal))) return {};
    std::vector<std::string> parts;
    std::istringstream body(line.substr(0, seal));
    for (std::string part; std::getline(body, part, separator);) parts.push_back(unpacked(part));
    if (line[seal - 1] == separator) parts.emplace_back();  // an empty last value
    return parts;
}

[[noreturn]] void fail(const std::filesystem::path& path) {
    throw std::system_error(errno, std::generic_category(), path.filename().string());
}

// The number behind this one. There is none behind the highest: a record with a lower one would pass for one that is in
// the table.
int numberBehind(int number, const std::filesystem::path& path) {
    if (number < std::numeric_limits<int>::max()) return number + 1;
    errno = EOVERFLOW;
    fail(path);
}

}  // namespace

CallJournal::CallJournal(std::filesystem::path path) : path_(std::move(path)) { read(); }

CallJournal::~CallJournal() { close(); }

// A journal that is there and can't be read is no empty one: numbers would begin anew.
void CallJournal::read() {
    id_ = fileId(path_);
    if (!id_) return;
    errno = EISDIR;
    if (!std::filesystem::is_regular_file(path_)) fail(path_);
    std::ifstream file(path_, std::ios::binary);
    if (!file) fail(path_);
    for (std::string line; std::getline(file, line);) {
        const auto parts = partsOf(line);
        if (parts.size() == 2 && parts[0] == addedLine) {
            addedUpTo_ = static_cast<int>(val(parts[1]));
            lastNumber_ = std::max(lastNumber_, addedUpTo_);
        }
        if (parts.size() != callColumnCount + 4 || parts[0] != recordLine) continue;
        Entry entry;
        entry.number = static_cast<int>(val(parts[1]));
        entry.slot = static_cast<int>(val(parts[2]));
        entry.record.RecordID = parts[3];
        for (std::size_t column = 0; column < callColumnCount; ++column)
            entry.record.*callColumns[column].value = parts[column + 4];
        if (entry.slot >= 1 && entry.slot <= cdrChannelCount) keep(std::move(entry));
    }
    if (file.bad()) fail(path_);
}

void CallJournal::keep(Entry entry) {
    lastNumber_ = std::max(lastNumber_, entry.number);
    const auto slot = static_cast<std::size_t>(entry.slot - 1);
    entries_.push_back(std::move(entry));
    last_[slot] = static_cast<int>(entries_.size());
}

bool CallJournal::inPlace() const { return fileId(path_) == id_; }

// A torn last line is ended, so that it does not take the next one with it. The name of a new journal goes to the disk
// before any record does; an earlier console may have been cut off before it came to that, so it is done at any
// opening.
void CallJournal::open() {
    if (file_ >= 0) return;
    file_ = ::open(path_.c_str(), O_RDWR | O_CREAT | O_APPEND | O_CLOEXEC, ownersOnly);
    if (file_ < 0) fail(path_);
    try {
        syncFolderOf(path_);
        const auto end = ::lseek(file_, 0, SEEK_END);
        char last = '\n';
        if (end > 0 && ::pread(file_, &last, 1, end - 1) != 1) fail(path_);
        if (last != '\n') writeAll(file_, "\n", path_);
        id_ = fileId(file_);
    } catch (...) {
        close();
        throw;
    }
}

void CallJournal::close() {
    if (file_ >= 0) ::close(std::exchange(file_, -1));
}

// All of it on the disk, or nothing: half a line would hide the one behind it. A file that can't even be cut back is
// opened anew; its last line fails its check sum.
void CallJournal::write(std::string_view text) {
    open();
    const auto end = ::lseek(file_, 0, SEEK_END);
    try {
        writeAll(file_, text, path_);
        if (::fdatasync(file_) != 0) fail(path_);
    } catch (...) {
        [[maybe_unused]] const bool cut = ::ftruncate(file_, end) == 0;
        close();
        throw;
    }
}

void CallJournal::append(int slot, const CDRSlot& record, int mark) {
    Entry entry{numberBehind(std::max(lastNumber_, mark), path_), slot, record};
    write(lineOf(entry));
    keep(std::move(entry));
}

const CallJournal::Entry* CallJournal::lastOf(int slot) const {
    const auto place = last_.at(static_cast<std::size_t>(slot - 1));
    return place == 0 ? nullptr : &entries_[static_cast<std::size_t>(place - 1)];
}

void CallJournal::shrink(int upTo) {
    std::vector<Entry> kept;
    for (const auto& entry : entries_)
        if (entry.number > upTo || lastOf(entry.slot) == &entry) kept.push_back(entry);
    rewrite(std::move(kept), upTo);
}

void CallJournal::raise(int behind, int mark) {
    auto raised = entries_;
    int number = std::max(lastNumber_, mark);
    for (auto& entry : raised)
        if (entry.number > behind) entry.number = number = numberBehind(number, path_);
    rewrite(std::move(raised), addedUpTo_);
}

// A long journal gives its memory back.
void CallJournal::rewrite(std::vector<Entry> entries, int upTo) {
    close();
    std::string text = sealed(std::string(addedLine) + separator + std::to_string(upTo));
    for (const auto& entry : entries) text += lineOf(entry);
    FreshFile fresh(path_);
    fresh.create(ownersOnly);
    fresh.write(text);
    fresh.putInPlace();
    id_ = fileId(path_);
    addedUpTo_ = upTo;
    lastNumber_ = std::max(lastNumber_, upTo);  // a mark may know numbers that were never given here
    std::vector<Entry>().swap(entries_);
    last_ = {};
    for (auto& entry : entries) keep(std::move(entry));
}

}  // namespace trunvex
