#include "monitor/monitor_tools.h"

#include "text/text_rules.h"

namespace trunvex {

MonitorTools::MonitorTools(Session& session, SharedTables& tables, SettingsRecords& records, Settings& history,
                           frmSimStatus& board)
    : operations(session, board), lastCalls(session, history, board), menu(operations, board),
      counters(session, operations), versions(session, tables, operations),
      statistics(session, tables, operations, menu), cells(session, tables, operations, menu, board),
      chart(session, tables, records, operations), rehearsal(session, chart), events(session, board) {
    operations.failed.connect(
        [this](const std::string& words) { events.raise(BoardEvent::Kind::Write, words, false); });
    menu.mnuMessages.pressed().connect([this] { windows.showMessages(menu.port()); });
    menu.mnuDTMFDialer.pressed().connect([this, &session] {
        const auto& rights = session.state.gAccessRights;
        if (!operations.mayAsk()) return;
        if (!rights.empty() && (val(rights) & Page::Handset) == 0)
            session.tell("The gateway gave this session no right to dial.");
        else
            windows.showDialler(menu.port());
    });
}

}  // namespace trunvex
