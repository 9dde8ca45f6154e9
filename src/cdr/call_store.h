#pragma once

#include <sigc++/sigc++.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "cdr/call_files.h"
#include "cdr/call_journal.h"
#include "cdr/call_record.h"
#include "platform/database.h"
#include "platform/durable_file.h"
#include "platform/file_lock.h"

namespace trunvex {

// A copy of the whole database on its way to a file that has its name when it is complete, and is on the disk then.
class CallCopy {
public:
    CallCopy(DatabaseEngine& engine, const std::filesystem::path& from, const std::filesystem::path& target);
    // Some megabytes more; false when the file is complete.
    bool write();
    int percent() const { return copying_ ? copying_->percent() : 100; }

private:
    DatabaseEngine& engine_;
    std::filesystem::path target_;
    FreshFile fresh_;
    std::unique_ptr<Database> database_;
    std::unique_ptr<DatabaseCopy> copying_;
};

// The call records of one gateway on disk: the database with the table CDR, and beside it the journal of what was taken
// from the gateway. A record is in the journal, and on the disk, before the gateway may drop it; it leaves the journal
// in the transaction that adds its row. So the end of the program at any moment neither loses a call nor counts one
// twice.
//
// One console at a time adds calls and clears them: what does so takes a lock on the gateway's files, and throws
// DatabaseError "Locked" with the name of who holds it. Who does not get it may still look: at the calls, and copyTo().
//
// What fails throws: DatabaseError from the database, std::system_error from files. Nothing has changed then, and the
// same call may be tried again.
class CallStore {
public:
    CallStore(DatabaseEngine& engine, std::filesystem::path applicationFolder);
    ~CallStore();
    CallStore(const CallStore&) = delete;
    CallStore& operator=(const CallStore&) = delete;

    // The database of a gateway, "data/CDR<ESN>.mdb" in the application folder. What was taken of the one before is
    // added to its table first, and its files are let go.
    void setGateway(const std::string& esn);
    // The gateway of the moment is about to be another one: its files can still be used.
    sigc::signal<void()>& gatewayLeft() { return gatewayLeft_; }
    // Adds what was taken, and lets another console have the files, until they are needed again.
    void release();
    // Empty until a gateway is known, or something was stored without one.
    const std::filesystem::path& gCDRFile() const { return file_; }
    // Makes sure that there is a database; true when it had to be made from the template. While no gateway is known it
    // is "CDR_NO_ESN.mdb" in the application folder.
    bool CheckCDRFile();

    // The record of a channel (slot 1 to 16) goes to the journal. One that equals the channel's last one, or one a
    // little before, is that one: the gateway has not heard that it may drop it. An earlier one that was never added is
    // added now: the gateway has gone on, so it has dropped that.
    void take(int slot, const CDRSlot& record);
    // Adds what was taken of the channel, and what was taken of others before it. What is in the table already is not
    // added again.
    void add(int slot);
    // Adds all that was taken and is not in the table: what the end of the program, a full disk or a lock has left.
    void recover();
    // Between these no row comes into the table: what is taken waits in the journal, for recover(). A table that is
    // copied in order to be cleared must not grow behind the copy.
    void holdRows() { rowsHeld_ = true; }
    void releaseRows() { rowsHeld_ = false; }
    // The table is on its way into this file, which is not there yet: from the moment it is there, the table is
    // cleared, also by the next start when the program ends in between; when its folder can't be reached by then, as
    // soon as it can.
    void beginRollover(const std::filesystem::path& file);
    // It did not come to that.
    void dropRollover();
    // A row came into the table. Who hears of it may hold the rows, and may clear the table.
    sigc::signal<void(const CallRecord&)>& added() { return added_; }

    // Between these the database stays open; outside, each call opens and closes it.
    void beginRun() { holding_ = true; }
    void endRun();

    // The calls in the columns' order, on a connection of their own: what is added or copied meanwhile neither waits
    // for them nor changes them.
    std::unique_ptr<DatabaseRows> calls();
    // With one column more: "1" where the column, by its name, holds the value. A value with a quote fails.
    std::unique_ptr<DatabaseRows> callsMarked(std::string_view column, std::string_view value);
    // With empty texts for nulls.
    std::unique_ptr<DatabaseRows> callsWithoutNulls();
    // One column of all calls.
    std::unique_ptr<DatabaseRows> values(std::string_view column);
    // Deletes the database, a damaged one too, but none that is locked. What was taken and is not in the table yet
    // stays in the journal; the rows of the tables SMS and LOG come back in the next database.
    void clear();
    // The whole database as one file.
    std::unique_ptr<CallCopy> copyTo(const std::filesystem::path& target);

private:
    std::unique_ptr<DatabaseRows> query(const std::string& sql);
    void lock();
    void openJournal();
    std::shared_ptr<Database> database();
    bool takenAlready(int slot, const CDRSlot& record);
    int addedUpTo(Database& database);
    void addUpTo(int slot);
    bool addNext(int slot);
    void shrinkJournal();
    void finishRollover();
    std::filesystem::path beside(const char* extension) const;

    DatabaseEngine& engine_;
    std::filesystem::path folder_;
    CallFiles files_;
    std::filesystem::path file_;
    std::unique_ptr<FileLock> lock_;
    std::unique_ptr<CallJournal> journal_;  // only under the lock
    std::optional<int> addedUpTo_;          // as last seen
    std::shared_ptr<Database> held_;
    std::optional<FileId> heldId_;
    bool holding_ = false;
    bool rowsHeld_ = false;
    sigc::signal<void(const CallRecord&)> added_;
    sigc::signal<void()> gatewayLeft_;
};

}  // namespace trunvex
