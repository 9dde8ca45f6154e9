#pragma once

#include <deque>
#include <set>

#include "monitor/board_operations.h"

namespace trunvex {

// The menu "PORT" of a board's cell. What is pressed counts for the port it was opened for last.
class PortMenu {
public:
    PortMenu(BoardOperations& operations, frmSimStatus& board);

    // Captions and items of this port. One that is marked is reset together with all that are.
    void open(int index);
    int port() const { return port_; }

    std::set<int> marked;  // ports that the operator has marked on the board

    ActionField mnuPortEnable{"mnuPortEnable"};
    ActionField mnuRefreshPort{"mnuRefreshPort", "Refresh Port"};
    ActionField mnuDTMFDialer{"mnuDTMFDialer", "DTMF Dialer"};
    ActionField mnuMessages{"mnuMessages", "Messages"};
    ActionField mnuGetCell{"mnuGetCell", "Get cell information"};
    ActionField mnuResetPort{"mnuResetPort"};
    // Of SIM 1 to 4.
    ActionField mnuReadSt{"mnuReadSt", "Read statistics"};
    std::deque<ActionField> mnuReadSim;
    ActionField mnuRestSt{"mnuRestSt", "Reset statistics"};
    std::deque<ActionField> mnuResetSim;
    ActionField mnuDialedNum{"mnuDialedNum", "Last 5 dialed numbers"};  // a sub-menu, filled by LastCalls

private:
    void enable();

    BoardOperations& operations_;
    frmSimStatus& board_;
    int port_ = 1;
    std::set<int> resets_;
};

}  // namespace trunvex
