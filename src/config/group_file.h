#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/tree_item.h"

namespace trunvex {

// The group file: records of 37 bytes, padded with blanks on the right, without header or trailer.
//
//   offset 0, width 4   Kind      offset 14, width 15  Caption, cut
//   offset 4, width 2   Number    offset 29, width 8   Parent
//   offset 6, width 8   Key
namespace group_file {

inline constexpr std::size_t recordBytes = 37;

std::string encode(const std::vector<TreeItem>& items);

// As many records as the length divided by 37, rounded; what is missing of the last one reads as blanks. A module that
// was in error when the list was saved is a GSM module again. Records whose key names no group, port or SIM are left
// out, and so is a second record of a key.
std::vector<TreeItem> decode(std::string_view bytes);

// Nothing when the file can't be read, or when it holds not one usable record.
std::optional<std::vector<TreeItem>> read(const std::filesystem::path& path);

}  // namespace group_file

}  // namespace trunvex
