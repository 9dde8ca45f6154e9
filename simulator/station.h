#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string_view>

namespace simulator {

// The far end of the console's link: the gateway itself or a master PC in front of it. It knows neither the
// transport nor real time. Whoever runs it hands in the bytes and the time and carries the output away.
//
// Nothing leaves from within receive(): an answer is due at the earliest at the time of its command and
// leaves with the next advanceTo(), so a caller in memory is never called back while it sends.
class Station {
public:
    virtual ~Station() = default;

    // A console is on the line, or has left it. Both forget half a line and all that was to be sent.
    virtual void linkUp() = 0;
    virtual void linkDown() = 0;

    // Bytes of the console, cut anywhere. They count as arrived at the time of the last advanceTo().
    virtual void receive(std::string_view bytes) = 0;

    // Time since the station was made; it never goes back. Sends what is due by then, each piece by one
    // onOutput.
    virtual void advanceTo(std::chrono::milliseconds now) = 0;

    // When advanceTo() has something to do next; nothing when only the console can bring news.
    virtual std::optional<std::chrono::milliseconds> nextDue() const = 0;

    std::function<void(std::string_view bytes)> onOutput;
    // The station drops the link. It takes nothing more until the next linkUp().
    std::function<void()> onHangUp;
};

}  // namespace simulator
