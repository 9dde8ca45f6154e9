#pragma once

#include "simulator/transport.h"

namespace simulator {

// Waits for consoles on a TCP port. A second one stays in the queue of the port until the first has left.
class ListenTransport : public Transport {
public:
    // Throws std::runtime_error with a word for the operator.
    ListenTransport(const std::string& host, const std::string& port);

    std::string describe() const override { return "listening on " + address; }
    pollfd waitsFor() const override { return {socket.get(), POLLIN, 0}; }
    std::optional<std::chrono::milliseconds> nextTry() const override { return std::nullopt; }
    std::optional<Link> take(std::chrono::milliseconds now) override;

private:
    Descriptor socket;
    std::string address;
};

}  // namespace simulator
