#pragma once

#include "config/isdn_page.h"
#include "config/main_page.h"
#include "config/system_page.h"

namespace trunvex {

// The pages on which the gateway's settings are read and written, and what they share.
struct SettingsPages {
    SettingsPages(Dialogs& dialogs, SharedTables& tables, CommandSender& sender, ReadQueue& reads, WriteQueue& writes,
                  Clock& clock, Settings& settings, Dispatcher& dispatcher, SessionBringUp& bringUp,
                  RealTimeUpdate& realTimeUpdate, PortTree& tree, std::function<void(const std::string&)> tell)
        : tools{dialogs, sender, tables, reads, writes, std::move(tell)}, records(dispatcher, tables),
          groupWrite(writes), port(tools, tree, records, groupWrite), sim(tools, tree, records, groupWrite),
          main(tools, tree, port, sim), isdn(tools, records), system(tools, realTimeUpdate, bringUp, settings, clock) {
        bringUp.resetTables.connect([this] { groupWrite.forget(); });
    }

    // What became of a group write stays: it is the loss of the link that may have cut it short.
    void forget() {
        main.forget();
        isdn.forget();
    }

    PageTools tools;
    SettingsRecords records;
    GroupWrite groupWrite;
    PortPage port;
    SimPage sim;
    MainPage main;
    IsdnPage isdn;
    SystemPage system;
};

}  // namespace trunvex
