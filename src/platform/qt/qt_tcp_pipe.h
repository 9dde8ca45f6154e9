#pragma once

#include <QObject>
#include <QTcpSocket>
#include <memory>

#include "platform/byte_pipe.h"

namespace trunvex {

// A pipe over one TCP socket; how that comes about is for the classes below.
class QtTcpPipe : public QObject, public BytePipe {
public:
    ~QtTcpPipe() override;

    State state() const override;
    void close() override;
    void send(std::string_view bytes) override;

protected:
    // Takes the socket as the pipe's own. It may be connected already.
    void adopt(std::unique_ptr<QTcpSocket> socket);
    QTcpSocket* socket() { return socket_.get(); }

private:
    void read(const QTcpSocket* socket);
    void fail(const QTcpSocket* socket, QAbstractSocket::SocketError error);

    std::unique_ptr<QTcpSocket> socket_;
};

// Calls a host.
class QtTcpClient : public QtTcpPipe {
public:
    explicit QtTcpClient(TcpTarget target) : target_(std::move(target)) {}

    std::string farEnd() const override { return target_.host + " port " + std::to_string(target_.port); }
    void open() override;

private:
    TcpTarget target_;
};

}  // namespace trunvex
