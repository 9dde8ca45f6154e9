#pragma once

#include "simulator/scene.h"

namespace simulator {

// What the radio side of a port in service tells: its signal, its cell, its network.
class RadioLife {
public:
    explicit RadioLife(Scene& ofScene);

private:
    void driftSignal(int slot);
    void changeCell(int slot);

    Scene& scene;
};

}  // namespace simulator
