#pragma once

#include "simulator/station.h"

#include <string>
#include <vector>

namespace simulator {

// The console's end of a link in memory, on a clock that is turned by hand.
class ConsoleDouble {
public:
    explicit ConsoleDouble(Station& station) : far(station) {
        far.onOutput = [this](std::string_view bytes) { pieces.emplace_back(bytes); };
        far.onHangUp = [this] { ++hangUps; };
    }

    void send(const std::string& line) { far.receive(line + "\r"); }

    void advance(int ms) {
        time += std::chrono::milliseconds(ms);
        far.advanceTo(time);
    }

    // All that came since the last call.
    std::string taken() {
        std::string bytes;
        for (const std::string& piece : pieces) bytes += piece;
        pieces.clear();
        return bytes;
    }

    // What the station says to a line without any time going by.
    std::string ask(const std::string& line) {
        send(line);
        advance(0);
        return taken();
    }

    std::vector<std::string> pieces;
    int hangUps = 0;
    std::chrono::milliseconds time{0};

private:
    Station& far;
};

}  // namespace simulator
