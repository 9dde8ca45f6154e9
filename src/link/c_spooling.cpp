#include "link/c_spooling.h"

#include "platform/quietly.h"
#include "text/text_rules.h"

namespace trunvex {

bool carriesPassword(std::string_view line) {
    return contains(line, "C_UPW") || contains(line, "C_CPW") || contains(line, "C_APW") || like(line, "*SRV*:PSW*");
}

CSpooling::CSpooling(SessionState& session, ucProgress& panel, ActionField& connectButton)
    : session_(session), panel_(panel), connectButton_(connectButton) {}

void CSpooling::InitCOM(SerialPort& serial, const std::string& settings, int portNumber, int inBufferSize,
                        int outBufferSize) {
    objMsCom_ = &serial;
    if (serial.portOpen()) serial.close();
    ClearBuffer();
    serial.setRTSEnable(true);
    serial.setSettings(settings);
    serial.setCommPort(portNumber);
    serial.setBufferSizes(inBufferSize, outBufferSize);
    serial.onReceive = [this](std::string_view bytes) { received(bytes); };
    serial.onDsrChange = [this] { onSplAction_.emit(DsrChanged); };
    kind_ = Kind::Serial;
}

void CSpooling::InitNET(TcpSocket& socket, const std::string& host, std::string_view portText) {
    objWskNET_ = &socket;
    ClearBuffer();
    remoteHost_ = host;
    remotePort_ = static_cast<int>(val(portText));
    socket.onConnect = [this] { onSplAction_.emit(SocketConnected); };
    socket.onConnectionRequest = [this](int requestId) { ConnectionRequest(requestId); };
    socket.onDataArrival = [this](std::string_view bytes) { received(bytes); };
    socket.onClose = [this] { socketClosed(); };
    socket.onError = [this](const std::string& reason) {
        openFailed_.emit(reason);
        onSplAction_.emit(SocketError);
    };
    socket.onSendComplete = [this] { onSplAction_.emit(SocketSent); };
    kind_ = Kind::Net;
}

void CSpooling::FillBuffer() {
    quietly("FillBuffer", [this] {
        try {
            if (kind_ == Kind::Net) openNet();
            if (kind_ == Kind::Serial) openSerial();
        } catch (const LinkError& error) {
            openFailed_.emit(error.what());
            if (kind_ == Kind::Net) listenFailed_.emit();
            throw;
        }
    });
}

void CSpooling::openNet() {
    if (objWskNET_->state() != TcpSocket::State::Closed) objWskNET_->close();
    if (!session_.server) {
        objWskNET_->connect(remoteHost_, remotePort_);
        return;
    }
    objWskNET_->setLocalPort(remotePort_);
    objWskNET_->listen();
    panel_.setPanelText("Server status: Listening");
    connectButton_.setCaption("Stop server");
    panel_.StartServer();
}

void CSpooling::openSerial() {
    if (!objMsCom_->portOpen()) objMsCom_->open();
}

bool CSpooling::isConnected() const {
    if (kind_ == Kind::Net) return objWskNET_->state() == TcpSocket::State::Connected;
    if (kind_ == Kind::Serial) return objMsCom_->portOpen();
    return false;
}

void CSpooling::SendCommand(std::string_view line, bool isError, bool localOnly) {
    quietly("SendCommand", [&] {
        if (!localOnly) {
            if (isConnected() && !line.empty()) {
                outgoing_.assign(line).push_back('\r');
                if (kind_ == Kind::Net)
                    objWskNET_->sendData(outgoing_);
                else
                    objMsCom_->output(outgoing_);
            }
            if (carriesPassword(line)) return;
        }
        sent_.emit(line, isError);
    });
}

void CSpooling::ClearBuffer() {
    cutter_.clear();
    polledLine_.clear();
    firstPolledLine_ = true;
}

void CSpooling::Disconnect() {
    ClearBuffer();  // what is left of the read in hand belongs to the session that ends
    if (kind_ == Kind::Net) {
        if (objWskNET_->state() == TcpSocket::State::Closed) return;
        SendCommand("SRV" + session_.gMasterSessionId + ":CLOSE");
        objWskNET_->close();
    } else if (kind_ == Kind::Serial && objMsCom_->portOpen()) {
        objMsCom_->close();
    }
}

void CSpooling::received(std::string_view bytes) {
    cutter_.feed(bytes, [this](std::string_view line) { AnalyzeCmd(line, true); });
}

void CSpooling::ConnectionRequest(int requestId) {
    if (objWskNET_->state() != TcpSocket::State::Closed) objWskNET_->close();
    ClearBuffer();
    objWskNET_->accept(requestId);
    peerCalled_.emit();
    panel_.StartProgress("connecting", 100, 5, 1);
}

void CSpooling::socketClosed() {
    if (session_.server) {
        peerLeft_.emit();
        FillBuffer();
        return;
    }
    objWskNET_->close();
    onSplAction_.emit(SocketClosed);
}

void CSpooling::readBufLine(char character) {
    if (character != '\r') {
        polledLine_ += character;
        return;
    }
    const auto line = std::exchange(polledLine_, {});
    const bool first = std::exchange(firstPolledLine_, false);
    onNumLineFill_.emit(first ? line : std::string(mid(line, 2)));
}

}  // namespace trunvex
