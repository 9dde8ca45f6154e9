#include "simulator/descriptor.h"
#include "simulator/gateway.h"
#include "simulator/master_pc.h"
#include "simulator/program_options.h"
#include "simulator/station_runner.h"
#include "simulator/transport_dial.h"
#include "simulator/transport_listen.h"
#include "simulator/transport_pty.h"

#include <unistd.h>
#include <csignal>
#include <ctime>
#include <exception>
#include <iostream>
#include <memory>
#include <optional>

namespace {

using namespace simulator;

int stopWriteEnd = -1;

extern "C" void askToStop(int) {
    const char word = 's';
    // A full pipe already holds the same word.
    [[maybe_unused]] const ssize_t written = write(stopWriteEnd, &word, 1);
}

// A descriptor that can be read as soon as someone wants the program to end.
Descriptor watchSignals() {
    int ends[2];
    if (pipe(ends) != 0) failWithErrno("pipe");
    Descriptor readEnd(ends[0]);
    readEnd.makeNonBlocking();
    stopWriteEnd = ends[1];
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGINT, askToStop);
    std::signal(SIGTERM, askToStop);
    return readEnd;
}

// The wall clock of this place, as the gateway's clock shows it.
std::chrono::sys_seconds localTime() {
    const std::time_t now = std::time(nullptr);
    std::tm parts{};
    localtime_r(&now, &parts);
    return std::chrono::sys_seconds(std::chrono::seconds(now + parts.tm_gmtoff));
}

std::unique_ptr<Transport> makeTransport(const ProgramOptions& options) {
    switch (options.way) {
        case ProgramOptions::Way::dial:
            return std::make_unique<DialTransport>(options.host, options.port);
        case ProgramOptions::Way::terminal:
            return std::make_unique<PtyTransport>(options.terminalLink);
        case ProgramOptions::Way::listen:
            break;
    }
    return std::make_unique<ListenTransport>(options.host, options.port);
}

void runGateway(const ProgramOptions& options) {
    const Descriptor stop = watchSignals();
    const auto tell = [&options](const std::string& line) {
        if (!options.quiet) std::cout << line << std::endl;
    };
    Gateway gateway(options.gateway);
    std::optional<MasterPc> master;
    if (options.master) master.emplace(gateway, options.masterPc);
    const auto transport = makeTransport(options);
    StationRunner runner(master ? static_cast<Station&>(*master) : gateway, *transport, tell);
    // Days may pass, and the lines hold passwords.
    runner.afterTurn = [&gateway] { gateway.forgetLinesReceived(); };
    tell("gateway " + gateway.state().esn + " " + transport->describe());
    runner.run(stop.get());
    tell("gateway " + gateway.state().esn + " ends");
}

}  // namespace

int main(int count, char** words) {
    simulator::ProgramOptions options;
    const std::string why = simulator::parseArguments({words + 1, words + count}, options);
    if (!why.empty()) {
        std::cerr << "trunvex-gateway: " << why << "\nTry --help.\n";
        return 2;
    }
    if (options.help) {
        std::cout << simulator::helpText();
        return 0;
    }
    if (!options.seedGiven) options.gateway.start = localTime();
    try {
        runGateway(options);
    } catch (const std::exception& failure) {
        std::cerr << "trunvex-gateway: " << failure.what() << "\n";
        return 1;
    }
    return 0;
}
