#pragma once

#include <array>
#include <string>
#include <utility>

namespace trunvex {

inline constexpr int mcuCount = 8;
inline constexpr int modulesPerMcu = 4;
inline constexpr int portCount = mcuCount * modulesPerMcu;
inline constexpr int bChannelCount = 30;

// A radio module, as the gateway reports it.
struct PortRec {
    std::string Kind;  // "GSM", "CDM" or "ERR"; empty until the gateway has told
};

// What the settings pages and the monitor know of the gateway's hardware. Values are kept as the text that travels.
struct SharedTables {
    std::array<std::array<PortRec, modulesPerMcu>, mcuCount> gPorts;

    // MCU 1 to 8, module 1 to 4; throws std::out_of_range beyond.
    PortRec& port(int mcu, int module) {
        return gPorts.at(static_cast<std::size_t>(mcu - 1)).at(static_cast<std::size_t>(module - 1));
    }
    void reset() { gPorts = {}; }
};

// The address of a position, 1 to 32, in the records that hold one character a port: MCU and module.
constexpr std::pair<int, int> portAtPosition(int position) {
    return {(position - 1) / modulesPerMcu + 1, (position - 1) % modulesPerMcu + 1};
}

}  // namespace trunvex
