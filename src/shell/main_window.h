#pragma once

#include <array>
#include <deque>
#include <memory>
#include <string>
#include <string_view>

#include "fields/fields.h"
#include "fields/uc_progress.h"
#include "link/real_time_update.h"
#include "link/session_bring_up.h"
#include "platform/platform.h"
#include "queues/read_queue.h"

namespace trunvex {

class frmSimStatus;
struct SettingsPages;

inline constexpr const char* versionMajor = "6";
inline constexpr const char* versionMinor = "24";
inline constexpr const char* windowTitle = "Norvane Telecom PRI Software ver 6.24";

// One button of the tool bar. Keys are lower case; the button is `tool_` + key.
struct ToolPage {
    const char* key;
    const char* caption;
    const char* tip;
};

// In the order of the tool bar.
inline constexpr std::array<ToolPage, 12> toolPages = {{
    {"connect", "Connect", "Connect to a gateway, or end the session"},
    {"main", "Ports", "Ports, SIMs and their groups"},
    {"groups", "Groups", "Edit the groups"},
    {"tsl", "Routing", "B-channel and port routing"},
    {"isdn", "ISDN", "ISDN settings"},
    {"system", "System", "Clock, version and the gateway's connection"},
    {"sim", "Monitor", "Status board of ports, SIMs and B-channels"},
    {"stc", "Statistics", "SIM statistics"},
    {"call", "Calls", "Call records"},
    {"hst", "Handset", "Handset test"},
    {"dbg", "Debug", "Debug console"},
    {"exit", "Exit", "End the program"},
}};

// The main window: its tool bar, its timers, the status panel's fields, and which page is open.
class FrmPRIGroups {
public:
    FrmPRIGroups(Platform& platform, SessionState& session, CSpooling& spool, ucProgress& panel, ReadQueue& reads,
                 ActionField& connectButton);

    // The session and the pages come into being after the window; they are tied to it here.
    void tie(SessionBringUp& bringUp, SettingsPages& pages, frmSimStatus& board, RealTimeUpdate& realTimeUpdate);

    // The tool bar's button, by key; throws std::out_of_range for an unknown one, as openPage does.
    ActionField& tool(std::string_view key);

    // What a press of the tool bar's button does: opens the page and queues the reads it lacks.
    void openPage(std::string_view key);
    const std::string& page() const { return page_; }
    sigc::signal<void()>& pageChanged() { return pageChanged_; }

    // Asks before the program ends; true when it may.
    bool queryUnload();
    sigc::signal<void()>& unload() { return unload_; }  // the exit button was pressed

    void hideToTray();
    sigc::signal<void(bool shown)>& windowShown() { return windowShown_; }

    // Sets the intervals of the first four command timers and leaves them off.
    void InitTimers();
    void tmrEnableCmd(int index, bool enabled);
    // The clock confirmation after a write: "R_CLK" goes out at the second tick.
    void startDelayedClockUpdate();

    // The port number of an address; a key that is not empty overrides x and y with its characters 4 and 5.
    int getNumPort(int x, int y, std::string_view key) const;
    std::string getTextPort(std::string_view key) const;

    LabelField caption{"FrmPRIGroups", windowTitle};
    LabelField lblESN{"lblESN"};
    LabelField lblVersion{"lblVersion"};
    LabelField lblTimePanel{"lblTimePanel"};
    LabelField lblSessionState{"lblSessionState"};  // its tag is the phase: "idle", "connecting", "listening", ...
    LabelField lblUpdateStatus{"lblUpdateStatus"};
    LabelField lblNotice{"lblNotice"};  // one line for what needs no box; empty when there is nothing to say
    ActionField cmdDismissNotice{"cmdDismissNotice", "Dismiss"};
    ActionField cmbTrayIcon{"cmbTrayIcon", "To tray"};

    void notice(const std::string& text);

private:
    static constexpr int commandTimers = 8;

    void commandTimerTick(int index);
    void ClockUpdate();
    void showClock();
    void showPhase();
    void readPage();
    void followMainPage();
    void holdWrites();
    void readBoard();
    void delayedClockTick();

    Platform& platform_;
    SessionState& session_;
    CSpooling& spool_;
    ucProgress& panel_;
    ReadQueue& reads_;
    ActionField& connectButton_;
    SessionBringUp* bringUp_ = nullptr;
    SettingsPages* pages_ = nullptr;
    frmSimStatus* board_ = nullptr;
    std::deque<ActionField> tools_;
    std::string page_ = "main";
    bool loggedIn_ = false;
    std::array<std::unique_ptr<Timer>, commandTimers> tmrEnableCmd_;
    std::array<int, commandTimers> commandIntervalMs_{};
    std::unique_ptr<Timer> TmrDelayClkUpdate_;
    int delayedClockTicks_ = 0;
    sigc::signal<void()> pageChanged_;
    sigc::signal<void()> unload_;
    sigc::signal<void(bool)> windowShown_;
};

}  // namespace trunvex
