#include "queues/write_queue.h"

#include <utility>

#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr int atOnceMs = 1;
constexpr const char* lineEnd = "\r\n";
constexpr const char* sendingText = "send data : ";
constexpr const char* failedText = "failed write to gateway";
constexpr const char* busyText = "The gateway is still being written. Write again when that has ended.";

}  // namespace

WriteQueue::WriteQueue(Platform& platform, CommandSender& sender, ucProgress& panel)
    : platform_(platform), sender_(sender), panel_(panel), gWriteQueue(sender) {
    panel_.stepped().connect([this](int mode, int) {
        if (mode != ucProgress::Writing) return;
        panel_.RestoreSpeed(ucProgress::Writing);
        writeQueue();
    });
    // A silent batch whose last item is never answered ends with the panel's own count.
    panel_.ranOut().connect([this] {
        gSilentWrite = false;
        endBatch(Ending::Complete);
    });
}

bool WriteQueue::start(WriteBatch batch) {
    if (!sender_.isConnected()) {
        platform_.dialogs().info(notConnectedText);
        return false;
    }
    if (!sender_.mayWrite()) {
        refused_.emit(noRightsText);
        return false;
    }
    if (batch.items.empty()) {
        if (batch.groupWrite) platform_.dialogs().info("There is no ports in this group!!");
        return false;
    }
    if (running() || !sender_.free()) {
        refused_.emit(sender_.free() ? busyText : lineNotFreeText);
        return false;
    }
    const bool dropsLink = batch.dropsLink;
    begin(std::move(batch));
    operators_ = !dropsLink;
    return true;
}

void WriteQueue::begin(WriteBatch batch) {
    tellCutShort();
    if (gWriteQueue.active()) endBatch(Ending::Replaced);
    operators_ = false;
    gWriteErrors.clear();
    gSilentWrite = batch.silent;
    gRestoreMode = batch.restore;
    lastFailed_ = std::move(batch.lastFailed);
    if (batch.items.empty()) return;
    gWriteQueue.begin(std::move(batch.items));
    panel_.StartProgress(batch.word, static_cast<int>(gWriteQueue.count()), ucProgress::Writing, batch.timeToWriteMs);
    panel_.setPanelText(batch.firstText + gWriteQueue.item().Caption);
    sendCurrent();
}

// A batch of the operator's that something stronger ends is not lost without a word.
void WriteQueue::tellCutShort() {
    if (!running() || !operators_) return;
    if (gWriteQueue.last() && gWriteQueue.item().terms.restarts) return;  // it is to end the link
    std::string text = "The write was cut short. Not written: " + gWriteQueue.item().Caption;
    const auto more = gWriteQueue.count() - 1 - gWriteQueue.index();
    if (more > 0) text += " and " + std::to_string(more) + " more";
    refused_.emit(text + ".");
}

void WriteQueue::abandon() {
    tellCutShort();
    forget(Ending::Lost);
    abandoned_.emit();
}

void WriteQueue::forget(Ending ending) {
    gRestoreMode = false;
    gSilentWrite = false;
    if (ending == Ending::Cancelled && running()) {
        panel_.EndProgress(ucProgress::Writing);
        panel_.StartProgress("connected");
    }
    endBatch(ending);
}

void WriteQueue::endBatch(Ending ending) {
    if (!gWriteQueue.active()) return;
    gWriteQueue.end();
    panel_.pauseBars().emit(false);
    ended_.emit(ending);
}

void WriteQueue::sendCurrent() {
    restartAsked_ = gWriteQueue.item().terms.restarts;
    if (const int own = gWriteQueue.item().terms.timeMs; own > 0) panel_.setProgressSpeed(ucProgress::Writing, own);
    gWriteQueue.send();
}

void WriteQueue::WriteResult(bool ok) {
    // A line fed back is this console's own; a word with no command in flight is late, and must not wake the panel.
    if (feeding_ || !gWriteQueue.active()) return;
    gWriteQueue.setReply(ok ? Walk::Reply::Accepted : Walk::Reply::Refused);
    panel_.setProgressSpeed(panel_.ProgressMode, atOnceMs);
}

void WriteQueue::answered(std::string_view letters) {
    if (gWriteQueue.active() && gWriteQueue.item().terms.letters == letters) WriteResult(true);
}

void WriteQueue::answeredBy(std::string_view line) {
    if (!gWriteQueue.active()) return;
    const auto& command = gWriteQueue.item();
    if (command.terms.contains.empty() || !contains(line, command.terms.contains)) return;
    answerTaken_.emit(command, line);
    WriteResult(true);
}

void WriteQueue::answeredByHash(bool ok) {
    if (gWriteQueue.active() && gWriteQueue.item().terms.hashWord) WriteResult(ok);
}

void WriteQueue::answeredFor(std::string_view address, bool ok) {
    if (gWriteQueue.active() && mayAnswer(address, gWriteQueue.item().Key)) WriteResult(ok);
}

void WriteQueue::writeQueue() {
    if (!gWriteQueue.active()) return;
    const bool restarted = gWriteQueue.item().terms.restarts && gWriteQueue.reply() == Walk::Reply::None;
    if (panel_.ProgressState == ucProgress::Wait)
        plainSendStep();
    else if (gWriteQueue.reply() == Walk::Reply::Accepted || restarted)
        accepted();
    else if (gSilentWrite)
        passOver();
    else
        failed();
}

void WriteQueue::plainSendStep() {
    if (gWriteQueue.last()) {
        endBatch(Ending::Complete);
        if (RecievingChange) RecievingChange();
        return;
    }
    gWriteQueue.next();
    sendCurrent();
}

void WriteQueue::accepted() {
    if (!gSilentWrite && gWriteQueue.item().terms.fedBack && feedBack) {
        const auto own = Ticket::of([this] { return gWriteQueue.number(); });
        const auto line = gWriteQueue.item().Key;
        feeding_ = true;
        feedBack(line);
        feeding_ = false;
        if (!own.good()) return;  // what was fed back ended or replaced the batch
    }
    settled_.emit(gWriteQueue.item(), Outcome::Accepted);
    if (gWriteQueue.last()) {
        complete();
        return;
    }
    goOn();
}

void WriteQueue::complete() {
    const bool silent = std::exchange(gSilentWrite, false);
    const bool restore = std::exchange(gRestoreMode, false);
    const auto errors = gWriteErrors;
    panel_.EndProgress(ucProgress::Writing);
    endBatch(Ending::Complete);
    // Who heard of the end may have begun another batch, and the panel is that one's then.
    if (!gWriteQueue.active()) reportEnd(silent, restore, errors);
}

void WriteQueue::reportEnd(bool silent, bool restore, const std::string& errors) {
    if (!errors.empty()) {
        if (silent) return;
        panel_.setPanelText("Write data not complete seccessful!");
        platform_.dialogs().info("Write data not complete seccesful : " + std::string(lineEnd) + errors);
        if (!gWriteQueue.active() && !panel_.running() && sender_.isConnected()) panel_.StartProgress("connected");
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

std::string WriteQueue::failureText(const QueueItem& of) const {
    std::string text = "Error: can't write : ";
    if (!of.Tag.empty()) text += '\r' + of.Tag;
    text += lineEnd;
    text += gRestoreMode ? "error while restoring data." : of.Caption + lineEnd + "please check your data.";
    return text;
}

// The walk rests while its box is open. No answer when it was ended or replaced behind it.
std::optional<Button> WriteQueue::ask(const QueueItem& of, ButtonSet buttons) {
    const ucProgress::Hold hold(panel_);
    return platform_.dialogs().ask(
        {failureText(of), of.Caption, buttons, BoxIcon::Information, 2},
        Ticket::of([this] { return gWriteQueue.number(); }) && Ticket([&hold] { return hold.stillCurrent(); }));
}

void WriteQueue::failed() {
    if (gWriteQueue.last() && lastFailed_) {
        lastFailed();
        return;
    }
    const auto failedItem = gWriteQueue.item();
    const auto answer = ask(failedItem, gWriteQueue.last() ? ButtonSet::RetryCancel : ButtonSet::AbortRetryIgnore);
    if (!answer) return;
    if (*answer == Button::Retry)
        retry();
    else if (*answer == Button::Ignore)
        ignore();
    else
        abort();
}

void WriteQueue::lastFailed() {
    const auto failedItem = gWriteQueue.item();
    const auto owner = lastFailed_;
    const auto answer = ask(failedItem, ButtonSet::AbortRetryIgnore);
    if (!answer) return;
    if (*answer == Button::Retry) {
        lastFailed_ = nullptr;  // a second failure is one like any other
        owner(*answer);
        retry();
        return;
    }
    settleFailed();
    panel_.EndProgress(ucProgress::Writing);
    panel_.setPanelText(failedText);
    endBatch(Ending::Failed);
    owner(*answer);
}

void WriteQueue::retry() {
    panel_.setWritePosition(-1);
    sendCurrent();
}

void WriteQueue::settleFailed() {
    restartAsked_ = false;
    const bool refused = gWriteQueue.reply() == Walk::Reply::Refused;
    settled_.emit(gWriteQueue.item(), refused ? Outcome::Refused : Outcome::NoAnswer);
}

void WriteQueue::ignore() {
    settleFailed();
    gWriteErrors += gWriteQueue.item().Caption + lineEnd;
    goOn();
}

// A restart would make a gateway that took a part of the batch work by that part.
void WriteQueue::goOn() {
    gWriteQueue.next();
    const auto& caption = gWriteQueue.item().Caption;
    if (gWriteQueue.item().terms.restarts && !gWriteErrors.empty()) {
        gWriteErrors += caption + lineEnd;
        settled_.emit(gWriteQueue.item(), Outcome::NotSent);
        complete();
        return;
    }
    panel_.setPanelText(gRestoreMode ? "Restoring Data" : gSilentWrite ? caption : sendingText + caption);
    sendCurrent();
}

void WriteQueue::abort() {
    settleFailed();
    gRestoreMode = false;
    gWriteErrors += gWriteQueue.item().Caption;
    panel_.EndProgress(ucProgress::Writing);
    panel_.setPanelText(failedText);
    endBatch(Ending::Failed);
    platform_.dialogs().tell({"Error: can't write data to : " + std::string(lineEnd) + gWriteErrors, "Error",
                              ButtonSet::Ok, BoxIcon::Critical});
}

// In a silent batch the panel's own count goes with the index, so passing over needs no correction of it. The last
// item is sent once more, and the panel's end closes the batch.
void WriteQueue::passOver() {
    settleFailed();
    if (!gWriteQueue.last()) {
        gWriteQueue.next();
        panel_.setPanelText(gWriteQueue.item().Caption);
    }
    sendCurrent();
}

}  // namespace trunvex
