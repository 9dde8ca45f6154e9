#include "shell/settings_file.h"

#include <fstream>
#include <thread>

#include "fakes/console_test.h"
#include "shell/application_folder.h"

namespace trunvex {
namespace {

class SettingsFileTest : public testing::Test {
protected:
    void put(const std::string& content) { std::ofstream(path, std::ios::binary) << content; }

    fakes::TemporaryFolder folder;
    std::filesystem::path path = folder.path() / "Setting.xml";
    std::vector<std::string> told;
    SettingsFile settings{path, [this](const std::string& text) { told.push_back(text); }};
};

TEST_F(SettingsFileTest, KeepsTextsAsTheyAreForAnotherReader) {
    const std::string odd = " <a href=\"x\">&amp;</a>\n\t\xC3\xA9 ";
    settings.Write("IPConfig", "NetPort", "4001");
    settings.Write("IP \"Config\"", "a<b", odd);
    settings.Write("IPConfig", "NetPort", "4002");
    SettingsFile other(path, [](const std::string&) {});
    EXPECT_EQ(other.Read("IPConfig", "NetPort"), "4002");
    EXPECT_EQ(other.Read("IP \"Config\"", "a<b"), odd);
    EXPECT_EQ(other.Read("IPConfig", "none"), "");
    EXPECT_EQ(other.Read("none", "NetPort"), "");
    other.Write("IPConfig", "NetPort", "");
    EXPECT_EQ(settings.Read("IPConfig", "NetPort"), "");
    other.Remove("IP \"Config\"");
    EXPECT_EQ(settings.Read("IP \"Config\"", "a<b"), "");
    EXPECT_FALSE(std::filesystem::exists(path.string() + ".new"));
}

TEST_F(SettingsFileTest, KeepsADamagedFileAsideAndSaysSoOnce) {
    const std::string damaged[] = {"not xml", "<settings><section", "<other/>", std::string("\0\xFF\x01", 3),
                                   std::string((16u << 20) + 1, ' ')};
    int aside = 0;
    for (const auto& bytes : damaged) {
        told.clear();
        put(bytes);
        EXPECT_EQ(settings.Read("IPConfig", "NetPort"), "");
        EXPECT_EQ(settings.Read("IPConfig", "NetPort"), "");
        settings.Write("IPConfig", "NetPort", "4001");
        EXPECT_EQ(told.size(), 1u);
        const auto kept = path.string() + ".damaged" + (aside ? "-" + std::to_string(aside + 1) : "");
        EXPECT_EQ(contentOf(kept), bytes);
        EXPECT_EQ(settings.Read("IPConfig", "NetPort"), "4001");
        ++aside;
    }
    told.clear();
    put("");
    EXPECT_EQ(settings.Read("IPConfig", "NetPort"), "");
    EXPECT_THAT(told, IsEmpty()) << "an empty file is no damage";
}

TEST_F(SettingsFileTest, LosesNothingOfTwoProgramsThatWriteAtOnce) {
    constexpr int writes = 20;
    const auto program = [this](const char* section) {
        SettingsFile own(path, [](const std::string&) {});
        for (int i = 0; i < writes; ++i) own.Write(section, "k" + std::to_string(i), "v");
    };
    std::thread other(program, "A");
    program("B");
    other.join();
    std::string kept;
    for (const auto* section : {"A", "B"})
        for (int i = 0; i < writes; ++i) kept += settings.Read(section, "k" + std::to_string(i));
    EXPECT_EQ(kept, std::string(2 * writes, 'v'));
}

// Root may write anywhere, so what a read-only folder does is tried with a path that no one can write.
TEST_F(SettingsFileTest, SaysOnceThatItCantSave) {
    put("<settings><section name=\"S\"><key name=\"k\">old</key></section></settings>");
    std::filesystem::create_directory(path.string() + ".new");
    settings.Write("S", "k", "new");
    settings.Write("S", "k", "newer");
    EXPECT_EQ(settings.Read("S", "k"), "old");
    ASSERT_EQ(told.size(), 1u);
    EXPECT_THAT(told[0], HasSubstr("can't be saved"));
    SettingsFile nowhere("/proc/none/Setting.xml", [this](const std::string& text) { told.push_back(text); });
    nowhere.Write("S", "k", "v");
    EXPECT_EQ(nowhere.Read("S", "k"), "");
    EXPECT_EQ(told.size(), 2u);
}

TEST(FirstStart, CompletesTheCallRecordSettingsAndTellsADamagedFile) {
    ConsoleBench bench;
    auto& settings = bench.console.files.setting;
    const auto kept = [&] {
        return settings.Read("CDRConfig", "Max") + " " + settings.Read("CDRConfig", "Mode") + " " +
               settings.Read("CDRConfig", "Header");
    };
    EXPECT_EQ(kept(), "1000 0 ");
    EXPECT_EQ(settings.Read("CDRConfig", "Path"), (bench.folder.path() / "data").string());
    for (const auto& [key, value] : {std::pair{"Max", "0"}, {"Mode", "2"}, {"Header", "0"}})
        settings.Write("CDRConfig", key, value);
    Console second(bench.platform, bench.folder.path());
    EXPECT_EQ(kept(), "1000 2 0");
    std::ofstream(bench.folder.path() / "Setting.xml") << "<broken";
    Console third(bench.platform, bench.folder.path());
    EXPECT_THAT(third.mainWindow.lblNotice.text(), HasSubstr("Setting.xml was damaged"));
}

TEST(ApplicationFolder, IsTheProgramsOwnWhenItCanBeWritten) {
    fakes::TemporaryFolder folder;
    EXPECT_EQ(applicationFolder(folder.path(), folder.path() / "user"), folder.path());
    EXPECT_EQ(applicationFolder("/proc", folder.path() / "user" / "trunvex"), folder.path() / "user" / "trunvex");
    EXPECT_TRUE(std::filesystem::is_directory(folder.path() / "user" / "trunvex"));
}

}  // namespace
}  // namespace trunvex
