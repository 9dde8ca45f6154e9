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

}  // namespace

RoutingPage::RoutingPage(Session& session) : Page(session, {"tsl", "Routing", "B-channel and port routing", Prefixes}) {
    for (int i = 0; i < lineCount; ++i) {
        chkTSLChannel.emplace_back(arrayName("chkTSLChannel", i));
        txtTSLNumber.emplace_back(arrayName("txtTSLNumber", i));
        chkTSLPort.emplace_back(arrayName("chkTSLPort", i));
        lblTSLBch.emplace_back(arrayName("lblTSLBch", i));
        txtTSLPRF.emplace_back(arrayName("txtTSLPRF", i));
    }
    for (const char* letters : {"SEL", "PRT", "BCH"})
        for (const char* origin : {"A_", "C_"})
            session.dispatcher.on(origin + std::string(letters), [&session, letters](const Record& record) {
                session.realTimeUpdate(letters, record.fields());
            });
    onReport<ChannelReport>(session.realTimeUpdate, "BCH", [this](const auto& report) { takeChannel(report); });
    onReport<PortReport>(session.realTimeUpdate, "PRT", [this](const auto& report) { takePort(report); });
    session.realTimeUpdate.on("SEL", [this](const Fields& fields) { takeAllocation(fields); });
}

void RoutingPage::takeChannel(const ChannelReport& report) {
    if (report.channel < 1 || report.channel > lineCount) return;
    const auto line = static_cast<std::size_t>(report.channel - 1);
    if (report.enabled) chkTSLChannel[line].setChecked(*report.enabled);
    if (report.number) txtTSLNumber[line].setText(escaped(*report.number));
}

// Of a record that ends before the channel only the flag is taken.
void RoutingPage::takePort(const PortReport& report) {
    const auto port = report.port.slot();
    if (report.enabled) chkTSLPort[port].setChecked(*report.enabled);
    if (!report.channel) return;
    lblTSLBch[port].setText(report.channel == "31"   ? "RESERVED1"
                            : report.channel == "32" ? "RESERVED2"
                                                     : "B-ch #" + escaped(*report.channel));
    txtTSLPRF[port].setText(std::to_string(val(report.prefix.value_or(""))));
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
