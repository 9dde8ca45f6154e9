#include "platform/qt/qt_tcp_listener.h"

namespace trunvex {

QtTcpListener::~QtTcpListener() { stopListening(); }

void QtTcpListener::open() {
    close();
    caller_.clear();
    auto server = std::make_unique<QTcpServer>();
    connect(server.get(), &QTcpServer::newConnection, this, [this] { takeCaller(); });
    if (!server->listen(QHostAddress::Any, static_cast<quint16>(port_)))
        throw LinkError("Can't listen on port " + std::to_string(port_) + ": " + server->errorString().toStdString());
    server_ = std::move(server);
}

void QtTcpListener::close() {
    stopListening();
    QtTcpPipe::close();
}

void QtTcpListener::takeCaller() {
    std::unique_ptr<QTcpSocket> caller(server_->nextPendingConnection());
    if (!caller) return;
    caller->setParent(nullptr);  // outlives the server
    stopListening();
    caller_ = caller->peerAddress().toString().toStdString();
    adopt(std::move(caller));
    if (onCalled) onCalled();
}

// The server is often left from within its own signal, so it is destroyed when that is over.
void QtTcpListener::stopListening() {
    if (!server_) return;
    server_->disconnect(this);
    server_->close();
    server_.release()->deleteLater();
}

}  // namespace trunvex
