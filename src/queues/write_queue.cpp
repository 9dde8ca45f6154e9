#include "queues/write_queue.h"

#include <utility>

#include "platform/quietly.h"
#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr int atOnceMs = 1;
constexpr int dialTimeMs = 65000;  // a call set-up may take a minute
constexpr const char* lineEnd = "\r\n";
constexpr const char* sendingText = "send data : ";
constexpr const char* busyText = "The gateway is still being written. Write again when that has ended.";

bool startsWith(std::string_view text, std::string_view start) { return text.substr(0, start.size()) == start; }

}  // namespace

WriteQueue::WriteQueue(Platform& platform, CommandSender& sender, ucProgress& panel)
    : platform_(platform), sender_(sender), panel_(panel) {
    // A silent batch whose last item is never answered ends with the panel's own count.
    panel_.ranOut().connect([this] {
        gSilentWrite = false;
        endBatch();
    });
}

bool WriteQueue::start(WriteBatch batch) {
    if (!sender_.isConnected()) {
        platform_.dialogs().info(notConnectedText);
        return false;
    }
    if (batch.items.empty()) {
        if (batch.groupWrite) platform_.dialogs().info("There is no ports in this group!!");
        return false;
    }
    if (running()) {
        refused_.emit(busyText);
        return false;
    }
    begin(std::move(batch));
    operators_ = true;
    return true;
}

void WriteQueue::begin(WriteBatch batch) {
    tellCutShort();
    ++batch_;
    operators_ = false;
    gWriteQueue = std::move(batch.items);
    gWriteCount = static_cast<std::int16_t>(gWriteQueue.size());
    gWriteIndex = 0;
    gWriteErrors.clear();
    gSilentWrite = batch.silent;
    gRestoreMode = batch.restore;
    active_ = gWriteCount > 0;
    if (!active_) return;
    sendCurrent();
    panel_.StartProgress(batch.word, gWriteCount, ucProgress::Writing, batch.timeToWriteMs);
    panel_.setPanelText(batch.firstText + gWriteQueue.front().Caption);
    giveDialItsTime();
}

// A batch of the operator's that something stronger ends is not lost without a word.
void WriteQueue::tellCutShort() {
    if (!running() || !operators_) return;
    std::string text = "The write was cut short. Not written: " + item().Caption;
    const auto more = gWriteCount - 1 - gWriteIndex;
    if (more > 0) text += " and " + std::to_string(more) + " more";
    refused_.emit(text + ".");
}

void WriteQueue::abandon() {
    tellCutShort();
    ++batch_;
    gRestoreMode = false;
    gSilentWrite = false;
    endFirmware();
    endBatch();
}

void WriteQueue::endBatch() {
    if (!active_) return;
    active_ = false;
    panel_.pauseBars().emit(false);
    ended_.emit();
}

const QueueItem* WriteQueue::inFlight() const {
    return active_ ? &gWriteQueue[static_cast<std::size_t>(gWriteIndex)] : nullptr;
}

// The flags go down before the line goes out, so that an answer to an earlier command is never credited to this one.
void WriteQueue::sendCurrent() {
    gWriteOk = false;
    gWriteFailed = false;
    giveDialItsTime();
    if (!item().Key.empty()) sender_.SendCommand(item().Key);
}

void WriteQueue::giveDialItsTime() {
    if (startsWith(item().Key, "ATD")) panel_.setProgressSpeed(ucProgress::Writing, dialTimeMs);
}

void WriteQueue::WriteResult(bool ok) {
    // A line fed back is this console's own; a word with no command in flight is late, and must not wake the panel.
    if (feeding_ || !active_) return;
    gWriteOk = ok;
    gWriteFailed = !ok;
    panel_.setProgressSpeed(panel_.ProgressMode, atOnceMs);
}

void WriteQueue::answered(std::string_view letters) {
    const auto* command = inFlight();
    if (command && mid(command->Key, 3, letters.size()) == letters) WriteResult(true);
}

void WriteQueue::writeQueue() { step(Routine::Page, {}); }
void WriteQueue::writeQueue(std::string_view extra) { step(Routine::Tick, extra); }

void WriteQueue::step(Routine routine, std::string_view extra) {
    if (!active_) return;
    if (panel_.ProgressState == ucProgress::Wait)
        plainSendStep();
    else if (gWriteOk)
        accepted();
    else if (gSilentWrite)
        passOver();
    else
        failed(routine, extra);
}

void WriteQueue::plainSendStep() {
    if (lastItem()) {
        endBatch();
        if (RecievingChange) RecievingChange();
        return;
    }
    ++gWriteIndex;
    sendCurrent();
}

void WriteQueue::accepted() {
    if (!gSilentWrite && !startsWith(item().Key, "SRV") && feedBack) {
        const auto thisBatch = batch_;
        const auto line = item().Key;
        feeding_ = true;
        feedBack(line);
        feeding_ = false;
        if (!active_ || thisBatch != batch_) return;  // what was fed back ended or replaced the batch
    }
    settled_.emit(item(), Outcome::Accepted);
    if (lastItem()) {
        const bool silent = std::exchange(gSilentWrite, false);
        const bool restore = std::exchange(gRestoreMode, false);
        const auto errors = gWriteErrors;
        panel_.EndProgress(ucProgress::Writing);
        endBatch();
        reportEnd(silent, restore, errors);
        return;
    }
    ++gWriteIndex;
    if (gRestoreMode)
        panel_.setPanelText("Restoring Data");
    else
        panel_.setPanelText(gSilentWrite ? item().Caption : sendingText + item().Caption);
    sendCurrent();
}

void WriteQueue::reportEnd(bool silent, bool restore, const std::string& errors) {
    if (active_) return;  // the end of this batch has begun another, and the panel is that one's
    if (!errors.empty()) {
        if (silent) return;
        panel_.setPanelText("Write data not complete seccessful!");
        platform_.dialogs().info("Write data not complete seccesful : " + std::string(lineEnd) + errors);
        if (!active_ && !panel_.running() && sender_.isConnected()) panel_.StartProgress("connected");
    } else if (restore) {
        panel_.setPanelText("Restore data complete successful..");
        platform_.dialogs().info("Restore data complete successful.. ");
    } else if (silent) {
        panel_.setPanelText("Refreshing data  complete seccessful!");
    } else {
        panel_.setPanelText("Write data complete successful..");
        panel_.StartProgress("connected");
    }
}

std::string WriteQueue::failureText(const QueueItem& of, std::string_view extra) const {
    std::string text = "Error: can't write : ";
    if (!extra.empty()) text += '\r' + std::string(extra);
    text += lineEnd;
    text += gRestoreMode ? "error while restoring data." : of.Caption + lineEnd + "please check your data.";
    return text;
}

// The walk rests while its box is open; `current` tells afterwards whether it is still the walk that asked.
Button WriteQueue::ask(const QueueItem& of, std::string_view extra, ButtonSet buttons, bool& current) {
    const ucProgress::Hold hold(panel_);
    const auto answer =
        platform_.dialogs().message({failureText(of, extra), of.Caption, buttons, BoxIcon::Information, 2});
    current = hold.stillCurrent() && active_;
    return answer;
}

void WriteQueue::failed(Routine routine, std::string_view extra) {
    if (routine == Routine::Tick && lastItem() && gBootRunning && val(gBootCount) == 0) {
        failedFirmware();
        return;
    }
    bool current = false;
    const auto failedItem = item();
    const auto answer =
        ask(failedItem, extra, lastItem() ? ButtonSet::RetryCancel : ButtonSet::AbortRetryIgnore, current);
    if (!current) return;
    if (answer == Button::Retry)
        retry();
    else if (answer == Button::Ignore)
        ignore();
    else
        abort();
}

// The last MCU of an update of all is in flight: the operator may try it again, leave, or let the pump go on.
void WriteQueue::failedFirmware() {
    bool current = false;
    const auto firstItem = gWriteQueue.front();
    const auto answer = ask(firstItem, {}, ButtonSet::AbortRetryIgnore, current);
    if (!current) return;
    if (answer == Button::Retry) {
        gBootCount = std::to_string(val(gBootCount) + 1);
        retry();
        return;
    }
    panel_.EndProgress(ucProgress::Writing);
    panel_.setPanelText("failed write to gateway");
    endBatch();
    if (answer == Button::Ignore)
        NextCoommand();
    else
        endFirmware();
}

void WriteQueue::retry() {
    panel_.setWritePosition(-1);
    sendCurrent();
}

void WriteQueue::settleFailed() { settled_.emit(item(), gWriteFailed ? Outcome::Refused : Outcome::NoAnswer); }

void WriteQueue::ignore() {
    settleFailed();
    gWriteErrors += item().Caption + lineEnd;
    ++gWriteIndex;
    panel_.setPanelText(sendingText + item().Caption);
    sendCurrent();
}

void WriteQueue::abort() {
    settleFailed();
    gRestoreMode = false;
    gWriteErrors += item().Caption;
    endFirmware();
    panel_.EndProgress(ucProgress::Writing);
    panel_.setPanelText("failed write to gateway");
    endBatch();
    platform_.dialogs().message({"Error: can't write data to : " + std::string(lineEnd) + gWriteErrors, "Error",
                                 ButtonSet::Ok, BoxIcon::Critical});
}

// In a silent batch the panel's own count goes with the index, so passing over needs no correction of it. The last
// item is sent once more, and the panel's end closes the batch.
void WriteQueue::passOver() {
    settleFailed();
    if (lastItem()) {
        sendCurrent();
        return;
    }
    ++gWriteIndex;
    panel_.setPanelText(item().Caption);
    sendCurrent();
}

// A late "completed" of a target must not send the next one after the operator has stopped the update.
void WriteQueue::endFirmware() {
    gBootRunning = false;
    gBootCount.clear();
}

void WriteQueue::NextCoommand() {
    if (!sender_.isConnected()) {
        platform_.dialogs().info(notConnectedText);
        return;
    }
    if (gBootRunning) gWriteOk = true;
    if (val(gBootCount) <= 1) {
        endFirmware();
        panel_.setPanelText("Connect");
        return;
    }
    quietly("NextCoommand", [&] {
        const auto left = val(gBootCount) - 1;
        gBootCount = std::to_string(left);
        const auto& line = gBootList.at(static_cast<std::size_t>(left - 1));
        WriteBatch batch;
        batch.items.push_back(command(line, "BootLoad: " + line));
        batch.firstText = sendingText;
        begin(std::move(batch));
    });
}

}  // namespace trunvex
