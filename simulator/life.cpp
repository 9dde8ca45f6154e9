#include "simulator/life.h"

#include <utility>

namespace simulator {

Life::Life(GatewayState& state, const LifeRates& lifeRates, std::uint64_t seed, std::function<void(std::string)> say)
    : scene(state, lifeRates, seed,
            [this, say = std::move(say)](std::string line) {
                ++linesSince;
                say(std::move(line));
            }),
      calls(scene), radio(scene), trouble(scene), alarms(scene) {}

void Life::wake(Milliseconds now) {
    if (awake) return;
    awake = true;
    wokenAt = now;
    ownTimeThen = scene.agenda.now();
    linesSince = 0;
}

void Life::rest(Milliseconds now) {
    if (!awake) return;
    idleUntil(now);
    awake = false;
}

void Life::idleUntil(Milliseconds now) {
    if (!paced()) scene.agenda.idleUntil(ownTimeThen + (now - wokenAt));
}

void Life::resetPort(int slot, Milliseconds now) {
    idleUntil(now);
    calls.cut(slot);
    trouble.resetPort(slot);
}

void Life::advanceTo(Milliseconds now) {
    for (;;) {
        const auto due = nextDue();
        if (!due || *due > now) return;
        scene.agenda.doNext();
    }
}

// With a pace, line k is due k / pace after it woke, and what is planned next is done when the next line is due,
// however far off it was planned. An event of several lines is ahead of the pace by some of them.
std::optional<Life::Milliseconds> Life::nextDue() const {
    const auto planned = scene.agenda.nextDue();
    if (!awake || !planned) return std::nullopt;
    if (!paced()) return wokenAt + (*planned - ownTimeThen);
    const std::int64_t pace = scene.rates.linesPerSecond;
    return wokenAt + Milliseconds(((linesSince + 1) * 1000 + pace - 1) / pace);
}

}  // namespace simulator
