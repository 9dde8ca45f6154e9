#include "platform/sqlite/sqlite_engine.h"

#include <SQLiteCpp/Backup.h>
#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

#include <cerrno>
#include <filesystem>
#include <map>
#include <system_error>

namespace trunvex {

namespace {

// The console has one thread, and a lock of another program may last: the caller waits and tries again by its own
// clock, so that the window never stands still for longer than this.
constexpr int busyMs = 50;

// What the system said when a file could not be read or written; else 0. A failed commit leaves it with its file, most
// others with the connection.
int systemErrorOf(int code, sqlite3* database) {
    if ((code & 0xFF) != SQLITE_IOERR || !database) return 0;
    for (const int which : {SQLITE_FCNTL_FILE_POINTER, SQLITE_FCNTL_JOURNAL_POINTER}) {
        sqlite3_file* file = nullptr;
        int error = 0;
        if (sqlite3_file_control(database, "main", which, &file) != SQLITE_OK || !file || !file->pMethods) continue;
        file->pMethods->xFileControl(file, SQLITE_FCNTL_LAST_ERRNO, &error);
        if (error != 0) return error;
    }
    return sqlite3_system_errno(database);
}

DatabaseError::Cause causeOf(int code, int systemError) {
    // SQLite knows one of the system's words for "no more room", and not in all of its files.
    if (systemError == ENOSPC || systemError == EDQUOT || systemError == EFBIG) return DatabaseError::Cause::Full;
    switch (code & 0xFF) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return DatabaseError::Cause::Locked;
        case SQLITE_FULL:
            return DatabaseError::Cause::Full;
        case SQLITE_READONLY:
        case SQLITE_PERM:
        case SQLITE_CANTOPEN:
            return DatabaseError::Cause::ReadOnly;
        case SQLITE_CORRUPT:
        case SQLITE_NOTADB:
            return DatabaseError::Cause::Damaged;
        default:
            return DatabaseError::Cause::Other;
    }
}

[[noreturn]] void fail(sqlite3* database, int code, std::string what) {
    const int systemError = systemErrorOf(code, database);
    if (systemError != 0) what += ": " + std::generic_category().message(systemError);
    throw DatabaseError(causeOf(code, systemError), what);
}

template <class Act>
auto translated(sqlite3* database, Act&& act) {
    try {
        return act();
    } catch (const SQLite::Exception& error) {
        fail(database, error.getErrorCode(), error.what());
    }
}

// A million rows of sixteen texts go through here, so the engine's own calls are made.
class SqliteRows : public DatabaseRows {
public:
    SqliteRows(sqlite3* database, const std::string& sql) : database_(database) {
        const int code = sqlite3_prepare_v2(database_, sql.c_str(), -1, &statement_, nullptr);
        if (code != SQLITE_OK) fail(database_, code, sqlite3_errmsg(database_));
    }
    ~SqliteRows() override { sqlite3_finalize(statement_); }
    SqliteRows(const SqliteRows&) = delete;
    SqliteRows& operator=(const SqliteRows&) = delete;

    // A query that has come to its end would begin anew.
    bool next() override {
        if (ended_) return false;
        const int code = sqlite3_step(statement_);
        ended_ = code != SQLITE_ROW;
        if (ended_ && code != SQLITE_DONE) fail(database_, code, sqlite3_errmsg(database_));
        return !ended_;
    }
    std::string_view text(int column) const override {
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement_, column));
        if (!text) return {};
        return {text, static_cast<std::size_t>(sqlite3_column_bytes(statement_, column))};
    }

private:
    sqlite3* database_;
    sqlite3_stmt* statement_ = nullptr;
    bool ended_ = false;
};

// The open query holds what the database was when the copying began: whoever writes meanwhile neither waits nor makes
// it begin anew.
class SqliteCopy : public DatabaseCopy {
public:
    SqliteCopy(SQLite::Database& from, const std::filesystem::path& target)
        : from_(from), target_(target.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE) {
        if (std::filesystem::file_size(target) != 0)
            throw DatabaseError(DatabaseError::Cause::Other, target.filename().string() + " exists");
        from_.exec("BEGIN");
        SQLite::Statement(from_, "SELECT COUNT(*) FROM sqlite_master").executeStep();
        // Who makes the copy durable is who began it.
        target_.exec("PRAGMA synchronous=OFF");
        target_.exec("PRAGMA journal_mode=OFF");
        copying_ = std::make_unique<SQLite::Backup>(target_, from_);
    }
    ~SqliteCopy() override {
        copying_.reset();
        sqlite3_exec(from_.getHandle(), "ROLLBACK", nullptr, nullptr, nullptr);
    }
    SqliteCopy(const SqliteCopy&) = delete;
    SqliteCopy& operator=(const SqliteCopy&) = delete;

    bool step() override {
        return translated(target_.getHandle(), [&] {
            if (copying_->executeStep(pagesOfStep) != SQLITE_DONE) return true;
            copying_.reset();
            target_.exec("PRAGMA journal_mode=DELETE");  // one file, with no log beside it
            return false;
        });
    }
    int percent() const override {
        const int all = copying_ ? copying_->getTotalPageCount() : 0;
        return all == 0 ? 0 : 100 - copying_->getRemainingPageCount() * 100 / all;
    }

private:
    static constexpr int pagesOfStep = 500;
    SQLite::Database& from_;
    SQLite::Database target_;
    std::unique_ptr<SQLite::Backup> copying_;
};

class SqliteDatabase : public Database {
public:
    explicit SqliteDatabase(const std::filesystem::path& path)
        : database_(path.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_NOMUTEX, busyMs) {
        translated(handle(), [&] {
            database_.exec("PRAGMA journal_mode=WAL");
            database_.exec("PRAGMA synchronous=NORMAL");
        });
    }

    void execute(const std::string& sql) override {
        translated(handle(), [&] { database_.exec(sql); });
    }
    void execute(const std::string& sql, const std::vector<std::string_view>& values) override {
        translated(handle(), [&] {
            const Prepared statement(prepared(sql));
            for (std::size_t i = 0; i < values.size(); ++i)
                statement->bind(static_cast<int>(i) + 1, std::string(values[i]));
            statement->exec();
        });
    }
    std::unique_ptr<DatabaseRows> query(const std::string& sql) override {
        return std::make_unique<SqliteRows>(handle(), sql);
    }
    int mark() const override {
        return translated(handle(), [&] {
            const Prepared read(prepared("PRAGMA user_version"));
            read->executeStep();
            return read->getColumn(0).getInt();
        });
    }
    void setMark(int mark) override { execute("PRAGMA user_version=" + std::to_string(mark)); }
    void makeDurable() override {
        const bool kept = translated(handle(), [&] {
            SQLite::Statement checkpoint(database_, "PRAGMA wal_checkpoint(FULL)");
            return checkpoint.executeStep() && checkpoint.getColumn(0).getInt() != 0;
        });
        // A reader beside us keeps a part of the log from moving, and nothing was synced for sure.
        if (kept) throw DatabaseError(DatabaseError::Cause::Locked, "a reader holds the log");
    }
    std::unique_ptr<DatabaseCopy> copyTo(const std::filesystem::path& target) override {
        return translated(handle(), [&] { return std::make_unique<SqliteCopy>(database_, target); });
    }

private:
    // A statement at work: it holds its locks no longer than that, however it ends.
    class Prepared {
    public:
        explicit Prepared(SQLite::Statement& statement) : statement_(statement) {}
        ~Prepared() { statement_.tryReset(); }
        Prepared(const Prepared&) = delete;
        Prepared& operator=(const Prepared&) = delete;
        SQLite::Statement* operator->() const { return &statement_; }

    private:
        SQLite::Statement& statement_;
    };

    sqlite3* handle() const { return database_.getHandle(); }
    SQLite::Statement& prepared(const std::string& sql) const {
        const auto found = statements_.find(sql);
        if (found != statements_.end()) return *found->second;
        return *statements_.emplace(sql, std::make_unique<SQLite::Statement>(database_, sql)).first->second;
    }

    mutable SQLite::Database database_;
    mutable std::map<std::string, std::unique_ptr<SQLite::Statement>> statements_;  // by their text
};

}  // namespace

std::unique_ptr<Database> SqliteEngine::open(const std::filesystem::path& path) {
    return translated(nullptr, [&] { return std::make_unique<SqliteDatabase>(path); });
}

// Cut short behind the database itself, it leaves what the next one of this name is rid of first.
void SqliteEngine::remove(const std::filesystem::path& path) {
    std::filesystem::remove(path);
    removeBeside(path);
}

void SqliteEngine::removeBeside(const std::filesystem::path& path) {
    for (const char* beside : {"-wal", "-shm", "-journal"}) std::filesystem::remove(path.native() + beside);
}

}  // namespace trunvex
