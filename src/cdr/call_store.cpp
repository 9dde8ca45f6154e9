#include "cdr/call_store.h"

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <iterator>
#include <system_error>
#include <utility>

#include "platform/quietly.h"
#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr std::ptrdiff_t lookBack = 64;       // entries
constexpr std::size_t longestJournal = 4096;  // entries; then it is shrunk in the middle of a run

constexpr const char* noGateway = "CDR_NO_ESN.mdb";

std::string insertStatement() {
    std::string names;
    std::string marks;
    for (const auto& column : callColumns) {
        names += (names.empty() ? "" : ", ") + std::string(column.name);
        marks += marks.empty() ? "?" : ", ?";
    }
    return "INSERT INTO CDR (" + names + ") VALUES (" + marks + ")";
}

// The type of call may have been taken over from the record before, which another run does not know.
bool sameRecord(const CDRSlot& one, const CDRSlot& other) {
    return one.RecordID == other.RecordID &&
           std::all_of(callColumns.begin(), callColumns.end(), [&](const CallColumn& column) {
               return column.value == &CallRecord::TypeOfCall || one.*column.value == other.*column.value;
           });
}

// Rows of a query and the database they are read from.
class HeldRows : public DatabaseRows {
public:
    HeldRows(std::unique_ptr<Database> database, const std::string& sql)
        : database_(std::move(database)), rows_(database_->query(sql)) {}
    bool next() override { return rows_->next(); }
    std::string_view text(int column) const override { return rows_->text(column); }

private:
    std::unique_ptr<Database> database_;
    std::unique_ptr<DatabaseRows> rows_;
};

}  // namespace

CallStore::CallStore(DatabaseEngine& engine, std::filesystem::path applicationFolder)
    : engine_(engine), folder_(std::move(applicationFolder)) {}

void CallStore::setGateway(const std::string& esn) {
    // Without a name it would be the template.
    const auto file = esn.empty() ? folder_ / noGateway : folder_ / "data" / ("CDR" + fileNamePart(esn) + ".mdb");
    if (file == file_) return;
    endRun();
    journal_.reset();
    file_ = file;
}

bool CallStore::CheckCDRFile() {
    if (file_.empty()) file_ = folder_ / noGateway;
    if (std::filesystem::exists(file_)) return false;
    std::ifstream source(folder_ / "data" / "CDR.mdb", std::ios::binary);
    if (!source) throw std::system_error(errno, std::generic_category(), "CDR.mdb");
    const std::string content(std::istreambuf_iterator<char>(source), {});
    FreshFile fresh(file_);  // a copy that a crash has cut short must never be taken for a database
    fresh.create();
    fresh.write(content);
    fresh.putInPlace();
    return true;
}

std::shared_ptr<Database> CallStore::database() {
    if (held_ && !std::filesystem::exists(file_)) held_.reset();  // someone has taken the file away
    if (held_) return held_;
    CheckCDRFile();
    std::shared_ptr<Database> opened = engine_.open(file_);
    if (holding_) held_ = opened;
    return opened;
}

CallJournal& CallStore::journal() {
    if (file_.empty()) CheckCDRFile();
    if (!journal_) journal_ = std::make_unique<CallJournal>(std::filesystem::path(file_).replace_extension(".journal"));
    return *journal_;
}
int CallStore::addedUpTo(Database& database) { return std::max(database.mark(), journal().addedUpTo()); }

void CallStore::take(int slot, const CDRSlot& record) {
    if (record.port.empty() && record.sim.empty()) return;
    if (takenAlready(slot, record)) return;
    if (const auto* last = journal().lastOf(slot)) addUpTo(last->number);
    journal().append(slot, record, database()->mark());
}

// A late or doubled answer may bring an earlier record than the last one.
bool CallStore::takenAlready(int slot, const CDRSlot& record) {
    const auto& entries = journal().entries();
    const auto* last = journal().lastOf(slot);
    if (last && sameRecord(last->record, record)) return true;
    const auto from =
        static_cast<std::ptrdiff_t>(entries.size()) > lookBack ? entries.end() - lookBack : entries.begin();
    return std::any_of(from, entries.end(), [&](const CallJournal::Entry& entry) {
        return entry.slot == slot && sameRecord(entry.record, record);
    });
}

void CallStore::add(int slot) {
    if (const auto* last = journal().lastOf(slot)) addUpTo(last->number);
}

void CallStore::recover() {
    rowsWait_ = rowsWait_ || rowsHeld_;
    if (file_.empty() || rowsHeld_) return;
    finishRollover();
    if (!journal().entries().empty()) addUpTo(journal().entries().back().number);
}

void CallStore::addUpTo(int number) {
    try {
        while (!rowsHeld_ && addNext(number)) {
        }
        rowsWait_ = rowsWait_ || rowsHeld_;
        if (journal().entries().size() >= longestJournal) shrinkJournal();
    } catch (const DatabaseError&) {
        held_.reset();
        throw;
    }
}

// A reader may hold the log: the journal stays long then, and the next record tries again.
void CallStore::shrinkJournal() {
    quietly("shrinkJournal", [&] {
        const auto into = database();
        into->makeDurable();
        journal().shrink(addedUpTo(*into));
    });
}

// The oldest record that is not in the table yet, up to this number. One at a time: who hears of a row may roll the
// table over, and must find in it what was told and nothing else. False when none is left.
bool CallStore::addNext(int number) {
    auto into = database();
    const int already = addedUpTo(*into);
    const auto& entries = journal().entries();
    const auto next = std::upper_bound(entries.begin(), entries.end(), already,
                                       [](int mark, const CallJournal::Entry& entry) { return mark < entry.number; });
    if (next == entries.end() || next->number > number) return false;
    const bool more = next->number < number;
    const CallRecord row = next->record;  // the entry goes when the table is cleared
    std::vector<std::string_view> values;
    for (const auto& column : callColumns) values.emplace_back(row.*column.value);
    static const auto insert = insertStatement();
    // What fails in between is taken back when the database is closed.
    into->execute("BEGIN IMMEDIATE", {});
    into->execute(insert, values);
    into->setMark(next->number);
    into->execute("COMMIT", {});
    into.reset();
    added_.emit(row);
    return more;
}

void CallStore::releaseRows() {
    rowsHeld_ = false;
    if (!rowsWait_) return;
    recover();
    rowsWait_ = false;
}

void CallStore::beginRollover(const std::filesystem::path& file) {
    const auto number = std::to_string(addedUpTo(*database()));
    replaceFile(rolloverMark(), number + '\n' + std::filesystem::absolute(file).native());
}

void CallStore::dropRollover() { std::filesystem::remove(rolloverMark()); }

// The end of the program came between the file and the clearing of the table, or before the file, or behind both. A
// table that has got a row since is another one than that in the file.
void CallStore::finishRollover() {
    std::ifstream mark(rolloverMark(), std::ios::binary);
    std::string number;
    if (!mark || !std::getline(mark, number)) return;
    const std::string file(std::istreambuf_iterator<char>(mark), {});
    if (!file.empty() && std::filesystem::exists(file) && number == std::to_string(addedUpTo(*database()))) clear();
    dropRollover();
}

// What was added is made safe, so that the journal can be short.
void CallStore::endRun() {
    const bool ran = std::exchange(holding_, false);
    const auto last = std::exchange(held_, nullptr);
    if (!ran || !last || !journal_ || journal_->entries().empty()) return;
    // Otherwise the journal stays long, and the next run shrinks it.
    quietly("endRun", [&] {
        last->makeDurable();
        journal_->shrink(addedUpTo(*last));
    });
}

std::unique_ptr<DatabaseRows> CallStore::query(const std::string& sql) {
    CheckCDRFile();
    return std::make_unique<HeldRows>(engine_.open(file_), sql);
}

void CallStore::clear() {
    if (file_.empty() || !std::filesystem::exists(file_)) return;
    int already = journal().addedUpTo();
    try {
        already = addedUpTo(*database());
    } catch (const DatabaseError& error) {
        // What the journal of a damaged one holds beyond its own mark is added to the next one.
        if (error.cause() != DatabaseError::Cause::Damaged) throw;
    }
    held_.reset();
    journal().shrink(already);
    engine_.remove(file_);
    // The table is gone, whatever becomes of the rest.
    quietly("clear", [&] {
        dropRollover();
        syncFolderOf(file_);
    });
}

std::unique_ptr<CallCopy> CallStore::copyTo(const std::filesystem::path& target) {
    CheckCDRFile();
    return std::make_unique<CallCopy>(engine_.open(file_), target);
}

CallCopy::CallCopy(std::unique_ptr<Database> database, const std::filesystem::path& target)
    : fresh_(target), database_(std::move(database)), copying_(database_->copyTo(fresh_.path())) {}

bool CallCopy::write() {
    const bool more = copying_->step();
    if (more) {
        fresh_.sync();
    } else {
        copying_.reset();
        fresh_.putInPlace();
    }
    return more;
}

}  // namespace trunvex
