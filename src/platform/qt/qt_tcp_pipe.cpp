#include "platform/qt/qt_tcp_pipe.h"

namespace trunvex {

namespace {

// A socket is often closed from within its own signal, so it is destroyed when that is over.
void drop(std::unique_ptr<QTcpSocket> socket) {
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

}  // namespace

QtTcpPipe::~QtTcpPipe() { QtTcpPipe::close(); }

BytePipe::State QtTcpPipe::state() const {
    if (!socket_) return State::Closed;
    switch (socket_->state()) {
        case QAbstractSocket::ConnectedState:
            return State::Up;
        case QAbstractSocket::UnconnectedState:
            return State::Closed;
        default:
            return State::Opening;
    }
}

// What arrives and what fails is taken up from the loop, never within the socket's own signal: the console may open a
// box there, whose nested loop can see this socket closed and destroyed. The socket may be gone by then, so it is only
// compared, not asked.
void QtTcpPipe::adopt(std::unique_ptr<QTcpSocket> adopted) {
    socket_ = std::move(adopted);
    auto* socket = socket_.get();
    socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    connect(socket, &QTcpSocket::connected, this, [this] {
        socket_->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        if (onUp) onUp();
    });
    const auto take = [this, socket] { read(socket); };
    connect(socket, &QTcpSocket::readyRead, this, take, Qt::QueuedConnection);
    connect(
        socket, &QTcpSocket::errorOccurred, this,
        [this, socket](QAbstractSocket::SocketError error) { fail(socket, error); }, Qt::QueuedConnection);
    // What a caller sent before it was taken raises no signal any more.
    if (state() == State::Up) QMetaObject::invokeMethod(this, take, Qt::QueuedConnection);
}

void QtTcpPipe::read(const QTcpSocket* socket) {
    if (!socket_ || socket != socket_.get()) return;
    const auto bytes = socket_->readAll();
    if (onReceived && !bytes.isEmpty()) onReceived({bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

void QtTcpPipe::fail(const QTcpSocket* socket, QAbstractSocket::SocketError error) {
    if (!socket_ || socket != socket_.get()) return;
    const auto reason = socket_->errorString().toStdString();
    read(socket);
    if (!socket_ || socket != socket_.get()) return;  // what arrived last ended the session
    const bool hungUp = error == QAbstractSocket::RemoteHostClosedError;
    if (onLost) onLost({hungUp ? Loss::Cause::PeerClosed : Loss::Cause::Failed, reason});
}

void QtTcpPipe::close() {
    if (!socket_) return;
    socket_->disconnect(this);
    drop(std::move(socket_));
}

void QtTcpPipe::send(std::string_view bytes) {
    if (state() != State::Up) return;
    socket_->write(bytes.data(), static_cast<qint64>(bytes.size()));
    socket_->flush();  // or a command would wait for the loop's next turn
}

void QtTcpClient::open() {
    close();
    adopt(std::make_unique<QTcpSocket>());
    socket()->connectToHost(QString::fromStdString(target_.host), static_cast<quint16>(target_.port));
}

}  // namespace trunvex
