#include "config/group_file.h"

#include <fstream>
#include <iterator>
#include <set>

#include "model/node_key.h"
#include "text/latin1.h"
#include "text/text_rules.h"

namespace trunvex::group_file {

namespace {

struct Column {
    std::size_t offset;
    std::size_t width;
};

constexpr Column kindColumn{0, 4};
constexpr Column numberColumn{4, 2};
constexpr Column keyColumn{6, 8};
constexpr Column captionColumn{14, 15};
constexpr Column parentColumn{29, 8};

// A file of this many bytes is no list of 32 groups, 32 ports and 128 SIMs.
constexpr std::uintmax_t largestFile = 1u << 20;

std::string forced(std::string_view text, Column column) {
    return pad(toLatin1(text).substr(0, column.width), column.width, ' ', PadSide::Right);
}

std::string_view cutRight(std::string_view text) {
    const auto last = text.find_last_not_of(std::string_view(" \0", 2));
    return last == std::string_view::npos ? std::string_view() : text.substr(0, last + 1);
}

TreeItem decodeRecord(std::string_view record) {
    const auto column = [&](Column which) { return record.substr(which.offset, which.width); };
    TreeItem item;
    item.Kind = trim(cutRight(column(kindColumn)));
    if (item.Kind == "ERR") item.Kind = "GSM";
    item.Number = cutRight(column(numberColumn));
    item.Key = trim(cutRight(column(keyColumn)));
    item.Caption = fromLatin1(cutRight(column(captionColumn)));
    item.Parent = cutRight(column(parentColumn));
    return item;
}

bool usable(const TreeItem& item) {
    if (node_key::isGroup(item.Key)) return item.Kind == "GRP" && item.Number == mid(item.Key, 4, 2);
    if (node_key::isSim(item.Key)) return item.Kind == "SIM";
    const bool portKind = item.Kind == "GSM" || item.Kind == "CDM" || item.Kind.empty();
    return portKind && node_key::kindOf(item.Key) == node_key::Kind::Gsm;
}

}  // namespace

std::string encode(const std::vector<TreeItem>& items) {
    std::string bytes;
    bytes.reserve(items.size() * recordBytes);
    for (const auto& item : items) {
        bytes += forced(trim(item.Kind), kindColumn);
        bytes += forced(trim(item.Number), numberColumn);
        bytes += forced(trim(item.Key), keyColumn);
        bytes += forced(item.Caption, captionColumn);
        bytes += forced(trim(item.Parent), parentColumn);
    }
    return bytes;
}

std::vector<TreeItem> decode(std::string_view bytes) {
    std::vector<TreeItem> items;
    std::set<std::string> seen;
    const auto count = (bytes.size() + recordBytes / 2) / recordBytes;
    for (std::size_t i = 0; i < count; ++i) {
        const auto record = pad(bytes.substr(i * recordBytes, recordBytes), recordBytes, ' ', PadSide::Right);
        auto item = decodeRecord(record);
        if (usable(item) && seen.insert(item.Key).second) items.push_back(std::move(item));
    }
    // A port whose group is not in the file is free; otherwise a group made later would adopt it.
    for (auto& item : items)
        if (node_key::isPort(item.Key) && !seen.count(node_key::ofGroup("GRP", item.Parent))) item.Parent.clear();
    return items;
}

std::optional<std::vector<TreeItem>> read(const std::filesystem::path& path) {
    std::error_code error;
    const auto size = std::filesystem::file_size(path, error);
    if (error || size > largestFile) return std::nullopt;
    std::ifstream file(path, std::ios::binary);
    if (!file) return std::nullopt;
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    auto items = decode(bytes);
    if (items.empty()) return std::nullopt;
    return items;
}

}  // namespace trunvex::group_file
