#include "shell/console.h"

#include "platform/durable_file.h"
#include "shell/default_settings.h"
#include "text/text_rules.h"

namespace trunvex {

Console::Console(Platform& platform_, const std::filesystem::path& folder)
    : platform(platform_), setting(folder / "Setting.xml", [this](const std::string& text) { tell(text); }),
      history(folder / "History.xml", [this](const std::string& text) { tell(text); }),
      data(folder / "Data.xml", [this](const std::string& text) { tell(text); }), panel(platform),
      objSpool(session, panel, connectButton), reads(platform, objSpool, pageReads),
      refreshes(platform, objSpool, boardReads), writes(platform, objSpool, panel),
      firmware(platform, objSpool, panel, writes),
      bringUp(platform, setting, data, session, objSpool, panel, connectButton, reads, refreshes, writes),
      dispatcher(session, objSpool, panel, {&reads, &refreshes}, writes, bringUp, realTimeUpdate),
      sessionRecords(dispatcher, session, panel, refreshes, writes, bringUp, realTimeUpdate),
      portDetection(dispatcher, session, tables, writes),
      portTree(platform.dialogs(), tables, session, objSpool, replaceFile,
               [this](const std::string& text) { tell(text); }),
      pages(platform.dialogs(), tables, objSpool, reads, writes, platform.clock(), setting, dispatcher, bringUp,
            realTimeUpdate, portTree, [this](const std::string& text) { tell(text); }),
      routingPage(realTimeUpdate), callStore(platform.databases(), folder),
      cdrDownload(platform, setting, session, objSpool, dispatcher, bringUp, callStore),
      calls(
          platform, setting, session, callStore, cdrDownload,
          [this] {
              const auto& clock = pages.system;
              return ReportClock{clock.lblHoure.text(), clock.lblMinute.text(), clock.lblSecond.text(),
                                 clock.lblDate.text()};
          },
          [this](const std::string& text) { tell(text); }),
      board(platform, setting, dispatcher, session, bringUp, realTimeUpdate, objSpool, reads, refreshes),
      portState(board, tables, dispatcher, session, refreshes, realTimeUpdate), lastCalls(platform, history, session),
      mainWindow(platform, session, objSpool, panel, reads, connectButton) {
    session.applicationFolder = folder.string();
    forgetESN(session);
    std::error_code error;
    std::filesystem::create_directories(folder / "data", error);
    completeSettings(setting, folder);
    calls.readSettings();
    cdrDownload.rearm();
    cdrDownload.ucCDRProg.setText("");

    objSpool.AnalyzeCmd = [this](std::string_view line, bool show) { dispatcher.AnalyzeCmd(line, show); };
    writes.feedBack = [this](std::string_view line) { dispatcher.AnalyzeCmd(line, false); };
    connectButton.setTip(toolPages[0].tip);
    bringUp.resetTables.connect([this] {
        tables.reset();
        portTree.forget();
        pages.forget();
    });
    bringUp.tornDown.connect([this] {
        tables.reset();
        pages.forget();
        lastCalls.flush();
    });
    dispatcher.esnReceived.connect([this] { mainWindow.lblESN.setText(escaped(session.gESN)); });
    dispatcher.updateStatus.connect(
        [this](std::string_view text) { mainWindow.lblUpdateStatus.setText(escaped(text)); });
    objSpool.onNumLineFill().connect([this](const std::string& line) { dispatcher.AnalyzeCmd(line, true); });
    bringUp.dialModem.connect([this] {
        bringUp.dropSession();
        tell("This version of the console can't dial by modem yet.");
    });
    sessionRecords.simAlarm.connect([this](const Fields& record) { portState.takeSimAlarm(record); });
    portDetection.portsDetected.connect([this] {
        portTree.takePorts();
        portState.UpdateCDMA();
    });
    dispatcher.esnReceived.connect([this] { portTree.takeIdentity(); });
    dispatcher.esnReceived.connect([this] {
        callStore.setGateway(session.gESN);
        calls.gatewayKnown(mainWindow.page() == "call");
    });
    board.dialled().connect([this](int index, const std::string& number) {
        lastCalls.SAVE_LastCalls(index, number + " (" + panel.getPanelText("time") + ")");
    });
    objSpool.openFailed().connect([this](const std::string& reason) { tell(reason); });
    writes.refused().connect([this](const std::string& reason) { tell(reason); });
    reads.refused().connect([this](const std::string& reason) { tell(reason); });
    sessionRecords.updateCompleted.connect([this] { firmware.NextCoommand(); });
    panel.pauseBars().connect([this](bool pause) { cdrDownload.ucCDRProg.PauseProgress(pause, "write"); });
    pages.records.kindsChanged.connect([this] {
        portTree.build(PortTree::Both, false);
        portState.UpdateCDMA();
    });
    mainWindow.pageChanged().connect([this] {
        if (mainWindow.page() == "call") calls.open();
    });
    mainWindow.tie(bringUp, pages, board, realTimeUpdate);
    if (!untold_.empty()) mainWindow.notice(untold_);
    windowBuilt_ = true;
}

void Console::tell(const std::string& text) {
    if (windowBuilt_)
        mainWindow.notice(text);
    else
        untold_ += (untold_.empty() ? "" : " ") + text;
}

}  // namespace trunvex
