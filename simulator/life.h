#pragma once

#include "simulator/alarm_life.h"
#include "simulator/call_life.h"
#include "simulator/radio_life.h"
#include "simulator/scene.h"
#include "simulator/trouble_life.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace simulator {

// What happens on the gateway by itself. It happens while a console is on the line and stands still without
// one: nobody could hear it, a console that comes after days finds the state that the last one left, and what
// is sent depends on the time of consoles alone.
class Life {
public:
    using Milliseconds = std::chrono::milliseconds;

    // say puts a report on the wire; the state must outlive this one.
    Life(GatewayState& state, const LifeRates& lifeRates, std::uint64_t seed, std::function<void(std::string)> say);

    // From this moment on it goes on, or stands still. Either may be said again.
    void wake(Milliseconds now);
    void rest(Milliseconds now);
    // The gateway starts anew: no call outlives that.
    void cutCalls() { calls.cutAll(); }
    // An operator resets this port; there must be a module, and life be awake.
    void resetPort(int slot, Milliseconds now);

    void advanceTo(Milliseconds now);
    std::optional<Milliseconds> nextDue() const;

private:
    void idleUntil(Milliseconds now);
    bool paced() const { return scene.rates.linesPerSecond > 0; }

    Scene scene;
    CallLife calls;
    RadioLife radio;
    TroubleLife trouble;
    AlarmLife alarms;

    bool awake = false;
    Milliseconds wokenAt{0};
    Milliseconds ownTimeThen{0};  // what the agenda showed when it woke
    std::int64_t linesSince = 0;  // it woke
};

}  // namespace simulator
