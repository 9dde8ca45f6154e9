#pragma once

#include <filesystem>

#include "cdr/calls_page.h"
#include "config/port_tree.h"
#include "config/routing_page.h"
#include "config/settings_pages.h"
#include "link/analyze_cmd.h"
#include "link/session_records.h"
#include "model/port_detection.h"
#include "model/shared_tables.h"
#include "monitor/last_calls.h"
#include "monitor/port_state.h"
#include "monitor/sim_status.h"
#include "platform/platform.h"
#include "queues/firmware_pump.h"
#include "shell/main_window.h"
#include "shell/settings_file.h"

namespace trunvex {

// Everything of one console: the link, the queues, the shared tables and the view models of its windows. What one part
// needs of another it gets when it is made, so the order below is the order of building.
class Console {
public:
    // `folder` is the application folder; its `data` folder is made when missing.
    Console(Platform& platform, const std::filesystem::path& folder);
    Console(const Console&) = delete;
    Console& operator=(const Console&) = delete;

private:
    void tell(const std::string& text);

    std::string untold_;  // said before there was a window to say it in
    bool windowBuilt_ = false;

public:
    Platform& platform;
    SettingsFile setting;  // Setting.xml
    SettingsFile history;  // History.xml: the last dialled numbers
    SettingsFile data;     // Data.xml: what combo boxes remember
    SessionState session;
    SharedTables tables;
    ucProgress panel;
    ActionField connectButton{"tool_connect", "Connect"};
    CSpooling objSpool;
    ReadQueue reads;
    ReadQueue refreshes;
    WriteQueue writes;
    FirmwarePump firmware;
    SessionBringUp bringUp;
    RealTimeUpdate realTimeUpdate;
    Dispatcher dispatcher;
    SessionRecords sessionRecords;
    PortDetection portDetection;
    PortTree portTree;
    SettingsPages pages;
    RoutingPage routingPage;
    CallStore callStore;
    CdrDownload cdrDownload;
    CallsPage calls;
    frmSimStatus board;
    PortState portState;
    LastCalls lastCalls;
    FrmPRIGroups mainWindow;
};

}  // namespace trunvex
