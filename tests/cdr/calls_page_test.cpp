// The page of the calls: list, filters, files, settings, and a download that meets a locked database.
#include <fstream>
#include <functional>

#include "cdr/calls_bench.h"

namespace trunvex {
namespace {

using testing::EndsWith;

class Calls : public testing::Test {
protected:
    Calls() { know("4711"); }
    void know(const std::string& esn, bool shown = true) {
        page.setShown(shown);
        bench.console.session.state.gESN = esn;
        bench.console.session.events.identified.emit();
    }
    void add(const std::string& port, const std::string& dialled, const std::string& duration = "0") {
        fakes::addCall(store, port, dialled, duration);
    }
    // A table that takes several slices.
    void fill() { fill(store); }
    void fill(CallStore& into) {
        into.CheckCDRFile();
        bench.platform.databaseFiles.open(into.gCDRFile())
            ->execute(
                "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 9000) INSERT INTO CDR "
                "SELECT '5','1','','',printf('%0400d', i),10000 + i,'','','','','','','','','','' FROM n");
    }
    std::vector<std::string> shown() const {
        std::vector<std::string> numbers;
        for (std::size_t row = 0; row < page.lsvCallReport.size(); ++row)
            numbers.emplace_back(page.lsvCallReport.text(row, 5));
        return numbers;
    }
    void setting(const char* key, const std::string& value) {
        bench.console.files.setting.Write("CDRConfig", key, value);
        page.readSettings();
    }
    int inTable() { return static_cast<int>(fakes::callsIn(store).size()); }
    std::filesystem::path made(const std::string& name) const { return bench.folder.path() / name; }
    // What stands in the files of rollovers, and behind each its name; the files are gone then.
    std::string rolled() const {
        std::string contents;
        std::vector<std::filesystem::path> files;
        for (const auto& file : std::filesystem::directory_iterator(made("data")))
            if (file.path().filename().string().starts_with("CDR_47")) files.push_back(file.path());
        for (const auto& file : files) {
            contents += contentOf(file) + file.filename().string();
            std::filesystem::remove(file);
        }
        return contents;
    }
    void press(std::size_t button, const std::filesystem::path& file = {}) {
        bench.platform.boxes.file = file.string();
        page.cmdCDRExport.at(button).press();
        bench.advance(100);
    }

    ConsoleBench bench;
    CallStore& store = bench.console.callStore;
    CallsPage& page = bench.console.calls;
};

TEST_F(Calls, FilterByColumnAndValue) {
    add("5", "100");
    add("12", "101");
    add("5", "it's");
    page.cmbCDRColumn.setText("Port");
    EXPECT_THAT(page.cmbCDRValue.items(), ElementsAre(" ", "12", "5"));
    EXPECT_EQ(page.lblCDRTotal.text(), "3") << "nothing is filtered yet";
    page.cmbCDRValue.setText("5");
    EXPECT_THAT(shown(), ElementsAre("100", "it's"));
    EXPECT_EQ(page.lblCDRTotal.text(), "2");
    page.cmbCDRColumn.setText("Dialed CLI");
    page.cmbCDRValue.setText("it's");
    EXPECT_THAT(shown(), ElementsAre("100", "it's")) << "the query fails";
    add("7", "102");
    EXPECT_EQ(page.lblCDRTotal.text(), "3") << "counted on what is shown";
    page.cmbCDRColumn.setText("ALL");
    EXPECT_EQ(shown().size(), 4u);
    page.BuildCDRListGroup("nonsense", "1");
    page.BuildCDRListGroup("OperatorID", "");
    EXPECT_EQ(shown().size(), 4u);
    EXPECT_EQ(page.cmbCDRColumn.items().size(), 16u);
    EXPECT_THAT(page.cmbCDRColumn.items(), testing::Contains("Anser Time"));
    bench.console.session.state.gESN.clear();
    page.cmbCDRColumn.setText("Port");
    page.cmbCDRValue.setText("7");
    EXPECT_EQ(shown().size(), 4u) << "no gateway is known";
}

TEST_F(Calls, SearchSortAndTotals) {
    const std::pair<SortKind, std::vector<const char*>> keys[] = {
        {SortKind::Stamp, {" 23:59:59 We", "12-31-08 23:59:59 We", "01-01-09 00:00:00 Th", "01-01-09 00:00:01 Th"}},
        {SortKind::Duration, {"0", "0.59", "1.00", "2.05", "10.00"}},
        {SortKind::Number, {"", "-64db", "-9db", "7", "12"}}};
    for (const auto& [kind, ascending] : keys)
        for (std::size_t i = 1; i < ascending.size(); ++i)
            EXPECT_LT(sortKey(ascending[i - 1], kind), sortKey(ascending[i], kind)) << ascending[i];
    add("5", "Abc", "2.05");
    add("12", "abd", "0");
    add("7", "x", "0.07");
    const auto& all = page.lsvCallReport.sums().all();
    EXPECT_THAT(
        (std::array<std::int64_t, 4>{static_cast<std::int64_t>(all.answered), all.talkSeconds, all.asr(), all.acd()}),
        ElementsAre(2, 132, 67, 66));
    page.lsvCallReport.sort({0, true});
    EXPECT_THAT(shown(), ElementsAre("Abc", "x", "abd"));
    page.txtCDRSearch.setText("aB");
    EXPECT_THAT(shown(), ElementsAre("Abc", "abd"));
    EXPECT_EQ(page.lsvCallReport.sums().all().asr(), 50);
    page.txtCDRSearch.setText("abd");
    EXPECT_EQ(page.lsvCallReport.sums().all().acd(), 0);
    page.txtCDRSearch.setText("");
    EXPECT_EQ(shown().size(), 3u);
}

TEST_F(Calls, AreClearedWithTheirFile) {
    add("5", "100");
    bench.platform.boxes.answers = {Button::Yes};
    press(5);
    EXPECT_THAT(
        bench.platform.boxes.texts(),
        ElementsAre("this action will clear all the calls report !. \r\nare you sure that you want to continue?"));
    EXPECT_EQ(page.lblCDRTotal.text(), "0");
    EXPECT_THAT(shown(), IsEmpty());
    EXPECT_FALSE(std::filesystem::exists(store.gCDRFile()));
    add("5", "101");
    EXPECT_EQ(inTable(), 1);
}

TEST_F(Calls, AreNotLostWhileALongTableIsRolledOver) {
    setting("Path", made("data").string());
    setting("Max", "9001");
    for (const auto& [format, filtered] : {std::pair("0", false), {"1", false}, {"1", true}, {"2", true}}) {
        SCOPED_TRACE(testing::Message() << format << filtered);
        setting("Format", format);
        fill();
        filtered ? page.BuildCDRListGroup("Port", "5") : page.BuildCDRList();
        bench.advance(100);
        if (filtered) page.txtCDRSearch.setText("1000");
        add("7", "last");
        EXPECT_TRUE(page.busy());
        add("7", "during");
        add("7", "it");
        bench.advance(1000);
        EXPECT_FALSE(page.busy());
        page.txtCDRSearch.setText("");
        EXPECT_THAT(shown(), ElementsAre("during", "it"));
        EXPECT_EQ(inTable(), 2);
        EXPECT_EQ(page.lblCDRTotal.text(), "2");
        const auto content = rolled();
        for (const char* part : {"10001", "19000", "last", "CDR_4711 (1 - 3-2026 0,0,"})
            EXPECT_THAT(content, HasSubstr(part));
        EXPECT_THAT(content, EndsWith(std::array{".mdb", ".csv", ".xml"}[static_cast<std::size_t>(*format - '0')]));
        EXPECT_THAT(content, Not(HasSubstr("during")));
        page.clearCalls();
    }
}

// The list may show what is not in the table any more: another program, or a hand, has been at the file.
TEST_F(Calls, AreRolledOverFromTheTableWhateverTheListShows) {
    setting("Path", made("data").string());
    setting("Format", "1");
    setting("Max", "4");
    store.beginRun();
    for (const char* old : {"aaa", "bbb", "ccc"}) add("5", old);
    store.endRun();
    std::filesystem::rename(store.gCDRFile(), made("away.mdb"));
    page.txtCDRSearch.setText("aaa");
    add("5", "zzz");
    EXPECT_THAT(rolled(), testing::AllOf(HasSubstr("zzz"), Not(HasSubstr("aaa"))));
}

TEST_F(Calls, GoOnIntoTheTableWhenARolloverIsEnded) {
    auto& download = bench.console.cdrDownload;
    const std::function<void()> ends[] = {
        [&] { page.cmdCDRCancel.press(); },
        [&] {
            // The run holds still, and is given up with all that waits for it.
            download.guard([] { throw std::system_error(EIO, std::generic_category()); });
            page.cmdCDRCancel.press();
            setting("Max", "20000");
            download.stop();
        },
        [&] {
            std::ofstream(made("data/CDR4712.rollover")) << "1\n/no drive/x.csv";
            store.setGateway("4712");
            EXPECT_TRUE(std::filesystem::exists(made("data/CDR4712.rollover"))) << "another one's";
        }};
    for (const auto& end : ends) {
        setting("Path", made("data").string());
        setting("Max", "9001");
        fill();
        page.BuildCDRList();
        bench.advance(100);
        add("7", "last");
        add("7", "waiting");
        page.cmbCDRColumn.setText("Port");
        page.cmdCDRExport.at(4).press();
        EXPECT_THAT(bench.console.mainWindow.lblNotice.text(), HasSubstr("busy")) << "a rollover is not put aside";
        end();
        EXPECT_FALSE(page.busy());
        const auto table = bench.platform.databaseFiles.open(made("data/CDR4711.mdb"));
        const auto count = table->query("SELECT COUNT(*) FROM CDR");
        ASSERT_TRUE(count->next());
        EXPECT_EQ(count->text(0), "9002");
        EXPECT_FALSE(std::filesystem::exists(made("data/CDR4711.rollover")));
        know("4711");
        bench.advance(100);
        EXPECT_EQ(shown().size(), 9002u);
        setting("Max", "9001");
        add("7", "next");
        bench.advance(2000);
        EXPECT_EQ(inTable(), 0);
    }
}

TEST_F(Calls, AreInTheTableWhenTheProgramEndsInARollover) {
    {
        ConsoleBench other(bench.folder.path());
        auto& its = other.console.callStore;
        its.setGateway("4713");
        fill(its);
        other.console.calls.SaveCDRFile();
        CDRSlot record;
        record.port = "5";
        its.take(1, record);
    }
    store.setGateway("4713");
    EXPECT_EQ(inTable(), 9001);
}

TEST_F(Calls, AreOfTheGatewayThatIsThere) {
    add("5", "mine");
    page.cmbCDRColumn.setText("Port");
    know("4712");
    EXPECT_EQ(page.cmbCDRColumn.text(), "ALL");
    EXPECT_THAT(page.cmbCDRValue.items(), ElementsAre(" "));
    EXPECT_THAT(shown(), IsEmpty());
    store.release();
    CallStore other(bench.platform.databaseFiles, bench.folder.path());
    other.setGateway("4711");
    other.recover();
    know("");
    know("4711");
    EXPECT_THAT(bench.console.mainWindow.lblNotice.text(), HasSubstr("process"));
    EXPECT_THAT(shown(), ElementsAre("mine")) << "looking is free";
}

TEST_F(Calls, AreToldToBeIncompleteWhenTheirLoadingWasEnded) {
    fill();
    page.BuildCDRList();
    page.txtCDRSearch.setText("1000");
    page.cmdCDRCancel.press();
    EXPECT_THAT(bench.console.mainWindow.lblNotice.text(), HasSubstr("not complete"));
    EXPECT_FALSE(page.gCDRListLoaded);
    page.opened();
    bench.advance(100);
    EXPECT_EQ(shown().size(), 10u) << "what was searched for meanwhile is in force";
}

TEST_F(Calls, StayWhereARolloverCantBeWritten) {
    setting("Max", "1");
    setting("Format", "1");
    std::ofstream(made("file")) << "x";
    std::filesystem::create_directory(made("empty"));
    for (const char* folder : {"missing", "file"}) {
        setting("Path", made(folder).string());
        add("5", folder);
    }
    EXPECT_EQ(inTable(), 2);
    EXPECT_EQ(contentOf(made("file")), "x");
    setting("Path", made("empty").string());
    add("5", "third");
    EXPECT_EQ(inTable(), 0) << "an empty folder is no goal: the default is";
    EXPECT_EQ(page.txtCDRPath.text(), made("data").string());
    EXPECT_TRUE(std::filesystem::is_empty(made("empty")));
    add("5", "fourth");
    EXPECT_EQ(inTable(), 1) << "the file of this second is not replaced";
    bench.advance(1000);
    add("5", "fifth");
    EXPECT_EQ(inTable(), 0);
    setting("Mode", "1");
    add("5", "sixth");
    EXPECT_EQ(inTable(), 1);
}

TEST_F(Calls, NeverRollOneGatewaysCallsOverAsAnothers) {
    setting("Format", "1");
    setting("Max", "2");
    know("4712");
    add("5", "old");
    know("4711");
    add("5", "other");
    know("4712", false);
    EXPECT_THAT(shown(), IsEmpty());
    add("5", "new");
    EXPECT_EQ(inTable(), 2) << "one is shown";
    page.SaveCDRFile();
    EXPECT_THAT(rolled(), testing::AllOf(HasSubstr("old"), HasSubstr("new"), Not(HasSubstr("other"))));
}

TEST_F(Calls, ExportTheirBytes) {
    const std::string headings =
        "Port,Sim,Direction,Type of call,Sim ID,Dialed \\ CLI number,Calling \\ Redirect number,"
        "Originate Time,AnswerTime,Disconnect Time,Duration,Clear Cause,Release Cause,RSSI,BCCH,"
        "Operator ID,\r\n\r\n";
    press(1, made("empty.csv"));
    EXPECT_EQ(contentOf(made("empty.csv")), headings);
    press(3, made("empty.xml"));
    EXPECT_EQ(contentOf(made("empty.xml")), "<?xml version=\"1.0\"?>\r\n<root>\r\n</root>\r\n");
    add("5", "a,\"<&", "0.07");
    add("6", "b");
    page.BuildCDRListGroup("Port", "5");
    press(1, made("one.csv"));
    EXPECT_EQ(contentOf(made("one.csv")), headings + "5,1,,,,a,\"<&,,03-25-09 14:07:59 We,,,0.07,,,,,,\r\n\r\n");
    press(3, made("one.xml"));
    const auto xml = contentOf(made("one.xml"));
    EXPECT_THAT(xml, HasSubstr("<root>\r\n          <RECORD_1>\r\n               <Port > 5 </Port>\r\n"));
    EXPECT_THAT(xml, HasSubstr("               <Dialed__CLI_number > a,\"<& </Dialed__CLI_number>\r\n"));
    EXPECT_THAT(xml, EndsWith("               <Operator_ID >  </Operator_ID>\r\n          </RECORD_1>\r\n</root>\r\n"));
    press(2, made("all.mdb"));
    EXPECT_THAT(contentOf(made("all.mdb")), HasSubstr("a,\"<&"));
    bench.platform.boxes.shown.clear();
    bench.platform.boxes.answers = {Button::Yes, Button::Yes};
    press(0, made("one.csv"));
    EXPECT_EQ(bench.platform.boxes.texts()[0],
              made("one.csv").string() + "  already exists.\r\nDo you want to replace it?");
    EXPECT_FALSE(std::filesystem::exists(made("one.csv")));
    for (const char* live : {"data/CDR4711.mdb", "data/CDR_x.mdb", "CDR_NO_ESN.mdb", "data/CDR4711.journal"}) {
        bench.console.session.tell("");
        press(1, made(live));
        EXPECT_THAT(bench.console.mainWindow.lblNotice.text(), HasSubstr("belongs to the call databases")) << live;
    }
    EXPECT_EQ(inTable(), 2);
    press(1, made("nowhere") / "x.csv");
    std::filesystem::create_directory(made("dir"));
    bench.platform.boxes.answers = {Button::Yes};
    press(1, made("dir"));
    EXPECT_FALSE(std::filesystem::exists(made("dir.new")));
}

TEST_F(Calls, SaveTheirSettings) {
    const auto data = made("data").string();
    const auto home = made("").string();
    const std::tuple<std::string, const char*, const char*, std::string, bool> cases[] = {
        {home, "5", "10", home + " 5 10 0 2 0 ", false},
        {"", "-5", "0", data + " 0 1000 0 2 0 ", true},
        {made("missing").string(), "0", "", data + " 0 1000 0 2 0 ", true}};
    for (const auto& [path, limit, most, expected, told] : cases) {
        bench.platform.boxes.shown.clear();
        setting("Mode", "7");
        page.txtCDRPath.setText(path);
        page.txtCDRDownLimit.setText(limit);
        page.txtCDRRecordLimit.setText(most);
        page.optCDRFormat.setIndex(2);
        page.chkCDRIncludeHeader.setChecked(false);
        press(8);
        std::string saved;
        for (const char* key : {"Path", "DownLimit", "Max", "Mode", "Format", "Header"})
            saved += bench.console.files.setting.Read("CDRConfig", key) + " ";
        EXPECT_EQ(saved, expected);
        const auto texts = bench.platform.boxes.texts();
        EXPECT_EQ(texts.empty() ? "" : texts[0], told ? "Path not found ,the path will changed to default value." : "");
    }
}

}  // namespace
}  // namespace trunvex
