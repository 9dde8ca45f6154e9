#pragma once

#include <deque>

#include "fields/fields.h"
#include "model/status_reports.h"
#include "pages/page.h"

namespace trunvex {

// The page "tsl", as far as the gateway's reports move it by themselves: which B-channels and ports are in use, and how
// calls are allotted to them.
class RoutingPage final : public Page {
public:
    explicit RoutingPage(Session& session);

    std::deque<CheckField> chkTSLChannel;  // 32: channels 1 to 30 and the two reserved lines
    std::deque<TextField> txtTSLNumber;    // 32
    std::deque<CheckField> chkTSLPort;     // 32, by port number - 1
    std::deque<LabelField> lblTSLBch;      // 32
    std::deque<TextField> txtTSLPRF;       // 32
    CheckField chkTSLByPrefix{"chkTSLByPrefix", "By prefixes"};
    ChoiceField optTSLMode{"optTSLMode", {"Static", "Cyclic", "Random"}};
    LabelField lblAllocation{"lblAllocation"};  // the allocation mode in words, shown on the status board

private:
    void takeChannel(const ChannelReport& report);
    void takePort(const PortReport& report);
    void takeAllocation(const Fields& fields);
};

}  // namespace trunvex
