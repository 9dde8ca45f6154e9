#include "link/session.h"

namespace trunvex {

Session::Session(Platform& platform_, Settings& setting_, Settings& data, const std::string& applicationFolder,
                 Notices& notices_)
    : platform(platform_), setting(setting_), notices(notices_), panel(platform),
      objSpool(platform, state, panel, connectButton), reads(platform, objSpool, pageReads),
      refreshes(platform, objSpool, boardReads), writes(platform, objSpool, panel),
      firmware(platform, objSpool, panel, writes),
      bringUp(platform, setting, data, state, events, objSpool, panel, connectButton, reads, refreshes, writes),
      dispatcher(state, objSpool, panel, {&reads, &refreshes}, writes, bringUp, realTimeUpdate),
      records(dispatcher, state, panel, refreshes, writes, bringUp, realTimeUpdate) {
    state.applicationFolder = applicationFolder;
    forgetESN(state);
    objSpool.AnalyzeCmd = [this](std::string_view line, bool show) { dispatcher.AnalyzeCmd(line, show); };
    writes.feedBack = [this](std::string_view line) { dispatcher.AnalyzeCmd(line, false); };
    records.updateCompleted.connect([this] { firmware.NextCoommand(); });
    const auto say = [this](const std::string& text) { tell(text); };
    objSpool.openFailed().connect(say);
    objSpool.linkLost().connect([this](const std::string& what) {
        notices.lblLink.setText(writes.restartAsked() ? "The gateway restarts, as asked. Connect again in a moment."
                                                      : what);
    });
    writes.refused().connect(say);
    reads.refused().connect(say);
    refreshes.refused().connect(say);
}

}  // namespace trunvex
