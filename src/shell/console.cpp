#include "shell/console.h"

#include "shell/default_settings.h"

namespace trunvex {

namespace {

ReportClock clockOf(const SystemPage& page) {
    return {page.lblHoure.text(), page.lblMinute.text(), page.lblSecond.text(), page.lblDate.text()};
}

}  // namespace

ConsoleFiles::ConsoleFiles(const std::filesystem::path& folder_, Notices& notices)
    : folder(folder_), setting(folder / "Setting.xml", [&notices](const std::string& text) { notices.tell(text); }),
      history(folder / "History.xml", [&notices](const std::string& text) { notices.tell(text); }),
      data(folder / "Data.xml", [&notices](const std::string& text) { notices.tell(text); }) {
    std::error_code error;
    std::filesystem::create_directories(folder / "data", error);
    completeSettings(setting, folder);
}

WindowlessConsole::WindowlessConsole(Platform& platform, const std::filesystem::path& folder)
    : files(folder, notices), session(platform, files.setting, files.data, folder.string(), notices),
      callStore(platform.databases(), folder), cdrDownload(session, callStore) {
    notices.endGathering();
}

Console::Console(Platform& platform, const std::filesystem::path& folder)
    : WindowlessConsole(platform, folder), records(session, tables), routing(session), portDetection(session, tables),
      portTree(session, tables, portDetection, records), pages(session, tables, records, routing, portTree),
      groupsPage(session, {"groups", "Groups", "Edit the groups", Page::SimPort}),
      calls(session, callStore, cdrDownload, [this] { return clockOf(pages.system); }), board(session),
      portState(session, tables, portDetection, records, board),
      monitor(session, tables, records, files.history, board),
      statisticsPage(session, {"stc", "Statistics", "SIM statistics"}),
      handsetPage(session, {"hst", "Handset", "Handset test", Page::Handset}),
      debugPage(session, {"dbg", "Debug", "Debug console", Page::Debug}),
      mainWindow(session, {&pages.main, &groupsPage, &pages.routing, &pages.isdn, &pages.system, &board,
                           &statisticsPage, &calls, &handsetPage, &debugPage}) {
    followRehearsal();
    auto& events = monitor.events;
    events.lblFaults.changed().connect([this] {
        const auto& standing = monitor.events;
        mainWindow.setFaults(standing.lblFaults.text(), standing.lsvStanding.rowCount());
    });
    for (auto* button : {&mainWindow.cmdFaults, &mainWindow.cmdEvents})
        button->pressed().connect([this] {
            mainWindow.openPage("sim");
            monitor.events.asked.emit();
        });
    events.alerted.connect([this, &platform](const std::string& words) {
        if (monitor.events.chkEventTray.checked()) platform.tray().say(words);
    });
    calls.rolledOver().connect(
        [this](const std::string& words) { monitor.events.raise(BoardEvent::Kind::Rollover, words, false); });
    monitor.statistics.callsAsked.connect([this](const SimFigures& sim) { showCallsOf(sim); });
}

// What the time tables would do to the calls that the page Calls lists.
void Console::followRehearsal() {
    monitor.chart.rowsAsEdited = [this](SimAddress sim) { return pages.sim.rowsAsEdited(sim); };
    pages.sim.form.changed().connect([this] { monitor.rehearsal.tablesChanged(); });
    // The list is at rest again, and may hold others.
    calls.lblCDRWork.changed().connect([this] {
        if (calls.lblCDRWork.text().empty()) monitor.rehearsal.callsChanged();
    });
    enum Column : std::size_t { Port, Sim, Direction, Originated = 7, Network = 15 };
    monitor.rehearsal.follow(
        {[this] { calls.opened(); }, [this] { return calls.lsvCallReport.size(); },
         [this](std::size_t row) {
             const auto text = [this, row](Column column) { return calls.lsvCallReport.text(row, column); };
             return Rehearsal::Call{text(Port), text(Sim), text(Originated), text(Direction) == "OUT", text(Network)};
         }});
}

// Calls name their SIM by its own number; without one all calls of its port are shown.
void Console::showCallsOf(const SimFigures& sim) {
    mainWindow.openPage("call");
    if (sim.simId.empty())
        calls.showGroup("Port", std::to_string(sim.sim.port().number()));
    else
        calls.showGroup("Sim ID", sim.simId);
}

}  // namespace trunvex
