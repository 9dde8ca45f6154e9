#pragma once

#include <string>
#include <vector>

#include "platform/platform.h"
#include "platform/settings.h"

namespace trunvex {

// One line of the serial port list.
struct SerialPortEntry {
    int number = 0;       // n of "COM n"
    std::string device;   // "/dev/ttyUSB0"; empty for a number that never had one
    std::string details;  // what the device says of itself; may be empty
    bool present = false;
};

// Which device stands behind which "COM n". A device keeps its number when others come and go, also between two runs:
// the map is kept in the settings file, section "SerialPorts", a key "COM" + n each.
class SerialPortMap {
public:
    SerialPortMap(Platform& platform, Settings& settings) : platform_(platform), settings_(settings) {}

    // Looks at the machine anew and gives new devices the lowest free numbers. Sorted by number, without gaps from 1,
    // at least one entry.
    std::vector<SerialPortEntry> entries();
    // The device of a number, or nothing.
    std::string deviceOf(int number);

private:
    Platform& platform_;
    Settings& settings_;
};

}  // namespace trunvex
