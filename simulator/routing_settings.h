#pragma once

#include "simulator/fields.h"
#include "simulator/port_address.h"

#include <array>
#include <map>
#include <string>
#include <vector>

namespace simulator {

class Random;

// A table that travels in blocks: rows of the same number of cells, at their places, which are kept until all is
// erased.
using TableRows = std::vector<std::vector<std::string>>;

struct PortLine {
    int channel = 0;  // the line bound to the port: 1 to 30, 31 and 32 for the reserved ones, 0 for none
    int group = 0;    // of prefixes
};

struct AccessTable {
    std::string mode = "0";
    std::string unlisted = "1";
    TableRows rows;  // number, 1 or 0
};

// A caller who is put straight through to an extension.
struct DirectLine {
    std::string number;
    std::string extension;
    std::string calls;  // that are left; empty without limit
};

// How calls find their way, every value as it travels but for what is bound.
struct RoutingSettings {
    std::string mode = "1";
    std::string prefixDigits = "8";
    std::string mnp = "0";
    std::string waitTenths = "25";
    std::array<PortLine, portCount> ports;
    std::array<std::string, channelCount + 2> numbers;  // of the channels, then of the reserved lines
    std::string modificationMode = "0";
    TableRows modifications;  // ignored digits, added digits
    std::array<std::string, 16> causes;
    TableRows prefixes;  // prefix, high group, low group, routing code
    AccessTable fromGsm;
    AccessTable fromIsdn;
    std::string directMode = "1";
    std::map<int, DirectLine> directLines;  // by entry, 1 to 300
};

// A gateway that has been set up: every fitted port has a line and a group, and the tables have some rows.
void furnishRouting(RoutingSettings& routing, Random& random);

}  // namespace simulator
