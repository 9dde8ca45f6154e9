#include "simulator/transport_listen.h"

#include "simulator/socket_address.h"

#include <cerrno>
#include <stdexcept>

namespace simulator {

ListenTransport::ListenTransport(const std::string& host, const std::string& port) {
    const AddressList list = resolve(host, port, true);
    socket = Descriptor(::socket(list->ai_family, list->ai_socktype, list->ai_protocol));
    if (!socket) failWithErrno("socket");
    socket.makeNonBlocking();
    const int on = 1;
    setsockopt(socket.get(), SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    if (bind(socket.get(), list->ai_addr, list->ai_addrlen) != 0 || listen(socket.get(), 4) != 0) {
        if (errno == EADDRINUSE)
            throw std::runtime_error("port " + port + " of " + host + " is in use by another program");
        failWithErrno("cannot listen on " + host + ":" + port);
    }
    sockaddr_storage bound{};
    socklen_t length = sizeof bound;
    getsockname(socket.get(), reinterpret_cast<sockaddr*>(&bound), &length);
    address = addressText(reinterpret_cast<sockaddr*>(&bound), length);
}

std::optional<Link> ListenTransport::take(std::chrono::milliseconds) {
    sockaddr_storage peer{};
    socklen_t length = sizeof peer;
    Descriptor console(accept(socket.get(), reinterpret_cast<sockaddr*>(&peer), &length));
    if (!console) return std::nullopt;
    console.makeNonBlocking();
    sendAtOnce(console.get());
    return Link{std::move(console), addressText(reinterpret_cast<sockaddr*>(&peer), length)};
}

}  // namespace simulator
