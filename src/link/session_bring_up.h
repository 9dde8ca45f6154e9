#pragma once

#include <sigc++/sigc++.h>

#include <functional>
#include <string>
#include <string_view>

#include "fields/uc_progress.h"
#include "link/c_spooling.h"
#include "link/connection_dialog.h"
#include "link/session_events.h"
#include "link/session_state.h"
#include "platform/platform.h"
#include "platform/settings.h"
#include "queues/read_queue.h"
#include "queues/write_queue.h"

namespace trunvex {

// Takes the console from no link to a logged-in session and back: the switch of the connect button, the log-in batch,
// every dialog of a connection that fails, and the panel's events that drive them.
class SessionBringUp {
public:
    SessionBringUp(Platform& platform, Settings& settings, Settings& history, SessionState& session,
                   SessionEvents& events, CSpooling& spool, ucProgress& panel, ActionField& connectButton,
                   ReadQueue& reads, ReadQueue& refreshes, WriteQueue& writes);

    // "connect" brings up, "disconnect" tears down, an empty command does whichever the session flag asks for.
    // `forced` shows the connection dialog first; without it the last choice stays in force, as a retry wants.
    void ConnectChange(std::string_view command, bool forced);
    // Starts the log-in: C_CPW, R_ESN, R_CLK, R_PPR, one at a time. Only in a session.
    void RecievingChange();
    // A batch of one item, such as the answer to a master PC.
    void StartLogin(std::string line, std::string expect, std::string caption, int timeoutMs);
    // The buttons that change how the gateway itself connects: 0 serial, 1 TCP, 2 modem, 3 passwords, 4 reset.
    void cmdConSwitch(int index);

    // The link is gone or the gateway ended the session: tears down if there is a session, otherwise nothing.
    void dropSession();
    void endedByGateway();
    void rejectedByMaster();
    // The gateway has told its serial number. One that is not that of the session so far is another gateway's: what was
    // known, asked and edited was for the one before, and the console logs in anew.
    void identify(std::string_view esn);
    // The session is logged in as far as it will be.
    void sessionStands();

    // The dormant receive watchdog: its step at tick `value`, and its end.
    void receiveStep(int value);
    void receiveEnded();

    SessionPhase phase() const { return session_.phase; }

    // Shows the connection dialog and returns when it is closed; the screens fill it in.
    std::function<void(frmConnectionSelect& dialog)> showConnectionDialog;
    sigc::signal<void(const std::string& host, const std::string& port)> addressChosen;  // a valid TCP entry
    sigc::signal<void()> dialModem;  // the port to the modem is open
    sigc::signal<void()> armCallRecordTimer;
    sigc::signal<void()> openPasswords;

private:
    void tearDown();
    void leaveGateway(bool stood);
    void endBatches();
    bool chooseLink();
    void bindLink(frmConnectionSelect& dialog);
    void spoolAction(int action);
    void connectionError();
    void peerLeft();
    void listenLost();
    void forgetGateway();
    void panelStep(int mode, int value);
    void panelEnd(int mode);
    void connectingEnded();
    void connectingTimedOut();
    void logIn();
    void standLoggedIn();
    void batchEnded(WriteQueue::Ending ending);
    void setPhase(SessionPhase phase);
    Ticket whileItLasts() const;
    void wrongPassword();

    Platform& platform_;
    Settings& settings_;
    Settings& history_;
    SessionState& session_;
    SessionEvents& events_;
    CSpooling& spool_;
    ucProgress& panel_;
    ActionField& connectButton_;
    ReadQueue& reads_;
    ReadQueue& refreshes_;
    WriteQueue& writes_;
    SerialPortMap ports_;
    bool linkDialogOpen_ = false;
};

}  // namespace trunvex
