#pragma once

#include "link/analyze_cmd.h"
#include "model/shared_tables.h"

namespace trunvex {

// Takes A_PPR, the gateway's word on which ports it has: a digit a port, "1" for a module that works.
class PortDetection {
public:
    PortDetection(Dispatcher& dispatcher, SessionState& session, SharedTables& tables, WriteQueue& writes);

    // The module types in gPorts are new: the port tree and the board follow.
    sigc::signal<void()> portsDetected;
};

}  // namespace trunvex
