#include "simulator/radio_life.h"

#include <algorithm>

namespace simulator {

namespace {

enum PortCode : int { beforeHandover = 14, cell = 15, afterHandover = 17, networkIdentity = 21, signalLevel = 25 };

constexpr int strongest = 70;
constexpr int notKnown = 99;
constexpr int lastCell = 124;

}  // namespace

RadioLife::RadioLife(Scene& ofScene) : scene(ofScene) {
    const auto heard = [](const Port& port) { return port.inService(); };
    scene.repeat(scene.rates.signalEvery, [this, heard] {
        if (const auto slot = scene.anyPort(heard)) driftSignal(*slot);
    });
    scene.repeat(scene.rates.networkEvery, [this, heard] {
        if (const auto slot = scene.anyPort(heard)) changeCell(*slot);
    });
}

void RadioLife::driftSignal(int slot) {
    int& signal = scene.port(slot).signal;
    if (scene.random.chance(0.02))
        signal = notKnown;
    else if (signal == notKnown)
        signal = static_cast<int>(scene.random.between(0, strongest));
    else
        signal = std::clamp(signal + static_cast<int>(scene.random.between(-4, 4)), 0, strongest);
    scene.report(slot, signalLevel, {std::to_string(signal), {}, {}});
}

void RadioLife::changeCell(int slot) {
    Port& port = scene.port(slot);
    if (scene.random.chance(0.3)) return scene.report(slot, networkIdentity, {port.network, {}, {}});
    const bool handover = scene.random.chance(0.1);
    if (handover) scene.report(slot, beforeHandover);
    if (!port.fixedBcch) port.bcch = static_cast<int>(scene.random.between(1, lastCell));
    scene.report(slot, cell, {std::to_string(port.bcch), port.fixedBcch ? "0" : "1", {}});
    if (handover) scene.report(slot, afterHandover);
}

}  // namespace simulator
