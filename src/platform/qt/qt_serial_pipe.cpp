#include "platform/qt/qt_serial_pipe.h"

#include <poll.h>
#include <unistd.h>

#include <QStringList>

namespace trunvex {

namespace {

constexpr int dsrWatchMs = 250;  // the system tells of no change of the modem lines, so they are looked at
constexpr const char* deviceGone = "the device was pulled out, or its other end went away";

}  // namespace

QtSerialPipe::QtSerialPipe(SerialTarget target) : target_(std::move(target)) {
    dsrWatch_.setInterval(dsrWatchMs);
    connect(&dsrWatch_, &QTimer::timeout, this, [this] { watchDsr(); });
    // Taken up from the loop, not within the port's own signal, which is not raised again while a box is open in it.
    connect(
        &port_, &QSerialPort::readyRead, this,
        [this] {
            const auto bytes = port_.readAll();
            if (onReceived && !bytes.isEmpty()) onReceived({bytes.constData(), static_cast<std::size_t>(bytes.size())});
        },
        Qt::QueuedConnection);
    connect(
        &port_, &QSerialPort::errorOccurred, this,
        [this](QSerialPort::SerialPortError error) {
            if (error == QSerialPort::ResourceError && port_.isOpen()) lose(Loss::Cause::DeviceGone, deviceGone);
        },
        Qt::QueuedConnection);
}

QtSerialPipe::~QtSerialPipe() { QtSerialPipe::close(); }

void QtSerialPipe::applySettings() {
    const auto parts = QString::fromStdString(target_.settings).split(',');
    const auto part = [&](int index) { return parts.value(index).trimmed().toLower(); };
    port_.setBaudRate(part(0).toInt());
    port_.setParity(part(1) == "e"   ? QSerialPort::EvenParity
                    : part(1) == "o" ? QSerialPort::OddParity
                                     : QSerialPort::NoParity);
    port_.setDataBits(part(2) == "7" ? QSerialPort::Data7 : QSerialPort::Data8);
    port_.setStopBits(part(3) == "2" ? QSerialPort::TwoStop : QSerialPort::OneStop);
    port_.setFlowControl(QSerialPort::NoFlowControl);
    // Qt's output buffer has no bound; the input buffer only says when reading from the system pauses, and a burst of
    // status lines is larger than the classic sizes, so they are taken as a least size.
    constexpr int leastBytes = 65536;
    port_.setReadBufferSize(std::max(target_.inBufferBytes, leastBytes));
}

std::string QtSerialPipe::refusal(const std::string& device) const {
    const auto start = "Can't open " + farEnd() + " (" + device + "): ";
    switch (port_.error()) {
        case QSerialPort::PermissionError:
            if (::access(device.c_str(), R_OK | W_OK) != 0)
                return start + "no permission. Add your user to the group \"dialout\" and log in again.";
            return start + "another program holds it.";
        case QSerialPort::DeviceNotFoundError:
            return start + "there is no such device.";
        default:
            return start + port_.errorString().toStdString();
    }
}

void QtSerialPipe::open() {
    if (port_.isOpen()) return;
    const auto device = target_.deviceOf(target_.number);
    if (device.empty()) throw LinkError(farEnd() + " has no device: no serial port was found.");
    port_.setPortName(QString::fromStdString(device));
    applySettings();
    if (!port_.open(QIODevice::ReadWrite)) throw LinkError(refusal(device));
    port_.setRequestToSend(target_.rtsEnable);
    port_.clearError();
    dsr_ = port_.pinoutSignals().testFlag(QSerialPort::DataSetReadySignal);
    // A line without modem lines, such as a pseudo-terminal, answers with an error; only its hang-up is watched.
    hasModemLines_ = port_.error() == QSerialPort::NoError;
    port_.clearError();
    dsrWatch_.start();
}

void QtSerialPipe::close() {
    dsrWatch_.stop();
    if (!port_.isOpen()) return;
    port_.flush();
    port_.close();
}

void QtSerialPipe::send(std::string_view bytes) {
    if (port_.isOpen()) port_.write(bytes.data(), static_cast<qint64>(bytes.size()));
}

void QtSerialPipe::lose(Loss::Cause cause, std::string reason) {
    if (onLost) onLost({cause, std::move(reason)});
}

void QtSerialPipe::watchDsr() {
    pollfd line{port_.handle(), 0, 0};
    const bool gone = ::poll(&line, 1, 0) > 0 && (line.revents & (POLLHUP | POLLERR | POLLNVAL)) != 0;
    if (gone) {
        dsrWatch_.stop();
        lose(Loss::Cause::DeviceGone, deviceGone);
        return;
    }
    if (!hasModemLines_) return;
    const bool dsr = port_.pinoutSignals().testFlag(QSerialPort::DataSetReadySignal);
    if (dsr == dsr_) return;
    dsr_ = dsr;
    lose(Loss::Cause::DsrChanged, dsr ? "DSR rose" : "DSR fell");
}

}  // namespace trunvex
