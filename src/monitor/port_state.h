#pragma once

#include "model/port_detection.h"
#include "model/settings_records.h"
#include "monitor/sim_status.h"

namespace trunvex {

// A snapshot of a port (A_STS) becomes the same events that single reports would have caused, and the module types mark
// the board's CDMA cells.
class PortState {
public:
    PortState(Session& session, SharedTables& tables, PortDetection& detection, SettingsRecords& records,
              frmSimStatus& board);

    void updateSTS(const PortSnapshot& snapshot);
    // A report about a SIM keeps its record.
    void takeSimAlarm(const AlarmReport& report);
    // A CDMA module has no SIM of ours: its cell says "CDMA" and shows nothing of one.
    void UpdateCDMA();
    // Which module each cell stands for.
    void takeKinds();

private:
    frmSimStatus& board_;
    SharedTables& tables_;
    RealTimeUpdate& realTimeUpdate_;
};

// The B-channel bound to a port now.
int getDynamicBCH(frmSimStatus& board, int index);
// The port's signal as it is shown.
const std::string& getRSSI(frmSimStatus& board, int index);
// Marks a port that has a new message, or takes the mark away.
void haveSMS(frmSimStatus& board, int index, bool flag);

}  // namespace trunvex
