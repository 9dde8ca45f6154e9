#pragma once

#include <QTcpServer>

#include "platform/qt/qt_tcp_pipe.h"

namespace trunvex {

// Waits for a caller and takes the first. The port is free while the caller stays, so a second one is refused.
class QtTcpListener : public QtTcpPipe {
public:
    explicit QtTcpListener(ListenTarget target) : port_(target.port) {}
    ~QtTcpListener() override;

    State state() const override { return server_ ? State::Waiting : QtTcpPipe::state(); }
    bool listens() const override { return true; }
    std::string farEnd() const override { return caller_.empty() ? "port " + std::to_string(port_) : caller_; }
    void open() override;
    void close() override;

private:
    void takeCaller();
    void stopListening();

    int port_;
    std::string caller_;  // the last, also when it has left
    std::unique_ptr<QTcpServer> server_;
};

}  // namespace trunvex
