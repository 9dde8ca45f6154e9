#pragma once

#include <cstddef>
#include <filesystem>

namespace bench {

// Rows of the big table: a million, or what CALL_ROWS says.
std::size_t callRows();

// A database of that many calls as a gateway records them, made once a run.
const std::filesystem::path& bigCallDatabase();
// The same in the data folder of an application folder, under the name of a gateway.
void linkBigCallDatabase(const std::filesystem::path& applicationFolder, const char* esn);

}  // namespace bench
