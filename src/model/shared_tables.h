#pragma once

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "model/isdn_record.h"
#include "model/port_record.h"
#include "model/sim_record.h"
#include "model/tree_item.h"

namespace trunvex {

inline constexpr int mcuCount = 8;
inline constexpr int modulesPerMcu = 4;
inline constexpr int simsPerModule = 4;
inline constexpr int portCount = mcuCount * modulesPerMcu;
inline constexpr int bChannelCount = 30;

// What the settings pages and the monitor know of the gateway's hardware. Values are kept as the text that travels.
struct SharedTables {
    std::array<std::array<PortRec, modulesPerMcu>, mcuCount> gPorts;
    std::array<std::array<std::array<SimRec, simsPerModule>, modulesPerMcu>, mcuCount> gSims;
    IsdnRec isdn;
    // The flat list behind the port tree. It outlives the link, so that groups can still be exported without one.
    std::vector<TreeItem> gTreeItems;

    // MCU 1 to 8, module 1 to 4; throws std::out_of_range beyond.
    PortRec& port(int mcu, int module) {
        return gPorts.at(static_cast<std::size_t>(mcu - 1)).at(static_cast<std::size_t>(module - 1));
    }
    // SIM 1 to 4 of a module; throws std::out_of_range beyond.
    SimRec& sim(int mcu, int module, int number) {
        return gSims.at(static_cast<std::size_t>(mcu - 1))
            .at(static_cast<std::size_t>(module - 1))
            .at(static_cast<std::size_t>(number - 1));
    }
    // Forgets the hardware, not the grouping of it.
    void reset() {
        gPorts = {};
        gSims = {};
        isdn = {};
    }
};

// The address of a position, 1 to 32, in the records that hold one character a port: MCU and module.
constexpr std::pair<int, int> portAtPosition(int position) {
    return {(position - 1) / modulesPerMcu + 1, (position - 1) % modulesPerMcu + 1};
}

}  // namespace trunvex
