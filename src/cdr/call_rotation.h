#pragma once

#include "cdr/call_rollover.h"
#include "cdr/cdr_download.h"
#include "fields/sliced_work.h"
#include "platform/settings.h"

namespace trunvex {

// True when a file of calls in text form begins with the headings.
bool headerWanted(Settings& settings);

// When the table of calls goes into a file of its own and begins anew, and that it does: the download waits meanwhile,
// no row comes into the table, and the table is cleared only behind a file that is complete.
class CallRotation {
public:
    // `path` shows the folder; `clearTable` is false when the table could not be cleared.
    CallRotation(Session& session, CallStore& store, CdrDownload& download, SlicedWork& work, TextField& path,
                 std::function<bool()> clearTable);
    ~CallRotation();

    void readSettings() { mostCalls_ = mostCalls(); }
    // So many calls ask for a new file.
    bool isDue(std::int64_t calls);
    void begin();
    bool running() const { return running_; }
    // One has come to its end, in words.
    sigc::signal<void(const std::string&)> rolledOver;

private:
    std::int64_t mostCalls() const;
    std::filesystem::path newFile(CallRollover::Format format);
    void ended(const std::filesystem::path& file, SlicedWork::End end, const std::string& reason);

    Session& session_;
    CallStore& store_;
    CdrDownload& download_;
    SlicedWork& work_;
    TextField& path_;
    std::function<bool()> clearTable_;
    bool running_ = false;
    std::int64_t mostCalls_ = 0;  // calls a file, as last read
    std::string told_;            // why the last one failed
};

}  // namespace trunvex
