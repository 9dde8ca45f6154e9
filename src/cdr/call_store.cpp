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

constexpr int allSlots = 0;

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
    : engine_(engine), folder_(std::move(applicationFolder)), files_(engine_, folder_ / "data") {}

// Whoever listened may be gone already.
CallStore::~CallStore() {
    added_.clear();
    release();
}

void CallStore::setGateway(const std::string& esn) {
    // Without a name it would be the template.
    const auto file = esn.empty() ? folder_ / noGateway : folder_ / "data" / ("CDR" + fileNamePart(esn) + ".mdb");
    if (file == file_) return;
    gatewayLeft_.emit();
    rowsHeld_ = false;
    release();
    file_ = file;
}

void CallStore::release() {
    endRun();
    if (rowsHeld_) return;
    journal_.reset();
    lock_.reset();
}

std::filesystem::path CallStore::beside(const char* extension) const {
    return std::filesystem::path(file_).replace_extension(extension);
}

// Behind a lock that was taken anew nothing is as it was: another console may have used the files.
void CallStore::lock() {
    if (lock_ && lock_->inPlace()) return;
    journal_.reset();
    held_.reset();
    lock_.reset();
    try {
        lock_ = std::make_unique<FileLock>(beside(".lock"));
    } catch (const FileInUse& holder) {
        throw DatabaseError(DatabaseError::Cause::Locked,
                            std::string(holder.what()) + " uses the call files of this gateway");
    }
}

// A journal that was taken away while it was open has records that stand in no other place that will be read again.
void CallStore::openJournal() {
    if (file_.empty()) file_ = folder_ / noGateway;
    lock();
    if (journal_ && !journal_->inPlace()) {
        if (rowsHeld_) throw DatabaseError(DatabaseError::Cause::Locked, "the journal was taken away");
        addUpTo(allSlots);
        journal_.reset();
    }
    if (journal_) return;
    addedUpTo_.reset();
    journal_ = std::make_unique<CallJournal>(beside(".journal"));
}

bool CallStore::CheckCDRFile() {
    if (file_.empty()) file_ = folder_ / noGateway;
    if (std::filesystem::exists(file_)) return false;
    if (!lock_) lock();
    held_.reset();
    if (std::filesystem::exists(file_)) return false;  // who held the lock has made it
    files_.make(file_);
    return true;
}

// A file that is not the one of this name any more would take the calls with it.
std::shared_ptr<Database> CallStore::database() {
    if (held_ && fileId(file_) != heldId_) held_.reset();
    if (held_) return held_;
    CheckCDRFile();
    const auto id = fileId(file_);
    std::shared_ptr<Database> opened = engine_.open(file_);
    if (holding_) {
        held_ = opened;
        heldId_ = id;
    }
    return opened;
}

// A database that knows numbers which were never given here is another one than the journal's, such as one that was
// put back from a copy: what waits to be added would pass for added.
int CallStore::addedUpTo(Database& database) {
    const int mark = database.mark();
    const int known = addedUpTo_.value_or(journal_->addedUpTo());
    const bool waits = !journal_->entries().empty() && journal_->entries().back().number > known;
    if (mark > journal_->lastNumber() && waits) journal_->raise(known, mark);
    addedUpTo_ = std::max(mark, journal_->addedUpTo());
    return *addedUpTo_;
}

void CallStore::take(int slot, const CDRSlot& record) {
    if (record.port.empty() && record.sim.empty()) return;
    openJournal();
    if (takenAlready(slot, record)) return;
    addUpTo(slot);
    const auto into = database();
    const int mark = addedUpTo(*into);
    journal_->append(slot, record, mark);
}

// A late or doubled answer may bring an earlier record than the last one.
bool CallStore::takenAlready(int slot, const CDRSlot& record) {
    const auto& entries = journal_->entries();
    const auto* last = journal_->lastOf(slot);
    if (last && sameRecord(last->record, record)) return true;
    const auto from =
        static_cast<std::ptrdiff_t>(entries.size()) > lookBack ? entries.end() - lookBack : entries.begin();
    return std::any_of(from, entries.end(), [&](const CallJournal::Entry& entry) {
        return entry.slot == slot && sameRecord(entry.record, record);
    });
}

void CallStore::add(int slot) {
    openJournal();
    addUpTo(slot);
}

void CallStore::recover() {
    if (file_.empty() || rowsHeld_) return;
    openJournal();
    finishRollover();
    if (std::filesystem::exists(file_)) files_.dropKept(file_);  // a clearing that did not come to its end
    addUpTo(allSlots);
}

void CallStore::addUpTo(int slot) {
    try {
        while (!rowsHeld_ && addNext(slot)) {
        }
        if (journal_->entries().size() >= longestJournal) shrinkJournal();
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
        journal_->shrink(addedUpTo(*into));
    });
}

// The oldest record that is not in the table yet, up to the channel's last one. One at a time: who hears of a row may
// roll the table over, and must find in it what was told and nothing else. False when none is left.
bool CallStore::addNext(int slot) {
    const auto* last = slot == allSlots ? nullptr : journal_->lastOf(slot);
    const auto& entries = journal_->entries();
    if (entries.empty() || (slot != allSlots && !last)) return false;
    auto into = database();
    const int already = addedUpTo(*into);
    const int number = slot == allSlots ? entries.back().number : journal_->lastOf(slot)->number;
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
    addedUpTo_ = next->number;
    into.reset();
    added_.emit(row);
    return more;
}

void CallStore::beginRollover(const std::filesystem::path& file) {
    openJournal();
    const auto number = std::to_string(addedUpTo(*database()));
    replaceFile(beside(".rollover"), number + '\n' + std::filesystem::absolute(file).native());
}

void CallStore::dropRollover() {
    if (lock_) std::filesystem::remove(beside(".rollover"));
}

// The end of the program came between the file and the clearing of the table, or before the file, or behind both. A
// table that has got a row since is another one than that in the file. A folder that is not there may come back.
void CallStore::finishRollover() {
    std::ifstream mark(beside(".rollover"), std::ios::binary);
    std::string number;
    if (!mark || !std::getline(mark, number)) return;
    const std::filesystem::path file(std::string(std::istreambuf_iterator<char>(mark), {}));
    std::error_code error;
    if (std::filesystem::exists(file, error)) {
        if (number == std::to_string(addedUpTo(*database()))) clear();
    } else {
        if (!std::filesystem::is_directory(file.parent_path(), error)) return;
        const FreshFile cutShort(file);  // takes what it finds with it
    }
    dropRollover();
}

// What was added is made safe, so that the journal can be short.
void CallStore::endRun() {
    if (journal_) quietly("endRun", [&] { recover(); });
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

std::unique_ptr<DatabaseRows> CallStore::calls() { return query("SELECT * FROM CDR"); }

std::unique_ptr<DatabaseRows> CallStore::callsMarked(std::string_view column, std::string_view value) {
    return query("SELECT *, " + std::string(column) + "='" + std::string(value) + "' FROM CDR");
}

std::unique_ptr<DatabaseRows> CallStore::callsWithoutNulls() {
    std::string columns;
    for (const auto& column : callColumns)
        columns += (columns.empty() ? "" : ", ") + ("ifnull(" + std::string(column.name)) + ", '')";
    return query("SELECT " + columns + " FROM CDR");
}

std::unique_ptr<DatabaseRows> CallStore::values(std::string_view column) {
    return query("SELECT " + std::string(column) + " FROM CDR");
}

void CallStore::clear() {
    if (file_.empty() || !std::filesystem::exists(file_)) return;
    openJournal();
    int already = journal_->addedUpTo();
    try {
        const auto from = database();
        already = addedUpTo(*from);
        files_.keepMessages(*from, file_);
    } catch (const DatabaseError& error) {
        // What the journal of a damaged one holds beyond its own mark is added to the next one.
        if (error.cause() != DatabaseError::Cause::Damaged) throw;
    }
    held_.reset();
    journal_->shrink(already);
    engine_.remove(file_);
    // The table is gone, whatever becomes of the rest.
    quietly("clear", [&] {
        dropRollover();
        syncFolderOf(file_);
    });
}

std::unique_ptr<CallCopy> CallStore::copyTo(const std::filesystem::path& target) {
    CheckCDRFile();
    return std::make_unique<CallCopy>(engine_, file_, target);
}

CallCopy::CallCopy(DatabaseEngine& engine, const std::filesystem::path& from, const std::filesystem::path& target)
    : engine_(engine), target_(target), fresh_(target), database_(engine.open(from)),
      copying_(database_->copyTo(fresh_.path())) {}

bool CallCopy::write() {
    const bool more = copying_->step();
    if (more) {
        fresh_.sync();
    } else {
        copying_.reset();
        engine_.removeBeside(target_);
        fresh_.putInPlace();
    }
    return more;
}

}  // namespace trunvex
