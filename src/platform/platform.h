#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/clock.h"
#include "platform/database.h"
#include "platform/dialogs.h"
#include "platform/printer.h"
#include "platform/serial_port.h"
#include "platform/tcp_socket.h"
#include "platform/timer.h"
#include "platform/tray.h"

namespace trunvex {

// Everything the console needs from the machine it runs on. Tests hand in one with a clock turned by hand.
class Platform {
public:
    virtual ~Platform() = default;

    virtual std::unique_ptr<Timer> makeTimer(std::function<void()> onTick) = 0;
    virtual Clock& clock() = 0;
    // `deviceOf` names the device behind a port number, or nothing; it is asked each time the port is opened.
    virtual std::unique_ptr<SerialPort> makeSerialPort(std::function<std::string(int number)> deviceOf) = 0;
    virtual std::vector<SerialDevice> serialDevices() = 0;
    virtual std::unique_ptr<TcpSocket> makeTcpSocket() = 0;
    virtual Dialogs& dialogs() = 0;
    virtual Printer& printer() = 0;
    virtual Tray& tray() = 0;
    virtual DatabaseEngine& databases() = 0;
};

}  // namespace trunvex
