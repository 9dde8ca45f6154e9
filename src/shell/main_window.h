#pragma once

#include <array>
#include <deque>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "fields/fields.h"
#include "pages/page.h"

namespace trunvex {

inline constexpr const char* versionMajor = "6";
inline constexpr const char* versionMinor = "24";
inline constexpr const char* windowTitle = "Norvane Telecom PRI Software ver 6.24";

// The main window: its tool bar, its timers, the status panel's fields, and which page is open.
class FrmPRIGroups {
public:
    // The pages stand in the tool bar in this order, between its buttons "connect" and "exit". They outlive the window.
    FrmPRIGroups(Session& session, std::vector<Page*> pages);

    // The tool bar's buttons in their order, and one of them by its key; throws std::out_of_range for an unknown one,
    // as openPage does.
    const std::vector<ActionField*>& tools() const { return tools_; }
    ActionField& tool(std::string_view key);

    // What a press of the tool bar's button does: opens the page and queues the reads it lacks. "connect" asks before
    // it ends a session in which something is not written yet.
    void openPage(std::string_view key);
    const std::string& page() const { return page_->traits.key; }
    const std::vector<Page*>& pages() const { return pages_; }
    sigc::signal<void()>& pageChanged() { return pageChanged_; }

    // Asks before the program ends; true when it may, and the session is over then.
    bool queryUnload();
    sigc::signal<void()>& unload() { return unload_; }  // the exit button was pressed

    void hideToTray();
    // What stands at the gateway, in words and how many; empty for nothing. Shown in the window and at the tray icon.
    void setFaults(const std::string& words, std::size_t count);
    sigc::signal<void(bool shown)>& windowShown() { return windowShown_; }

    // Sets the intervals of the first four command timers and leaves them off.
    void InitTimers();
    void tmrEnableCmd(int index, bool enabled);

    // The port number of an address; a key that is not empty overrides x and y with its characters 4 and 5.
    int getNumPort(int x, int y, std::string_view key) const;
    std::string getTextPort(std::string_view key) const;

    LabelField caption{"FrmPRIGroups", windowTitle};
    LabelField lblESN{"lblESN"};
    LabelField lblVersion{"lblVersion"};
    LabelField lblTimePanel{"lblTimePanel"};
    LabelField lblSessionState{"lblSessionState"};  // its tag is the phase: "idle", "connecting", "listening", ...
    LabelField lblSilence{"lblSilence"};            // how long a gateway that was asked has said nothing
    LabelField lblUpdateStatus{"lblUpdateStatus"};
    Notices& notices;
    ucProgress& panel;
    ReadQueue& reads;
    LabelField& lblNotice;
    ActionField cmdFaults{"cmdFaults"};  // opens the list of events, as the tool bar's button does
    ActionField cmdEvents{"cmdEvents", "Events"};
    ActionField cmbTrayIcon{"cmbTrayIcon", "To tray"};

private:
    static constexpr int commandTimers = 8;

    void buildTools();
    void followSession();
    void addTool(const std::string& key, const std::string& caption, const std::string& tip);
    Page* pageOf(std::string_view key) const;
    void commandTimerTick(int index);
    void ClockUpdate();
    void showClock();
    void showPhase();
    void showStanding();
    void toggleSession();
    std::string unwritten(Page::Edits which, const char* between) const;
    bool linkIsLost() const { return !notices.lblLink.text().empty(); }
    std::string trayTip() const;
    void loggedIn(LogInOutcome outcome);
    void read(Page& page);

    Session& session_;
    Platform& platform_;
    std::vector<Page*> pages_;
    std::deque<ActionField> ownTools_;
    std::vector<ActionField*> tools_;
    Page* page_ = nullptr;
    std::set<Page*> unread_;  // windows that were opened while the console logged in
    std::array<std::unique_ptr<Timer>, commandTimers> tmrEnableCmd_;
    std::array<int, commandTimers> commandIntervalMs_{};
    sigc::signal<void()> pageChanged_;
    sigc::signal<void()> unload_;
    sigc::signal<void(bool)> windowShown_;
};

}  // namespace trunvex
