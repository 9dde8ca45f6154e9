#pragma once

#include "config/isdn_page.h"
#include "config/main_page.h"
#include "config/routing/routing_page.h"
#include "config/system_page.h"

namespace trunvex {

// The pages on which the gateway's settings are read and written, and what they share.
struct SettingsPages {
    SettingsPages(Session& session, SharedTables& tables, SettingsRecords& settingsRecords,
                  RoutingRecords& routingRecords, PortTree& tree)
        : tools{session.platform.dialogs(),
                session.objSpool,
                tables,
                session.reads,
                session.writes,
                session.state,
                session.platform.clock(),
                [&session](const std::string& text) { session.tell(text); }},
          groupWrite(session.writes), port(tools, tree, settingsRecords, groupWrite),
          sim(tools, tree, settingsRecords, groupWrite), main(session, tree, port, sim, groupWrite),
          isdn(session, tools, settingsRecords), system(session, tools), routing(session, tools, routingRecords) {
        session.events.begun.connect([this] {
            groupWrite.forget();
            forget();
        });
        // What became of a group write stays: it is the loss of the link that may have cut it short.
        session.events.tornDown.connect([this] { forget(); });
    }

    void forget() {
        main.forget();
        isdn.forget();
    }

    PageTools tools;
    GroupWrite groupWrite;
    PortPage port;
    SimPage sim;
    MainPage main;
    IsdnPage isdn;
    SystemPage system;
    RoutingPage routing;
};

}  // namespace trunvex
