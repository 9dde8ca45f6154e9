#include "platform/qt/qt_tcp_pipe.h"

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

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

// A line is watched when nobody speaks on it too: a gateway that lost its power or its cable says no good-bye. It
// counts as gone after a minute without a sign, or without one for what was sent.
void watchPeer(QTcpSocket& socket) {
    constexpr int idleS = 30;
    constexpr int betweenProbesS = 10;
    constexpr int probes = 3;
    constexpr int unheardMs = 60000;
    socket.setSocketOption(QAbstractSocket::LowDelayOption, 1);
    socket.setSocketOption(QAbstractSocket::KeepAliveOption, 1);
    const auto file = static_cast<int>(socket.socketDescriptor());
    for (const auto& [option, value] : {std::pair{TCP_KEEPIDLE, idleS},
                                        {TCP_KEEPINTVL, betweenProbesS},
                                        {TCP_KEEPCNT, probes},
                                        {TCP_USER_TIMEOUT, unheardMs}})
        ::setsockopt(file, IPPROTO_TCP, option, &value, sizeof value);
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
    if (state() == State::Up) watchPeer(*socket);
    connect(socket, &QTcpSocket::connected, this, [this] {
        watchPeer(*socket_);
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
