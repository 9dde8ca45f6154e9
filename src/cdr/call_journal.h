#pragma once

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cdr/call_record.h"
#include "platform/durable_file.h"

namespace trunvex {

// A small file beside the database, in the hands of one program at a time: the records that were taken from the
// gateway, each with a running number. The database's mark says up to which number they are in the table. A last line
// that a power cut has torn is known by its check sum and left out: that record was never acknowledged.
//
// What fails throws std::system_error, and nothing has changed.
class CallJournal {
public:
    struct Entry {
        int number = 0;  // from 1, in the order in which the records were taken
        int slot = 0;    // the channel, 1 to 16
        CDRSlot record;
    };

    // Reads the file, if there is one.
    explicit CallJournal(std::filesystem::path path);
    ~CallJournal();
    CallJournal(const CallJournal&) = delete;
    CallJournal& operator=(const CallJournal&) = delete;

    // False when the name leads to another file than the one that was read and written, or to none.
    bool inPlace() const;
    // Returns when the record is on the disk. Its number is above the database's mark too: a journal that was lost
    // begins anew, and a number that the table already knows would never be added.
    void append(int slot, const CDRSlot& record, int mark);
    // In the order of their numbers; of those that are in the table, the last one of each channel at least.
    const std::vector<Entry>& entries() const { return entries_; }
    // The last record of a channel, or null. Lives until the next change.
    const Entry* lastOf(int slot) const;
    // The highest number that was given or read.
    int lastNumber() const { return lastNumber_; }
    // Up to here nothing is missing in the table, whatever its own mark says: the database may have been cleared since.
    int addedUpTo() const { return addedUpTo_; }
    // Forgets what is safely in the table up to this number, but for the last record of each channel.
    void shrink(int upTo);
    // Entries behind this number get new ones above the mark of a database that knows more numbers than were given.
    void raise(int behind, int mark);

private:
    void read();
    void keep(Entry entry);
    void rewrite(std::vector<Entry> entries, int upTo);
    void open();
    void close();
    void write(std::string_view text);

    std::filesystem::path path_;
    std::vector<Entry> entries_;
    std::array<int, cdrChannelCount> last_{};  // by slot - 1: the place in entries_, plus 1
    int lastNumber_ = 0;
    int addedUpTo_ = 0;
    int file_ = -1;
    std::optional<FileId> id_;
};

}  // namespace trunvex
