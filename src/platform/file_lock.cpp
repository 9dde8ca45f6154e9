#include "platform/file_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <system_error>
#include <thread>
#include <utility>

#include "platform/durable_file.h"

namespace trunvex {

namespace {

constexpr mode_t ownersOnly = 0600;
constexpr auto pause = std::chrono::milliseconds(5);
constexpr int mostPauses = 200;  // a holder that has not finished within a second hangs, or was stopped

[[noreturn]] void fail(int file, const std::filesystem::path& path) {
    const int why = errno;
    if (file >= 0) ::close(file);
    throw std::system_error(why, std::generic_category(), path.filename().string());
}

std::string holderOf(int file) {
    std::array<char, 256> text{};
    const auto length = ::pread(file, text.data(), text.size(), 0);
    return length > 0 ? std::string(text.data(), static_cast<std::size_t>(length)) : "another program";
}

}  // namespace

FileLock::FileLock(std::filesystem::path path, Busy busy) : path_(std::move(path)) {
    file_ = ::open(path_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, ownersOnly);
    if (file_ < 0) fail(file_, path_);
    int failed = ::flock(file_, LOCK_EX | LOCK_NB);
    for (int pauses = 0; failed != 0 && errno == EWOULDBLOCK && busy == Busy::Wait && pauses < mostPauses; ++pauses) {
        std::this_thread::sleep_for(pause);
        failed = ::flock(file_, LOCK_EX | LOCK_NB);
    }
    if (failed != 0) {
        if (errno != EWOULDBLOCK) fail(file_, path_);
        const auto holder = holderOf(file_);
        ::close(file_);
        throw FileInUse(holder);
    }
    sign();
}

FileLock::~FileLock() { ::close(file_); }

bool FileLock::inPlace() const {
    const auto named = fileId(path_);
    return named && named == fileId(file_);
}

// A full disk takes no name; the lock holds without one.
void FileLock::sign() const {
    std::array<char, 128> host{};
    ::gethostname(host.data(), host.size() - 1);
    const auto text = "process " + std::to_string(::getpid()) + " on " + host.data();
    [[maybe_unused]] const bool signed_ =
        ::ftruncate(file_, 0) == 0 && ::pwrite(file_, text.data(), text.size(), 0) >= 0;
}

}  // namespace trunvex
