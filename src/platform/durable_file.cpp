#include "platform/durable_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <fstream>
#include <system_error>
#include <utility>

namespace trunvex {

namespace {

[[noreturn]] void fail(const std::filesystem::path& path) {
    throw std::system_error(errno, std::generic_category(), path.filename().string());
}

}  // namespace

FreshFile::FreshFile(std::filesystem::path target) : target_(std::move(target)), fresh_(target_) {
    fresh_ += ".new";
    ::unlink(fresh_.c_str());
}

FreshFile::~FreshFile() {
    if (file_ >= 0) ::close(file_);
    if (!inPlace_) ::unlink(fresh_.c_str());
}

void FreshFile::create(mode_t mode) {
    file_ = ::open(fresh_.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, mode);
    if (file_ < 0) fail(target_);
}

void FreshFile::write(std::string_view content) { writeAll(file_, content, target_); }

// One that was filled by its name.
void FreshFile::open() {
    if (file_ < 0) file_ = ::open(fresh_.c_str(), O_RDONLY | O_CLOEXEC);
    if (file_ < 0) fail(target_);
}

void FreshFile::sync() {
    open();
    if (::fdatasync(file_) != 0) fail(target_);
}

void FreshFile::putInPlace() {
    open();
    if (::fsync(file_) != 0) fail(target_);
    ::close(std::exchange(file_, -1));
    if (std::rename(fresh_.c_str(), target_.c_str()) != 0) fail(target_);
    inPlace_ = true;
    syncFolderOf(target_);
}

void replaceFile(const std::filesystem::path& path, std::string_view content) {
    // A file that its owner made read-only is not to be replaced behind his back.
    if (::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) != 0 && errno != ENOENT) fail(path);
    FreshFile fresh(path);
    fresh.create();
    fresh.write(content);
    fresh.putInPlace();
}

void writeAll(int file, std::string_view text, const std::filesystem::path& path) {
    while (!text.empty()) {
        const auto written = ::write(file, text.data(), text.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) fail(path);
        text.remove_prefix(static_cast<std::size_t>(written));
    }
}

// A folder that can't be opened, and a file system that can't sync one, have nothing more to offer.
void syncFolderOf(const std::filesystem::path& path) {
    const auto folder = path.has_parent_path() ? path.parent_path() : std::filesystem::path(".");
    const int opened = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (opened < 0) return;
    const bool failed = ::fsync(opened) != 0 && errno != EINVAL && errno != ENOTSUP;
    const int why = errno;
    ::close(opened);
    errno = why;
    if (failed) fail(path);
}

std::optional<FileId> fileId(const std::filesystem::path& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) return std::nullopt;
    return FileId(status.st_dev, status.st_ino);
}

std::optional<FileId> fileId(int file) {
    struct stat status {};
    if (::fstat(file, &status) != 0) return std::nullopt;
    return FileId(status.st_dev, status.st_ino);
}

std::string wholeContent(const std::filesystem::path& path) {
    std::ifstream source(path, std::ios::binary);
    if (!source) fail(path);
    std::string content(std::filesystem::file_size(path), '\0');
    errno = EIO;
    if (!source.read(content.data(), static_cast<std::streamsize>(content.size()))) fail(path);
    return content;
}

}  // namespace trunvex
