// The journal and the table on the disk, and what happens to them behind the console's back.
#include <gmock/gmock.h>

#include <unistd.h>

#include <fstream>
#include <functional>
#include <limits>

#include "fakes/console_bench.h"

namespace trunvex {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

CDRSlot call(const std::string& number) {
    CDRSlot record;
    record.port = "5";
    record.sim = "1";
    record.RecordID = number;
    record.Dialed_CLI = number;
    record.OperatorID = "a\tb\nc\\";  // what the journal uses itself
    return record;
}

class Store : public testing::Test {
protected:
    Store() { store->setGateway("4711"); }
    // The program is killed, for whoever ends in order adds what waits, and starts again.
    void restart() {
        store->holdRows();
        store = std::make_unique<CallStore>(engine, folder.path());
        store->setGateway("4711");
    }
    void takeAndAdd(int slot, const std::string& number) {
        store->take(slot, call(number));
        store->add(slot);
    }
    std::vector<std::string> rows() {
        std::vector<std::string> numbers;
        const auto found = store->values("Dialed_CLI");
        while (found->next()) numbers.emplace_back(found->text(0));
        return numbers;
    }
    std::filesystem::path data(const char* name) const { return folder.path() / "data" / name; }

    fakes::TemporaryFolder folder{CALL_TEMPLATE};
    SqliteEngine engine;
    std::unique_ptr<CallStore> store = std::make_unique<CallStore>(engine, folder.path());
};

TEST_F(Store, MakesItsDatabaseFromTheTemplate) {
    EXPECT_TRUE(store->CheckCDRFile());
    EXPECT_FALSE(store->CheckCDRFile());
    EXPECT_TRUE(std::filesystem::exists(data("CDR4711.mdb")));
    store->setGateway("../x");
    EXPECT_EQ(store->gCDRFile(), data("CDR_._x.mdb"));
    store->setGateway("");
    EXPECT_EQ(store->gCDRFile(), folder.path() / "CDR_NO_ESN.mdb") << "never the template";
    std::filesystem::remove(data("CDR.mdb"));
    store->setGateway("1");
    EXPECT_THROW(store->calls(), std::system_error);
}

TEST_F(Store, AddsWhatAnEndLeftOnce) {
    store->take(1, call("100"));
    store->take(3, call("101"));
    restart();
    EXPECT_THAT(rows(), IsEmpty());
    store->recover();
    store->recover();
    takeAndAdd(3, "101");  // the gateway did not hear that it was taken
    EXPECT_THAT(rows(), ElementsAre("100", "101"));
    store->take(1, call("102"));
    store->take(1, call("103"));  // the gateway has gone on: 102 is dropped there
    EXPECT_THAT(rows(), ElementsAre("100", "101", "102"));
    CDRSlot nothing;
    store->take(2, nothing);
    store->add(2);
    EXPECT_EQ(rows().size(), 3u);
}

TEST_F(Store, ReadsAJournalThatIsTornOrChanged) {
    store->take(1, call("100"));
    store->take(2, call("101"));
    const auto journal = data("CDR4711.journal");
    const auto whole = fakes::contentOf(journal);
    const auto second = whole.find('\n') + 1;
    auto changed = whole;
    changed[second + 8] ^= 1;
    const std::pair<std::string, bool> journals[] = {{whole, true},
                                                     {whole.substr(0, whole.size() - 5), false},
                                                     {changed, false},
                                                     {whole.substr(0, second) + "R", false}};
    for (const auto& [text, both] : journals) {
        SCOPED_TRACE(text);
        std::ofstream(journal, std::ios::binary | std::ios::trunc) << text;
        std::filesystem::remove(data("CDR4711.mdb"));
        restart();
        store->take(4, call("102"));  // written behind what was torn
        restart();
        store->recover();
        const std::vector<std::string> left =
            both ? std::vector<std::string>{"100", "101", "102"} : std::vector<std::string>{"100", "102"};
        EXPECT_EQ(rows(), left);
        const auto full = store->values("OperatorID");
        while (full->next()) EXPECT_EQ(full->text(0), "a\tb\nc\\");
    }
}

TEST_F(Store, KeepsWhatIsNotInTheTableWhenItIsCleared) {
    for (const bool run : {false, true}) {
        SCOPED_TRACE(run);
        const std::string first = run ? "200" : "100";
        const std::string second = run ? "201" : "101";
        if (run) store->beginRun();
        takeAndAdd(1, first);
        store->take(1, call(second));
        store->clear();
        EXPECT_FALSE(std::filesystem::exists(data("CDR4711.mdb")));
        restart();
        store->recover();
        EXPECT_THAT(rows(), ElementsAre(second)) << "not what was deleted";
        takeAndAdd(1, second);
        EXPECT_EQ(rows().size(), 1u);
        store->clear();
    }
}

TEST_F(Store, EndsARolloverThatTheEndOfTheProgramCutShort) {
    for (const bool written : {false, true}) {
        SCOPED_TRACE(written);
        const std::string table = written ? "1" : "2";
        const std::string behind = written ? "3" : "4";
        takeAndAdd(1, table);
        store->beginRollover(data("CDR_rolled.csv"));
        store->holdRows();
        if (written) std::ofstream(data("CDR_rolled.csv")) << table;
        takeAndAdd(2, behind);
        EXPECT_THAT(rows(), ElementsAre(table)) << "held";
        restart();
        store->recover();
        if (written)
            EXPECT_THAT(rows(), ElementsAre(behind)) << "once in the file and not in the table";
        else
            EXPECT_THAT(rows(), ElementsAre(table, behind));
        store->recover();
        EXPECT_EQ(rows().size(), written ? 1u : 2u);
        store->clear();
    }
}

TEST_F(Store, TakesARolloversMarkForWhatItIs) {
    takeAndAdd(1, "old");
    std::filesystem::create_directory(data("drive"));
    store->beginRollover(data("drive") / "CDR_rolled.csv");
    std::ofstream(data("drive") / "CDR_rolled.csv.new") << "old";
    std::filesystem::rename(data("drive"), data("away"));
    restart();
    store->recover();
    EXPECT_TRUE(std::filesystem::exists(data("CDR4711.rollover"))) << "the drive may come back";
    std::filesystem::rename(data("away"), data("drive"));
    store->recover();
    EXPECT_TRUE(std::filesystem::is_empty(data("drive"))) << "what was cut short is no file";
    EXPECT_FALSE(std::filesystem::exists(data("CDR4711.rollover")));
    store->beginRollover(data("CDR_rolled.csv"));
    std::ofstream(data("CDR_rolled.csv")) << "old";
    std::filesystem::copy_file(data("CDR4711.rollover"), data("mark"));
    store->clear();
    takeAndAdd(1, "new");
    std::filesystem::rename(data("mark"), data("CDR4711.rollover"));  // its removal never came to the disk
    restart();
    store->recover();
    EXPECT_THAT(rows(), ElementsAre("new"));
    EXPECT_FALSE(std::filesystem::exists(data("CDR4711.rollover")));
}

TEST_F(Store, IsNotClearedWhileItIsLocked) {
    takeAndAdd(1, "a");
    const auto other = engine.open(store->gCDRFile());
    other->execute("PRAGMA locking_mode=EXCLUSIVE");
    other->execute("BEGIN IMMEDIATE");
    other->execute("DELETE FROM SMS");
    other->execute("COMMIT");
    EXPECT_THROW(store->clear(), DatabaseError);
    EXPECT_TRUE(std::filesystem::exists(store->gCDRFile()));
    EXPECT_FALSE(std::filesystem::exists(data("CDR4711.rollover")));
}

TEST_F(Store, MayBeClearedByWhoHearsOfARow) {
    std::vector<std::string> heard;
    store->added().connect([&](const CallRecord& record) {
        heard.push_back(record.Dialed_CLI + ":" + std::to_string(rows().size()));
        if (record.Dialed_CLI == "101") store->clear();
    });
    for (int slot = 1; slot <= 3; ++slot) store->take(slot, call(std::to_string(99 + slot)));
    store->recover();
    EXPECT_THAT(heard, ElementsAre("100:1", "101:2", "102:1"));
    EXPECT_THAT(rows(), ElementsAre("102"));
}

TEST_F(Store, AddsWhatWasTakenWhenItsUseEnds) {
    const std::pair<const char*, std::function<void()>> ends[] = {
        {"run", [&] { store->endRun(); }},
        {"link", [&] { store->release(); }},
        {"gateway", [&] { store->setGateway("4712"); }},
        {"program", [&] { store = std::make_unique<CallStore>(engine, folder.path()); }}};
    std::vector<std::string> all;
    for (const auto& [name, end] : ends) {
        SCOPED_TRACE(name);
        store->beginRun();
        takeAndAdd(1, all.emplace_back(name + std::string("1")));
        store->take(1, call(all.emplace_back(name + std::string("2"))));
        end();
        const auto database = engine.open(data("CDR4711.mdb"));
        const auto count = database->query("SELECT COUNT(*) FROM CDR");
        ASSERT_TRUE(count->next());
        EXPECT_EQ(count->text(0), std::to_string(all.size()));
        store->setGateway("4711");
    }
    EXPECT_EQ(rows(), all);
}

TEST_F(Store, IsUsedByOneConsoleAtATime) {
    takeAndAdd(1, "100");
    CallStore other(engine, folder.path());
    other.setGateway("4711");
    const std::function<void()> uses[] = {[&] { other.take(2, call("x")); }, [&] { other.recover(); },
                                          [&] { other.clear(); }};
    for (const auto& use : uses) {
        try {
            use();
            ADD_FAILURE() << "used by two";
        } catch (const DatabaseError& error) {
            EXPECT_EQ(error.cause(), DatabaseError::Cause::Locked);
            EXPECT_THAT(error.what(), testing::HasSubstr("process " + std::to_string(::getpid()) + " on "));
        }
    }
    EXPECT_TRUE(other.calls()->next()) << "it may look";
    store->release();
    other.take(2, call("101"));
    other.clear();
    EXPECT_THROW(store->take(1, call("102")), DatabaseError);
    other.release();
    takeAndAdd(1, "102");
    EXPECT_THAT(rows(), ElementsAre("101", "102")) << "the journal was read again";
    std::filesystem::remove(data("CDR4711.lock"));
    other.take(2, call("103"));
    EXPECT_THROW(store->take(1, call("104")), DatabaseError) << "its lock is nobody's any more";
}

// Whatever is moved away or put back while the console runs, or between two of its runs: no call is lost.
TEST_F(Store, LosesNothingWhenItsFilesAreExchanged) {
    const auto mdb = data("CDR4711.mdb");
    int mark = 0;
    for (const bool run : {false, true}) {
        SCOPED_TRACE(run);
        store->beginRun();
        for (int number = 0; number < 90; ++number) takeAndAdd(1, "in the file" + std::to_string(number));
        store->endRun();
        store->beginRun();
        takeAndAdd(2, "in the log");
        std::filesystem::rename(mdb, data("moved.mdb"));  // the log stays
        takeAndAdd(2, "a");
        EXPECT_THAT(rows(), ElementsAre("in the log", "a"));
        store->endRun();
        store->clear();
        if (run) store->beginRun();
        // One that knows more numbers than the journal, with and without a record on its way into it.
        for (const char* on : {"", "way"}) {
            takeAndAdd(3, "b");
            if (*on) store->take(4, call(on));
            engine.open(mdb)->setMark(mark += 1000);
            takeAndAdd(5, "c");
            EXPECT_THAT(rows(), testing::Contains("c"));
            if (*on) {
                EXPECT_THAT(rows(), testing::Contains(on));
            }
            store->release();
            std::filesystem::remove(data("CDR4711.journal"));
            store->clear();
            takeAndAdd(6, "d");
            EXPECT_THAT(rows(), ElementsAre("d")) << "numbered above the mark of the table that was cleared";
            store->clear();
        }
        takeAndAdd(7, "e");
        store->take(8, call("f"));
        std::filesystem::rename(data("CDR4711.journal"), data("moved.journal"));
        takeAndAdd(8, "g");
        EXPECT_THAT(rows(), ElementsAre("e", "f", "g"));
        store->clear();
    }
    engine.open(mdb.parent_path() / "CDR.mdb")->setMark(std::numeric_limits<int>::max());
    EXPECT_THROW(store->take(1, call("h")), std::system_error) << "no number is above this mark";
}

TEST_F(Store, CarriesMessagesIntoTheNextTable) {
    for (int round = 0; round < 2; ++round) {
        takeAndAdd(1, std::to_string(round));
        if (round == 0) {
            const auto into = engine.open(store->gCDRFile());
            into->execute("INSERT INTO SMS VALUES ('5', '1', 'now', '100', 'it''s')");
            into->execute("INSERT INTO LOG VALUES ('5', '0', 'ERR', 'now')");
        }
        store->clear();
        EXPECT_FALSE(std::filesystem::exists(store->gCDRFile()));
        EXPECT_THAT(rows(), IsEmpty());
    }
    const auto table = engine.open(store->gCDRFile());
    const auto found = table->query("SELECT MSG || Log FROM SMS, LOG");
    ASSERT_TRUE(found->next());
    EXPECT_EQ(found->text(0), "it'sERR");
    EXPECT_FALSE(found->next()) << "once";
}

TEST_F(Store, ChangesNothingWhileItsDatabaseCantBeWritten) {
    for (const bool run : {false, true}) {
        SCOPED_TRACE(run);
        const std::string first = run ? "200" : "100";
        const std::string second = run ? "201" : "101";
        if (run) store->beginRun();
        takeAndAdd(1, first);
        const auto other = engine.open(data("CDR4711.mdb"));
        other->execute("BEGIN IMMEDIATE");
        store->take(1, call(second));
        try {
            store->add(1);
            ADD_FAILURE() << "the database is locked";
        } catch (const DatabaseError& error) {
            EXPECT_EQ(error.cause(), DatabaseError::Cause::Locked);
        }
        const auto reading = store->calls();  // a list that is being loaded is in nobody's way
        ASSERT_TRUE(reading->next());
        other->execute("COMMIT");
        store->add(1);
        EXPECT_THAT(rows(), ElementsAre(first, second));
        const auto copy = store->copyTo(data("copy.mdb"));
        while (copy->write()) {
        }
        EXPECT_TRUE(std::filesystem::exists(data("copy.mdb")));
        store->clear();
    }
    EXPECT_THROW(store->copyTo(folder.path() / "nowhere" / "copy.mdb"), std::exception);
}

}  // namespace
}  // namespace trunvex
