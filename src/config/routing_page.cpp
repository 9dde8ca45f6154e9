#include "config/routing_page.h"

#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr int lineCount = 32;

struct Allocation {
    int code;
    bool byPrefix;
    int mode;
    const char* text;
};

constexpr Allocation allocations[] = {
    {0, false, 0, "Static allocation of B-channels and Ports"},
    {1, false, 1, "Cyclic allocation of B-channels and Ports"},
    {2, false, 2, "Random allocation of B-channels and Ports"},
    {5, true, 1, "By Prefixes Cyclic allocation of B-channels and Ports"},
    {6, true, 2, "By Prefixes Random allocation of B-channels and Ports"},
};

bool lowBit(std::string_view flag) { return (val(flag) & 1) != 0; }

}  // namespace

RoutingPage::RoutingPage(Session& session) : Page(session, {"tsl", "Routing", "B-channel and port routing", Prefixes}) {
    for (int i = 0; i < lineCount; ++i) {
        chkTSLChannel.emplace_back(arrayName("chkTSLChannel", i));
        txtTSLNumber.emplace_back(arrayName("txtTSLNumber", i));
        chkTSLPort.emplace_back(arrayName("chkTSLPort", i));
        lblTSLBch.emplace_back(arrayName("lblTSLBch", i));
        txtTSLPRF.emplace_back(arrayName("txtTSLPRF", i));
    }
    session.realTimeUpdate.on("BCH", [this](const Fields& fields) { takeChannel(fields); });
    session.realTimeUpdate.on("PRT", [this](const Fields& fields) { takePort(fields); });
    session.realTimeUpdate.on("SEL", [this](const Fields& fields) { takeAllocation(fields); });
}

// Channel number, flag, number.
void RoutingPage::takeChannel(const Fields& fields) {
    const auto channel = val(fields.at(0));
    if (channel < 1 || channel > lineCount) return;
    const auto line = static_cast<std::size_t>(channel - 1);
    chkTSLChannel.at(line).setChecked(lowBit(fields.at(1)));
    txtTSLNumber.at(line).setText(escaped(fields.at(2)));
}

// Address XY, flag, B-channel (31 and 32 are the reserved lines), prefix number.
void RoutingPage::takePort(const Fields& fields) {
    const auto port = PortAddress::parse(fields.at(0)).slot();
    chkTSLPort.at(port).setChecked(lowBit(fields.at(1)));
    const auto channel = fields.at(2);
    lblTSLBch.at(port).setText(channel == "31"   ? "RESERVED1"
                               : channel == "32" ? "RESERVED2"
                                                 : "B-ch #" + escaped(channel));
    txtTSLPRF.at(port).setText(std::to_string(val(fields.at(3))));
}

void RoutingPage::takeAllocation(const Fields& fields) {
    if (!isNumeric(fields.at(0))) return;
    for (const auto& allocation : allocations) {
        if (allocation.code != val(fields.at(0))) continue;
        chkTSLByPrefix.setChecked(allocation.byPrefix);
        optTSLMode.setIndex(allocation.mode);
        lblAllocation.setText(allocation.text);
    }
}

}  // namespace trunvex
