#include "shell/atomic_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <string>
#include <system_error>

namespace trunvex {

namespace {

[[noreturn]] void fail(const std::string& what) { throw std::system_error(errno, std::generic_category(), what); }

void writeAll(int file, std::string_view content) {
    while (!content.empty()) {
        const auto written = ::write(file, content.data(), content.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) fail("write");
        content.remove_prefix(static_cast<std::size_t>(written));
    }
}

// Makes the rename itself durable; a file system that can't sync a folder has nothing more to offer.
void syncFolder(const std::filesystem::path& folder) {
    const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) return;
    ::fsync(descriptor);
    ::close(descriptor);
}

}  // namespace

void replaceFile(const std::filesystem::path& path, std::string_view content) {
    // A file that its owner made read-only is not to be replaced behind his back.
    if (std::filesystem::exists(path) && ::access(path.c_str(), W_OK) != 0) fail(path.filename().string());
    const auto temporary = path.string() + ".new";
    const int file = ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    if (file < 0) fail(path.filename().string());
    try {
        writeAll(file, content);
        if (::fsync(file) != 0) fail("fsync");
        ::close(file);
    } catch (...) {
        ::close(file);
        ::unlink(temporary.c_str());
        throw;
    }
    if (std::rename(temporary.c_str(), path.c_str()) != 0) {
        const int reason = errno;
        ::unlink(temporary.c_str());
        errno = reason;
        fail("rename");
    }
    syncFolder(path.parent_path());
}

}  // namespace trunvex
