#pragma once

#include <sigc++/sigc++.h>

#include <functional>
#include <string>
#include <string_view>

#include "fields/fields.h"
#include "fields/uc_progress.h"
#include "link/line_cutter.h"
#include "link/session_state.h"
#include "platform/serial_port.h"
#include "platform/tcp_socket.h"
#include "queues/command_sender.h"

namespace trunvex {

inline constexpr int defaultNetPort = 4001;
inline constexpr const char* defaultRemoteHost = "192.168.1.100";

// The line layer between the transports and the rest of the program: callers open, send, test and close through it
// without knowing which transport it is, and every complete received line goes to `AnalyzeCmd`.
class CSpooling final : public CommandSender {
public:
    // What the link trouble events mean to the main window.
    enum Action {
        SocketConnected = 1,
        SocketClosed = 2,  // by the peer, client mode
        SocketError = 3,
        SocketSent = 4,
        DsrChanged = 6,
        Trouble = 7,  // handled like SocketError
    };

    CSpooling(SessionState& session, ucProgress& panel, ActionField& connectButton);

    // Binds the serial line; a port that is open is closed first. Nothing is opened here.
    void InitCOM(SerialPort& serial, const std::string& settings, int portNumber, int inBufferSize, int outBufferSize);
    // Binds the socket. The port is the number at the front of the text.
    void InitNET(TcpSocket& socket, const std::string& host, std::string_view portText);
    // Opens the transport: connects, listens in server mode, or opens the serial port. What keeps it from opening is
    // told through `openFailed`; the connect time-out takes the session on from there.
    void FillBuffer();
    bool isConnected() const override;
    bool free() const override {
        return session_.phase != SessionPhase::Connecting && session_.phase != SessionPhase::LogIn;
    }
    void SendCommand(std::string_view line, bool isError = false, bool localOnly = false) override;
    void ClearBuffer();
    void Disconnect();

    // Polled reader of single characters for a link whose lines end with CR LF: the first line goes to
    // `onNumLineFill` whole, each later one without its first character, the line feed.
    void readBufLine(char character);

    std::function<void(std::string_view line, bool show)> AnalyzeCmd;
    sigc::signal<void(int action)>& onSplAction() { return onSplAction_; }
    // Server mode: the gateway hung up; the line listens again.
    sigc::signal<void()>& peerLeft() { return peerLeft_; }
    // Server mode: a gateway calls.
    sigc::signal<void()>& peerCalled() { return peerCalled_; }
    // Server mode: the port can't be listened on.
    sigc::signal<void()>& listenFailed() { return listenFailed_; }
    sigc::signal<void(const std::string& line)>& onNumLineFill() { return onNumLineFill_; }
    // Why a transport did not open or broke, as a sentence for the operator.
    sigc::signal<void(const std::string& reason)>& openFailed() { return openFailed_; }
    // A line that was sent and may be shown: lines with a password are not among them.
    sigc::signal<void(std::string_view line, bool isError)>& sent() { return sent_; }

private:
    enum class Kind { None, Serial, Net };

    void received(std::string_view bytes);
    void openNet();
    void openSerial();
    void ConnectionRequest(int requestId);
    void socketClosed();

    SessionState& session_;
    ucProgress& panel_;
    ActionField& connectButton_;
    Kind kind_ = Kind::None;
    SerialPort* objMsCom_ = nullptr;
    TcpSocket* objWskNET_ = nullptr;
    std::string remoteHost_ = defaultRemoteHost;
    int remotePort_ = defaultNetPort;
    std::string outgoing_;  // kept between sends so that a send needs no memory of its own
    LineCutter cutter_;
    std::string polledLine_;
    bool firstPolledLine_ = true;
    sigc::signal<void(int)> onSplAction_;
    sigc::signal<void()> peerLeft_;
    sigc::signal<void()> peerCalled_;
    sigc::signal<void()> listenFailed_;
    sigc::signal<void(const std::string&)> onNumLineFill_;
    sigc::signal<void(const std::string&)> openFailed_;
    sigc::signal<void(std::string_view, bool)> sent_;
};

// True for the lines that carry a password in clear, to the gateway or to a master PC: they are never shown.
bool carriesPassword(std::string_view line);

}  // namespace trunvex
