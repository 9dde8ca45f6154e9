#include "simulator/socket_address.h"

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <stdexcept>

namespace simulator {

AddressList resolve(const std::string& host, const std::string& port, bool toListen) {
    addrinfo hints{};
    hints.ai_socktype = SOCK_STREAM;
    hints.ai_flags = AI_NUMERICSERV | (toListen ? AI_PASSIVE : 0);
    addrinfo* list = nullptr;
    if (const int failure = getaddrinfo(host.c_str(), port.c_str(), &hints, &list); failure != 0)
        throw std::runtime_error("host " + host + ": " + gai_strerror(failure));
    return {list, &freeaddrinfo};
}

std::string addressText(const sockaddr* address, socklen_t length) {
    char host[NI_MAXHOST];
    char port[NI_MAXSERV];
    if (getnameinfo(address, length, host, sizeof host, port, sizeof port, NI_NUMERICHOST | NI_NUMERICSERV) != 0)
        return "unknown";
    return std::string(host) + ":" + port;
}

void sendAtOnce(int socket) {
    const int on = 1;
    setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
}

}  // namespace simulator
