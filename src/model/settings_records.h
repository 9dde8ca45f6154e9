#pragma once

#include <sigc++/sigc++.h>

#include "link/session.h"
#include "model/shared_tables.h"

namespace trunvex {

// Takes the settings records of ports, SIMs and the E1 line into the shared tables, as the gateway reports them and as
// it acknowledges what the console wrote. A session begins with empty tables, and its end
// leaves no more than which modules there are.
class SettingsRecords {
public:
    SettingsRecords(Session& session, SharedTables& tables);

    sigc::signal<void(PortAddress)> portStored;
    sigc::signal<void()> kindsChanged;  // a module is of another kind than was known
    sigc::signal<void(SimAddress)> simStored;
    sigc::signal<void()> isdnStored;
};

}  // namespace trunvex
