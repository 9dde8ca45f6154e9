#include "link/serial_port_map.h"

#include <algorithm>

namespace trunvex {

namespace {

constexpr int highestNumber = 99;
constexpr const char* section = "SerialPorts";

std::string keyOf(int number) { return "COM" + std::to_string(number); }

}  // namespace

std::vector<SerialPortEntry> SerialPortMap::entries() {
    std::vector<SerialPortEntry> list;
    for (int number = 1; number <= highestNumber; ++number) {
        auto device = settings_.Read(section, keyOf(number));
        if (device.empty()) break;
        list.push_back({number, std::move(device), {}, false});
    }
    for (auto& device : platform_.serialDevices()) {
        auto known = std::find_if(list.begin(), list.end(),
                                  [&](const SerialPortEntry& entry) { return entry.device == device.path; });
        if (known == list.end()) {
            const int number = static_cast<int>(list.size()) + 1;
            if (number > highestNumber) break;
            settings_.Write(section, keyOf(number), device.path);
            list.push_back({number, device.path, {}, false});
            known = list.end() - 1;
        }
        known->details = device.details;
        known->present = true;
    }
    if (list.empty()) list.push_back({1, {}, {}, false});
    return list;
}

std::string SerialPortMap::deviceOf(int number) { return settings_.Read(section, keyOf(number)); }

}  // namespace trunvex
