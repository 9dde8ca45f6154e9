#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "model/port_address.h"

// The keys of the port tree. A key is also the address on the wire: three letters, then the digits of a group, a port
// or a SIM.
namespace trunvex::node_key {

inline constexpr int groupCount = 32;

enum class Kind {
    None,
    Group,       // "GRP" + two digits, 01 to 32
    GroupPorts,  // "PRT" + the same, the list of its ports
    GroupPort,   // "MDD" + the same, the settings of all of them
    GroupSim,    // "SMM" + the same + SIM 1 to 4
    Gsm,         // "MOD" + the address of a port
    Cdma,        // "CDM"
    Missing,     // "ERR"
    Sim,         // "SIM" + the address of a SIM
};

struct Parts {
    Kind kind = Kind::None;
    int group = 0;                    // 1 to 32, of the kinds of groups
    std::optional<PortAddress> port;  // of a port and of a SIM
    int sim = 0;                      // 1 to 4, of a SIM and of GroupSim
};

// Kind::None for what is no key.
Parts parse(std::string_view key);

Kind kindOf(std::string_view key);
bool isGroup(std::string_view key);
bool isPort(std::string_view key);
bool isSim(std::string_view key);
// The port that a key names, itself or its SIM.
std::optional<PortAddress> portOf(std::string_view key);
std::optional<SimAddress> simOf(std::string_view key);

// "PRT", "MDD" or "GRP" + the group's two digits, from any key of the group.
std::string ofGroup(std::string_view type, std::string_view groupKey);
// The key under which a port is stored, whatever its module's type: "MOD" + the last two characters.
std::string stored(std::string_view portKey);
std::string port(std::string_view type, PortAddress address);
std::string sim(SimAddress address);

}  // namespace trunvex::node_key
