#pragma once

#include "simulator/fields.h"

#include <optional>
#include <string>
#include <string_view>

namespace simulator {

constexpr int mcuCount = 8;
constexpr int modulesPerMcu = 4;
constexpr int portCount = mcuCount * modulesPerMcu;
constexpr int simsPerPort = 4;
constexpr int channelCount = 30;

// Where a port sits: MCU 1 to 8 and module 1 to 4 on it, written XY on the wire.
struct PortAddress {
    int mcu = 1;
    int module = 1;

    // Position in the gateway's port tables, 0 to 31.
    int slot() const { return (mcu - 1) * modulesPerMcu + module - 1; }
    std::string text() const { return std::to_string(mcu) + std::to_string(module); }

    static PortAddress ofSlot(int slot) { return {slot / modulesPerMcu + 1, slot % modulesPerMcu + 1}; }

    static std::optional<PortAddress> parse(std::string_view digits) {
        if (digits.size() != 2) return std::nullopt;
        const auto mcu = number(digits.substr(0, 1), 1, mcuCount);
        const auto module = number(digits.substr(1, 1), 1, modulesPerMcu);
        if (!mcu || !module) return std::nullopt;
        return PortAddress{*mcu, *module};
    }
};

// The place of a SIM, 1 to 4, in a port's module, written XYS on the wire.
struct SimAddress {
    PortAddress port;
    int sim = 1;

    std::string text() const { return port.text() + std::to_string(sim); }

    static std::optional<SimAddress> parse(std::string_view digits) {
        if (digits.size() != 3) return std::nullopt;
        const auto port = PortAddress::parse(digits.substr(0, 2));
        const auto sim = number(digits.substr(2), 1, simsPerPort);
        if (!port || !sim) return std::nullopt;
        return SimAddress{*port, *sim};
    }
};

}  // namespace simulator
