// Files that are made beside their target and put in its place.
#include "platform/durable_file.h"

#include <fstream>
#include <functional>

#include "fakes/as_plain_user.h"
#include "fakes/console_test.h"

namespace trunvex {
namespace {

namespace fs = std::filesystem;

class DurableFile : public testing::Test {
protected:
    fakes::TemporaryFolder folder;
    fs::path target = folder.path() / "file";
    fs::path beside = folder.path() / "file.new";
};

TEST_F(DurableFile, HasItsNameWhenItIsComplete) {
    std::ofstream(target) << "old";
    std::ofstream(beside) << "what a crash has left, longer than what comes";
    fs::permissions(beside, fs::perms::owner_read);
    {
        FreshFile unfinished(target);
        unfinished.create();
        unfinished.write("part");
        EXPECT_EQ(contentOf(beside), "part");
    }
    EXPECT_FALSE(fs::exists(beside));
    EXPECT_EQ(contentOf(target), "old");
    FreshFile fresh(target);
    std::ofstream(fresh.path()) << "by its name";
    fresh.putInPlace();
    EXPECT_EQ(contentOf(target), "by its name");
    EXPECT_FALSE(fs::exists(beside));
    replaceFile(target, std::string(100000, 'x'));
    EXPECT_EQ(fs::file_size(target), 100000u);
}

TEST_F(DurableFile, LeavesTheOldOneWhereItCantBeReplaced) {
    const fakes::AsPlainUser user(folder.path());
    const auto asItIs = [](const fs::path&) {};
    const struct {
        const char* what;
        std::function<void(const fs::path&)> spoil, mend;
    } cases[] = {
        {"the file is read-only", [](const fs::path& file) { fs::permissions(file, fs::perms::owner_read); }, asItIs},
        {"its name beside is taken", [](const fs::path& file) { fs::create_directory(file.string() + ".new"); },
         [](const fs::path& file) { EXPECT_TRUE(fs::remove(file.string() + ".new")) << "not ours"; }},
        {"the folder is read-only", [](const fs::path& file) { fs::permissions(file.parent_path(), fs::perms(0500)); },
         [](const fs::path& file) { fs::permissions(file.parent_path(), fs::perms(0700)); }}};
    for (const auto& [what, spoil, mend] : cases) {
        SCOPED_TRACE(what);
        fs::remove(target);
        replaceFile(target, "old");
        spoil(target);
        try {
            replaceFile(target, "new");
            ADD_FAILURE() << "replaced";
        } catch (const std::system_error& error) {
            EXPECT_THAT(error.what(), testing::StartsWith("file: "));
        }
        mend(target);
        EXPECT_EQ(contentOf(target), "old");
        EXPECT_FALSE(fs::exists(beside));
    }
    EXPECT_THROW(replaceFile(folder.path() / "nowhere" / "file", "new"), std::system_error);
}

}  // namespace
}  // namespace trunvex
