#pragma once

#include <filesystem>

#include "cdr/calls_page.h"
#include "config/port_tree.h"
#include "config/settings_pages.h"
#include "link/session.h"
#include "model/port_detection.h"
#include "model/routing_records.h"
#include "model/settings_records.h"
#include "monitor/monitor_tools.h"
#include "monitor/port_state.h"
#include "monitor/sim_status.h"
#include "shell/main_window.h"
#include "shell/settings_file.h"

namespace trunvex {

// The files of one console: its application folder, whose `data` folder is made when missing, and the settings.
struct ConsoleFiles {
    ConsoleFiles(const std::filesystem::path& folder, Notices& notices);

    const std::filesystem::path folder;
    SettingsFile setting;  // Setting.xml
    SettingsFile history;  // History.xml: the last dialled numbers
    SettingsFile data;     // Data.xml: what combo boxes remember
};

// What a session without a window needs: the link to a gateway, and the store and the download of its calls.
struct WindowlessConsole {
    WindowlessConsole(Platform& platform, const std::filesystem::path& folder);

    Notices notices;
    ConsoleFiles files;
    Session session;
    CallStore callStore;
    CdrDownload cdrDownload;
};

// Everything of one console: a session, the shared tables and the view models of its windows. Each part gets what it
// needs when it is made and ties itself, so the order below is the order of building. The pages stand in the tool bar
// in the order of the list that the main window is given.
class Console : public WindowlessConsole {
public:
    Console(Platform& platform, const std::filesystem::path& folder);
    Console(const Console&) = delete;
    Console& operator=(const Console&) = delete;

    SharedTables tables;
    SettingsRecords records;
    RoutingRecords routing;
    PortDetection portDetection;
    PortTree portTree;
    SettingsPages pages;
    Page groupsPage;
    CallsPage calls;
    frmSimStatus board;
    PortState portState;
    MonitorTools monitor;
    Page statisticsPage;
    Page handsetPage;
    Page debugPage;
    FrmPRIGroups mainWindow;

private:
    void followRehearsal();
    void showCallsOf(const SimFigures& sim);
};

}  // namespace trunvex
