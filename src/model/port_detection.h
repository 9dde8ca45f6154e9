#pragma once

#include "link/session.h"
#include "model/shared_tables.h"

namespace trunvex {

// Takes A_PPR, the gateway's word on which ports it has: a digit a port, "1" for a module that works.
class PortDetection {
public:
    PortDetection(Session& session, SharedTables& tables);

    // The module types in gPorts are new: the port tree and the board follow.
    sigc::signal<void()> portsDetected;
};

}  // namespace trunvex
