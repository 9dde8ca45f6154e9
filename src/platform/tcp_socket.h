#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace trunvex {

// One TCP link: it either connects out, or listens and accepts one peer.
class TcpSocket {
public:
    enum class State { Closed = 0, Listening = 2, Connecting = 6, Connected = 7 };

    virtual ~TcpSocket() = default;

    virtual State state() const = 0;
    virtual void setLocalPort(int port) = 0;
    virtual void connect(const std::string& host, int port) = 0;
    virtual void listen() = 0;  // throws LinkError when the port can't be had
    // Takes the peer that onConnectionRequest announced; it stays valid across a close() of the listener.
    virtual void accept(int requestId) = 0;
    // Ends whatever stands, after what was sent has been handed to the system. Raises no event.
    virtual void close() = 0;
    virtual void sendData(std::string_view bytes) = 0;

    std::function<void()> onConnect;
    std::function<void(int requestId)> onConnectionRequest;
    std::function<void(std::string_view bytes)> onDataArrival;
    std::function<void()> onClose;                           // the peer closed
    std::function<void(const std::string& reason)> onError;  // the reason is a sentence for the operator
    std::function<void()> onSendComplete;
};

}  // namespace trunvex
