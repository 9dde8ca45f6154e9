#pragma once

#include <filesystem>
#include <memory>
#include <optional>

#include "fakes/manual_platform.h"
#include "shell/console.h"
#include "simulator/gateway.h"
#include "simulator/station.h"

namespace trunvex::fakes {

inline simulator::GatewayOptions seeded(std::uint64_t seed, std::string esn = "4711") {
    simulator::GatewayOptions options;
    options.seed = seed;
    options.esn = std::move(esn);
    return options;
}

std::string contentOf(const std::filesystem::path& file);

// An empty folder for one test, gone with it.
class TemporaryFolder {
public:
    TemporaryFolder();
    // With the template of the call database, as an installed program has it.
    explicit TemporaryFolder(const char* callTemplate);
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

// A whole console on the manual clock. Its connection dialog is answered by `dialog`: TCP and OK when that is unset.
class ConsoleBench {
public:
    // In a folder of its own, or in one that an earlier console has left.
    explicit ConsoleBench(std::filesystem::path home = {});

    // Presses Connect and lets the peer take the call.
    void connect();
    // Ties the console's socket to a station of the simulator, in memory and on the same clock.
    void attach(simulator::Station& station);
    // Carries away what the station has to say; needed after it was made to speak from outside.
    void runStation();
    // connect() to the station and enough time for its log-in.
    void logIn(simulator::Station& station);
    void advance(int milliseconds) { platform.loop.advance(std::chrono::milliseconds(milliseconds)); }
    // A line of the gateway's arrives.
    void receive(const std::string& line) { platform.peer.deliver(line + '\r'); }
    const std::string& panelText() const { return console.session.panel.getPanelText(); }
    std::vector<std::string> sent() const { return platform.peer.sentLines(); }

    TemporaryFolder folder{CALL_TEMPLATE};
    ManualPlatform platform;
    std::function<void(frmConnectionSelect&)> dialog;
    Console console;

private:
    simulator::Station* station_ = nullptr;
    std::optional<ManualLoop::Ms> stationDue_;
};

}  // namespace trunvex::fakes
