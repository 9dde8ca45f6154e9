#include "link/session_bring_up.h"

#include "link/clock_text.h"
#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr int inBufferBytes = 1024;
constexpr int outBufferBytes = 512;
constexpr int atOnceMs = 1;

// The words the panel was made with: the tick of a log-on is half the first, that of the receive run the second.
constexpr int panelWords[] = {100, 100, 100, 100, 50};

struct ConnectionSwitch {
    const char* kind;  // the session's kind that needs no switch
    const char* command;
    const char* followedBy;
};

constexpr ConnectionSwitch connectionSwitches[] = {
    {"COM", "C_COM", nullptr}, {"NET", "C_NET", nullptr}, {"MDM", "C_MDM1", "C_RSM"}};
constexpr int passwordsIndex = 3;
constexpr int resetIndex = 4;

}  // namespace

SessionBringUp::SessionBringUp(Platform& platform, Settings& settings, Settings& history, SessionState& session,
                               SessionEvents& events, CSpooling& spool, ucProgress& panel, ActionField& connectButton,
                               ReadQueue& reads, ReadQueue& refreshes, WriteQueue& writes)
    : platform_(platform), settings_(settings), history_(history), session_(session), events_(events), spool_(spool),
      panel_(panel), connectButton_(connectButton), reads_(reads), refreshes_(refreshes), writes_(writes),
      ports_(platform, settings) {
    panel_.SetTimeOut(panelWords[0], panelWords[1], panelWords[2], panelWords[3], panelWords[4]);
    panel_.stepped().connect([this](int mode, int value) { panelStep(mode, value); });
    panel_.ended().connect([this](int mode) { panelEnd(mode); });
    panel_.pauseBars().connect([this](bool pause) { refreshes_.bar.PauseProgress(pause, "write"); });
    spool_.onSplAction().connect([this](int action) { spoolAction(action); });
    spool_.peerCalled().connect([this] { setPhase(SessionPhase::Connecting); });
    spool_.peerLeft().connect([this] { peerLeft(); });
    spool_.listenFailed().connect([this] { listenLost(); });
    writes_.RecievingChange = [this] { RecievingChange(); };
    writes_.ended().connect([this](WriteQueue::Ending ending) { batchEnded(ending); });
}

void SessionBringUp::setPhase(SessionPhase phase) {
    if (session_.phase == phase) return;
    session_.phase = phase;
    events_.phaseChanged.emit();
}

void SessionBringUp::ConnectChange(std::string_view command, bool forced) {
    if (command == "connect") session_.sessionFlag = false;
    if (command == "disconnect") session_.sessionFlag = true;
    if (session_.sessionFlag) {
        tearDown();
        return;
    }
    ++session_.number;
    if (forced && !chooseLink()) {
        setPhase(SessionPhase::Idle);
        return;
    }
    if (!session_.server) {
        panel_.StartProgress("connecting");
        connectButton_.setCaption("Disconnect");
        armCallRecordTimer.emit();
    }
    session_.sessionFlag = true;
    setPhase(session_.server ? SessionPhase::Listening : SessionPhase::Connecting);
    spool_.FillBuffer();
}

void SessionBringUp::tearDown() {
    session_.sessionFlag = false;  // first, so that the end of a log-in batch is not taken for its success
    if (panel_.ProgressState == ucProgress::Backup) panel_.backupEnded().emit();
    endBatches();
    panel_.ProgressState = ucProgress::Write;
    panel_.EndProgress(ucProgress::Writing);
    panel_.StartProgress("disconnect");
    session_.gGotClock = false;
    session_.gGotActivePorts = false;
    session_.gGotESN = false;
    session_.firstDataFlag = false;
    events_.tornDown.emit();
    connectButton_.setCaption("Connect");
    spool_.Disconnect();
    forgetGateway();
    setPhase(SessionPhase::Idle);
}

void SessionBringUp::forgetGateway() {
    session_.gMasterSessionId.clear();
    session_.gAccessRights.clear();
    session_.gVersion.clear();
    session_.gActivePorts.clear();
    forgetESN(session_);
}

void SessionBringUp::endBatches() {
    reads_.abandon();
    refreshes_.abandon();
    writes_.abandon();
}

bool SessionBringUp::chooseLink() {
    frmConnectionSelect dialog(platform_.dialogs(), settings_, history_, ports_);
    setPhase(SessionPhase::Dialog);
    if (showConnectionDialog)
        showConnectionDialog(dialog);
    else
        dialog.cancel();
    if (dialog.kind() == "ERR") return false;
    session_.gConnType = dialog.kind();
    session_.password = dialog.txtPass.text();
    session_.workOnlyWithMonitor = dialog.chkReceivingMode.checked();
    dialog.save();
    bindLink(dialog);
    session_.gGotESN = false;
    return true;
}

void SessionBringUp::bindLink(frmConnectionSelect& dialog) {
    if (dialog.kind() == "NET") {
        session_.login = dialog.chkMasterLog.checked();
        session_.server = dialog.chkSERVER.checked();
        session_.unitID = dialog.txtUnitID.text();
        addressChosen.emit(dialog.txtIP.text(), dialog.txtPort.text());
        if (session_.server)
            spool_.listenNET(dialog.txtPort.text());
        else
            spool_.InitNET(dialog.txtIP.text(), dialog.txtPort.text());
        return;
    }
    session_.server = false;
    if (dialog.isModem()) {
        session_.optionalModemText = dialog.txtOptionalMdn.text();
        session_.gModemPhone = dialog.txtPhone.text();
    }
    spool_.InitCOM({.settings = dialog.rate() + ",n,8,1",
                    .number = dialog.portNumber(),
                    .inBufferBytes = inBufferBytes,
                    .outBufferBytes = outBufferBytes,
                    .deviceOf = [this](int number) { return ports_.deviceOf(number); }});
}

void SessionBringUp::dropSession() {
    if (session_.sessionFlag) ConnectChange("", true);
}

void SessionBringUp::identify(std::string_view esn) {
    const bool another = !session_.gESN.empty() && session_.gESN != esn;
    const bool stood = session_.phase == SessionPhase::Connected;
    if (another) leaveGateway(stood);
    takeESN(session_, esn);
    events_.identified.emit();
    session_.gGotESN = true;
    if (another && stood) RecievingChange();
}

// During a log-in the batch that runs is the log-in itself.
void SessionBringUp::leaveGateway(bool stood) {
    reads_.abandon();
    refreshes_.abandon();
    if (stood) writes_.abandon();
    session_.gGotClock = false;
    session_.gGotActivePorts = false;
    events_.tornDown.emit();
    session_.gVersion.clear();
    session_.gActivePorts.clear();
    events_.begun.emit();
    events_.started.emit();
}

void SessionBringUp::endedByGateway() {
    if (!session_.sessionFlag) return;
    spool_.linkLost().emit("The gateway ended the session at " + hourAndMinute(platform_.clock().localTime()) + ".");
    dropSession();
}

void SessionBringUp::RecievingChange() {
    if (!session_.sessionFlag) return;
    session_.gGotESN = false;
    connectButton_.setCaption("Disconnect");
    WriteBatch batch;
    batch.items = {command("C_CPW" + session_.password, "Login"), command("R_ESN", "Request ESN ID"),
                   command("R_CLK", "Request Time"), command("R_PPR", "Request Active ports")};
    batch.word = "start";
    batch.firstText = "send data : ";
    setPhase(SessionPhase::LogIn);
    events_.started.emit();
    writes_.begin(std::move(batch));
}

void SessionBringUp::StartLogin(std::string line, std::string expect, std::string caption, int timeoutMs) {
    WriteBatch batch;
    auto& item = batch.items.emplace_back(command(std::move(line), std::move(caption)));
    item.terms.letters = std::move(expect);
    item.terms.fedBack = false;  // a message to the master PC is no record
    batch.timeToWriteMs = timeoutMs;
    batch.firstText = "Connect : ";
    connectButton_.setCaption("Disconnect");
    setPhase(SessionPhase::LogIn);
    writes_.begin(std::move(batch));
}

void SessionBringUp::sessionStands() {
    panel_.StartProgress("connected");
    setPhase(SessionPhase::Connected);
}

// However the log-in batch ended, the session stands with what has come.
void SessionBringUp::batchEnded(WriteQueue::Ending ending) {
    if (ending == WriteQueue::Ending::Replaced) return;  // by another step of the log-in
    if (session_.phase != SessionPhase::LogIn || !session_.sessionFlag) return;
    standLoggedIn();
}

void SessionBringUp::standLoggedIn() {
    setPhase(SessionPhase::Connected);
    events_.loggedIn.emit(outcomeOf(session_));
}

void SessionBringUp::spoolAction(int action) {
    if (action == CSpooling::SocketClosed) {
        panel_.setPanelText("NET Disconnected");
        dropSession();
    } else if (action == CSpooling::DsrChanged) {
        dropSession();
    } else if (action == CSpooling::SocketError || action == CSpooling::Trouble) {
        connectionError();
    }
}

void SessionBringUp::connectionError() {
    spool_.Disconnect();
    ConnectChange("disconnect", true);
    panel_.setPanelText("Connection error");
    if (linkDialogOpen_) return;  // the box that is open already asks what to do
    linkDialogOpen_ = true;
    const auto answer = platform_.dialogs().ask({"Error: can't connect to the gateway ,please check your connection",
                                                 "Error", ButtonSet::RetryCancel, BoxIcon::Critical},
                                                untilNextConnection(session_));
    linkDialogOpen_ = false;
    if (!answer) return;
    if (answer == Button::Retry) {
        spool_.Disconnect();
        ConnectChange("connect", false);
        panel_.setPanelText("Retrying Connecting...");
    } else {
        panel_.StartProgress("disconnect");
        panel_.setPanelText("Connection failed");
    }
}

// The gateway hung up on a listening console: its session is over, the next call begins anew.
void SessionBringUp::peerLeft() {
    setPhase(SessionPhase::Listening);
    endBatches();
    panel_.EndProgress(panel_.ProgressMode);
    panel_.ProgressState = ucProgress::Write;
    session_.gGotESN = false;
    session_.gGotClock = false;
    session_.gGotActivePorts = false;
    session_.firstDataFlag = false;
    events_.tornDown.emit();
    forgetGateway();
}

// The port can't be listened on any more, and nobody will call.
void SessionBringUp::listenLost() {
    if (!session_.sessionFlag) return;
    tearDown();
    panel_.setPanelText("Connection failed");
}

void SessionBringUp::panelStep(int mode, int value) {
    switch (mode) {
        case ucProgress::Connecting:
            // What is left of the time to connect runs out at once, and its end finds the link up.
            if (spool_.isConnected()) panel_.setProgressSpeed(ucProgress::Connecting, atOnceMs);
            break;
        case ucProgress::Receive:
            receiveStep(value);
            break;
        default:
            break;
    }
}

void SessionBringUp::panelEnd(int mode) {
    panel_.pauseBars().emit(false);
    switch (mode) {
        case ucProgress::Connecting:
            connectingEnded();
            break;
        case ucProgress::Logon:
            sessionStands();
            break;
        case ucProgress::Receive:
            receiveEnded();
            break;
        default:
            break;
    }
}

void SessionBringUp::connectingEnded() {
    if (!spool_.isConnected()) {
        connectingTimedOut();
        return;
    }
    events_.started.emit();
    connectButton_.setCaption("Disconnect");
    connectButton_.setEnabled(true);
    if (session_.gConnType == "MDM")
        dialModem.emit();
    else if (panel_.ProgressState != ucProgress::Start || !writes_.running())
        logIn();
}

void SessionBringUp::logIn() {
    events_.begun.emit();
    RecievingChange();
}

void SessionBringUp::connectingTimedOut() {
    linkDialogOpen_ = true;
    const auto answer = platform_.dialogs().ask(
        {"Error: Time out, unable to connect to the gateway!!", "Error", ButtonSet::RetryCancel, BoxIcon::Critical},
        untilNextConnection(session_));
    linkDialogOpen_ = false;
    if (!answer) return;
    if (answer == Button::Retry) {
        setPhase(SessionPhase::Connecting);
        endBatches();  // a link that came up behind the box may have begun its log-in
        spool_.Disconnect();
        ConnectChange("connect", false);
        panel_.setPanelText("Retrying Connecting...");
    } else {
        dropSession();
        panel_.setPanelText("Connection failed");
    }
}

void SessionBringUp::rejectedByMaster() {
    setPhase(SessionPhase::Connecting);
    writes_.abandon();
    panel_.EndProgress(ucProgress::Writing);
    if (platform_.dialogs().ask({"Rejected by PC Master .", "rejected", ButtonSet::Ok, BoxIcon::Critical},
                                untilNextConnection(session_)))
        dropSession();
}

void SessionBringUp::cmdConSwitch(int index) {
    if (!spool_.isConnected()) {
        platform_.dialogs().info(notConnectedText);
        return;
    }
    if (!session_.sessionFlag) return;
    if (!spool_.mayWrite()) {
        writes_.refused().emit(noRightsText);
        return;
    }
    if (index == passwordsIndex) {
        openPasswords.emit();
        return;
    }
    if (index == resetIndex) {
        if (platform_.dialogs().agreed(
                Button::Yes,
                {"Are you sure you want to Reset the Gateway?", "Reset system", ButtonSet::YesNo, BoxIcon::Question, 2},
                forSession(session_)))
            spool_.SendCommand("C_RSM");
        return;
    }
    const auto& wanted = connectionSwitches[index];
    if (session_.gConnType == wanted.kind) {
        platform_.dialogs().info("no change in connection mode!!");
        return;
    }
    const bool agreed = platform_.dialogs().agreed(
        Button::Yes,
        {"Warning: if you change the connection mode your connection to the gateway will lose..!!\r\n"
         "Are you sure that you want to continue?",
         "Warning", ButtonSet::YesNo, BoxIcon::Warning, 2},
        forSession(session_));
    if (!agreed) return;
    spool_.SendCommand(wanted.command);
    if (wanted.followedBy) spool_.SendCommand(wanted.followedBy);
}

}  // namespace trunvex
