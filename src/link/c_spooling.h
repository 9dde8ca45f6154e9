#pragma once

#include <sigc++/sigc++.h>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "fields/fields.h"
#include "fields/uc_progress.h"
#include "link/line_cutter.h"
#include "link/session_state.h"
#include "platform/platform.h"
#include "queues/command_sender.h"

namespace trunvex {

inline constexpr int defaultNetPort = 4001;
inline constexpr const char* defaultRemoteHost = "192.168.1.100";

// The line layer between the byte pipe and the rest of the program: callers choose a link, open, send, test and close
// through it, and every complete received line goes to `AnalyzeCmd`. What carries the bytes matters here only where a
// link is chosen.
class CSpooling final : public CommandSender {
public:
    // What the link trouble events mean to the main window.
    enum Action {
        SocketConnected = 1,
        SocketClosed = 2,  // by the peer, client mode
        SocketError = 3,
        DsrChanged = 6,
        Trouble = 7,  // handled like SocketError
    };

    CSpooling(Platform& platform, SessionState& session, ucProgress& panel, ActionField& connectButton);

    // Choose the link, which stays chosen until another is; one that is open is closed first. Nothing is opened here.
    void InitCOM(const SerialTarget& target);
    // The port is the number at the front of the text.
    void InitNET(const std::string& host, std::string_view portText);
    void listenNET(std::string_view portText);
    // Opens the link: calls, waits for a caller, or opens the device. What keeps it from opening is told through
    // `openFailed`; the connect time-out takes the session on from there.
    void FillBuffer();
    bool isConnected() const override { return pipe_ && pipe_->state() == BytePipe::State::Up; }
    bool free() const override {
        return session_.phase != SessionPhase::Connecting && session_.phase != SessionPhase::LogIn;
    }
    bool mayWrite() const override { return outcomeOf(session_) != LogInOutcome::WithoutRights; }
    // For how long nothing was heard, once a line has waited 30 s for any byte to follow it; else none.
    std::optional<std::chrono::seconds> silence() const;
    void SendCommand(std::string_view line, bool isError = false, bool localOnly = false) override;
    void ClearBuffer() { cutter_.clear(); }
    void Disconnect();

    std::function<void(std::string_view line, bool show)> AnalyzeCmd;
    sigc::signal<void(int action)>& onSplAction() { return onSplAction_; }
    // Server mode: the gateway hung up; the line listens again.
    sigc::signal<void()>& peerLeft() { return peerLeft_; }
    // Server mode: a gateway calls.
    sigc::signal<void()>& peerCalled() { return peerCalled_; }
    // Server mode: the port can't be listened on.
    sigc::signal<void()>& listenFailed() { return listenFailed_; }
    // Why a link did not open or broke, as a sentence for the operator.
    sigc::signal<void(const std::string& reason)>& openFailed() { return openFailed_; }
    // The link of a session broke by itself: which, when and why, as a sentence for the operator.
    sigc::signal<void(const std::string& what)>& linkLost() { return linkLost_; }
    // A line that was sent and may be shown: lines with a password are not among them.
    sigc::signal<void(std::string_view line, bool isError)>& sent() { return sent_; }

private:
    enum class Farewell { None, ToMasterPc };

    void choose(const PipeTarget& target, Farewell farewell);
    void ConnectionRequest();
    void lost(const Loss& loss);
    void peerClosed();
    void noteHeard();
    void noteAsked(std::string_view line);
    bool tellLoss(const Loss& loss);

    Platform& platform_;
    SessionState& session_;
    ucProgress& panel_;
    ActionField& connectButton_;
    std::unique_ptr<BytePipe> pipe_;
    std::unique_ptr<BytePipe> former_;
    Farewell farewell_ = Farewell::None;
    std::string outgoing_;  // kept between sends so that a send needs no memory of its own
    LineCutter cutter_;
    std::chrono::milliseconds heard_{0};              // uptime of the last byte, or of the call that was taken
    std::optional<std::chrono::milliseconds> asked_;  // and of the first line sent since
    sigc::signal<void(int)> onSplAction_;
    sigc::signal<void()> peerLeft_;
    sigc::signal<void()> peerCalled_;
    sigc::signal<void()> listenFailed_;
    sigc::signal<void(const std::string&)> openFailed_;
    sigc::signal<void(const std::string&)> linkLost_;
    sigc::signal<void(std::string_view, bool)> sent_;
};

// True for the lines that carry a password in clear, to the gateway or to a master PC: they are never shown.
bool carriesPassword(std::string_view line);

}  // namespace trunvex
