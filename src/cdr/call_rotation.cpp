#include "cdr/call_rotation.h"

#include <system_error>

#include "platform/quietly.h"
#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr const char* section = "CDRConfig";
constexpr std::int64_t usualMostCalls = 1000;

}  // namespace

bool headerWanted(Settings& settings) { return val(settings.readOr(section, "Header", "1")) == 1; }

CallRotation::CallRotation(Session& session, CallStore& store, CdrDownload& download, SlicedWork& work, TextField& path,
                           std::function<bool()> clearTable)
    : session_(session), store_(store), download_(download), work_(work), path_(path),
      clearTable_(std::move(clearTable)) {}

// It goes with the page, and what waits for it must not.
CallRotation::~CallRotation() {
    if (running_) store_.releaseRows();
}

std::int64_t CallRotation::mostCalls() const {
    const auto most = val(session_.setting.readOr(section, "Max", ""));
    return most == 0 ? usualMostCalls : most;
}

bool CallRotation::isDue(std::int64_t calls) {
    if (calls < mostCalls_ || running_) return false;
    readSettings();
    return calls >= mostCalls_ && val(session_.setting.readOr(section, "Mode", "0")) == 0;
}

std::filesystem::path CallRotation::newFile(CallRollover::Format format) {
    const auto usual = session_.state.applicationFolder + "/data";
    auto folder = session_.setting.readOr(section, "Path", usual);
    std::error_code error;
    if (std::filesystem::is_directory(folder, error) && std::filesystem::is_empty(folder, error)) {
        folder = usual;
        path_.setText(folder);
    }
    return std::filesystem::path(folder) /
           CallRollover::fileName(session_.state.gESN, session_.platform.clock().localTime(), format);
}

void CallRotation::begin() {
    const auto format = CallRollover::formatOf(val(session_.setting.readOr(section, "Format", "0")));
    const auto file = newFile(format);
    std::error_code error;
    // Two of the same second have the same name: the later one waits for the next call instead of replacing the first.
    if (std::filesystem::exists(file, error)) return;
    download_.pause(true);
    running_ = true;
    store_.holdRows();
    auto rollover = std::make_shared<CallRollover>(store_, file, format, headerWanted(session_.setting));
    work_.run({"SaveCDRFile",
               [this, rollover, file, marked = false]() mutable {
                   if (!std::exchange(marked, true)) store_.beginRollover(file);
                   return rollover->write();
               },
               [rollover] { return rollover->progress(); },
               [this, file](SlicedWork::End end, const std::string& reason) { ended(file, end, reason); }});
}

void CallRotation::ended(const std::filesystem::path& file, SlicedWork::End end, const std::string& reason) {
    std::error_code error;
    if (end == SlicedWork::End::Done) {
        told_.clear();
        // Calls that stay in the table must not stand in a file as well.
        if (clearTable_())
            rolledOver.emit("Calls moved to " + file.filename().string());
        else
            std::filesystem::remove(file, error);
    } else if (end == SlicedWork::End::Failed && std::exchange(told_, reason) != reason) {
        session_.tell("The call records can't be written to " + file.parent_path().string() + " (" + reason +
                      "); they stay in the list.");
        rolledOver.emit("Calls not moved: " + reason);
    }
    quietly("dropRollover", [&] { store_.dropRollover(); });
    store_.releaseRows();  // at once: what fails behind it may be given up, when a run is ended
    download_.guard([this] { store_.recover(); });
    running_ = false;
    download_.pause(false);
}

}  // namespace trunvex
