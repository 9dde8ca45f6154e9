#include "simulator/trouble_life.h"

#include <utility>

namespace simulator {

namespace {

enum PortCode : int {
    cell = 15,
    networkRefused = 20,
    networkIdentity = 21,
    signalLevel = 25,
    pinRight = 27,
    pin2Right = 28,
    slaveVersion = 100,
};

constexpr int firstSimFault = 29;
constexpr int lastPinFault = 36;
constexpr int lastSimFault = 39;

bool concernsPin2(int fault) { return fault % 2 == 0; }

}  // namespace

TroubleLife::TroubleLife(Scene& ofScene) : scene(ofScene) {
    scene.repeat(scene.rates.troubleEvery, [this] { startTrouble(); });
    // Not before it has come to life: until then the gateway may be furnished.
    if (!scene.rates.off()) scene.agenda.in(Scene::Milliseconds{0}, [this] { findPortsWithoutSim(); });
}

// Nobody puts a SIM in: a port that starts without one stays so.
void TroubleLife::findPortsWithoutSim() {
    for (int slot = 0; slot < portCount; ++slot) {
        const Port& port = scene.port(slot);
        if (port.module != '1' || port.state != simAbsent) continue;
        absentSim[static_cast<std::size_t>(slot)] = 1;
        scene.agenda.in(scene.pause(0, static_cast<int>(scene.rates.absenceEvery.count())),
                        [this, slot] { tellAbsence(slot, 1); });
    }
}

void TroubleLife::startTrouble() {
    const auto slot = scene.anyPort([](const Port& port) { return port.inService() && !port.inCall(); });
    if (!slot) return;
    static constexpr std::array kinds{&TroubleLife::loseNetwork, &TroubleLife::loseNetwork, &TroubleLife::pullSim,
                                      &TroubleLife::pullSim,     &TroubleLife::spoilSim,    &TroubleLife::failModule};
    (this->*kinds[static_cast<std::size_t>(scene.random.between(0, kinds.size() - 1))])(*slot);
}

void TroubleLife::loseNetwork(int slot) {
    if (scene.random.chance(0.2)) scene.report(slot, networkRefused);
    enter(slot, unregistered);
    later(slot, scene.pause(2'000, 8'000), &TroubleLife::seekNetwork);
}

void TroubleLife::failModule(int slot) {
    enter(slot, moduleFault);
    later(slot, scene.pause(5'000, 15'000), [](TroubleLife& life, int port) {
        life.tellStart(port);
        life.signOn(port);
    });
}

void TroubleLife::tellStart(int slot) {
    scene.report(slot, starting);
    scene.report(slot, slaveVersion, {scene.port(slot).slaveVersion, {}, {}});
}

// What was to happen next to the module is forgotten, and with it the trouble of its network or its own. A SIM that is
// out or spoilt stays so.
void TroubleLife::resetPort(int slot) {
    ++serials[static_cast<std::size_t>(slot)];
    Port& port = scene.port(slot);
    tellStart(slot);
    if (port.activeSim() != 0) {
        port.state = starting;
        return later(slot, scene.pause(1'000, 3'000), &TroubleLife::signOn);
    }
    int sim = port.state == simAbsent ? absentSim[static_cast<std::size_t>(slot)] : 0;
    while (sim < simsPerPort && (sim == 0 || port.sim(sim).state != port.state)) ++sim;
    scene.reportSim(slot, sim, port.state);
}

// The identity of a CDMA module stays where it is; such a module can only fail as a whole.
void TroubleLife::spoilSim(int slot) {
    if (!scene.port(slot).takesSims()) return failModule(slot);
    const int sim = scene.port(slot).activeSim();
    const int fault = static_cast<int>(scene.random.between(firstSimFault, lastSimFault));
    simOf(slot, sim).state = fault;
    scene.port(slot).state = fault;
    scene.reportSim(slot, sim, fault);
    scene.agenda.in(scene.pause(5'000, 20'000), [this, slot, sim] { healSim(slot, sim); });
}

void TroubleLife::healSim(int slot, int sim) {
    const int fault = simOf(slot, sim).state;
    if (putOff(slot, fault, [this, slot, sim] { healSim(slot, sim); })) return;
    simOf(slot, sim).state = simReady;
    if (fault <= lastPinFault) scene.reportSim(slot, sim, concernsPin2(fault) ? pin2Right : pinRight);
    signOn(slot);
}

// A port that a reset has put into service with another SIM changes it between two calls, and not while it comes back.
bool TroubleLife::putOff(int slot, int state, std::function<void()> what) {
    const Port& port = scene.port(slot);
    if (port.state == state || (port.inService() && !port.inCall())) return false;
    scene.agenda.in(scene.pause(3'000, 6'000), std::move(what));
    return true;
}

void TroubleLife::pullSim(int slot) {
    if (!scene.port(slot).takesSims()) return failModule(slot);
    const int sim = scene.port(slot).activeSim();
    simOf(slot, sim).state = simAbsent;
    scene.port(slot).state = simAbsent;
    absentSim[static_cast<std::size_t>(slot)] = sim;
    tellAbsence(slot, sim);
    scene.agenda.in(scene.pause(10'000, 60'000), [this, slot, sim] { insertSim(slot, sim); });
    // The next SIM of the port takes over, if there is one.
    if (scene.port(slot).activeSim() == 0) return;
    later(slot, scene.pause(6'000, 9'000), [](TroubleLife& life, int port) {
        if (life.scene.port(port).state == simAbsent) life.signOn(port);
    });
}

// Says it every few seconds while the port waits for this SIM.
void TroubleLife::tellAbsence(int slot, int sim) {
    if (scene.port(slot).state != simAbsent || absentSim[static_cast<std::size_t>(slot)] != sim) return;
    scene.reportSim(slot, sim, simAbsent);
    scene.agenda.in(scene.rates.absenceEvery, [this, slot, sim] { tellAbsence(slot, sim); });
}

void TroubleLife::insertSim(int slot, int sim) {
    const Port& port = scene.port(slot);
    if (putOff(slot, simAbsent, [this, slot, sim] { insertSim(slot, sim); })) return;
    simOf(slot, sim).state = simReady;
    scene.reportSim(slot, sim, pinRight);
    // The port takes the first SIM that is ready, which may be another.
    if (sim != port.activeSim()) scene.reportSim(slot, sim, simReady);
    signOn(slot);
}

void TroubleLife::signOn(int slot) {
    enter(slot, simReady);
    later(slot, scene.pause(1'000, 3'000), &TroubleLife::seekNetwork);
}

void TroubleLife::seekNetwork(int slot) {
    enter(slot, registering);
    if (scene.random.chance(0.1)) {
        // The network takes it for help only, and it tries again.
        return later(slot, scene.pause(2'000, 6'000), [](TroubleLife& life, int port) {
            life.enter(port, emergencyOnly);
            life.later(port, life.scene.pause(2'000, 6'000), &TroubleLife::seekNetwork);
        });
    }
    later(slot, scene.pause(2'000, 6'000), &TroubleLife::registerPort);
}

void TroubleLife::registerPort(int slot) {
    Port& port = scene.port(slot);
    port.network = someNetwork(scene.random);
    port.signal = static_cast<int>(scene.random.between(8, 62));
    port.obeyCellLock();  // another SIM may have taken over
    scene.report(slot, networkIdentity, {port.network, {}, {}});
    scene.report(slot, cell, {std::to_string(port.bcch), port.fixedBcch ? "0" : "1", {}});
    scene.report(slot, signalLevel, {std::to_string(port.signal), {}, {}});
    enter(slot, scene.random.chance(0.85) ? registeredHome : registeredRoaming);
}

void TroubleLife::later(int slot, Scene::Milliseconds delay, std::function<void(TroubleLife&, int)> step) {
    const auto row = static_cast<std::size_t>(slot);
    scene.agenda.in(delay, [this, row, serial = serials[row], step = std::move(step)] {
        if (serials[row] == serial) step(*this, static_cast<int>(row));
    });
}

void TroubleLife::enter(int slot, int state) {
    scene.port(slot).state = state;
    scene.report(slot, state);
}

}  // namespace simulator
