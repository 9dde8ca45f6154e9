#pragma once

#include "simulator/scene.h"

namespace simulator {

// The system lamps, and the ports and channels that the gateway takes out of service for a while by itself.
class AlarmLife {
public:
    explicit AlarmLife(Scene& ofScene);

private:
    void startAlarm();
    void raiseLamp();
    void restPort();
    void restChannel();
    void tellPort(int slot);
    void tellChannel(int channel);

    Scene& scene;
};

}  // namespace simulator
