#pragma once

#include <QObject>
#include <QSerialPort>
#include <QTimer>

#include "platform/byte_pipe.h"

namespace trunvex {

class QtSerialPipe : public QObject, public BytePipe {
public:
    explicit QtSerialPipe(SerialTarget target);
    ~QtSerialPipe() override;

    State state() const override { return port_.isOpen() ? State::Up : State::Closed; }
    std::string farEnd() const override { return "COM " + std::to_string(target_.number); }
    void open() override;
    void close() override;
    void send(std::string_view bytes) override;

private:
    void applySettings();
    void watchDsr();
    void lose(Loss::Cause cause, std::string reason);
    std::string refusal(const std::string& device) const;

    SerialTarget target_;
    bool dsr_ = false;
    bool hasModemLines_ = false;
    QSerialPort port_;
    QTimer dsrWatch_;
};

}  // namespace trunvex
