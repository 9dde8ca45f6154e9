#pragma once

#include <sys/types.h>

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace trunvex {

// Files that a power cut leaves whole. What fails throws std::system_error with the reason and the file's name.

// A file that is made beside its target, as "<target>.new", and removed unless it is put in place.
class FreshFile {
public:
    // Whatever an earlier attempt has left beside the target is removed.
    explicit FreshFile(std::filesystem::path target);
    ~FreshFile();
    FreshFile(const FreshFile&) = delete;
    FreshFile& operator=(const FreshFile&) = delete;

    // Where it stands meanwhile, for who fills it by its name.
    const std::filesystem::path& path() const { return fresh_; }
    // Makes it, empty; then write() goes to its end.
    void create(mode_t mode = 0644);
    void write(std::string_view content);
    // What stands in it so far is on the disk: a long file that is synced bit by bit holds nobody up at its end.
    void sync();
    // It is on the disk, then it has the target's name, and then the name is on the disk too. Until then the target
    // stands as it was.
    void putInPlace();

private:
    void open();

    std::filesystem::path target_;
    std::filesystem::path fresh_;
    int file_ = -1;
    bool inPlace_ = false;
};

// Replaces a file's content in one step: readers see the old content or the new, never a part. A file that its owner
// made read-only stays.
void replaceFile(const std::filesystem::path& path, std::string_view content);

// All of the text at the place of an open file; `path` is for the reason only.
void writeAll(int file, std::string_view text, const std::filesystem::path& path);

// What was made, renamed or removed in the file's folder stays so.
void syncFolderOf(const std::filesystem::path& path);

// Which file it is that a name leads to, whatever it is called: device and number on it. None when it leads nowhere.
using FileId = std::pair<dev_t, ino_t>;
std::optional<FileId> fileId(const std::filesystem::path& path);
std::optional<FileId> fileId(int file);

// All that stands in a file. A file that gives less than its size is an error, never a shorter text.
std::string wholeContent(const std::filesystem::path& path);

}  // namespace trunvex
