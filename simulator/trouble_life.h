#pragma once

#include "simulator/scene.h"

#include <array>
#include <functional>

namespace simulator {

// What takes a port out of service for a while: its network, its SIM or its module fails, and comes back. Only
// a port without a call gets into trouble, and only one thing at a time happens to it; an operator who disables
// it changes nothing about that.
class TroubleLife {
public:
    explicit TroubleLife(Scene& ofScene);

    // The module starts anew. Its port must be without a call.
    void resetPort(int slot);

private:
    void findPortsWithoutSim();
    void startTrouble();
    void loseNetwork(int slot);
    void failModule(int slot);
    void tellStart(int slot);
    void spoilSim(int slot);
    void healSim(int slot, int sim);
    void pullSim(int slot);
    void tellAbsence(int slot, int sim);
    void insertSim(int slot, int sim);
    // From a SIM that is ready to a port in service.
    void signOn(int slot);
    void seekNetwork(int slot);
    void registerPort(int slot);

    // Plans it for later and says true, unless the port is in this state, or in service without a call.
    bool putOff(int slot, int state, std::function<void()> what);
    // Does it unless the port was reset by then.
    void later(int slot, Scene::Milliseconds delay, std::function<void(TroubleLife&, int)> step);
    void enter(int slot, int state);
    Sim& simOf(int slot, int sim) { return scene.port(slot).sims[static_cast<std::size_t>(sim - 1)]; }

    Scene& scene;
    std::array<unsigned, portCount> serials{};  // of the resets
    std::array<int, portCount> absentSim{};     // which SIM a port without one misses
};

}  // namespace simulator
