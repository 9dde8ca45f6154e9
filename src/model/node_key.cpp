#include "model/node_key.h"

#include "model/shared_tables.h"
#include "text/text_rules.h"

namespace trunvex::node_key {

namespace {

bool digitIn(std::string_view key, std::size_t position, int highest) {
    const auto digit = mid(key, position, 1);
    return !digit.empty() && digit[0] >= '1' && digit[0] <= '0' + highest;
}

bool addressesPort(std::string_view key) { return digitIn(key, 4, mcuCount) && digitIn(key, 5, modulesPerMcu); }

}  // namespace

bool isGroup(std::string_view key) {
    const auto number = mid(key, 4);
    const bool digits = number.size() == 2 && number.find_first_not_of("0123456789") == std::string_view::npos;
    return mid(key, 1, 3) == "GRP" && digits && val(number) >= 1 && val(number) <= groupCount;
}

bool isPort(std::string_view key) {
    const auto type = mid(key, 1, 3);
    return key.size() == 5 && (type == "MOD" || type == "CDM" || type == "ERR") && addressesPort(key);
}

bool isSim(std::string_view key) {
    return key.size() == 6 && mid(key, 1, 3) == "SIM" && addressesPort(key) && digitIn(key, 6, simsPerModule);
}

int mcu(std::string_view key) { return static_cast<int>(val(mid(key, 4, 1))); }
int module(std::string_view key) { return static_cast<int>(val(mid(key, 5, 1))); }

std::string ofGroup(std::string_view type, std::string_view groupKey) {
    return std::string(type) + std::string(mid(groupKey, 4, 2));
}

std::string stored(std::string_view portKey) { return "MOD" + std::string(right(portKey, 2)); }

std::string port(std::string_view type, int mcu, int module) {
    return std::string(type) + std::to_string(mcu * 10 + module);
}

std::string sim(int mcu, int module, int number) { return "SIM" + std::to_string(mcu * 100 + module * 10 + number); }

}  // namespace trunvex::node_key
