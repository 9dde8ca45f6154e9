#pragma once

#include <filesystem>
#include <string_view>

namespace trunvex {

// Replaces a file's content in one step and makes it durable: readers see the old content or the new, never a part.
// Throws std::system_error with the reason; the old file then stands as it was.
void replaceFile(const std::filesystem::path& path, std::string_view content);

}  // namespace trunvex
