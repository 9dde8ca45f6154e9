#include "fakes/console_bench.h"

#include <unistd.h>

#include <cstdlib>
#include <fstream>

namespace trunvex::fakes {

std::string contentOf(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

TemporaryFolder::TemporaryFolder() {
    auto name = (std::filesystem::temp_directory_path() / "trunvex-XXXXXX").string();
    if (!::mkdtemp(name.data())) throw std::runtime_error("no temporary folder");
    path_ = name;
}

TemporaryFolder::TemporaryFolder(const char* callTemplate) : TemporaryFolder() {
    std::filesystem::create_directory(path_ / "data");
    std::filesystem::copy_file(callTemplate, path_ / "data" / "CDR.mdb");
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code error;
    std::filesystem::remove_all(path_, error);
}

ConsoleBench::ConsoleBench(std::filesystem::path home) : console(platform, home.empty() ? folder.path() : home) {
    console.mainWindow.openPage("groups");  // a page that asks the gateway for nothing by itself
    console.session.bringUp.showConnectionDialog = [this](frmConnectionSelect& shown) {
        if (dialog)
            dialog(shown);
        else
            shown.cmbConSelect.setText("NET");
        if (shown.kind() != "ERR" && !shown.accept()) shown.cancel();
    };
}

void ConsoleBench::connect() {
    console.mainWindow.openPage("connect");
    platform.peer.accepts();
}

void ConsoleBench::attach(simulator::Station& station) {
    station_ = &station;
    station.linkDown();
    platform.peer.onOpened = [this] {
        station_->linkUp();
        runStation();
    };
    platform.peer.onClosed = [this] { station_->linkDown(); };
    // What the console sends crosses the wire too: it may do so from within a line that the station is delivering.
    platform.peer.onBytes = [this](std::string_view bytes) {
        platform.loop.at(platform.loop.now(), [this, sent = std::string(bytes)] {
            station_->advanceTo(platform.loop.now());
            station_->receive(sent);
            runStation();
        });
    };
    station.onOutput = [this](std::string_view bytes) {
        if (platform.peer.reached()) platform.peer.deliver(bytes);
    };
    station.onHangUp = [this] {
        platform.loop.at(platform.loop.now(), [this] {
            if (!platform.peer.reached()) return;
            station_->linkDown();
            platform.peer.closes();
        });
    };
}

void ConsoleBench::runStation() {
    const auto due = station_->nextDue();
    if (!due || (stationDue_ && *stationDue_ <= *due)) return;
    stationDue_ = due;
    // An answer crosses the wire: it never arrives within the call that sent the command.
    platform.loop.at(std::max(*due, platform.loop.now()), [this, due = *due] {
        if (stationDue_ != due) return;  // something earlier came up
        stationDue_.reset();
        station_->advanceTo(platform.loop.now());
        runStation();
    });
}

void ConsoleBench::logIn(simulator::Station& station) {
    attach(station);
    connect();
    advance(3000);
}

}  // namespace trunvex::fakes
