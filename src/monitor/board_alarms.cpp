// What the reports of the gateway do to the board: frmSimStatus::UpdateSimStatus of an AlarmReport.
#include <algorithm>

#include "monitor/sim_status.h"
#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr int animationMs = 200;

enum class SystemEffect { Light, ChannelOfPort, PortOfChannel, CallCleared, CallBegun, ChannelService, PortService };

struct SystemRow {
    std::string_view code;
    SystemEffect effect;
    std::size_t lamp = 0;
    Lamp light = Lamp::Off;
};

// Codes of the gateway itself, compared as text; in their order.
constexpr SystemRow systemRows[] = {
    {"010", SystemEffect::Light, 2, Lamp::Green},
    {"011", SystemEffect::Light, 2, Lamp::Red},
    {"020", SystemEffect::Light, 0, Lamp::Yellow},
    {"021", SystemEffect::Light, 0, Lamp::Green},
    {"022", SystemEffect::Light, 0, Lamp::Red},
    {"023", SystemEffect::Light, 0, Lamp::Yellow},
    {"024", SystemEffect::Light, 0, Lamp::Red},
    {"030", SystemEffect::Light, 1, Lamp::Yellow},
    {"031", SystemEffect::Light, 1, Lamp::Green},
    {"032", SystemEffect::Light, 1, Lamp::Red},
    {"033", SystemEffect::Light, 1, Lamp::Yellow},
    {"034", SystemEffect::Light, 1, Lamp::Red},
    {"100", SystemEffect::PortOfChannel},
    {"101", SystemEffect::CallCleared},
    {"102", SystemEffect::CallCleared},
    {"110", SystemEffect::CallCleared},
    {"111", SystemEffect::CallCleared},
    {"112", SystemEffect::CallCleared},
    {"113", SystemEffect::CallCleared},
    {"114", SystemEffect::CallCleared},
    {"115", SystemEffect::CallCleared},
    {"116", SystemEffect::ChannelService},
    {"120", SystemEffect::ChannelOfPort},
    {"136", SystemEffect::PortService},
    {"140", SystemEffect::CallBegun},
};
static_assert(std::ranges::is_sorted(systemRows, {}, &SystemRow::code));

}  // namespace

void frmSimStatus::systemAlarm(const AlarmReport& report) {
    const auto* found = std::ranges::lower_bound(systemRows, report.code, {}, &SystemRow::code);
    if (found == std::end(systemRows) || found->code != report.code) return;
    const auto channel = [&](ChannelStatus::State state, std::optional<std::string> cause = {}) {
        auto& line = row(val(report.first));
        line.status.state = state;
        if (cause) line.status.cause = *cause;
        line.show();
    };
    using enum ChannelStatus::State;
    const bool done = report.third == "OK";
    const bool on = val(report.second) == 1;
    switch (found->effect) {
        case SystemEffect::Light:
            gateway_.lamps[found->lamp] = found->light;
            showGateway();
            break;
        case SystemEffect::PortOfChannel:
            bindChannel(report.second, report.first);
            break;
        case SystemEffect::ChannelOfPort:
            bindChannel(report.first, report.second);
            break;
        case SystemEffect::CallCleared:
            channel(Idle, escaped(report.second));
            break;
        case SystemEffect::CallBegun:
            channel(InCall, "");
            break;
        case SystemEffect::ChannelService:
            holdsData = false;  // the flag itself is not in this report
            if (done) channel(on ? Idle : Disabled);
            break;
        case SystemEffect::PortService:
            holdsData = false;
            if (!done) break;
            auto& port = cell(PortAddress::parse(report.first));
            port.status.heading = on ? PortStatus::Heading::Plain : PortStatus::Heading::Off;
            show(port);
            break;
    }
}

void frmSimStatus::bindChannel(std::string_view port, std::string_view channel) {
    auto& bound = cell(PortAddress::ofNumber(val(port)));
    bound.status.bind(channel);
    bound.status.reserved = false;
    show(bound);
}

// The steps keep their order, for later ones see what earlier ones made of the status.
void frmSimStatus::portAlarm(PortCell& port, const AlarmReport& report) {
    auto& status = port.status;
    const auto& row = alarmRow(report.alarm);
    if (report.alarm == AlarmCode::Message || simAbsence(port, report)) return;
    if (!lamps(status, report, row)) return;
    if (row.simAtWork) {
        status.state = BoardColours::PORT_ACTIVE;
        status.sim = report.sim;
    }
    if (!effect(port, report, row.effect)) return;
    if (row.call != CallSign::Leaves) status.connected = row.call == CallSign::Shows;
    if (row.state) status.state = *row.state;
    if (!status.countCall()) return;
    gateway_.portsInCall += *status.inCall ? 1 : -1;
    showGateway();
}

// A missing SIM is reported again every few seconds; only the first report wipes the cell. True when that was all.
bool frmSimStatus::simAbsence(PortCell& port, const AlarmReport& report) {
    auto& status = port.status;
    if (!report.is(AlarmCode::SimAbsent)) {
        status.simAbsent = false;
        if (report.sim == 0 && !report.is(AlarmCode::Signal)) resetPortCell(port);
        return false;
    }
    if (!status.simAbsent) {
        resetPortCell(port);
        status.event = report.alarm;
        status.simAbsent = true;
    }
    status.simLamp = Lamp::Red;
    status.simReport = report.alarm;
    return true;
}

// False when the event ends at its lamp: code 20 has no text for the tip, and no code that is spelled otherwise has.
bool frmSimStatus::lamps(PortStatus& port, const AlarmReport& report, const AlarmRow& row) {
    const bool told = row.text && report.plain;
    if (row.lamp == AlarmLamp::Sim) {
        port.simLamp = row.light;
        if (told) port.simReport = report.alarm;
        return told;
    }
    if (row.lamp == AlarmLamp::None) return true;
    port.netLamp = row.light;
    if (row.effect == AlarmEffect::Registering) port.event = report.alarm;
    const bool registered = row.light == Lamp::Green;
    if (registered || told) port.netReport = registered ? AlarmCode::Registered : report.alarm;
    return registered || told;
}

// False when the event ends here, for a code that is not spelled as its text is kept under.
bool frmSimStatus::effect(PortCell& port, const AlarmReport& report, AlarmEffect effect) {
    auto& status = port.status;
    switch (effect) {
        case AlarmEffect::CounterEvent:
        case AlarmEffect::Counter:
            status.counter = escaped(report.first);
            status.talked = TalkTime::parse(report.first);
            return effect == AlarmEffect::Counter || event(status, report, effect);
        case AlarmEffect::Event:
        case AlarmEffect::Number:
        case AlarmEffect::Reason:
            return event(status, report, effect);
        case AlarmEffect::Dialled:
            if (!event(status, report, effect)) return false;
            dialled_.emit(port.index, status.callNumber);
            return true;
        case AlarmEffect::Fault:
            if (report.plain) status.event = report.alarm;
            return true;
        case AlarmEffect::SlaveVersion:
            gateway_.slaveVersion = escaped(report.first);
            showGateway();
            return true;
        default:
            networkEvent(port, report, effect);
            return true;
    }
}

bool frmSimStatus::event(PortStatus& port, const AlarmReport& report, AlarmEffect effect) {
    if (!report.plain) return false;
    port.event = report.alarm;
    if (effect == AlarmEffect::Number || effect == AlarmEffect::Dialled) port.callNumber = escaped(report.first);
    if (effect == AlarmEffect::Reason) port.reason = escaped(report.first);
    return true;
}

void frmSimStatus::networkEvent(PortCell& port, const AlarmReport& report, AlarmEffect effect) {
    auto& status = port.status;
    switch (effect) {
        case AlarmEffect::Bcch:
            status.bcchMode = trim(report.second) == "0" ? PortStatus::Bcch::Fixed : PortStatus::Bcch::Automatic;
            status.bcch = escaped(report.first);
            break;
        case AlarmEffect::NetworkId:
            status.networkId = escaped(report.first);
            break;
        case AlarmEffect::Registering:
            status.registering = true;
            port.tmrAnimation->start(animationMs);
            break;
        case AlarmEffect::Home:
            registered(port, PortStatus::Network::Home);
            break;
        case AlarmEffect::Roaming:
            registered(port, PortStatus::Network::Roaming);
            break;
        case AlarmEffect::Unregistered:
            port.tmrAnimation->stop();
            status.registering = false;
            status.antenna = Antenna::Unregistered;
            status.level.reset();
            status.event = report.alarm;
            break;
        case AlarmEffect::Signal:
            signalLevel(status, val(report.first));
            break;
        default:
            break;
    }
}

void frmSimStatus::registered(PortCell& port, PortStatus::Network network) {
    port.tmrAnimation->stop();
    port.status.registering = false;
    port.status.event = AlarmCode::Registered;
    port.status.network = network;
}

// 0 to 70 above -111 dB; 0 and 99 are no signal. What is in no range keeps the bars as they were.
void frmSimStatus::signalLevel(PortStatus& port, std::int64_t level) {
    constexpr std::int64_t absurd = 9999;
    if (level == 0 || level == 99) {
        port.level.reset();
        port.antenna = Antenna::NoSignal;
        return;
    }
    if (level < -absurd || level > absurd) return;
    port.level = static_cast<int>(level);
    if (level < 1 || level > 70) return;
    port.antenna = level <= 16   ? Antenna::OneBar
                   : level <= 33 ? Antenna::TwoBars
                   : level <= 49 ? Antenna::ThreeBars
                                 : Antenna::FourBars;
}

}  // namespace trunvex
