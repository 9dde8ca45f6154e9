#pragma once

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

#include <atomic>
#include <stdexcept>
#include <string>
#include <thread>

namespace bench {

// A gateway that answers each read "R_xyz" with "A_xyz" at once, from a thread of its own, over loopback.
class EchoGateway {
public:
    EchoGateway() {
        listener_ = ::socket(AF_INET, SOCK_STREAM, 0);
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        if (::bind(listener_, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 ||
            ::listen(listener_, 4) != 0)
            throw std::runtime_error("can't listen on loopback");
        socklen_t size = sizeof address;
        ::getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &size);
        port_ = ntohs(address.sin_port);
        thread_ = std::thread([this] { serve(); });
    }
    ~EchoGateway() {
        ::shutdown(listener_, SHUT_RDWR);
        ::close(listener_);
        thread_.join();
    }
    int port() const { return port_; }

private:
    void serve() {
        for (int peer = ::accept(listener_, nullptr, nullptr); peer >= 0;
             peer = ::accept(listener_, nullptr, nullptr)) {
            const int on = 1;
            ::setsockopt(peer, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
            char bytes[4096];
            std::string line;
            for (ssize_t got = ::read(peer, bytes, sizeof bytes); got > 0; got = ::read(peer, bytes, sizeof bytes)) {
                line.append(bytes, static_cast<std::size_t>(got));
                for (auto end = line.find('\r'); end != std::string::npos; end = line.find('\r')) {
                    line[0] = 'A';
                    if (::write(peer, line.data(), end + 1) < 0) break;
                    line.erase(0, end + 1);
                }
            }
            ::close(peer);
        }
    }

    int listener_ = -1;
    int port_ = 0;
    std::thread thread_;
};

}  // namespace bench
