#pragma once

#include <netdb.h>
#include <sys/socket.h>
#include <memory>
#include <string>

namespace simulator {

using AddressList = std::unique_ptr<addrinfo, decltype(&freeaddrinfo)>;

// The addresses of a host and a port number. Throws std::runtime_error when the host is not known.
AddressList resolve(const std::string& host, const std::string& port, bool toListen);

// "HOST:PORT" in figures.
std::string addressText(const sockaddr* address, socklen_t length);

// Lines are short and each is wanted at once.
void sendAtOnce(int socket);

}  // namespace simulator
