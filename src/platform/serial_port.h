#pragma once

#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace trunvex {

// A transport that could not be opened. what() is a sentence for the operator: which device, why, what to do.
class LinkError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// A serial line, addressed by its port number: 1 is "COM 1".
class SerialPort {
public:
    virtual ~SerialPort() = default;

    // Line settings as "115200,n,8,1": rate, parity (n, e, o), data bits, stop bits. They, the port number and RTS take
    // effect when the port is opened.
    virtual void setSettings(const std::string& settings) = 0;
    virtual void setCommPort(int number) = 0;
    virtual void setRTSEnable(bool enabled) = 0;
    virtual void setBufferSizes(int inBytes, int outBytes) = 0;

    virtual bool portOpen() const = 0;
    virtual void open() = 0;  // throws LinkError
    virtual void close() = 0;
    virtual void output(std::string_view bytes) = 0;

    std::function<void(std::string_view bytes)> onReceive;
    std::function<void()> onDsrChange;  // the DSR line changed, or the device went away
};

// A serial device of this machine.
struct SerialDevice {
    std::string path;     // "/dev/ttyUSB0"
    std::string details;  // what the device says of itself; may be empty
};

}  // namespace trunvex
