// The dormant receive watchdog of the bring-up: a run in which the log-in's requests are repeated until the session
// is known. No flow starts it today; a flow that does needs only StartProgress("receive").
#include "link/session_bring_up.h"
#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr int passwordEveryTicks = 50;
constexpr int requestEveryTicks = 5;
constexpr int nearlyAtOnceMs = 10;

}  // namespace

void SessionBringUp::receiveStep(int value) {
    if (session_.gAccessRights.empty()) {
        if (value % passwordEveryTicks == 0) spool_.SendCommand("C_CPW" + session_.password);
    } else if (val(session_.gAccessRights) == 0) {
        wrongPassword();
        return;
    }
    if (session_.gGotESN && session_.gGotClock && session_.gGotActivePorts) {
        panel_.setProgressSpeed(ucProgress::Receive, nearlyAtOnceMs);
        return;
    }
    if (value % requestEveryTicks != 0) return;
    if (!session_.gGotESN)
        spool_.SendCommand("R_ESN");
    else
        spool_.SendCommand(session_.gGotClock ? "R_PPR" : "R_CLK");
}

// The gateway may yet tell who it is behind the box.
Ticket SessionBringUp::whileItLasts() const {
    return Ticket::of([this] { return std::pair(session_.number, session_.sessionFlag); });
}

void SessionBringUp::wrongPassword() {
    const auto session = whileItLasts();
    {
        const ucProgress::Hold hold(panel_);
        platform_.dialogs().tell({"Error Password !", "err", ButtonSet::Ok, BoxIcon::Critical});
    }
    if (!session.good()) return;
    panel_.EndProgress(ucProgress::Receive);
    ConnectChange("disconnect", true);
}

void SessionBringUp::receiveEnded() {
    if (!session_.gGotESN) {
        const auto answer = platform_.dialogs().ask({"Error:unable to receive data from the gateway!!", "Error",
                                                     ButtonSet::AbortRetryIgnore, BoxIcon::Critical},
                                                    whileItLasts());
        if (!answer) return;
        if (answer == Button::Abort) {
            ConnectChange("disconnect", true);
            panel_.setPanelText("Receiving failed");
            return;
        }
        if (answer == Button::Retry) {
            RecievingChange();
            panel_.setPanelText("Retrying Receiving...");
            return;
        }
    }
    panel_.StartProgress("connected");
    standLoggedIn();
}

}  // namespace trunvex
