#include "cdr/cdr_download.h"

#include <algorithm>
#include <cerrno>
#include <system_error>
#include <utility>

#include "model/shared_tables.h"
#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr int entryMs = 1000;
constexpr int atOnceMs = 2;
constexpr int minuteMs = 60000;
constexpr int mostMinutes = 1'000'000;
constexpr int holdMs = 1000;              // between two tries to write what could not be written
constexpr int mostPending = 100'000'000;  // no gateway holds so many; sixteen of them can be summed up
constexpr std::size_t batchSize = 51;     // a round that begins below it is finished
constexpr int barIndex = CoolProgressBar::Read;

// "PORT: 3 MCU: 2": the digits of a channel's address, the second as 1 or 2.
std::string labelOf(std::string_view address) {
    return "PORT: " + std::string(address.substr(0, 1)) + " MCU: " + (right(address, 1) == "3" ? "2" : "1");
}

constexpr const char* disk = "disk";  // what holds the bar while a record can't be written
constexpr const char* autoOff = "Auto downloading is disable";
constexpr const char* diskFull = "The disk is full";

std::string reasonOf(DatabaseError::Cause cause) {
    switch (cause) {
        case DatabaseError::Cause::Locked:
            return "The call database is locked by another program";
        case DatabaseError::Cause::Full:
            return diskFull;
        case DatabaseError::Cause::ReadOnly:
            return "The call database can't be written";
        case DatabaseError::Cause::Damaged:
            return "The call database is damaged (what belongs together are the files .mdb, .mdb-wal, .mdb-shm and "
                   ".journal of its name)";
        case DatabaseError::Cause::Other:
            break;
    }
    return "The call can't be stored";
}

// No room on the disk, no more of the user's share of it, or no room in a file.
bool isFull(const std::error_code& code) {
    return code == std::errc::no_space_on_device || code == std::errc::file_too_large ||
           code == std::error_code(EDQUOT, std::generic_category());
}

std::string reasonOf(const std::exception& error) {
    std::string what = reasonOf(DatabaseError::Cause::Other);
    if (const auto* database = dynamic_cast<const DatabaseError*>(&error)) what = reasonOf(database->cause());
    if (const auto* file = dynamic_cast<const std::system_error*>(&error); file && isFull(file->code()))
        what = diskFull;
    return what + ": " + error.what() +
           ". The download waits, and no call is taken from the gateway until this is mended.";
}

}  // namespace

CdrDownload::CdrDownload(Session& session, CallStore& store)
    : ucCDRProg("ucCDRProg", session.platform), settings_(session.setting), session_(session.state),
      sender_(session.objSpool), store_(store) {
    tmrCDRLimit_ = session.platform.makeTimer([this] { minuteTick(); });
    holdTimer_ = session.platform.makeTimer([this] { tryAgain(); });
    ucCDRProg.stepped().connect([this](int mode, int) {
        if (mode != barIndex) return;
        ucCDRProg.RestoreSpeed(barIndex);
        CDRQueue();
    });
    ucCDRProg.completed().connect([this](int) { queueEnded(); });
    session.dispatcher.on("A_CDR", [this](const Record& record) {
        if (gCDRDownloading) takeRecord(record);
    });
    session.dispatcher.callRecordErased.connect([this](std::string_view channel) {
        if (gCDRDownloading) erased(channel);
    });
    session.events.identified.connect([this] { store_.setGateway(session_.gESN); });
    // A write has the line first.
    session.panel.pauseBars().connect([this](bool pause) { ucCDRProg.PauseProgress(pause, "write"); });
    session.bringUp.armCallRecordTimer.connect([this] { rearm(); });
    session.events.tornDown.connect([this] {
        if (gCDRDownloading && !gCDRQueue.empty())
            runEnded(true);
        else
            endRun();
        store_.release();
        rearm();
    });
    rearm();
}

// Minutes below none are a slip of the hand in the file.
int CdrDownload::downLimit() const {
    return static_cast<int>(
        std::clamp<std::int64_t>(val(settings_.readOr("CDRConfig", "DownLimit", "0")), 0, mostMinutes));
}

void CdrDownload::start() {
    if (!sender_.mayWrite()) {  // a record leaves the gateway by a command
        lblCDRStatus.setText(noRightsText);
        return;
    }
    tmrCDRLimit_->stop();
    gCDRMinutes = 0;
    endRun();
    gCDRTotal = 0;
    gCDRDone = 0;
    gCDRPercent = 0;
    for (auto& slot : CDRSlots) slot.Pending = -1;
    gCDRQueue.clear();
    gCDRQueueIndex = 0;
    gCDRPhase = 0;
    unasked_.clear();
    unreadable_.clear();
    doneBefore_ = -1;
    for (int slot = 1; slot <= cdrChannelCount; ++slot) {
        const auto address = getMCU_XY(slot);
        const auto position = PortAddress::parse(address).slot() + 1;
        if (val(mid(session_.gActivePorts, position, 1)) == 0)
            unasked_.push_back(slot);
        else
            gCDRQueue.push_back({"R_CDR" + address + ",2", "CDR Count  " + labelOf(address)});
    }
    gCDRDownloading = true;
    if (gCDRQueue.empty()) {
        lblCDRTimer.setText(downLimit() == 0 ? autoOff
                                             : "No port is active. Auto downloading is off until Start is pressed.");
        return;
    }
    if (session_.gESN.empty()) store_.setGateway("");  // never into the table of the gateway before
    store_.beginRun();
    guard([this] { store_.recover(); });  // what an earlier run could not add
    ucCDRProg.setText(gCDRQueue.front().Label);
    ucCDRProg.setVisible(true);
    sendCurrent();
    ucCDRProg.StartProgress(barIndex, entryMs, static_cast<int>(gCDRQueue.size()));
}

void CdrDownload::stop() {
    ucCDRProg.EndProgress(barIndex);
    endRun();
    rearm();
}

void CdrDownload::endRun() {
    gCDRDownloading = false;
    store_.endRun();
    held_.clear();
    ucCDRProg.PauseProgress(false, disk);
    holdTimer_->stop();
    lblCDRStatus.setText("");
    ucCDRProg.EndProgress(barIndex);
    ucCDRProg.setText("Done ...");
    gCDRMinutes = 0;
    tmrCDRLimit_->stop();
}

void CdrDownload::rearm() {
    tmrCDRLimit_->stop();
    gCDRMinutes = 0;
    if (downLimit() == 0 || session_.workOnlyWithMonitor) {
        lblCDRTimer.setText(autoOff);
        return;
    }
    tmrCDRLimit_->start(minuteMs);
    lblCDRTimer.setText("Next check will start in " + std::to_string(downLimit()) + " min");
}

void CdrDownload::minuteTick() {
    if (session_.workOnlyWithMonitor) {
        rearm();
        return;
    }
    // Until the gateway has told its ports there is no session to fetch in, and a run would find none to ask.
    if (!sender_.isConnected() || !sender_.mayWrite() || session_.gActivePorts.empty()) return;
    ++gCDRMinutes;
    lblCDRTimer.setText("Next check will start in " + std::to_string(downLimit() - gCDRMinutes) + " min");
    if (gCDRMinutes < downLimit()) return;
    start();
    gCDRMinutes = 0;
}

void CdrDownload::sendCurrent() {
    auto& entry = gCDRQueue.at(static_cast<std::size_t>(gCDRQueueIndex));
    entry.Answered = false;
    sender_.SendCommand(entry.Command);
}

// A step goes on whether or not the entry was answered: what a lost reply leaves in the gateway is asked for again in
// the next batch. Behind the last one nothing is waited for: the ticks that are left run out at once.
void CdrDownload::CDRQueue() {
    if (gCDRQueue.empty()) return;
    gCDRQueue.at(static_cast<std::size_t>(gCDRQueueIndex)).Answered = false;
    if (gCDRQueueIndex + 1 >= static_cast<int>(gCDRQueue.size())) {
        ucCDRProg.setProgressSpeed(barIndex, atOnceMs);
        return;
    }
    ++gCDRQueueIndex;
    const auto& label = gCDRQueue.at(static_cast<std::size_t>(gCDRQueueIndex)).Label;
    ucCDRProg.setText(gCDRPhase == 1 ? " " + std::to_string(gCDRPercent) + "%   " + label : label);
    sendCurrent();
}

bool CdrDownload::addRound(std::array<int, cdrChannelCount + 1>& queued, bool first) {
    bool added = false;
    for (std::size_t index = 0; index < CDRSlots.size(); ++index) {
        if (CDRSlots[index].Pending - queued[index] <= 0) continue;
        const auto address = getMCU_XY(static_cast<int>(index) + 1);
        gCDRQueue.push_back({"R_CDR" + address + ",1", labelOf(address)});
        ++queued[index];
        if (first) gCDRTotal += CDRSlots[index].Pending;
        added = true;
    }
    return added;
}

void CdrDownload::queueEnded() {
    gCDRQueue.clear();
    gCDRQueueIndex = 0;
    gCDRPhase = 1;
    std::array<int, cdrChannelCount + 1> queued{};
    bool first = gCDRTotal <= 0;
    while (addRound(queued, std::exchange(first, false)) && gCDRQueue.size() < batchSize) {
    }
    ucCDRProg.EndProgress(barIndex);
    if (gCDRQueue.empty()) {
        runEnded(false);
        return;
    }
    tellOfSilence();
    ucCDRProg.setVisible(true);
    sendCurrent();
    ucCDRProg.StartProgress(barIndex, entryMs, static_cast<int>(gCDRQueue.size()));
}

void CdrDownload::runEnded(bool cutShort) {
    const Outcome outcome{gCDRDone, missing(), cutShort};
    endRun();
    rearm();
    if (cutShort) ucCDRProg.setText("Cut short");
    lblCDRStatus.setText(leftInGateway(outcome));
    ended.emit(outcome);
}

std::vector<int> CdrDownload::missing() const {
    std::vector<int> slots;
    const auto toldElsewhere = [this](int slot) {
        return std::ranges::count(unasked_, slot) + std::ranges::count(unreadable_, slot) > 0;
    };
    for (int slot = 1; slot <= cdrChannelCount; ++slot)
        if (CDRSlots.at(static_cast<std::size_t>(slot - 1)).Pending != 0 && !toldElsewhere(slot)) slots.push_back(slot);
    return slots;
}

// A channel that holds records and never gives one keeps a run going until Stop; that must not look like work.
void CdrDownload::tellOfSilence() {
    if (!held_.empty()) return;
    if (gCDRDone == doneBefore_)
        lblCDRStatus.setText("No record has come of a whole round; the gateway is asked again. Stop ends this.");
    else
        lblCDRStatus.setText("");
    doneBefore_ = gCDRDone;
}

std::string CdrDownload::leftInGateway(const Outcome& outcome) const {
    const auto named = [](const char* what, const std::vector<int>& slots) {
        std::string text;
        for (const int slot : slots) text += (text.empty() ? what : ", ") + getMCU_XY(slot);
        return text.empty() ? text : text + ". ";
    };
    const auto fetched = "The session ended during the download, with " +
                         countedCalls(static_cast<std::size_t>(outcome.fetched)) + " fetched. ";
    return std::string(trim((outcome.cutShort ? fetched : std::string()) +
                            named("There may be more calls in the gateway: channels ", outcome.missing) +
                            named("Their records stay in the gateway, for they can't be read: channels ", unreadable_) +
                            named("Not asked, for their first port is not active: channels ", unasked_)));
}

void CdrDownload::takeRecord(const Record& record) {
    const auto fields = record.fields();
    const int number = slotOfChannel(fields.at(0));
    if (number == 0) throw std::out_of_range("no such channel");
    auto& slot = slotAt(number);
    if (!gCDRQueue.empty()) gCDRQueue.at(static_cast<std::size_t>(gCDRQueueIndex)).Answered = true;
    if (fields.at(1) == "2") {
        slot.Pending = static_cast<int>(std::clamp<std::int64_t>(val(fields.at(2)), -1, mostPending));
        ucCDRProg.setProgressSpeed(barIndex, atOnceMs);
    } else if (fields.at(1) == "1") {
        const bool parsed = parseCallRecord(fields, slot);
        if (slot.Pending > 0 && parsed) {
            guard([this, number, record = slot] { acknowledge(number, record); });
            return;
        }
        if (slot.Pending > 0) unreadable_.push_back(number);
        slot.Pending = -1;
    }
}

// The record is on the disk before the gateway may drop it.
void CdrDownload::acknowledge(int number, const CDRSlot& record) {
    store_.take(number, record);
    sender_.SendCommand("C_CDR" + getMCU_XY(number) + ",2," + record.RecordID);
    slotAt(number).Stage = 1;
}

void CdrDownload::erased(std::string_view channel) {
    const int number = slotOfChannel(channel);
    if (number == 0) throw std::out_of_range("no such channel");
    guard([this, number] { storeErased(number); });
}

void CdrDownload::storeErased(int number) {
    auto& slot = slotAt(number);
    if (slot.Stage == 2) return;  // said twice
    store_.add(number);
    ++gCDRDone;
    --slot.Pending;
    slot.Stage = 2;
    ucCDRProg.setProgressSpeed(barIndex, atOnceMs);
    if (gCDRTotal > 0) gCDRPercent = static_cast<std::int16_t>(static_cast<std::int64_t>(gCDRDone) * 100 / gCDRTotal);
}

void CdrDownload::guard(std::function<void()> act) {
    if (!held_.empty()) {
        held_.push_back(std::move(act));
        return;
    }
    try {
        act();
    } catch (const DatabaseError& error) {
        hold(std::move(act), reasonOf(error));
    } catch (const std::system_error& error) {
        hold(std::move(act), reasonOf(error));
    }
}

void CdrDownload::hold(std::function<void()> again, const std::string& reason) {
    held_.push_back(std::move(again));
    lblCDRStatus.setText(escaped(reason));
    ucCDRProg.PauseProgress(true, disk);
    holdTimer_->start(holdMs);
}

void CdrDownload::tryAgain() {
    try {
        while (!held_.empty()) {
            const auto act = held_.front();
            act();
            if (!held_.empty()) held_.erase(held_.begin());  // it may have ended the run
        }
    } catch (const DatabaseError& error) {
        lblCDRStatus.setText(escaped(reasonOf(error)));
        return;
    } catch (const std::system_error& error) {
        lblCDRStatus.setText(escaped(reasonOf(error)));
        return;
    }
    holdTimer_->stop();
    lblCDRStatus.setText("");
    ucCDRProg.PauseProgress(false, disk);
    ucCDRProg.setProgressSpeed(barIndex, atOnceMs);
}

}  // namespace trunvex
