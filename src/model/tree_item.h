#pragma once

#include <string>

namespace trunvex {

// An item of the list behind the port tree: a group, a port or a SIM.
struct TreeItem {
    std::string Kind;     // "GRP"; a port's "GSM", "CDM" or "ERR"; "SIM"
    std::string Number;   // of a group, two digits
    std::string Key;      // of its node
    std::string Caption;  // the operator's name for it
    std::string Parent;   // key of the node it belongs to; empty for none
};

}  // namespace trunvex
