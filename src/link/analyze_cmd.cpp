#include "link/analyze_cmd.h"

#include <algorithm>

#include "link/session_bring_up.h"
#include "platform/quietly.h"
#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr std::size_t mnemonicLength = 5;
constexpr std::size_t longestBody = 255;
constexpr const char* masterDecision = "STAT";
constexpr int masterAnswerMs = 10000;

// A mnemonic and its length as one number, so that finding its row compares whole words.
std::uint64_t packed(std::string_view mnemonic) {
    std::uint64_t word = mnemonic.size();
    for (const char c : mnemonic) word = word << 8 | static_cast<unsigned char>(c);
    return word;
}

Record cut(std::string_view line) {
    return {line, line.substr(0, mnemonicLength), mid(line, mnemonicLength + 1, longestBody)};
}

bool startsWithDigit(std::string_view text) {
    text = trim(text);
    return !text.empty() && text[0] >= '0' && text[0] <= '9';
}

}  // namespace

Dispatcher::Dispatcher(SessionState& session, CommandSender& sender, ucProgress& panel, std::vector<ReadQueue*> reads,
                       WriteQueue& writes, SessionBringUp& bringUp, RealTimeUpdate& realTimeUpdate)
    : session_(session), sender_(sender), panel_(panel), reads_(std::move(reads)), writes_(writes), bringUp_(bringUp),
      realTimeUpdate_(realTimeUpdate) {}

void Dispatcher::AnalyzeCmd(std::string_view line, bool show) {
    quietly("AnalyzeCmd", [&] {
        noteFirstData(line);                              //  1
        if (show) relayLine(line);                        //  2
        showInDebugConsole(line, show);                   //  3
        if (analyzeEnabled && !analyzeEnabled()) return;  //  4
        if (writes_.feeding()) {                          // the console's own words are a record and nothing else
            takeRecord(cut(line));
            return;
        }
        noteToneDone(line);                                                           //  5
        if (takeMasterUpdate(line)) return;                                           //  6
        const auto record = takeHashFamily(line) ? Record{line, {}, {}} : cut(line);  //  7
        if (takeMasterSession(line)) return;                                          //  8
        matchRead(line);                                                              //  9
        writes_.answeredBy(line);                                                     // 10
        if (takeModemResult(line)) return;                                            // 11
        takeRecord(record);                                                           // 12
    });
}

void Dispatcher::on(std::string_view mnemonic, Handler handler) {
    const auto word = packed(mnemonic);
    auto row = std::lower_bound(table_.begin(), table_.end(), word,
                                [](const TableRow& entry, std::uint64_t key) { return entry.mnemonic < key; });
    if (row != table_.end() && row->mnemonic == word)
        row->handler = std::move(handler);
    else
        table_.insert(row, {word, std::move(handler)});
}

void Dispatcher::noteFirstData(std::string_view line) {
    if (session_.firstDataFlag) return;
    if (!contains(line, "MOD") && !contains(line, "ESN") && !contains(line, "SIM")) return;
    session_.firstDataFlag = true;
    panel_.setPanelText("Receiving Data...");
}

// Who only listens in may fail without the line being lost for the others.
void Dispatcher::relayLine(std::string_view line) {
    quietly("relay", [&] { relay.emit(line); });
}

void Dispatcher::showInDebugConsole(std::string_view line, bool show) {
    if (show && !contains(line, "A_CPW")) quietly("debugDisplay", [&] { debugDisplay.emit(line); });
}

void Dispatcher::noteToneDone(std::string_view line) {
    if (line.substr(0, mnemonicLength) == "A_TGN") toneDone.emit();
}

bool Dispatcher::takeMasterUpdate(std::string_view line) {
    if (!contains(line, "Master Updating")) return false;
    updateStatus.emit(line);
    panel_.setPanelText(escaped(line));
    return true;
}

// The ends of commands that answer with a "#": such a line carries no record.
bool Dispatcher::takeHashFamily(std::string_view line) {
    if (!contains(line, "#")) return false;
    if (contains(line, "OK#")) {
        callRecordErased.emit(mid(line, 4, 2));
        writes_.answeredByHash(true);
        return true;
    }
    if (contains(line, "END#")) {
        if (session_.gFileMode) session_.gFileEnd = true;
        return true;
    }
    if (contains(line, "ERROR#")) {
        if (session_.gFileMode) session_.gFileError = true;
        writes_.answeredByHash(false);
        return true;
    }
    return false;
}

// The words are looked for in this order; a line that holds two of them counts as the first.
bool Dispatcher::takeMasterSession(std::string_view line) {
    const auto start = line.find("SRV");
    if (start == std::string_view::npos || line.find(':', start + 3) == std::string_view::npos) return false;
    if (contains(line, "PSW"))
        masterAsksPassword(line);
    else if (contains(line, "STAT"))
        masterDecided(line);
    else if (contains(line, "PING"))
        sender_.SendCommand("SRV" + session_.gMasterSessionId + ":PONG");
    else if (contains(line, "ID"))
        masterIdentifies(line);
    return true;
}

void Dispatcher::masterAsksPassword(std::string_view line) {
    const auto colon = line.find(':', 2);
    session_.gMasterSessionId = colon > 3 ? line.substr(3, colon - 3) : std::string_view();
    bringUp_.StartLogin("SRV" + session_.gMasterSessionId + ":PSW" + session_.password + "," + session_.unitID,
                        masterDecision, "Login", masterAnswerMs);
}

void Dispatcher::masterDecided(std::string_view line) {
    if (line.back() == '0') {
        bringUp_.rejectedByMaster();
    } else {
        writes_.answered(masterDecision);
        if (line.back() == '1') bringUp_.RecievingChange();
    }
}

void Dispatcher::masterIdentifies(std::string_view line) {
    sender_.SendCommand("SRV" + session_.gMasterSessionId + ":PONG");
    const auto fields = splitString(line.substr(line.find('D', 3) + 1), ',');
    bringUp_.identify(fields.at(0));
    Fields clock;
    for (std::size_t i = 1; i < fields.size(); ++i) clock.add(fields.at(i));
    takeClock(session_, clock);
    session_.gGotClock = true;
    realTimeUpdate_("CLK", clock);
    // A batch that is under way ends by itself; the panel stays with it until then.
    if (!writes_.running()) bringUp_.sessionStands();
}

void Dispatcher::matchRead(std::string_view line) {
    for (auto* queue : reads_) queue->takeAnswer(line);
}

// Only a modem says these words of its own: on another link they are part of some text of the gateway.
bool Dispatcher::takeModemResult(std::string_view line) {
    if (session_.gConnType != "MDM") return false;
    if (contains(line, "CONNECT")) {
        modemConnected.emit();
        return true;
    }
    for (const auto* failure : {"NO DIAL", "NO CARRIER", "BUSY", "DELAYED"})
        if (contains(line, failure)) {
            modemFailed.emit(line);
            return true;
        }
    return false;
}

void Dispatcher::takeRecord(const Record& record) {
    const auto word = packed(record.mnemonic);
    const auto row = std::lower_bound(table_.begin(), table_.end(), word,
                                      [](const TableRow& entry, std::uint64_t key) { return entry.mnemonic < key; });
    if (row != table_.end() && row->mnemonic == word)
        row->handler(record);
    else if (!session_.gAtcDigits.empty() && startsWithDigit(record.line))
        session_.gAtcDigits.clear();
}

}  // namespace trunvex
