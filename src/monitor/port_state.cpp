#include "monitor/port_state.h"

#include <stdexcept>

#include "platform/quietly.h"
#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr int beingSetUp = 4;
constexpr int connected = 8;

enum StatusField {
    Address = 0,
    State = 1,
    FirstSim = 2,
    BcchMode = 10,
    Signal = 11,
    Network = 12,
    Flags = 13,
    Bcch = 14
};

}  // namespace

PortState::PortState(Session& session, SharedTables& tables, PortDetection& detection, SettingsRecords& records,
                     frmSimStatus& board)
    : board_(board), tables_(tables), realTimeUpdate_(session.realTimeUpdate) {
    session.dispatcher.on("A_STS", [this, &session](const Record& record) {
        quietly("updateSTS", [&] { updateSTS(record.fields()); });
        session.refreshes.settle();
        session.state.gStatusSeen = true;
    });
    session.records.simAlarm.connect([this](const Fields& record) { takeSimAlarm(record); });
    for (auto* told : {&detection.portsDetected, &records.kindsChanged})
        told->connect([this] {
            UpdateCDMA();
            takeKinds();
        });
    for (auto* event : {&session.events.begun, &session.events.tornDown}) event->connect([this] { takeKinds(); });
}

void PortState::updateSTS(const Fields& record) {
    // The end mark is no field.
    const struct {
        const Fields& all;
        std::string_view at(std::size_t index) const {
            if (index + 1 >= all.size()) throw std::out_of_range("snapshot too short");
            return all.at(index);
        }
    } fields{record};
    const auto address = fields.at(Address);
    getIndexs(address).at(1);  // throws for an address that is not two digits
    std::string_view sim = "0";
    std::string_view talked;
    for (std::size_t slot = 0; slot < 4; ++slot) {
        if (fields.at(FirstSim + 2 * slot) != "40") continue;
        sim = std::string_view("1234").substr(slot, 1);
        talked = fields.at(FirstSim + 2 * slot + 1);
        break;
    }
    // The events that follow one another share their arguments; only those that ignore them see old ones.
    std::string_view first;
    std::string_view second;
    const auto raise = [&](std::string_view code) {
        Fields event;
        const auto third = std::string_view();
        for (const auto text : {address.substr(0, 1), address.substr(1, 1), sim, code, first, second, third})
            event.add(text);
        board_.UpdateSimStatus("ALR", event);
    };
    const auto state = fields.at(State);
    raise(state);
    first = fields.at(Signal);
    raise("25");
    first = fields.at(Bcch);
    second = fields.at(BcchMode);
    raise("15");
    if (sim == "0") return;
    first = talked;
    raise("104");
    const auto code = val(state);
    if (code == 21 || code == 23 || code == 50) {
        first = fields.at(Network);
        raise("21");
    }
    raise("40");
    const auto flags = val(fields.at(Flags));
    if (flags & beingSetUp) {
        raise("3");
    } else if (flags & connected) {
        first = talked;
        raise("104");
        raise("4");
    }
}

void PortState::takeSimAlarm(const Fields& record) {
    const auto number = [&](std::size_t field) { return static_cast<int>(val(record.at(field))); };
    auto& sim = tables_.sim({{number(0), number(1)}, number(2)});
    switch (val(record.at(3))) {
        case 21:
            sim.network = escaped(record.at(4));
            break;
        case 22:
            sim.network = "REGISTERATION";
            break;
        case 23:
            sim.network = "REGISTERED";
            break;
        case 24:
            sim.network = "UNREGISTERED";
            break;
        case 40: {
            Fields ready;
            for (std::size_t i = 0; i < 3; ++i) ready.add(record.at(i));
            ready.add("1");
            realTimeUpdate_("SIM", ready);
            break;
        }
        default:
            break;
    }
}

void PortState::takeKinds() {
    for (const auto port : everyPort) board_.cell(port.number()).kind = tables_.port(port).Kind;
    board_.hardwareChanged.emit();
}

void PortState::UpdateCDMA() {
    for (const auto port : everyPort) {
        if (trim(tables_.port(port).Kind) != "CDM") continue;
        auto& cell = board_.cell(port.number());
        cell.lblNetBCCH.setText("CDMA");
        cell.lblNetBCCH.setBold(true);
        cell.showSim(false);
    }
}

int getDynamicBCH(frmSimStatus& board, int index) {
    auto text = right(board.cell(index).lblBCH.text(), 2);
    if (!text.empty() && text.front() == '#') text.remove_prefix(1);
    return static_cast<int>(val(text));
}

const std::string& getRSSI(frmSimStatus& board, int index) { return board.cell(index).lblStrengthDB.text(); }

void haveSMS(frmSimStatus& board, int index, bool flag) {
    auto& mark = board.cell(index).imgSMS;
    mark.setPicture(flag ? "imgSMSPic" : "");
    mark.setTip(flag ? "You have new SMS message" : "");
}

}  // namespace trunvex
