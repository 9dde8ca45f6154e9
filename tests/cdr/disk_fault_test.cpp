// Disks that are full or can't be written, in the middle of a download, an export and a rollover.
#include <sys/resource.h>

#include <csignal>
#include <fstream>

#include "cdr/calls_bench.h"
#include "fakes/as_plain_user.h"

namespace trunvex {
namespace {

using std::filesystem::perms;
using testing::HasSubstr;

// While it lives, no file grows beyond so many bytes: the write that does is cut off there, the next one fails.
class FullDisk {
public:
    explicit FullDisk(std::uintmax_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit{static_cast<rlim_t>(bytes), before_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() {
        ::setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    void (*handler_)(int);
    rlimit before_{};
};

constexpr int records = 400;

class DiskFault : public testing::Test {
protected:
    DiskFault() {
        fakes::fillCalls(gateway, records);
        kept = fakes::callsIn(gateway);
        bench.logIn(gateway);
    }
    int left() { return static_cast<int>(fakes::callsIn(gateway).size()); }
    int acknowledgements() const {
        const auto lines = bench.sent();
        return static_cast<int>(std::count_if(lines.begin(), lines.end(),
                                              [](const std::string& line) { return line.substr(0, 5) == "C_CDR"; }));
    }
    // Runs until so many are left in the gateway.
    void runTo(int remaining) {
        download.start();
        for (int ms = 0; ms < 60000 && left() > remaining; ++ms) bench.advance(1);
        ASSERT_EQ(left(), remaining);
    }
    // The run has come to rest, the operator knows why, and the gateway was told to drop nothing that a power cut could
    // take now.
    void expectHeld(const char* why) {
        bench.advance(120000);  // while the log alone is full, each new one takes some more
        EXPECT_THAT(download.lblCDRStatus.text(), HasSubstr(why));
        EXPECT_GT(left(), 0);
        const auto lines = bench.sent().size();
        bench.advance(30000);
        EXPECT_EQ(bench.sent().size(), lines) << "the run holds still";
        const int told = acknowledgements();
        EXPECT_EQ(told == 0 ? 0 : CallJournal(journal).entries().back().number, told);
    }
    void expectAllOnce() {
        bench.advance(120000);
        EXPECT_EQ(left(), 0);
        EXPECT_EQ(download.lblCDRStatus.text(), "");
        EXPECT_FALSE(download.gCDRDownloading);
        EXPECT_EQ(fakes::callsIn(store), kept);
        EXPECT_EQ(std::filesystem::status(journal).permissions(), perms::owner_read | perms::owner_write);
    }
    std::set<std::string> filesIn(const std::filesystem::path& folder) const {
        std::set<std::string> names;
        for (const auto& file : std::filesystem::directory_iterator(folder)) names.insert(file.path().filename());
        return names;
    }
    // So many calls in the table and in the list; far more than a disk with `littleRoom` takes.
    void fillTable(int calls) {
        std::string values;
        for (std::size_t column = 0; column < callColumnCount; ++column)
            values += column == 0 ? "i" : ", i || 'xxxxxx'";
        store.CheckCDRFile();
        bench.platform.databaseFiles.open(store.gCDRFile())
            ->execute("INSERT INTO CDR WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " +
                      std::to_string(calls) + ") SELECT " + values + " FROM n");
        page.BuildCDRList();
        bench.advance(100);
        ASSERT_EQ(page.lsvCallReport.size(), static_cast<std::size_t>(calls));
    }
    int inTable() { return static_cast<int>(fakes::callsIn(store).size()); }
    const std::string& notice() const { return bench.console.mainWindow.lblNotice.text(); }

    static constexpr std::uintmax_t littleRoom = 64 * 1024;  // what the database keeps in memory fits in
    simulator::Gateway gateway{fakes::seeded(3)};
    fakes::ConsoleBench bench;
    CallStore& store = bench.console.callStore;
    CdrDownload& download = bench.console.cdrDownload;
    CallsPage& page = bench.console.calls;
    std::filesystem::path data = bench.folder.path() / "data";
    std::filesystem::path journal = data / "CDR4711.journal";
    std::multiset<std::string> kept;  // what identifies each call
};

TEST_F(DiskFault, NoRoomFromTheStart) {
    // For the copy of the template, for the log's index, for all the rows.
    for (const std::uintmax_t room : {4096, 24 * 1024, 40 * 1024}) {
        SCOPED_TRACE(room);
        const FullDisk full(room);
        download.start();
        expectHeld("The disk is full");
        EXPECT_EQ(filesIn(data).count("CDR4711.mdb.new"), 0u);
    }
    expectAllOnce();
}

TEST_F(DiskFault, NoRoomInTheMiddleOfARun) {
    runTo(300);
    {
        const FullDisk full(std::filesystem::file_size(journal) + 50);  // it takes half a line
        expectHeld("The disk is full: CDR4711.journal");
        EXPECT_EQ(left(), 300);
    }
    runTo(100);
    {
        const FullDisk full(40 * 1024);  // neither the database nor its log can grow
        expectHeld("The disk is full");
    }
    expectAllOnce();
}

TEST_F(DiskFault, AFolderThatCantBeWritten) {
    const fakes::AsPlainUser user(bench.folder.path());
    for (const bool before : {true, false}) {  // the database is made
        SCOPED_TRACE(before);
        std::filesystem::permissions(data, perms::owner_read | perms::owner_exec);
        download.start();
        expectHeld(before ? "CDR4711.mdb: Permission denied" : "The call database can't be written");
        std::filesystem::permissions(data, perms::owner_all);
        if (before) store.CheckCDRFile();
    }
    runTo(200);  // what is open may still be written
    std::filesystem::permissions(data, perms::owner_read | perms::owner_exec);
    bench.advance(30000);
    std::filesystem::permissions(data, perms::owner_all);
    expectAllOnce();
}

TEST_F(DiskFault, AnExportLeavesNoHalfFile) {
    fillTable(4000);
    const auto file = bench.folder.path() / "calls";
    bench.platform.boxes.file = file.string();
    const auto before = filesIn(bench.folder.path());
    // The buttons, and the lines of what they write.
    for (const auto& [button, lines] : {std::pair<std::size_t, int>(1, 2 * 4001), {2, 0}, {3, 18 * 4000 + 3}}) {
        SCOPED_TRACE(button);
        bench.console.session.tell("");
        {
            const FullDisk full(littleRoom);
            page.cmdCDRExport.at(button).press();
            bench.advance(1000);
        }
        EXPECT_THAT(notice(), HasSubstr("can't be written"));
        EXPECT_EQ(filesIn(bench.folder.path()), before);
        EXPECT_FALSE(page.busy());
        page.cmdCDRExport.at(button).press();
        bench.advance(1000);
        const auto content = fakes::contentOf(file);
        if (button != 2) {
            EXPECT_EQ(std::count(content.begin(), content.end(), '\n'), lines) << "there is room again";
        }
        EXPECT_TRUE(std::filesystem::remove(file));
    }
}

TEST_F(DiskFault, ARolloverThatCantBeWrittenKeepsTheTable) {
    fillTable(1000);
    const auto goal = bench.folder.path() / "rolled";
    std::filesystem::create_directory(goal);
    std::ofstream(goal / "x");  // an empty folder is not used
    bench.console.files.setting.Write("CDRConfig", "Path", goal.string());
    const auto expectKept = [&] {
        bench.console.session.tell("");
        page.SaveCDRFile();
        EXPECT_THAT(notice(), HasSubstr("can't be written to " + goal.string()));
        EXPECT_EQ(filesIn(goal), std::set<std::string>{"x"});
        EXPECT_EQ(page.lsvCallReport.size(), 1000u);
    };
    for (const char* format : {"0", "1", "2"}) {
        SCOPED_TRACE(format);
        bench.console.files.setting.Write("CDRConfig", "Format", format);
        {
            const FullDisk full(littleRoom);
            expectKept();
        }
        EXPECT_EQ(inTable(), 1000);
        const fakes::AsPlainUser user(bench.folder.path());
        std::filesystem::permissions(goal, perms::owner_read | perms::owner_exec);
        expectKept();
        std::filesystem::permissions(goal, perms::owner_all);
        EXPECT_EQ(inTable(), 1000);
    }
    {
        // The table can't be deleted: its calls must not stand in a file as well.
        const fakes::AsPlainUser user(bench.folder.path());
        std::filesystem::permissions(bench.folder.path() / "data", perms::owner_read | perms::owner_exec);
        page.SaveCDRFile();
        std::filesystem::permissions(bench.folder.path() / "data", perms::owner_all);
    }
    EXPECT_EQ(filesIn(goal), std::set<std::string>{"x"});
    EXPECT_EQ(inTable(), 1000);
    page.SaveCDRFile();
    EXPECT_EQ(inTable(), 0);
    EXPECT_EQ(filesIn(goal).size(), 2u);
}

}  // namespace
}  // namespace trunvex
