#pragma once

#include "simulator/socket_address.h"
#include "simulator/transport.h"

namespace simulator {

// Calls a console that works as server, at most once a second, until it is there, and again when it has left.
class DialTransport : public Transport {
public:
    static constexpr std::chrono::milliseconds pause{1000};

    // Throws std::runtime_error when the host is not known.
    DialTransport(const std::string& host, const std::string& port);

    std::string describe() const override { return "calling " + address; }
    pollfd waitsFor() const override { return {call.get(), POLLOUT, 0}; }
    std::optional<std::chrono::milliseconds> nextTry() const override;
    std::optional<Link> take(std::chrono::milliseconds now) override;

private:
    bool startCall();
    bool answered();

    AddressList list;
    std::string address;
    Descriptor call;  // the call that is not yet answered
    std::chrono::milliseconds next{0};
};

}  // namespace simulator
