#pragma once

#include <string>
#include <vector>

// What the table at the end of a run shows: a figure as a ratio to a peer measured in the same run.
namespace bench {

struct Ratio {
    std::string what;      // "cutting lines, to a bare memchr scan of the same bytes"
    std::string measured;  // name of the benchmark whose figure stands above the line
    std::string peer;      // and of the one below
    double target;         // what the ratio must reach
    bool atMost;           // the target is an upper bound
    // The ratio is of times (a smaller one is faster) or of rates.
    enum class Of { Rates, Times } of;
};

const std::vector<Ratio>& ratios();

}  // namespace bench
