#include "monitor/sim_status.h"

#include "text/text_rules.h"

namespace trunvex {

frmSimStatus::frmSimStatus(Dispatcher& dispatcher, SessionState& session, SessionBringUp& bringUp,
                           RealTimeUpdate& realTimeUpdate, ReadQueue& reads) {
    dispatcher.esnReceived.connect([this, &session] { lblESN.setText(escaped(session.gESN)); });
    realTimeUpdate.on("CLK", [this](const Fields& fields) { takeClock(fields); });
    reads.onComplete("R_MON", [this](const std::string&) { holdsData = true; });
    bringUp.tornDown.connect([this] {
        for (auto* label : {&lblHoure, &lblMinute, &lblSecond, &lblDate}) label->setText("");
        lblESN.setText("");
        holdsData = false;
    });
}

// The board shows the clock as it came: the seconds stay empty when the gateway does not tell them.
void frmSimStatus::takeClock(const Fields& fields) {
    lblHoure.setText(escaped(fields.at(4)));
    lblMinute.setText(escaped(fields.at(5)));
    const auto second = fields.at(6);
    lblSecond.setText(second == endMark ? std::string() : escaped(second));
    lblDate.setText(escaped(std::string(fields.at(0)) + "/" + std::string(fields.at(1)) + "/" +
                            std::string(fields.at(2))));
}

}  // namespace trunvex
