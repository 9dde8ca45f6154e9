#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>

namespace trunvex {

// Another program holds the lock; what() names it: "process 4711 on office-pc".
class FileInUse : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// A small file that one program at a time holds while it lives; in it stands who that is. The system lets go of it when
// the program ends, however it ends. The file stays: one that is deleted could be held by two.
class FileLock {
public:
    // For a lock that is held for no longer than one write takes, Wait lets its holder finish, for a
    // second at most.
    enum class Busy { Refuse, Wait };
    // Throws FileInUse, or std::system_error when the file can't be made or locked.
    explicit FileLock(std::filesystem::path path, Busy busy = Busy::Refuse);
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

    // False when the name leads to another file by now, or to none: someone else may hold that one.
    bool inPlace() const;

private:
    void sign() const;

    std::filesystem::path path_;
    int file_ = -1;
};

}  // namespace trunvex
