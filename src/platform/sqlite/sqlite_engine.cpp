#include "platform/sqlite/sqlite_engine.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

#include <cerrno>
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

template <class Act>
auto translated(sqlite3* database, Act&& act) {
    try {
        return act();
    } catch (const SQLite::Exception& error) {
        const int systemError = systemErrorOf(error.getErrorCode(), database);
        std::string what = error.what();
        if (systemError != 0) what += ": " + std::generic_category().message(systemError);
        throw DatabaseError(causeOf(error.getErrorCode(), systemError), what);
    }
}

class SqliteRows : public DatabaseRows {
public:
    SqliteRows(SQLite::Database& database, const std::string& sql)
        : database_(database.getHandle()), statement_(database, sql) {}

    bool next() override {
        return translated(database_, [&] { return statement_.executeStep(); });
    }
    std::string_view text(int column) const override {
        return translated(database_, [&] {
            const auto value = statement_.getColumn(column);
            const char* text = value.getText();
            return std::string_view(text, static_cast<std::size_t>(value.getBytes()));
        });
    }
    bool isNull(int column) const override {
        return translated(database_, [&] { return statement_.isColumnNull(column); });
    }

private:
    sqlite3* database_;
    mutable SQLite::Statement statement_;
};

class SqliteDatabase : public Database {
public:
    explicit SqliteDatabase(const std::filesystem::path& path)
        : database_(path.string(), SQLite::OPEN_READWRITE, busyMs) {
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
        return translated(handle(), [&] { return std::make_unique<SqliteRows>(database_, sql); });
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
    void copyTo(const std::filesystem::path& target) override {
        execute("VACUUM INTO ?", {target.native()});
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

void SqliteEngine::remove(const std::filesystem::path& path) {
    for (const char* beside : {"-wal", "-shm", ""}) {
        auto file = path;
        file += beside;
        std::filesystem::remove(file);
    }
}

}  // namespace trunvex
