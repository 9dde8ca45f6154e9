#include "platform/sqlite/sqlite_engine.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

#include <map>

namespace trunvex {

namespace {

// The console has one thread, and a lock of another program may last: the caller waits and tries again by its own
// clock, so that the window never stands still for longer than this.
constexpr int busyMs = 50;

DatabaseError::Cause causeOf(int code) {
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
auto translated(Act&& act) {
    try {
        return act();
    } catch (const SQLite::Exception& error) {
        throw DatabaseError(causeOf(error.getErrorCode()), error.what());
    }
}

class SqliteRows : public DatabaseRows {
public:
    SqliteRows(SQLite::Database& database, const std::string& sql) : statement_(database, sql) {}

    bool next() override {
        return translated([&] { return statement_.executeStep(); });
    }
    std::string_view text(int column) const override {
        return translated([&] {
            const auto value = statement_.getColumn(column);
            const char* text = value.getText();
            return std::string_view(text, static_cast<std::size_t>(value.getBytes()));
        });
    }
    bool isNull(int column) const override {
        return translated([&] { return statement_.isColumnNull(column); });
    }

private:
    mutable SQLite::Statement statement_;
};

class SqliteDatabase : public Database {
public:
    explicit SqliteDatabase(const std::filesystem::path& path)
        : database_(path.string(), SQLite::OPEN_READWRITE, busyMs) {
        database_.exec("PRAGMA journal_mode=WAL");
        database_.exec("PRAGMA synchronous=NORMAL");
    }

    void execute(const std::string& sql) override {
        translated([&] { database_.exec(sql); });
    }
    void execute(const std::string& sql, const std::vector<std::string_view>& values) override {
        translated([&] {
            auto& statement = prepared(sql);
            statement.reset();
            for (std::size_t i = 0; i < values.size(); ++i)
                statement.bind(static_cast<int>(i) + 1, std::string(values[i]));
            statement.exec();
            statement.reset();
        });
    }
    std::unique_ptr<DatabaseRows> query(const std::string& sql) override {
        return translated([&] { return std::make_unique<SqliteRows>(database_, sql); });
    }
    int mark() const override {
        return translated([&] {
            SQLite::Statement read(const_cast<SQLite::Database&>(database_), "PRAGMA user_version");
            read.executeStep();
            return read.getColumn(0).getInt();
        });
    }
    void setMark(int mark) override { execute("PRAGMA user_version=" + std::to_string(mark)); }
    void makeDurable() override {
        const bool kept = translated([&] {
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
    SQLite::Statement& prepared(const std::string& sql) {
        const auto found = statements_.find(sql);
        if (found != statements_.end()) return *found->second;
        return *statements_.emplace(sql, std::make_unique<SQLite::Statement>(database_, sql)).first->second;
    }

    SQLite::Database database_;
    std::map<std::string, std::unique_ptr<SQLite::Statement>> statements_;  // by their text
};

}  // namespace

std::unique_ptr<Database> SqliteEngine::open(const std::filesystem::path& path) {
    return translated([&] { return std::make_unique<SqliteDatabase>(path); });
}

void SqliteEngine::remove(const std::filesystem::path& path) {
    for (const char* beside : {"-wal", "-shm", ""}) {
        auto file = path;
        file += beside;
        std::filesystem::remove(file);
    }
}

}  // namespace trunvex
