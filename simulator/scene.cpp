#include "simulator/scene.h"

#include "simulator/fields.h"

#include <utility>

namespace simulator {

namespace {

std::string record(const std::string& index, std::string_view code, const Arguments& arguments) {
    return "I_ALR" + joinFields({index, std::string(code), arguments.first, arguments.second, arguments.third});
}

}  // namespace

Scene::Scene(GatewayState& gatewayState, const LifeRates& lifeRates, std::uint64_t seed,
             std::function<void(std::string)> mouth)
    : state(gatewayState), rates(lifeRates), random(seed), say(std::move(mouth)) {}

void Scene::report(int slot, int code, const Arguments& arguments) {
    reportSim(slot, port(slot).activeSim(), code, arguments);
}

void Scene::reportSim(int slot, int sim, int code, const Arguments& arguments) {
    say(record(PortAddress::ofSlot(slot).text() + std::to_string(sim), std::to_string(code), arguments));
}

void Scene::reportSystem(std::string_view code, const Arguments& arguments) { say(record("000", code, arguments)); }

void Scene::repeat(Milliseconds mean, std::function<void()> what) {
    if (mean.count() <= 0) return;
    const Milliseconds next(random.between(mean.count() / 2, mean.count() * 3 / 2));
    agenda.in(next, [this, mean, what = std::move(what)]() mutable {
        what();
        repeat(mean, std::move(what));
    });
}

std::optional<int> Scene::anyPort(const std::function<bool(const Port&)>& fits) {
    std::vector<int> candidates;
    for (int slot = 0; slot < portCount; ++slot) {
        if (fits(port(slot))) candidates.push_back(slot);
    }
    return anyOf(candidates);
}

std::optional<int> Scene::anyFreeChannel() {
    std::vector<int> candidates;
    for (int channel = 1; channel <= channelCount; ++channel) {
        const auto row = static_cast<std::size_t>(channel - 1);
        if (state.channels[row] && !state.bearers[row].slot) candidates.push_back(channel);
    }
    return anyOf(candidates);
}

std::optional<int> Scene::anyOf(const std::vector<int>& candidates) {
    if (candidates.empty()) return std::nullopt;
    return candidates[static_cast<std::size_t>(random.between(0, static_cast<std::int64_t>(candidates.size()) - 1))];
}

}  // namespace simulator
