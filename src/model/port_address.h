#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

namespace trunvex {

inline constexpr int mcuCount = 8;
inline constexpr int modulesPerMcu = 4;
inline constexpr int simsPerModule = 4;
inline constexpr int portCount = mcuCount * modulesPerMcu;

// Where a radio module stands: on MCU 1 to 8, as module 1 to 4. Two digits on the wire, a number of 1 to 32 for people.
class PortAddress {
public:
    // Throws std::out_of_range where there is no such place.
    constexpr PortAddress(int mcu, int module) : mcu_(mcu), module_(module) {
        if (mcu < 1 || mcu > mcuCount || module < 1 || module > modulesPerMcu) throw std::out_of_range("no such port");
    }
    static constexpr PortAddress ofNumber(std::int64_t number) {
        if (number < 1 || number > portCount) throw std::out_of_range("no such port");
        const auto slot = static_cast<int>(number) - 1;
        return {slot / modulesPerMcu + 1, slot % modulesPerMcu + 1};
    }
    // "53"; throws as getIndexs does, and for any other count of digits.
    static PortAddress parse(std::string_view digits);

    constexpr int mcu() const { return mcu_; }
    constexpr int module() const { return module_; }
    constexpr int number() const { return (mcu_ - 1) * modulesPerMcu + module_; }
    // In a table of all ports, 0 to 31.
    constexpr std::size_t slot() const { return static_cast<std::size_t>(number() - 1); }
    std::string digits() const { return std::to_string(mcu_ * 10 + module_); }
    constexpr bool operator==(const PortAddress&) const = default;

private:
    int mcu_;
    int module_;
};

// SIM 1 to 4 of a module. Three digits on the wire.
class SimAddress {
public:
    constexpr SimAddress(PortAddress port, int sim) : port_(port), sim_(sim) {
        if (sim < 1 || sim > simsPerModule) throw std::out_of_range("no such SIM");
    }
    // "531"; throws as PortAddress does.
    static SimAddress parse(std::string_view digits);

    constexpr PortAddress port() const { return port_; }
    constexpr int sim() const { return sim_; }
    constexpr std::size_t slot() const { return static_cast<std::size_t>(sim_ - 1); }
    std::string digits() const { return port_.digits() + std::to_string(sim_); }
    constexpr bool operator==(const SimAddress&) const = default;

private:
    PortAddress port_;
    int sim_;
};

// In the order of the records that hold one character a port.
inline constexpr auto everyPort = []<std::size_t... slot>(std::index_sequence<slot...>) {
    return std::array{PortAddress::ofNumber(slot + 1)...};
}
(std::make_index_sequence<portCount>());

}  // namespace trunvex
