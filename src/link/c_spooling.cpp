#include "link/c_spooling.h"

#include "link/clock_text.h"
#include "platform/quietly.h"
#include "text/text_rules.h"

namespace trunvex {

namespace {

int portOf(std::string_view text) { return static_cast<int>(val(text)); }

}  // namespace

bool carriesPassword(std::string_view line) {
    return contains(line, "C_UPW") || contains(line, "C_CPW") || contains(line, "C_APW") || like(line, "*SRV*:PSW*");
}

CSpooling::CSpooling(Platform& platform, SessionState& session, ucProgress& panel, ActionField& connectButton)
    : platform_(platform), session_(session), panel_(panel), connectButton_(connectButton) {}

void CSpooling::InitCOM(const SerialTarget& target) { choose(target, Farewell::None); }

void CSpooling::InitNET(const std::string& host, std::string_view portText) {
    choose(TcpTarget{host, portOf(portText)}, Farewell::ToMasterPc);
}

void CSpooling::listenNET(std::string_view portText) { choose(ListenTarget{portOf(portText)}, Farewell::ToMasterPc); }

void CSpooling::choose(const PipeTarget& target, Farewell farewell) {
    if (pipe_) pipe_->close();
    ClearBuffer();
    // The pipe before is kept: this may be called behind a box that one of its own events has opened.
    former_ = std::exchange(pipe_, platform_.makePipe(target));
    farewell_ = farewell;
    pipe_->onReceived = [this](std::string_view bytes) {
        noteHeard();
        cutter_.feed(bytes, [this](std::string_view line) { AnalyzeCmd(line, true); });
    };
    pipe_->onUp = [this] {
        noteHeard();
        onSplAction_.emit(SocketConnected);
    };
    pipe_->onCalled = [this] { ConnectionRequest(); };
    pipe_->onLost = [this](const Loss& loss) { lost(loss); };
}

void CSpooling::FillBuffer() {
    if (!pipe_) return;
    quietly("FillBuffer", [this] {
        try {
            pipe_->open();
        } catch (const LinkError& error) {
            openFailed_.emit(error.what());
            if (pipe_->listens()) listenFailed_.emit();
            throw;
        }
        noteHeard();  // a serial line is up at once
        if (pipe_->state() != BytePipe::State::Waiting) return;
        panel_.setPanelText("Server status: Listening");
        connectButton_.setCaption("Stop server");
        panel_.StartServer();
    });
}

void CSpooling::SendCommand(std::string_view line, bool isError, bool localOnly) {
    quietly("SendCommand", [&] {
        if (!localOnly) {
            if (isConnected() && !line.empty()) {
                outgoing_.assign(line).push_back('\r');
                pipe_->send(outgoing_);
                noteAsked(line);
            }
            if (carriesPassword(line)) return;
        }
        sent_.emit(line, isError);
    });
}

void CSpooling::Disconnect() {
    ClearBuffer();  // what is left of the read in hand belongs to the session that ends
    if (!pipe_ || pipe_->state() == BytePipe::State::Closed) return;
    if (farewell_ == Farewell::ToMasterPc) SendCommand("SRV" + session_.gMasterSessionId + ":CLOSE");
    pipe_->close();
}

void CSpooling::noteHeard() {
    heard_ = platform_.clock().uptime();
    asked_.reset();
}

// Nobody answers an answer.
void CSpooling::noteAsked(std::string_view line) {
    if (!asked_ && !contains(line, ":PONG")) asked_ = platform_.clock().uptime();
}

std::optional<std::chrono::seconds> CSpooling::silence() const {
    constexpr std::chrono::seconds patience{30};
    const auto now = platform_.clock().uptime();
    if (!isConnected() || !asked_ || now - *asked_ < patience) return {};
    return std::chrono::floor<std::chrono::seconds>(now - heard_);
}

void CSpooling::ConnectionRequest() {
    noteHeard();
    ClearBuffer();
    peerCalled_.emit();
    panel_.StartProgress("connecting", 100, 5, 1);
}

// A link that never came up is no loss: what failed then is told as such.
bool CSpooling::tellLoss(const Loss& loss) {
    const bool up = loss.cause != Loss::Cause::Failed || session_.phase != SessionPhase::Connecting;
    if (!session_.sessionFlag || !up) return false;
    linkLost_.emit("The link to " + pipe_->farEnd() + " was lost at " + hourAndMinute(platform_.clock().localTime()) +
                   ": " + (loss.cause == Loss::Cause::PeerClosed ? "closed by the gateway" : loss.reason) + ".");
    return true;
}

void CSpooling::lost(const Loss& loss) {
    const bool told = tellLoss(loss);
    switch (loss.cause) {
        case Loss::Cause::PeerClosed:
            peerClosed();
            break;
        case Loss::Cause::Failed:
            if (!told) openFailed_.emit(pipe_->farEnd() + ": " + loss.reason);
            onSplAction_.emit(SocketError);
            break;
        case Loss::Cause::DsrChanged:
        case Loss::Cause::DeviceGone:
            onSplAction_.emit(DsrChanged);
            break;
    }
}

void CSpooling::peerClosed() {
    if (pipe_->listens()) {
        peerLeft_.emit();
        FillBuffer();
        return;
    }
    pipe_->close();
    onSplAction_.emit(SocketClosed);
}

}  // namespace trunvex
