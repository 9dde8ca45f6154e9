#pragma once

#include "monitor/board_events.h"
#include "monitor/board_operations.h"
#include "monitor/cell_view.h"
#include "monitor/isdn_counters.h"
#include "monitor/last_calls.h"
#include "monitor/port_menu.h"
#include "monitor/port_windows.h"
#include "monitor/rehearsal.h"
#include "monitor/sim_statistics.h"
#include "monitor/slave_versions.h"
#include "monitor/time_chart.h"

namespace trunvex {

// What stands beside the board and works over it.
struct MonitorTools {
    MonitorTools(Session& session, SharedTables& tables, SettingsRecords& records, Settings& history,
                 frmSimStatus& board);

    BoardOperations operations;
    LastCalls lastCalls;
    PortMenu menu;
    PortWindows windows;
    IsdnCounters counters;
    SlaveVersions versions;
    SimStatistics statistics;
    CellView cells;
    TimeChart chart;
    Rehearsal rehearsal;
    BoardEvents events;
};

}  // namespace trunvex
