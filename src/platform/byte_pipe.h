#pragma once

#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>

namespace trunvex {

// A pipe that could not be opened. what() is a sentence for the operator: which device, why, what to do.
class LinkError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Why a pipe that was open, or about to be, is of no more use.
struct Loss {
    enum class Cause {
        PeerClosed,  // the far end hung up, however abruptly: no error of the link
        Failed,
        DsrChanged,
        DeviceGone,
    };
    Cause cause;
    std::string reason;  // for the operator, to follow the name of the far end: "Connection refused", "DSR fell"
};

// Bytes to and from one far end, whatever carries them. Its events come from the loop, never from within a call to the
// pipe; but for `onUp`, which open() may raise.
class BytePipe {
public:
    enum class State { Closed, Waiting /* for a caller */, Opening, Up };

    virtual ~BytePipe() = default;

    virtual State state() const = 0;
    // True for a pipe that waits to be called: what it loses is one caller, and open() waits for the next.
    virtual bool listens() const { return false; }
    // Who is at the far end, for the operator: "192.168.1.100 port 4001", "COM 3".
    virtual std::string farEnd() const = 0;

    // Calls, or waits for a caller, anew; a line of a device that is open is left as it is. Throws LinkError.
    virtual void open() = 0;
    // Ends whatever stands, after what was sent has been handed to the system. Raises no event.
    virtual void close() = 0;
    // Does nothing unless the pipe is up.
    virtual void send(std::string_view bytes) = 0;

    std::function<void(std::string_view bytes)> onReceived;
    std::function<void()> onUp;                    // the far end has taken the call
    std::function<void()> onCalled;                // a caller was taken; nobody else is until the pipe is opened anew
    std::function<void(const Loss& loss)> onLost;  // who is told closes the pipe, or opens it anew
};

// What a pipe leads to.
struct TcpTarget {
    std::string host;
    int port = 0;
};

struct ListenTarget {
    int port = 0;
};

struct SerialTarget {
    std::string settings{};  // "115200,n,8,1": rate, parity (n, e, o), data bits, stop bits
    int number = 1;          // 1 is "COM 1"
    int inBufferBytes = 0;
    int outBufferBytes = 0;
    bool rtsEnable = true;
    // Names the device behind a port number, or nothing; asked each time the line is opened.
    std::function<std::string(int number)> deviceOf;
};

using PipeTarget = std::variant<TcpTarget, ListenTarget, SerialTarget>;

// A serial device of this machine.
struct SerialDevice {
    std::string path;     // "/dev/ttyUSB0"
    std::string details;  // what the device says of itself; may be empty
};

}  // namespace trunvex
