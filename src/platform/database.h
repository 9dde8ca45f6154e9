#pragma once

#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace trunvex {

// Why the database did not do what it was asked to.
class DatabaseError : public std::runtime_error {
public:
    enum class Cause { Locked, Full, ReadOnly, Damaged, Other };
    DatabaseError(Cause cause, const std::string& what) : std::runtime_error(what), cause_(cause) {}
    Cause cause() const { return cause_; }

private:
    Cause cause_;
};

// The rows of a query, one after the other. Texts live until the next call of next().
class DatabaseRows {
public:
    virtual ~DatabaseRows() = default;
    virtual bool next() = 0;
    // The column by its place in the query, from 0. A null has no data().
    virtual std::string_view text(int column) const = 0;
};

// A copy of a whole database on its way, some pages at a time. It shows what was in the database when it was begun.
class DatabaseCopy {
public:
    virtual ~DatabaseCopy() = default;
    // Some megabytes more; false when the copy is complete. It is a file of its own then, but not yet on the disk.
    virtual bool step() = 0;
    // 0 to 100.
    virtual int percent() const = 0;
};

// One open database file. What fails throws DatabaseError. A change that was committed survives the end of the program
// at any moment; the end of the machine's power may take back the last ones, whole and in order, until makeDurable().
class Database {
public:
    virtual ~Database() = default;
    virtual void execute(const std::string& sql) = 0;
    // The same with "?" in place of the values, in order. A statement that comes often is prepared once.
    virtual void execute(const std::string& sql, const std::vector<std::string_view>& values) = 0;
    virtual std::unique_ptr<DatabaseRows> query(const std::string& sql) = 0;
    // A number that the file keeps with its content: it changes in the transaction in which it is set. 0 in a new file.
    virtual int mark() const = 0;
    virtual void setMark(int mark) = 0;
    // Everything committed is in the file itself and on the disk.
    virtual void makeDurable() = 0;
    // All of it as a further file, which must not exist. The database must live longer than the copying, and is changed
    // by nobody else through this connection meanwhile.
    virtual std::unique_ptr<DatabaseCopy> copyTo(const std::filesystem::path& target) = 0;
};

// Opens a database that exists; throws DatabaseError when it does not or can't be read.
class DatabaseEngine {
public:
    virtual ~DatabaseEngine() = default;
    virtual std::unique_ptr<Database> open(const std::filesystem::path& path) = 0;
    // Deletes a database that is not open, with whatever the engine keeps beside it.
    virtual void remove(const std::filesystem::path& path) = 0;
    // Deletes only what is kept beside it: left there by a database that was taken away, it would spoil the next one.
    virtual void removeBeside(const std::filesystem::path& path) = 0;
};

}  // namespace trunvex
