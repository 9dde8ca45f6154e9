#include "shell/main_window.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "link/clock_text.h"
#include "model/node_key.h"
#include "shell/standing_words.h"
#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr int commandTimerMs = 1000;
constexpr int initialisedTimers = 4;

enum CommandTimer { RequestClock = 0, SessionClock = 2, WritesAgain = 3 };

// Timers that go on by themselves; the others tick once.
bool repeats(int index) { return index == SessionClock || index == 6 || index == 7; }

constexpr const char* lineEnd = "\r\n";
constexpr const char* wrongPasswordText = "The gateway did not accept the password: it gave no rights to this session.";

}  // namespace

FrmPRIGroups::FrmPRIGroups(Session& session, std::vector<Page*> pages)
    : notices(session.notices), panel(session.panel), reads(session.reads), lblNotice(session.notices.lblNotice),
      session_(session), platform_(session.platform), pages_(std::move(pages)), page_(pages_.front()) {
    buildTools();
    for (int index = 0; index < commandTimers; ++index)
        tmrEnableCmd_[static_cast<std::size_t>(index)] =
            platform_.makeTimer([this, index] { commandTimerTick(index); });
    InitTimers();
    lblVersion.setText(std::string(versionMajor) + "." + versionMinor);
    cmbTrayIcon.setTip("Hide the window; the icon in the notification area brings it back");
    cmbTrayIcon.pressed().connect([this] { hideToTray(); });
    cmdFaults.setTip("Shows what stands in the list of events");
    cmdFaults.setVisible(false);
    cmdEvents.setTip("Opens the list of events; the number is of what stands");
    followSession();
    page_->setShown(true);
    showPhase();
}

void FrmPRIGroups::addTool(const std::string& key, const std::string& toolCaption, const std::string& tip) {
    auto& button = ownTools_.emplace_back("tool_" + key, toolCaption);
    button.setTip(tip);
    button.pressed().connect([this, key] { openPage(key); });
    tools_.push_back(&button);
}

void FrmPRIGroups::buildTools() {
    auto& connectButton = session_.connectButton;
    connectButton.setTip("Connect to a gateway, or end the session");
    connectButton.pressed().connect([this] { openPage("connect"); });
    tools_.push_back(&connectButton);
    for (auto* page : pages_) {
        addTool(page->traits.key, page->traits.caption, page->traits.tip);
        page->writeStarted.connect([this, page] {
            page->holdWrites(true);
            tmrEnableCmd(WritesAgain, true);
        });
    }
    addTool("exit", "Exit", "End the program");
    tool(page()).setMarked(true);
}

void FrmPRIGroups::followSession() {
    auto& events = session_.events;
    session_.realTimeUpdate.on("CLK", [this](const Fields&) { showClock(); });
    session_.dispatcher.updateStatus.connect([this](std::string_view text) { lblUpdateStatus.setText(escaped(text)); });
    events.phaseChanged.connect([this] { showPhase(); });
    events.started.connect([this] { tmrEnableCmd(SessionClock, true); });
    events.identified.connect([this] { lblESN.setText(escaped(session_.state.gESN)); });
    events.loggedIn.connect([this](LogInOutcome outcome) { loggedIn(outcome); });
    events.tornDown.connect([this] {
        unread_.clear();
        for (const auto timer : {RequestClock, SessionClock}) tmrEnableCmd(timer, false);
        for (auto* label : {&lblTimePanel, &lblESN, &lblUpdateStatus, &lblSilence}) label->setText("");
        for (const auto* said : {wrongPasswordText, noRightsText}) notices.withdraw(said);
        session_.state.gClockField = {};
    });
    notices.lblLink.changed().connect([this] { platform_.tray().change(trayTip(), linkIsLost()); });
    session_.bringUp.addressChosen.connect([this](const std::string& host, const std::string& port) {
        caption.setText(std::string(windowTitle) + " {" + host + ":" + port + "}");
    });
    session_.bringUp.openPasswords.connect(
        [this] { session_.tell("Passwords can't be set from this version of the console yet."); });
    session_.bringUp.dialModem.connect([this] {
        session_.bringUp.dropSession();
        session_.tell("This version of the console can't dial by modem yet.");
    });
}

void FrmPRIGroups::loggedIn(LogInOutcome outcome) {
    if (outcome == LogInOutcome::WithoutRights)
        session_.tell(wrongPasswordText);
    else if (const auto kept = unwritten(Page::Edits::OfThisSession, ", "); !kept.empty())
        session_.tell("Kept from the session before, and not written yet: " + kept + ".");
    // A window that is open already is not opened again.
    for (auto* page : pages_)
        if (page->traits.ownWindow && page->shown()) read(*page);
    if (session_.state.workOnlyWithMonitor) {
        openPage("sim");
    } else {
        read(*page_);
        tmrEnableCmd(RequestClock, true);  // what the log-in was told may have been on its way for long
    }
    for (auto* window : std::exchange(unread_, {})) read(*window);
}

ActionField& FrmPRIGroups::tool(std::string_view key) {
    for (auto* button : tools_)
        if (button->name() == "tool_" + std::string(key)) return *button;
    throw std::out_of_range("no tool " + std::string(key));
}

Page* FrmPRIGroups::pageOf(std::string_view key) const {
    for (auto* page : pages_)
        if (page->traits.key == key) return page;
    throw std::out_of_range("no page " + std::string(key));
}

void FrmPRIGroups::showPhase() {
    const auto phase = session_.state.phase;
    showStanding();
    if (phase == SessionPhase::Connecting || phase == SessionPhase::Listening) lblNotice.setText("");
    if (phase == SessionPhase::LogIn) notices.lblLink.setText("");
}

// A late answer of the log-in still counts.
void FrmPRIGroups::showStanding() {
    const auto [tag, word] = standingWord(session_.state);
    lblSessionState.setTag(tag);
    lblSessionState.setText(word);
    lblSilence.setText(silenceText(session_.objSpool.silence()));
}

std::string FrmPRIGroups::unwritten(Page::Edits which, const char* between) const {
    std::string names;
    for (const auto* page : pages_)
        for (const auto& name : page->unwritten(which)) names += (names.empty() ? "" : between) + name;
    return names;
}

// Begins a session or ends it. What was edited in one that is ended on purpose is not kept for the next.
void FrmPRIGroups::toggleSession() {
    if (session_.state.sessionFlag) {
        const auto lost = unwritten(Page::Edits::OfThisSession, lineEnd);
        if (!lost.empty() && !platform_.dialogs().agreed(Button::Yes,
                                                         {"This is not written or saved yet:\r\n" + lost +
                                                              "\r\n\r\nEnd the session and lose these changes?",
                                                          "Disconnect", ButtonSet::YesNo, BoxIcon::Warning, 2},
                                                         forSession(session_.state)))
            return;
        for (auto* page : pages_) page->discard();
    }
    session_.bringUp.ConnectChange("", true);
}

void FrmPRIGroups::openPage(std::string_view pressed) {
    const auto key = folded(std::string(pressed));
    if (key == "connect") {
        toggleSession();
        return;
    }
    if (key == "exit") {
        unload_.emit();
        return;
    }
    auto& opened = *pageOf(key);
    if (!opened.traits.ownWindow) {
        tool(page()).setMarked(false);
        page_->setShown(false);
        page_ = &opened;
        tool(key).setMarked(true);
        page_->setShown(true);
        pageChanged_.emit();
    }
    opened.opened();
    // In a session that only watches the board, nothing else asks the gateway by itself.
    if (opened.traits.ownWindow || !session_.state.workOnlyWithMonitor) read(opened);
}

// What the page lacks. A batch that runs is not disturbed: the page's own follows it. While the console logs in nothing
// is read; the end of the log-in reads what the open page lacks.
void FrmPRIGroups::read(Page& page) {
    if (!session_.objSpool.isConnected()) return;
    if (!session_.objSpool.free()) {
        if (page.traits.ownWindow) unread_.insert(&page);
        return;
    }
    session_.reads.whenFree(page.traits.ownWindow ? page.traits.key : "page", [this, &page] {
        if (!session_.objSpool.free() || (!page.traits.ownWindow && page_ != &page)) return;
        if (auto missing = page.missing(); !missing.empty()) session_.reads.start(std::move(missing));
    });
}

bool FrmPRIGroups::queryUnload() {
    std::string text = "Do you really want to exit the software?";
    if (const auto lost = unwritten(Page::Edits::All, lineEnd); !lost.empty())
        text += "\r\n\r\nThis is not written or saved yet, and will be lost:\r\n" + lost;
    // Whatever happens behind the box, the operator has said whether the program is to end.
    if (!platform_.dialogs().agreed(Button::Yes, {text, "Exit", ButtonSet::YesNo, BoxIcon::Question, 2},
                                    Ticket::lasting()))
        return false;
    if (session_.state.sessionFlag) session_.bringUp.ConnectChange("disconnect", true);
    return true;
}

std::string FrmPRIGroups::trayTip() const {
    const auto& words = linkIsLost() ? notices.lblLink.text() : cmdFaults.caption();
    return words.empty() ? "Trunvex" : "Trunvex - " + words;
}

void FrmPRIGroups::setFaults(const std::string& words, std::size_t count) {
    cmdFaults.setCaption(words);
    cmdEvents.setCaption(count == 0 ? "Events" : "Events (" + std::to_string(count) + ")");
    cmdFaults.setVisible(!words.empty());
    platform_.tray().change(trayTip(), linkIsLost());
}

void FrmPRIGroups::hideToTray() {
    auto& tray = platform_.tray();
    if (!tray.available()) {
        session_.tell("This desktop has no notification area, so the window stays.");
        return;
    }
    tray.onRestore = [this, &tray] {
        tray.remove();
        windowShown_.emit(true);
    };
    tray.add(trayTip(), linkIsLost());
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
    if (index == RequestClock && session_.state.firstDataFlag) session_.objSpool.SendCommand("R_CLK");
    if (index == SessionClock) {
        ClockUpdate();
        showStanding();
    }
    if (index == WritesAgain)
        for (auto* page : pages_) page->holdWrites(false);
}

// The gateway's clock runs on between two of its reports.
void FrmPRIGroups::ClockUpdate() {
    if (!session_.state.gGotClock) return;
    advanceClock(session_.state);
    showClock();
}

void FrmPRIGroups::showClock() {
    const auto text = escaped(clockText(session_.state));
    lblTimePanel.setText(text);
    session_.panel.setPanelText(text, "time");
}

int FrmPRIGroups::getNumPort(int x, int y, std::string_view key) const {
    const auto port = node_key::portOf(key);
    return port ? port->number() : PortAddress(x, y).number();
}

std::string FrmPRIGroups::getTextPort(std::string_view key) const {
    return "Port " + std::to_string(getNumPort(0, 0, key));
}

}  // namespace trunvex
