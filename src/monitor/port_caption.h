#pragma once

#include <algorithm>

#include "model/shared_tables.h"

namespace trunvex {

// What the tree of the main window calls a port.
inline std::string portCaption(const SharedTables& tables, PortAddress port) {
    const auto item = std::ranges::find(tables.gTreeItems, "MOD" + port.digits(), &TreeItem::Key);
    if (item != tables.gTreeItems.end() && !item->Caption.empty()) return item->Caption;
    return "Port " + std::to_string(port.number());
}

}  // namespace trunvex
