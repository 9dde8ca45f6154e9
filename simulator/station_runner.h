#pragma once

#include "simulator/station.h"
#include "simulator/transport.h"

#include <functional>
#include <string>

namespace simulator {

// Runs a station in real time over a transport, one console after the other, on the calling thread.
class StationRunner {
public:
    // Both must outlive the runner. tell gets a line for the operator when a console comes or goes.
    StationRunner(Station& ofStation, Transport& overTransport, std::function<void(const std::string&)> tell);

    // Called after each turn of the loop.
    std::function<void()> afterTurn;

    // Returns when the descriptor `stop` can be read.
    void run(int stop);

private:
    // A console that does not read while this many bytes wait for it has left.
    static constexpr std::size_t mostPending = 8u << 20;

    std::chrono::milliseconds now() const;
    int patience() const;
    void turn(short events);
    void welcome();
    void readLink();
    void send(std::string_view bytes);
    void flush();
    void lose(const std::string& why);

    Station& station;
    Transport& transport;
    std::function<void(const std::string&)> tellOperator;
    const std::chrono::steady_clock::time_point started = std::chrono::steady_clock::now();
    std::optional<Link> link;
    std::string pending;
};

}  // namespace simulator
