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
      portState(session, tables, portDetection, records, board), monitor(session, tables, records, files.history, board),
      statisticsPage(session, {"stc", "Statistics", "SIM statistics"}),
      handsetPage(session, {"hst", "Handset", "Handset test", Page::Handset}),
      debugPage(session, {"dbg", "Debug", "Debug console", Page::Debug}),
      mainWindow(session, {&pages.main, &groupsPage, &pages.routing, &pages.isdn, &pages.system, &board,
                           &statisticsPage, &calls, &handsetPage, &debugPage}) {
    monitor.statistics.callsAsked.connect([this](const SimFigures& sim) { showCallsOf(sim); });
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
