#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "text/split.h"

namespace trunvex {

// Moves a record that has just been stored to whatever screen shows it, at once, whether or not anyone asked. The
// subsystems say by key ("CLK", "PRT", "ALR", ...) which of their fields follow it.
class RealTimeUpdate {
public:
    using Handler = std::function<void(const Fields& fields)>;

    void on(std::string key, Handler handler);

    // Runs every handler of the key, in the order they were added. Each runs under its own error trap: a field that is
    // missing or no number ends that screen's update, and the model keeps what was stored.
    void operator()(std::string_view key, const Fields& fields) const;

private:
    std::vector<std::pair<std::string, Handler>> handlers_;
};

}  // namespace trunvex
