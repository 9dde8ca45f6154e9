#pragma once

#include <string_view>

namespace trunvex {

// What the queues need of the link.
class CommandSender {
public:
    virtual bool isConnected() const = 0;
    // False while the line is the session's own: it dials, comes up or logs in, and nobody else begins a batch.
    virtual bool free() const = 0;
    // False in a session to which the gateway gave no rights: it refuses whatever would change something.
    virtual bool mayWrite() const = 0;
    // Sends the bare line; the terminator is added here. On a link that is down nothing happens: the queues find out
    // by their time-out. `isError` only colours the line in the debug console; `localOnly` shows it without sending.
    virtual void SendCommand(std::string_view line, bool isError = false, bool localOnly = false) = 0;

protected:
    ~CommandSender() = default;
};

inline constexpr const char* lineNotFreeText = "The console is still logging in. Try again when it is connected.";
inline constexpr const char* noRightsText =
    "The gateway did not accept the password, so nothing can be written. Connect again with the right one.";

}  // namespace trunvex
