#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "fields/record_form.h"
#include "link/session_state.h"
#include "model/shared_tables.h"
#include "platform/clock.h"
#include "platform/dialogs.h"
#include "queues/command_sender.h"
#include "queues/read_queue.h"
#include "queues/write_queue.h"

namespace trunvex {

inline constexpr const char* nothingReadText =
    "Nothing was read here yet. Read it first, so that nothing unknown is overwritten.";

inline constexpr const char* noChangeText = "No change in the data!!";

// What every settings page works with.
struct PageTools {
    Dialogs& dialogs;
    CommandSender& sender;
    SharedTables& tables;
    ReadQueue& reads;
    WriteQueue& writes;
    const SessionState& session;
    const Clock& clock;
    std::function<void(const std::string&)> tell;  // a line in the window, where no box is called for

    // False, and the operator is told, while the link is down.
    bool connected() const;
    // A page's Refresh: asks before edits are thrown away; they are gone when it answers true.
    bool mayLose(RecordForm& form) const;
    // Begins a write of one line. The text stands before the caption on the panel.
    bool write(std::string line, std::string caption, const char* firstText = "send data to: ") const;
    // Reads a batch at once, or as soon as the one that runs is over; of two that wait for one owner the newer counts.
    void read(const std::string& owner, std::vector<QueueItem> batch, int budgetMs) const;
};

// What a builder makes of a page: the line to send, or the word on the first thing that is wrong.
struct BuiltLine {
    std::string line;
    std::string word;
    InputField* field = nullptr;  // where the fault is
    const char* title = "Error Message";

    // A change command: the key and its fields from the first on, `fields[0]` being none, each closed by a comma.
    static BuiltLine change(const std::string& key, std::span<const std::string> fields);
    static BuiltLine wrong(std::string word, InputField& field) { return {{}, std::move(word), &field}; }
    // The line; or, with the word in a box and at the field, nothing.
    std::string orTell(Dialogs& dialogs) const;
};

// The records of a form that hold edits, by the names that `nameOf` gives their keys.
std::vector<std::string> unwrittenOf(const RecordForm& form, bool parkedToo,
                                     const std::function<std::string(const std::string& key)>& nameOf);

// The fields of a command that was built, behind its five letters.
Fields fieldsOf(std::string_view line);

// True for a text that can stand in one field of a line: printable ASCII without comma and quotes.
bool fitsField(std::string_view text);
inline constexpr const char* doesNotFitField =
    "Commas, quotes, line ends and letters beyond ASCII can't be sent to the gateway.";

}  // namespace trunvex
