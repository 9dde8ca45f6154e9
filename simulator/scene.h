#pragma once

#include "simulator/agenda.h"
#include "simulator/gateway_state.h"
#include "simulator/life_rates.h"
#include "simulator/random.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace simulator {

struct Arguments {
    std::string first;
    std::string second;
    std::string third;
};

// What the parts of the gateway's life have in common: the state that they change, the dice, the agenda and a
// mouth. A part changes the state and reports the change in one go, so that a read never tells another story.
class Scene {
public:
    using Milliseconds = std::chrono::milliseconds;

    Scene(GatewayState& gatewayState, const LifeRates& lifeRates, std::uint64_t seed,
          std::function<void(std::string)> mouth);
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;

    GatewayState& state;
    const LifeRates rates;
    Random random;
    Agenda agenda;

    Port& port(int slot) { return state.ports[static_cast<std::size_t>(slot)]; }

    // A report about a port and its SIM in use, 0 when it has none.
    void report(int slot, int code, const Arguments& arguments = {});
    void reportSim(int slot, int sim, int code, const Arguments& arguments = {});
    // A report about the system. Its codes are texts: some have a leading zero.
    void reportSystem(std::string_view code, const Arguments& arguments = {});

    // A pause from least to most, both in ms.
    Milliseconds pause(int least, int most) { return Milliseconds(random.between(least, most)); }
    // Does it again and again with this mean pause; never when that is 0.
    void repeat(Milliseconds mean, std::function<void()> what);

    // Slot of a port for which this holds, any of them; nothing when there is none.
    std::optional<int> anyPort(const std::function<bool(const Port&)>& fits);
    // Any number from 1 to 30 of a B-channel that is enabled and carries no call.
    std::optional<int> anyFreeChannel();

private:
    std::optional<int> anyOf(const std::vector<int>& candidates);

    std::function<void(std::string)> say;
};

}  // namespace simulator
