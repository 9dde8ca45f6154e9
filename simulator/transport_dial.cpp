#include "simulator/transport_dial.h"

#include <cerrno>

namespace simulator {

DialTransport::DialTransport(const std::string& host, const std::string& port)
    : list(resolve(host, port, false)), address(addressText(list->ai_addr, list->ai_addrlen)) {}

std::optional<std::chrono::milliseconds> DialTransport::nextTry() const {
    if (call) return std::nullopt;
    return next;
}

std::optional<Link> DialTransport::take(std::chrono::milliseconds now) {
    const bool there = call ? answered() : startCall();
    next = now + pause;
    if (!there) return std::nullopt;
    sendAtOnce(call.get());
    return Link{std::move(call), address};
}

// True when the console answered at once; else the call goes on, or has failed and is gone.
bool DialTransport::startCall() {
    call = Descriptor(::socket(list->ai_family, list->ai_socktype, list->ai_protocol));
    if (!call) return false;
    call.makeNonBlocking();
    if (connect(call.get(), list->ai_addr, list->ai_addrlen) == 0) return true;
    if (errno != EINPROGRESS) call.close();
    return false;
}

bool DialTransport::answered() {
    int failure = 0;
    socklen_t length = sizeof failure;
    if (getsockopt(call.get(), SOL_SOCKET, SO_ERROR, &failure, &length) == 0 && failure == 0) return true;
    call.close();
    return false;
}

}  // namespace simulator
