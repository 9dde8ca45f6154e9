#include "shell/application_folder.h"

#include <unistd.h>

#include <cstdlib>

namespace trunvex {

namespace {

// Tried, not asked: the mode of a folder says nothing about a read-only medium, nor to root.
bool canBeWritten(const std::filesystem::path& folder) {
    auto trial = (folder / "trunvex-XXXXXX").string();
    const int file = ::mkstemp(trial.data());
    if (file < 0) return false;
    ::close(file);
    ::unlink(trial.c_str());
    return true;
}

}  // namespace

std::filesystem::path applicationFolder(const std::filesystem::path& programFolder,
                                        const std::filesystem::path& userDataFolder) {
    if (canBeWritten(programFolder)) return programFolder;
    std::error_code error;
    std::filesystem::create_directories(userDataFolder, error);
    return userDataFolder;
}

void provideCallTemplate(const std::filesystem::path& programFolder, const std::filesystem::path& applicationFolder) {
    const auto name = std::filesystem::path("data") / "CDR.mdb";
    std::error_code error;
    std::filesystem::create_directories(applicationFolder / "data", error);
    if (!std::filesystem::exists(applicationFolder / name, error))
        std::filesystem::copy_file(programFolder / name, applicationFolder / name, error);
}

}  // namespace trunvex
