#include "shell/main_window.h"

#include <algorithm>
#include <stdexcept>

#include "config/settings_pages.h"
#include "link/clock_text.h"
#include "monitor/sim_status.h"
#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr int commandTimerMs = 1000;
constexpr int initialisedTimers = 4;
constexpr int delayedClockTickMs = 1000;
constexpr int delayedClockTicks = 2;

enum CommandTimer { RequestClock = 0, SessionClock = 2, WritesAgain = 3 };

// Timers that go on by themselves; the others tick once.
bool repeats(int index) { return index == SessionClock || index == 6 || index == 7; }

struct PhaseWord {
    const char* tag;
    const char* word;
};

PhaseWord phaseWord(SessionPhase phase) {
    switch (phase) {
        case SessionPhase::Connecting:
            return {"connecting", "Connecting"};
        case SessionPhase::Listening:
            return {"listening", "Listening"};
        case SessionPhase::LogIn:
            return {"login", "Logging in"};
        case SessionPhase::Connected:
            return {"connected", "Connected"};
        case SessionPhase::Dialog:
        case SessionPhase::Idle:
            break;
    }
    return {"idle", "Not connected"};
}

}  // namespace

FrmPRIGroups::FrmPRIGroups(Platform& platform, SessionState& session, CSpooling& spool, ucProgress& panel,
                           ReadQueue& reads, ActionField& connectButton)
    : platform_(platform), session_(session), spool_(spool), panel_(panel), reads_(reads),
      connectButton_(connectButton) {
    for (const auto& toolPage : toolPages) {
        if (toolPage.key == std::string_view("connect")) continue;
        auto& button = tools_.emplace_back("tool_" + std::string(toolPage.key), toolPage.caption);
        button.setTip(toolPage.tip);
        button.pressed().connect([this, key = toolPage.key] { openPage(key); });
    }
    connectButton_.pressed().connect([this] { openPage("connect"); });
    tool(page_).setMarked(true);
    for (int index = 0; index < commandTimers; ++index)
        tmrEnableCmd_[static_cast<std::size_t>(index)] = platform.makeTimer([this, index] { commandTimerTick(index); });
    TmrDelayClkUpdate_ = platform.makeTimer([this] { delayedClockTick(); });
    InitTimers();
    lblVersion.setText(std::string(versionMajor) + "." + versionMinor);
    cmdDismissNotice.pressed().connect([this] { lblNotice.setText(""); });
    cmbTrayIcon.setTip("Hide the window; the icon in the notification area brings it back");
    cmbTrayIcon.pressed().connect([this] { hideToTray(); });
}

void FrmPRIGroups::tie(SessionBringUp& bringUp, SettingsPages& pages, frmSimStatus& board,
                       RealTimeUpdate& realTimeUpdate) {
    bringUp_ = &bringUp;
    pages_ = &pages;
    board_ = &board;
    realTimeUpdate.on("CLK", [this](const Fields&) { showClock(); });
    bringUp.phaseChanged().connect([this] { showPhase(); });
    bringUp.sessionStarted.connect([this] { tmrEnableCmd(SessionClock, true); });
    bringUp.tornDown.connect([this] {
        tmrEnableCmd(SessionClock, false);
        TmrDelayClkUpdate_->stop();
        lblTimePanel.setText("");
        lblESN.setText("");
        session_.gClockField = {};
    });
    bringUp.addressChosen.connect([this](const std::string& host, const std::string& port) {
        caption.setText(std::string(windowTitle) + " {" + host + ":" + port + "}");
    });
    bringUp.loggedIn.connect([this] {
        if (val(session_.gAccessRights) == 0 && !session_.gAccessRights.empty())
            notice("The gateway did not accept the password: it gave no rights to this session.");
        if (session_.workOnlyWithMonitor)
            openPage("sim");
        else
            readPage();
        if (page_ == "main") pages_->main.select();  // its tree was built during the log-in
    });
    bringUp.openShownPage.connect([this] { readPage(); });
    bringUp.phaseChanged().connect([this] {
        loggedIn_ = bringUp_->phase() == SessionPhase::Connected;
        followMainPage();
    });
    pages.system.clockWritten().connect([this] { startDelayedClockUpdate(); });
    for (auto* started : {&pages.port.writeStarted(), &pages.sim.writeStarted()})
        started->connect([this] { holdWrites(); });
    bringUp.openPasswords.connect([this] { notice("Passwords can't be set from this version of the console yet."); });
    showPhase();
}

ActionField& FrmPRIGroups::tool(std::string_view key) {
    if (key == "connect") return connectButton_;
    for (auto& button : tools_)
        if (button.name() == "tool_" + std::string(key)) return button;
    throw std::out_of_range("no tool " + std::string(key));
}

void FrmPRIGroups::notice(const std::string& text) { lblNotice.setText(text); }

void FrmPRIGroups::showPhase() {
    const auto [tag, word] = phaseWord(bringUp_->phase());
    lblSessionState.setTag(tag);
    lblSessionState.setText(word);
    if (bringUp_->phase() == SessionPhase::Connecting || bringUp_->phase() == SessionPhase::Listening)
        lblNotice.setText("");
}

void FrmPRIGroups::openPage(std::string_view key) {
    if (key == "connect") {
        bringUp_->ConnectChange("", true);
        return;
    }
    if (key == "exit") {
        unload_.emit();
        return;
    }
    if (key == "sim") {
        board_->show();  // a window of its own, beside whatever page is open
        readBoard();
        return;
    }
    auto& opened = tool(key);
    tool(page_).setMarked(false);
    page_ = key;
    opened.setMarked(true);
    followMainPage();
    pageChanged_.emit();
    // In a session that only watches the board, nothing else asks the gateway by itself.
    if (!session_.workOnlyWithMonitor) readPage();
}

// The tree's selection asks the gateway while its page is open in a session that does more than watch.
void FrmPRIGroups::followMainPage() {
    pages_->main.setMayRead(loggedIn_ && page_ == "main" && !session_.workOnlyWithMonitor);
}

// A second press of a write button is most often the same one.
void FrmPRIGroups::holdWrites() {
    pages_->port.holdWrites(true);
    pages_->sim.holdWrites(true);
    tmrEnableCmd(WritesAgain, true);
}

// Reads what the open page lacks. A batch that runs is not disturbed: the page's own follows it.
void FrmPRIGroups::readPage() {
    if (!spool_.isConnected() || !spool_.free()) return;  // the end of the log-in reads it
    reads_.whenFree("page", [this] {
        if (page_ == "isdn" && !pages_->isdn.loaded())
            reads_.start({command("R_ISD", "ISDN")});
        else if (page_ == "system" && pages_->system.TxtSystemVer.text().empty())
            reads_.start({command("R_CLK", "System time"), command("R_SYS", "System Version")});
    });
}

void FrmPRIGroups::readBoard() {
    if (!spool_.isConnected() || !spool_.free()) return;
    reads_.whenFree("board", [this] {
        if (board_->holdsData) return;
        reads_.start({command("R_SYS", "System status"), command("R_ILS", "ISDN Statistic"),
                      command("R_MON", "Gateway status")});
    });
}

bool FrmPRIGroups::queryUnload() {
    // Whatever happens behind the box, the operator has said whether the program is to end.
    return platform_.dialogs().agreed(
        Button::Yes, {"Do you really want to exit the software?", "Exit", ButtonSet::YesNo, BoxIcon::Question, 2},
        Ticket::lasting());
}

void FrmPRIGroups::hideToTray() {
    auto& tray = platform_.tray();
    if (!tray.available()) {
        notice("This desktop has no notification area, so the window stays.");
        return;
    }
    tray.onRestore = [this, &tray] {
        tray.remove();
        windowShown_.emit(true);
    };
    tray.add("Trunvex");
    windowShown_.emit(false);
}

void FrmPRIGroups::InitTimers() {
    for (int index = 0; index < commandTimers; ++index) {
        if (index < initialisedTimers) tmrEnableCmd_[static_cast<std::size_t>(index)]->stop();
        commandIntervalMs_[static_cast<std::size_t>(index)] = commandTimerMs;
    }
}

void FrmPRIGroups::tmrEnableCmd(int index, bool enabled) {
    auto& timer = tmrEnableCmd_.at(static_cast<std::size_t>(index));
    if (enabled)
        timer->start(commandIntervalMs_[static_cast<std::size_t>(index)]);
    else
        timer->stop();
}

void FrmPRIGroups::commandTimerTick(int index) {
    if (!repeats(index)) tmrEnableCmd(index, false);
    if (index == RequestClock && session_.firstDataFlag) spool_.SendCommand("R_CLK");
    if (index == SessionClock) ClockUpdate();
    if (index == WritesAgain) {
        pages_->port.holdWrites(false);
        pages_->sim.holdWrites(false);
    }
}

// The gateway's clock runs on between two of its reports.
void FrmPRIGroups::ClockUpdate() {
    if (!session_.gGotClock) return;
    advanceClock(session_);
    showClock();
}

void FrmPRIGroups::showClock() {
    const auto text = escaped(clockText(session_));
    lblTimePanel.setText(text);
    panel_.setPanelText(text, "time");
}

void FrmPRIGroups::startDelayedClockUpdate() {
    delayedClockTicks_ = 0;
    TmrDelayClkUpdate_->start(delayedClockTickMs);
}

void FrmPRIGroups::delayedClockTick() {
    if (++delayedClockTicks_ < delayedClockTicks) return;
    TmrDelayClkUpdate_->stop();
    spool_.SendCommand("R_CLK");
}

int FrmPRIGroups::getNumPort(int x, int y, std::string_view key) const {
    if (!key.empty()) {
        x = static_cast<int>(val(mid(key, 4, 1)));
        y = static_cast<int>(val(mid(key, 5, 1)));
    }
    return portNumber(x, y);
}

std::string FrmPRIGroups::getTextPort(std::string_view key) const {
    return "Port " + std::to_string(getNumPort(0, 0, key));
}

}  // namespace trunvex
