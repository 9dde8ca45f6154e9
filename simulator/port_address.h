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

}  // namespace simulator
