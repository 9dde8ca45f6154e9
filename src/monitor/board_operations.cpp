#include "monitor/board_operations.h"

#include <algorithm>

#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr const char* noMonitorText = "The gateway gave this session no right to operate its ports.";
constexpr const char* writingText = "The gateway is being written. Press again when that has ended.";

std::string flag(bool enabled) { return enabled ? ",1" : ",0"; }

}  // namespace

BoardOperations::BoardOperations(Session& session, frmSimStatus& board)
    : session_(session), board_(board), patience_(session.platform.makeTimer([this] { timeIsUp(); })) {
    session.records.unasked.connect([this](std::string_view address, bool ok) { takeWord(address, ok); });
    session.events.tornDown.connect([this] {
        patience_->stop();
        asked_.clear();
    });
    for (int index = 1; index <= portCount; ++index) {
        auto& cell = board.cell(index);
        cell.chkSTPEnable.pressed().connect([this, index, &cell] { enablePort(index, cell.chkSTPEnable.checked()); });
        cell.cmdResetSlave.pressed().connect([this, index] { resetPorts({index}); });
    }
    for (int channel = 1; channel <= frmSimStatus::channelCount; ++channel) {
        auto& row = board.row(channel);
        row.chkSTBEnable.pressed().connect(
            [this, channel, &row] { enableChannel(channel, row.chkSTBEnable.checked()); });
    }
}

bool BoardOperations::mayAsk() {
    if (!session_.objSpool.isConnected()) {
        session_.platform.dialogs().info(notConnectedText);
        return false;
    }
    if (!session_.objSpool.free()) session_.tell(lineNotFreeText);
    return session_.objSpool.free();
}

// Rights that were never told forbid nothing: the gateway refuses what it does not allow.
bool BoardOperations::mayOperate() const {
    const auto& rights = session_.state.gAccessRights;
    return rights.empty() || (val(rights) & Page::Monitor) != 0;
}

bool BoardOperations::mayChange() {
    if (!mayAsk()) return false;
    const char* why = !session_.objSpool.mayWrite() ? noRightsText
                      : !mayOperate()               ? noMonitorText
                      : session_.writes.running()   ? writingText
                                                    : nullptr;
    if (why) session_.tell(why);
    return !why;
}

void BoardOperations::enablePort(int index, bool enabled) {
    auto& cell = board_.cell(index);
    cell.status.enabled = enabled;
    board_.show(cell);
    if (mayChange())
        change("C_STP" + PortAddress::ofNumber(index).digits() + flag(enabled),
               (enabled ? "enabling of port " : "disabling of port ") + std::to_string(index));
}

void BoardOperations::enableChannel(int channel, bool enabled) {
    auto& row = board_.row(channel);
    row.status.enabled = enabled;
    row.show();
    if (mayChange())
        change("C_STB" + std::to_string(channel) + flag(enabled),
               (enabled ? "enabling of channel " : "disabling of channel ") + std::to_string(channel));
}

void BoardOperations::ask(const char* command, int index) {
    if (mayAsk()) send(command + PortAddress::ofNumber(index).digits());
}

void BoardOperations::resetPorts(const std::set<int>& indexes) {
    if (!mayChange()) return;
    for (const int index : indexes)
        change("C_RST" + PortAddress::ofNumber(index).digits(), "reset of port " + std::to_string(index));
}

void BoardOperations::change(const std::string& line, const std::string& what) {
    send(line);
    asked_.push_back({line, what});
    patience_->start(answerMs);
}

// A word without an address may be the answer to a question that a read has asked.
void BoardOperations::takeWord(std::string_view address, bool ok) {
    if (address.empty() && (session_.reads.running() || session_.refreshes.running())) return;
    const auto answered =
        std::ranges::find_if(asked_, [address](const Asked& asked) { return mayAnswer(address, asked.line); });
    if (answered == asked_.end()) return;
    const auto what = std::move(answered->what);
    asked_.erase(answered);
    if (!ok) fail("Refused: ", what);
}

void BoardOperations::timeIsUp() {
    patience_->stop();
    for (const auto& asked : std::exchange(asked_, {})) fail("Not answered: ", asked.what);
}

void BoardOperations::fail(const char* how, const std::string& what) {
    session_.tell(how + what + ".");
    failed.emit(how + what);
}

}  // namespace trunvex
