#pragma once

#include <filesystem>

namespace trunvex {

// Where the console keeps its files: the program's own folder when it can be written (a copy on a stick is then a
// working console with its settings), else `userDataFolder`, which is made when missing.
std::filesystem::path applicationFolder(const std::filesystem::path& programFolder,
                                        const std::filesystem::path& userDataFolder);

// The template of the call database comes with the program; a console whose files are elsewhere gets its copy. Without
// one in either place nothing happens: the page of the calls says so when it needs it.
void provideCallTemplate(const std::filesystem::path& programFolder, const std::filesystem::path& applicationFolder);

}  // namespace trunvex
