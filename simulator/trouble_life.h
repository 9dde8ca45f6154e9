#pragma once

#include "simulator/scene.h"

#include <array>

namespace simulator {

// What takes a port out of service for a while: its network, its SIM or its module fails, and comes back. Only
// a port without a call gets into trouble, and only one thing at a time happens to it; an operator who disables
// it changes nothing about that.
class TroubleLife {
public:
    explicit TroubleLife(Scene& ofScene);

private:
    void findPortsWithoutSim();
    void startTrouble();
    void loseNetwork(int slot);
    void failModule(int slot);
    void spoilSim(int slot);
    void pullSim(int slot);
    void tellAbsence(int slot, int sim);
    void insertSim(int slot, int sim);
    // From a SIM that is ready to a port in service.
    void signOn(int slot);
    void seekNetwork(int slot);
    void registerPort(int slot);

    void enter(int slot, int state);
    Sim& simOf(int slot, int sim) { return scene.port(slot).sims[static_cast<std::size_t>(sim - 1)]; }

    Scene& scene;
    std::array<int, portCount> absentSim{};  // which SIM a port without one misses
};

}  // namespace simulator
