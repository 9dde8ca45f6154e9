#pragma once

#include <QObject>
#include <QSerialPort>
#include <QTimer>

#include "platform/serial_port.h"

namespace trunvex {

class QtSerialPort : public QObject, public SerialPort {
public:
    explicit QtSerialPort(std::function<std::string(int number)> deviceOf);
    ~QtSerialPort() override;

    void setSettings(const std::string& settings) override { settings_ = settings; }
    void setCommPort(int number) override { number_ = number; }
    void setRTSEnable(bool enabled) override { rtsEnable_ = enabled; }
    void setBufferSizes(int inBytes, int outBytes) override;

    bool portOpen() const override { return port_.isOpen(); }
    void open() override;
    void close() override;
    void output(std::string_view bytes) override;

private:
    void applySettings();
    void watchDsr();
    std::string refusal(const std::string& device) const;

    std::function<std::string(int)> deviceOf_;
    std::string settings_ = "115200,n,8,1";
    int number_ = 1;
    bool rtsEnable_ = true;
    bool dsr_ = false;
    bool hasModemLines_ = false;
    QSerialPort port_;
    QTimer dsrWatch_;
};

}  // namespace trunvex
