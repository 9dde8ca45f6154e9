#pragma once

#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

namespace trunvex::fakes {

// While it lives, the modes of files hold the test, for the superuser is not held by them: run as root, the test is a
// plain user, who owns the folder and all that is in it.
class AsPlainUser {
public:
    explicit AsPlainUser(const std::filesystem::path& folder) : wasRoot_(::geteuid() == 0) {
        if (!wasRoot_) return;
        give(folder);
        for (const auto& file : std::filesystem::recursive_directory_iterator(folder)) give(file);
        if (::setresgid(nobody, nobody, 0) != 0 || ::setresuid(nobody, nobody, 0) != 0) fail();
    }
    ~AsPlainUser() {
        if (wasRoot_ && (::setresuid(0, 0, 0) != 0 || ::setresgid(0, 0, 0) != 0)) std::terminate();
    }
    AsPlainUser(const AsPlainUser&) = delete;
    AsPlainUser& operator=(const AsPlainUser&) = delete;

private:
    static constexpr uid_t nobody = 65534;

    static void give(const std::filesystem::path& file) {
        if (::lchown(file.c_str(), nobody, nobody) != 0) fail();
    }
    [[noreturn]] static void fail() { throw std::system_error(errno, std::generic_category(), "as a plain user"); }

    bool wasRoot_;
};

}  // namespace trunvex::fakes
