#pragma once

#include "simulator/gateway.h"
#include "simulator/master_pc.h"

#include <string>
#include <string_view>
#include <vector>

namespace simulator {

// What the command line of trunvex-gateway asks for.
struct ProgramOptions {
    // A newcomer who starts the program sees something move, and has calls to fetch.
    ProgramOptions() {
        gateway.life = LifeRates::quiet();
        gateway.callRecords = 200;
    }

    enum class Way { listen, dial, terminal };

    Way way = Way::listen;
    std::string host = "127.0.0.1";
    std::string port = "4001";
    std::string terminalLink;  // empty: the pseudo-terminal has its own name only
    bool seedGiven = false;    // the gateway's date then comes from the seed, too
    GatewayOptions gateway;
    bool master = false;
    MasterOptions masterPc;
    bool quiet = false;
    bool help = false;
};

// Reads the arguments behind the program's name. Returns an empty text, or what is wrong with them. A
// password is never part of that text.
std::string parseArguments(const std::vector<std::string>& arguments, ProgramOptions& options);

std::string helpText();

}  // namespace simulator
