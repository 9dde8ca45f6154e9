#include "simulator/routing_settings.h"

#include "simulator/random.h"

namespace simulator {

namespace {

constexpr std::array causesAsDelivered{"27", "27", "27", "27", "34", "41", "41", "34",
                                       "1",  "41", "41", "21", "34", "21", "1",  "31"};

}  // namespace

void furnishRouting(RoutingSettings& routing, Random& random) {
    for (int slot = 0; slot < portCount; ++slot)
        routing.ports[static_cast<std::size_t>(slot)] = {slot + 1, slot / 8 + 1};
    for (std::size_t channel = 0; channel < routing.numbers.size(); ++channel)
        routing.numbers[channel] = "5550" + padded(static_cast<int>(channel) + 1, 3);
    for (std::size_t i = 0; i < routing.causes.size(); ++i) routing.causes[i] = causesAsDelivered[i];
    routing.modifications = {{"00", "+"}, {"0", "+999"}};
    for (int row = 0; row < 24; ++row) {
        const auto group = std::to_string(random.between(1, 4));
        const auto other = std::to_string(random.between(1, 4));
        routing.prefixes.push_back(
            {"0" + std::to_string(50 + row / 2) + std::to_string(row % 2 * 5), group, other, "0"});
    }
    for (int row = 0; row < 12; ++row) {
        routing.fromGsm.rows.push_back({"999555" + padded(1200 + 7 * row, 5), row % 5 == 4 ? "0" : "1"});
        routing.fromIsdn.rows.push_back({"5550" + padded(100 + row, 3), row % 4 == 3 ? "0" : "1"});
    }
    for (int entry = 1; entry <= 9; ++entry)
        routing.directLines[entry] = {"999555" + padded(2000 + 11 * entry, 5), std::to_string(200 + entry),
                                      entry % 3 == 0 ? std::to_string(10 * entry) : ""};
}

}  // namespace simulator
