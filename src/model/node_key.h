#pragma once

#include <string>
#include <string_view>

// The keys of the port tree. A key is also the address on the wire, and is read by position: MCU is character 4,
// module character 5, SIM character 6; a group's number is characters 4 and 5.
namespace trunvex::node_key {

inline constexpr int groupCount = 32;

// "GRP" + two digits, 01 to 32.
bool isGroup(std::string_view key);
// "MOD", "CDM" or "ERR" + MCU 1 to 8 + module 1 to 4.
bool isPort(std::string_view key);
// "SIM" + MCU + module + SIM 1 to 4.
bool isSim(std::string_view key);

int mcu(std::string_view key);
int module(std::string_view key);

// "PRT", "MDD" or "GRP" + the group's two digits, from any key of the group.
std::string ofGroup(std::string_view type, std::string_view groupKey);
// The key under which a port is stored, whatever its module's type: "MOD" + the last two characters.
std::string stored(std::string_view portKey);
std::string port(std::string_view type, int mcu, int module);
std::string sim(int mcu, int module, int number);

}  // namespace trunvex::node_key
