#include "platform/qt/qt_tcp_socket.h"

#include "platform/serial_port.h"

namespace trunvex {

QtTcpSocket::~QtTcpSocket() { QtTcpSocket::close(); }

TcpSocket::State QtTcpSocket::state() const {
    if (socket_) {
        switch (socket_->state()) {
            case QAbstractSocket::ConnectedState:
                return State::Connected;
            case QAbstractSocket::UnconnectedState:
                return State::Closed;
            default:
                return State::Connecting;
        }
    }
    return server_ && server_->isListening() ? State::Listening : State::Closed;
}

void QtTcpSocket::connect(const std::string& host, int port) {
    close();
    peer_ = QString::fromStdString(host) + " port " + QString::number(port);
    adopt(new QTcpSocket);
    socket_->connectToHost(QString::fromStdString(host), static_cast<quint16>(port));
}

void QtTcpSocket::listen() {
    close();
    server_ = std::make_unique<QTcpServer>();
    QObject::connect(server_.get(), &QTcpServer::newConnection, this, [this] { announceRequest(); });
    if (!server_->listen(QHostAddress::Any, static_cast<quint16>(localPort_))) {
        const auto reason = server_->errorString();
        server_.reset();
        throw LinkError(("Can't listen on port " + QString::number(localPort_) + ": " + reason).toStdString());
    }
}

void QtTcpSocket::announceRequest() {
    auto* caller = server_->nextPendingConnection();
    if (!caller) return;
    caller->setParent(nullptr);  // outlives the listener, which accept() closes
    const int request = nextRequest_++;
    requests_[request].reset(caller);
    if (onConnectionRequest) onConnectionRequest(request);
    requests_.clear();  // whoever was not accepted is turned away
}

void QtTcpSocket::accept(int requestId) {
    auto request = requests_.find(requestId);
    if (request == requests_.end()) return;
    auto caller = std::move(request->second);
    requests_.erase(request);
    peer_ = caller->peerAddress().toString();
    adopt(caller.release());
    // What the caller sent before it was accepted raises no signal any more.
    QMetaObject::invokeMethod(
        this, [this, socket = socket_.get()] { read(socket); }, Qt::QueuedConnection);
}

// What arrives and what fails is taken up from the loop, never within the socket's own signal: the console may open a
// box there, whose nested loop can see this socket closed and destroyed. The socket may be gone by then, so it is only
// compared, not asked.
void QtTcpSocket::adopt(QTcpSocket* socket) {
    socket_.reset(socket);
    socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    QObject::connect(socket, &QTcpSocket::connected, this, [this] {
        socket_->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        if (onConnect) onConnect();
    });
    QObject::connect(
        socket, &QTcpSocket::readyRead, this, [this, socket] { read(socket); }, Qt::QueuedConnection);
    QObject::connect(socket, &QTcpSocket::bytesWritten, this, [this] {
        if (socket_ && socket_->bytesToWrite() == 0 && onSendComplete) onSendComplete();
    });
    QObject::connect(
        socket, &QTcpSocket::errorOccurred, this,
        [this, socket](QAbstractSocket::SocketError error) { fail(socket, error); }, Qt::QueuedConnection);
}

void QtTcpSocket::read(const QTcpSocket* socket) {
    if (!socket_ || socket != socket_.get()) return;
    const auto bytes = socket_->readAll();
    if (onDataArrival && !bytes.isEmpty()) onDataArrival({bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

// A peer that hangs up is no error of the link, however abruptly it does.
void QtTcpSocket::fail(const QTcpSocket* socket, QAbstractSocket::SocketError error) {
    if (!socket_ || socket != socket_.get()) return;
    const auto reason = socket_->errorString();
    read(socket);
    if (!socket_ || socket != socket_.get()) return;  // what arrived last ended the session
    if (error == QAbstractSocket::RemoteHostClosedError) {
        if (onClose) onClose();
        return;
    }
    if (onError) onError((peer_ + ": " + reason).toStdString());
}

// A socket is often closed from within its own signal, so it is destroyed when that is over.
void QtTcpSocket::drop(std::unique_ptr<QTcpSocket> socket) {
    if (!socket) return;
    socket->disconnect(this);
    auto* leaving = socket.release();
    if (leaving->state() == QAbstractSocket::ConnectedState && leaving->bytesToWrite() > 0) {
        QObject::connect(leaving, &QTcpSocket::disconnected, leaving, &QObject::deleteLater);
        leaving->flush();
        leaving->disconnectFromHost();
        if (leaving->state() != QAbstractSocket::UnconnectedState) return;
    } else {
        leaving->abort();
    }
    leaving->deleteLater();
}

void QtTcpSocket::close() {
    drop(std::move(socket_));
    if (server_) {
        server_->disconnect(this);
        server_->close();
        server_.release()->deleteLater();
    }
}

void QtTcpSocket::sendData(std::string_view bytes) {
    if (!socket_) return;
    socket_->write(bytes.data(), static_cast<qint64>(bytes.size()));
    socket_->flush();  // or a command would wait for the loop's next turn
}

}  // namespace trunvex
