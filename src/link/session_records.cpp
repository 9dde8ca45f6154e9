#include "link/session_records.h"

#include "link/session_bring_up.h"
#include "text/text_rules.h"

namespace trunvex {

namespace {

// Codes of I_ALR that report a firmware update or a reset; their text is for the operator and no status of a port.
bool isUpdateCode(std::string_view code) {
    switch (val(code)) {
        case 84:
        case 85:
        case 86:
        case 90:
        case 91:
        case 92:
            return true;
        default:
            return false;
    }
}

std::string_view fieldOrEmpty(const Fields& fields, std::size_t index) {
    return index + 1 < fields.size() ? fields.at(index) : std::string_view();  // the last one is the end mark
}

}  // namespace

SessionRecords::SessionRecords(Dispatcher& dispatcher, SessionState& session, ucProgress& panel, ReadQueue& refreshes,
                               WriteQueue& writes, SessionBringUp& bringUp, RealTimeUpdate& realTimeUpdate)
    : dispatcher_(dispatcher), session_(session), panel_(panel), refreshes_(refreshes), writes_(writes),
      bringUp_(bringUp), realTimeUpdate_(realTimeUpdate) {
    addRows();
}

void SessionRecords::addRows() {
    const auto clock = [this](const Record& record) {
        const auto fields = record.fields();
        takeClock(session_, fields);
        session_.gGotClock = true;
        realTimeUpdate_("CLK", fields);
        writes_.answered("CLK");
    };
    const auto nothing = [](const Record&) {};

    dispatcher_.on("A_CPW", [this](const Record& record) {
        session_.gAccessRights = record.fields().at(0);
        writes_.answered("CPW");
    });
    dispatcher_.on("A_ESN", [this](const Record& record) {
        bringUp_.identify(record.fields().at(0));
        writes_.answered("ESN");
    });
    dispatcher_.on("A_CLK", clock);
    dispatcher_.on("C_CLK", clock);
    dispatcher_.on("A_SYS", [this](const Record& record) {
        const auto fields = record.fields();
        session_.gVersion = fields.at(0);
        realTimeUpdate_("SYS", fields);
    });
    dispatcher_.on("A_VER", [this](const Record& record) { session_.gVersion = record.fields().at(0); });
    dispatcher_.on("A_ATC", [this](const Record& record) { session_.gAtcDigits = record.body.substr(0, 2); });
    dispatcher_.on("C_SFT", [this](const Record& record) {
        if (record.body == "1") bringUp_.endedByGateway();
        if (record.body == "2") bringUp_.RecievingChange();
    });
    dispatcher_.on("OK", [this](const Record&) { takeWord({}, true); });
    dispatcher_.on("ERROR", [this](const Record&) {
        refreshes_.settle();
        session_.gStatusSeen = true;
        takeWord({}, false);
    });
    for (const auto* word : {"B_OK", "P_OK", "B_ER", "P_ER"}) dispatcher_.on(word, nothing);
    dispatcher_.on("I_ALR", [this](const Record& record) { takeAlarm(record.fields()); });
}

bool SessionRecords::takeUpdateReport(const Fields& fields) {
    if (!isUpdateCode(fields.at(1))) return false;
    const auto text = fields.at(3) == endMark ? std::string_view() : fields.at(3);
    dispatcher_.updateStatus.emit(text);
    if (contains(text, "'RESTART' Command is completed")) updateCompleted.emit();
    panel_.setPanelText(escaped(text));
    return true;
}

void SessionRecords::takeWord(std::string_view address, bool ok) {
    if (!writes_.walk().active())
        unasked.emit(address, ok);
    else if (address.empty())
        writes_.WriteResult(ok);
    else
        writes_.answeredFor(address, ok);
}

void SessionRecords::takeAlarm(const Fields& fields) {
    if (takeUpdateReport(fields)) return;
    const auto index = fields.at(0);
    const auto code = fields.at(1);
    if (code == "OK" || code == "ERROR") {
        takeWord(index, code == "OK");
        return;
    }
    const auto sim = getIndexs(index).at(2);  // throws for an index that is not three digits
    Fields record;
    for (std::size_t i = 0; i < 3; ++i) record.add(index.substr(i, 1));
    for (std::size_t i = 1; i <= 4; ++i) record.add(fieldOrEmpty(fields, i));
    realTimeUpdate_("ALR", record);
    if (sim != 0) simAlarm.emit(record);
}

}  // namespace trunvex
