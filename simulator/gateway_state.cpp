#include "simulator/gateway_state.h"

#include "simulator/radio_cells.h"
#include "simulator/seeded_settings.h"

#include <algorithm>
#include <array>

namespace simulator {

namespace {

constexpr std::array<std::string_view, 3> networks{"NORTHCELL", "VIA MOBILE", "TELARO"};

std::chrono::sys_seconds someTime(Random& random) {
    using namespace std::chrono;
    return sys_days(year(2024) / January / 1) + minutes(random.between(0, 365 * 24 * 60 - 1));
}

void fitSims(Port& port, Random& random) {
    const auto fitted = random.between(1, simsPerPort);
    for (auto i = 0; i < fitted; ++i) {
        Sim& sim = port.sims[static_cast<std::size_t>(i)];
        sim.state = simReady;
        sim.talkedSeconds = static_cast<int>(random.between(0, std::int64_t{600} * 60));
    }
}

// A gateway in daily service: three slots in four have a module, most modules have a SIM and are registered.
Port somePort(Random& random) {
    Port port;
    if (!random.chance(0.75)) return port;
    port.module = '1';
    port.enabled = random.chance(0.9);
    port.slaveVersion = "2." + std::to_string(random.between(10, 14));
    port.bcch = static_cast<int>(random.between(1, 124));
    port.fixedBcch = random.chance(0.25);
    if (!random.chance(0.9)) return port;
    fitSims(port, random);
    port.state = random.chance(0.85) ? registeredHome : registeredRoaming;
    port.signal = static_cast<int>(random.between(8, 62));
    port.network = someNetwork(random);
    return port;
}

}  // namespace

std::string someNetwork(Random& random) {
    return std::string(networks[static_cast<std::size_t>(random.between(0, networks.size() - 1))]);
}

std::string networkCode(const std::string& network) {
    const auto found = std::find(networks.begin(), networks.end(), network);
    return "9990" + std::to_string(found == networks.end() ? 1 : found - networks.begin() + 1);
}

std::string simIdentity(const SimAddress& at) { return "99901" + padded(at.port.slot() * simsPerPort + at.sim, 10); }

std::string imsi(const SimAddress& at) { return "999015550" + padded(at.port.slot() * simsPerPort + at.sim, 6); }

int Port::activeSim() const {
    for (int sim = 1; sim <= simsPerPort; ++sim) {
        if (sims[static_cast<std::size_t>(sim - 1)].state == simReady) return sim;
    }
    return 0;
}

void Port::obeyCellLock() {
    if (activeSim() == 0) return;
    const int lock = number(sim(activeSim()).settings.cellLock, 0, 1024).value_or(0);
    fixedBcch = lock != 0;
    if (fixedBcch) bcch = lock;
}

bool Port::inService() const {
    return module == '1' && activeSim() != 0 && (state == registeredHome || state == registeredRoaming);
}

Port* GatewayState::fittedPort(std::string_view digits) {
    const auto address = PortAddress::parse(digits);
    return address && port(*address).fitted() ? &port(*address) : nullptr;
}

GatewayState::GatewayState(Random& random, std::optional<std::chrono::sys_seconds> start)
    : clock(start.value_or(someTime(random))) {
    esn = "4" + padded(static_cast<int>(random.between(0, 9999999)), 7);
    for (Port& port : ports) port = somePort(random);
    // The first port is always in service, so that an operator finds something to look at.
    while (ports[0].sims[0].state != simReady) ports[0] = somePort(random);
    channels.fill(true);
    for (int& counter : isdnCounters) counter = static_cast<int>(random.between(0, 40));
    for (Port& port : ports) furnishSettings(port, random);
    Random own(random.between(0, 1'000'000));
    furnishRouting(routing, own);
    for (Port& port : ports) furnishStatistics(port, own);
    for (Port& port : ports) furnishCells(port, own);
}

}  // namespace simulator
