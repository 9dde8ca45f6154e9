#include "monitor/isdn_counters.h"

#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr const char* resetLine = "C_ILS";

// A number loses its padding; what is none is shown as it came.
std::string counterText(std::string_view field) {
    const auto text = trim(field);
    return isWhole(text) ? std::to_string(val(text)) : escaped(text);
}

}  // namespace

IsdnCounters::IsdnCounters(Session& session, BoardOperations& operations) : session_(session), operations_(operations) {
    for (std::size_t i = 0; i < captions.size(); ++i)
        lblIsdnStatus.emplace_back(arrayName("lblIsdnStatus", static_cast<int>(i)));
    session.dispatcher.on("A_ILS", [this](const Record& record) { take(record.fields()); });
    session.events.begun.connect([this] { setAll(""); });
    cmdIsdnRefresh.pressed().connect([this] {
        if (operations_.mayAsk()) operations_.send("R_ILS");
    });
    cmdResetIsdn.pressed().connect([this] { reset(); });
    session.writes.settled().connect([this](const QueueItem& item, WriteQueue::Outcome outcome) {
        if (item.Key == resetLine && outcome != WriteQueue::Outcome::Accepted) setAll("");
    });
}

void IsdnCounters::take(const Fields& fields) {
    for (std::size_t i = 0; i < lblIsdnStatus.size() && fields.at(i) != endMark; ++i)
        lblIsdnStatus[i].setText(counterText(fields.at(i)));
}

void IsdnCounters::setAll(const char* text) {
    for (auto& label : lblIsdnStatus) label.setText(text);
}

void IsdnCounters::reset() {
    if (!operations_.mayChange()) return;
    setAll("0");
    WriteBatch batch;
    batch.items.push_back(command(resetLine, "Reset ISDN status counter"));
    batch.items.back().terms.fedBack = false;
    session_.writes.start(std::move(batch));
}

}  // namespace trunvex
