#pragma once

#include <array>
#include <string>
#include <vector>

#include "model/isdn_record.h"
#include "model/port_address.h"
#include "model/port_record.h"
#include "model/sim_record.h"
#include "model/tree_item.h"

namespace trunvex {

inline constexpr int bChannelCount = 30;

// What the settings pages and the monitor know of the gateway's hardware. Values are kept as the text that travels.
struct SharedTables {
    std::array<PortRec, portCount> gPorts;
    std::array<std::array<SimRec, simsPerModule>, portCount> gSims;
    IsdnRec isdn;
    // The flat list behind the port tree. It outlives the link, so that groups can still be exported without one.
    std::vector<TreeItem> gTreeItems;

    PortRec& port(PortAddress port) { return gPorts[port.slot()]; }
    SimRec& sim(SimAddress sim) { return gSims[sim.port().slot()][sim.slot()]; }
    // Forgets what was read of the hardware, not which modules there are: the tree stays as it is without a link.
    void forgetRecords() {
        for (auto& port : gPorts) {
            PortRec known;
            known.Kind = std::move(port.Kind);
            port = std::move(known);
        }
        gSims = {};
        isdn = {};
    }
    // Forgets the hardware, not the grouping of it.
    void reset() {
        gPorts = {};
        gSims = {};
        isdn = {};
    }
};

}  // namespace trunvex
