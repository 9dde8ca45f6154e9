#include "monitor/port_state.h"

#include "platform/quietly.h"
#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr int beingSetUp = 4;
constexpr int connected = 8;

struct ReadySim {
    int number = 0;  // none is ready
    std::string_view talked;
};

// The first ready one is the one in service.
ReadySim readySim(const PortSnapshot& snapshot) {
    constexpr std::string_view ready = "40";
    for (std::size_t slot = 0; slot < snapshot.sims.size(); ++slot)
        if (snapshot.sims[slot].state.value() == ready)
            return {static_cast<int>(slot) + 1, snapshot.sims[slot].talked.value()};
    return {};
}

ModuleKind kindOf(std::string_view kind) {
    return kind == "GSM"   ? ModuleKind::Gsm
           : kind == "CDM" ? ModuleKind::Cdma
           : kind == "ERR" ? ModuleKind::Missing
                           : ModuleKind::NotTold;
}

}  // namespace

PortState::PortState(Session& session, SharedTables& tables, PortDetection& detection, SettingsRecords& records,
                     frmSimStatus& board)
    : board_(board), tables_(tables), realTimeUpdate_(session.realTimeUpdate) {
    session.dispatcher.on("A_STS", [this, &session](const Record& record) {
        quietly("updateSTS", [&] { updateSTS(PortSnapshot::of(record.fields())); });
        session.refreshes.settle();
        session.state.gStatusSeen = true;
    });
    session.records.simAlarm.connect([this](const Fields& record) { takeSimAlarm(AlarmReport::of(record)); });
    for (auto* told : {&detection.portsDetected, &records.kindsChanged})
        told->connect([this] {
            UpdateCDMA();
            takeKinds();
        });
    session.events.begun.connect([this] { takeKinds(); });
}

void PortState::updateSTS(const PortSnapshot& snapshot) {
    const auto sim = readySim(snapshot);
    const auto raise = [&](std::string_view code, std::string_view first = {}, std::string_view second = {}) {
        board_.UpdateSimStatus(AlarmReport(snapshot.port, sim.number, code, first, second));
    };
    const auto raiseRadio = [&] {
        raise("25", snapshot.signal.value());
        raise("15", snapshot.bcch.value(), snapshot.bcchMode.value());
    };
    if (sim.number == 0) {
        // A report that names no SIM wipes the cell, but for the signal; so the state comes last, also of a record that
        // is cut short.
        quietly("updateSTS", raiseRadio);
        raise(snapshot.state);
        auto& cell = board_.cell(snapshot.port);
        cell.status.sim.reset();
        board_.show(cell);
        return;
    }
    raise(snapshot.state);
    raiseRadio();
    raise("104", sim.talked);
    const auto state = val(snapshot.state);
    if (state == 21 || state == 23 || state == 50) raise("21", snapshot.network.value());
    raise("40");
    const auto flags = val(snapshot.flags.value());
    if (flags & beingSetUp) {
        raise("3");
    } else if (flags & connected) {
        raise("104", sim.talked);
        raise("4", sim.talked);
    }
}

void PortState::takeSimAlarm(const AlarmReport& report) {
    const SimAddress address(report.port.value(), report.sim);
    auto& network = tables_.sim(address).network;
    switch (report.alarm) {
        case AlarmCode::NetworkId:
            network = escaped(report.first);
            break;
        case AlarmCode::Registering:
            network = "REGISTERATION";
            break;
        case AlarmCode::Registered:
            network = "REGISTERED";
            break;
        case AlarmCode::Unregistered:
            network = "UNREGISTERED";
            break;
        case AlarmCode::SimReady: {
            const auto digits = address.digits();
            const std::string_view text = digits;
            Fields ready;
            for (std::size_t i = 0; i < text.size(); ++i) ready.add(text.substr(i, 1));
            ready.add("1");
            realTimeUpdate_("SIM", ready);
            break;
        }
        default:
            break;
    }
}

void PortState::takeKinds() {
    for (const auto port : everyPort) board_.cell(port).status.kind = kindOf(tables_.port(port).Kind);
    board_.hardwareChanged.emit();
}

void PortState::UpdateCDMA() {
    for (const auto port : everyPort) {
        auto& cell = board_.cell(port);
        cell.status.cdma = trim(tables_.port(port).Kind) == "CDM";
        board_.show(cell);
    }
}

int getDynamicBCH(frmSimStatus& board, int index) { return board.cell(index).status.boundChannel(); }

const std::string& getRSSI(frmSimStatus& board, int index) { return board.cell(index).lblStrengthDB.text(); }

void haveSMS(frmSimStatus& board, int index, bool flag) {
    auto& cell = board.cell(index);
    cell.status.message = flag;
    board.show(cell);
}

}  // namespace trunvex
