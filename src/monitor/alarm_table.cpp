#include "monitor/alarm_table.h"

namespace trunvex {

namespace {

using enum AlarmCode;
using Do = AlarmEffect;
using enum BoardColours::Which;

constexpr bool atWork = true;
constexpr bool idle = false;
constexpr auto leaves = CallSign::Leaves;
constexpr auto clears = CallSign::Clears;
constexpr auto shows = CallSign::Shows;
constexpr auto sim = AlarmLamp::Sim;
constexpr auto net = AlarmLamp::Net;
constexpr auto red = Lamp::Red;
constexpr auto yellow = Lamp::Yellow;
constexpr auto green = Lamp::Green;

constexpr AlarmRow rows[] = {
    {RingMs, "RING MS", Do::Number, atWork},
    {DialIsdn, "DIAL ISDN", Do::Dialled, atWork},
    {Connecting, "CONNECTING", Do::Event, atWork, clears, PORT_CALL},
    {MsConnected, "MS CONNECTED", Do::CounterEvent, atWork, shows, PORT_CONNECTED},
    {ClearIsdn, "CLEAR ISDN", Do::Event, atWork, clears},
    {DisconnectedMs, "DISCONNECTED MS", Do::Reason, atWork, clears},
    {BusyMs, "BUSY MS", Do::Event, atWork, clears},
    {BusyIsdn, "BUSY ISDN", Do::Event, atWork, clears},
    {DialIsdnAgain, "DIAL ISDN", Do::Number, atWork},
    {Rejected, "REJECTED-OUT OF SERVICE", Do::Event, idle, clears},
    {EmergencyOnly, "EMERGENCY CALLS ONLY"},
    {IsdnConnected, "ISDN CONNECTED", Do::Event, atWork, shows, PORT_CONNECTED},
    {ErrorGsm, "ERROR GSM", Do::Fault, idle, leaves, PORT_PROBLEM},
    {Bcch, nullptr, Do::Bcch},
    {Alerting, "ALERTING", Do::Event, idle, leaves, PORT_ALARTING},
    {TalkCounter, nullptr, Do::Counter},
    {NetworkGone, nullptr, Do::Nothing, idle, leaves, {}, net, red},
    {NetworkId, "Network ID", Do::NetworkId, idle, leaves, {}, net, green},
    {Registering, "REGISTRATION", Do::Registering, idle, leaves, {}, net, yellow},
    {Registered, "REGISTERED", Do::Home, atWork, leaves, {}, net, green},
    {Unregistered, "UNREGISTERED", Do::Unregistered, idle, leaves, {}, net, red},
    {Signal, nullptr, Do::Signal},
    {SimAbsent, "SIM ABSENCE", Do::Nothing, idle, leaves, {}, sim, red},
    {PinRight, "PIN RIGHT", Do::Event, idle, clears, {}, sim, red},
    {Pin2Right, "PIN2 RIGHT", Do::Event, idle, clears, {}, sim, red},
    {PinRequired, "Required PIN CODE", Do::Fault, idle, leaves, PORT_PROBLEM, sim, red},
    {Pin2Required, "Required PIN2 CODE", Do::Fault, idle, leaves, PORT_PROBLEM, sim, red},
    {PukRequired, "Required PUK CODE", Do::Fault, idle, leaves, PORT_PROBLEM, sim, red},
    {Puk2Required, "Required PUK2 CODE", Do::Fault, idle, leaves, PORT_PROBLEM, sim, red},
    {PinAbsent, "PIN CODE absent", Do::Fault, idle, leaves, PORT_PROBLEM, sim, red},
    {Pin2Absent, "PIN2 CODE absent", Do::Fault, idle, leaves, PORT_PROBLEM, sim, red},
    {PinWrong, "PIN CODE wrong", Do::Fault, idle, leaves, PORT_PROBLEM, sim, red},
    {Pin2Wrong, "PIN2 CODE wrong", Do::Fault, idle, leaves, PORT_PROBLEM, sim, red},
    {SimLock, "SIM LOCK is required", Do::Fault, idle, leaves, PORT_PROBLEM, sim, red},
    {NetworkLock, "NETWORK PERSONALIZATION is required", Do::Fault, idle, leaves, PORT_PROBLEM, sim, red},
    {SimFailure, "SIM failure", Do::Fault, idle, leaves, PORT_PROBLEM, sim, red},
    {SimReady, "SIM ready", Do::Event, atWork, clears, {}, sim, green},
    {Roaming, nullptr, Do::Roaming, idle, leaves, {}, net, green},
    {SlaveVersion, nullptr, Do::SlaveVersion},
    {SnapshotCounter, nullptr, Do::Counter},
};

constexpr auto byCode = [] {
    std::array<AlarmRow, highestAlarmCode + 1> all{};
    for (const auto& row : rows) all[static_cast<std::size_t>(row.code)] = row;
    return all;
}();

}  // namespace

const AlarmRow& alarmRow(AlarmCode code) { return byCode[static_cast<std::size_t>(code)]; }

}  // namespace trunvex
