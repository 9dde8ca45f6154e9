#pragma once

#include <QObject>
#include <QTcpServer>
#include <QTcpSocket>
#include <map>
#include <memory>

#include "platform/tcp_socket.h"

namespace trunvex {

class QtTcpSocket : public QObject, public TcpSocket {
public:
    ~QtTcpSocket() override;

    State state() const override;
    void setLocalPort(int port) override { localPort_ = port; }
    void connect(const std::string& host, int port) override;
    void listen() override;
    void accept(int requestId) override;
    void close() override;
    void sendData(std::string_view bytes) override;

private:
    void adopt(QTcpSocket* socket);
    void drop(std::unique_ptr<QTcpSocket> socket);
    void announceRequest();
    void read(const QTcpSocket* socket);
    void fail(const QTcpSocket* socket, QAbstractSocket::SocketError error);

    int localPort_ = 0;
    int nextRequest_ = 1;
    QString peer_;  // "host port n", for the operator
    std::unique_ptr<QTcpServer> server_;
    std::unique_ptr<QTcpSocket> socket_;
    std::map<int, std::unique_ptr<QTcpSocket>> requests_;
};

}  // namespace trunvex
