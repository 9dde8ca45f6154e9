#pragma once

#include <cstdint>
#include <random>

namespace simulator {

// Dice that fall the same way for a seed on every machine. The standard distributions do not promise that, so
// the figures are taken from the generator directly.
class Random {
public:
    explicit Random(std::uint64_t seed) : engine(seed) {}

    // least to most, both included; least when the range is empty.
    std::int64_t between(std::int64_t least, std::int64_t most) {
        if (most <= least) return least;
        const auto span = static_cast<std::uint64_t>(most - least) + 1;
        return least + static_cast<std::int64_t>(engine() % span);
    }

    // True with this probability. A probability of 0 or 1 throws no dice, so that switching one fault on does
    // not change what the others do.
    bool chance(double probability) {
        if (probability <= 0.0) return false;
        if (probability >= 1.0) return true;
        return static_cast<double>(engine() >> 11) * 0x1.0p-53 < probability;
    }

private:
    std::mt19937_64 engine;
};

}  // namespace simulator
