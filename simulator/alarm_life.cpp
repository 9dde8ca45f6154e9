#include "simulator/alarm_life.h"

#include <array>

namespace simulator {

namespace {

enum Colour : int { red = 0, yellow = 1, green = 2 };

struct Alarm {
    const char* code;
    std::size_t lamp;  // com port, network, ISDN line
    Colour colour;
};

constexpr std::array alarms{Alarm{"011", 2, red},    Alarm{"020", 0, yellow}, Alarm{"022", 0, red},
                            Alarm{"023", 0, yellow}, Alarm{"024", 0, red},    Alarm{"030", 1, yellow},
                            Alarm{"032", 1, red},    Alarm{"033", 1, yellow}, Alarm{"034", 1, red}};
constexpr std::array allClear{"021", "031", "010"};  // of each lamp

constexpr std::size_t isdnLamp = 2;

}  // namespace

AlarmLife::AlarmLife(Scene& ofScene) : scene(ofScene) {
    scene.repeat(scene.rates.alarmEvery, [this] { startAlarm(); });
}

void AlarmLife::startAlarm() {
    switch (scene.random.between(0, 3)) {
        case 0:
            return restPort();
        case 1:
            return restChannel();
        default:
            return raiseLamp();
    }
}

void AlarmLife::raiseLamp() {
    const Alarm& alarm =
        alarms[static_cast<std::size_t>(scene.random.between(0, static_cast<std::int64_t>(alarms.size()) - 1))];
    int& lamp = scene.state.lamps[alarm.lamp];
    if (lamp != green) return;
    lamp = alarm.colour;
    if (alarm.lamp == isdnLamp) ++scene.state.isdnCounters[0];
    scene.reportSystem(alarm.code);
    scene.agenda.in(scene.pause(5'000, 20'000), [this, which = alarm.lamp] {
        scene.state.lamps[which] = green;
        scene.reportSystem(allClear[which]);
    });
}

void AlarmLife::restPort() {
    const auto slot =
        scene.anyPort([](const Port& port) { return port.enabled && port.inService() && !port.inCall(); });
    if (!slot) return;
    scene.port(*slot).enabled = false;
    scene.port(*slot).inMaintenance = true;
    tellPort(*slot);
    scene.agenda.in(scene.pause(10'000, 40'000), [this, slot = *slot] {
        Port& port = scene.port(slot);
        if (!port.inMaintenance) return;
        port.inMaintenance = false;
        port.enabled = true;
        tellPort(slot);
    });
}

void AlarmLife::restChannel() {
    const auto channel = scene.anyFreeChannel();
    if (!channel) return;
    const auto row = static_cast<std::size_t>(*channel - 1);
    scene.state.channels[row] = false;
    scene.state.bearers[row].inMaintenance = true;
    tellChannel(*channel);
    scene.agenda.in(scene.pause(10'000, 40'000), [this, row, channel = *channel] {
        if (!scene.state.bearers[row].inMaintenance) return;
        scene.state.bearers[row].inMaintenance = false;
        scene.state.channels[row] = true;
        tellChannel(channel);
    });
}

void AlarmLife::tellPort(int slot) {
    scene.reportSystem("136", {PortAddress::ofSlot(slot).text(), scene.port(slot).enabled ? "1" : "0", "OK"});
}

void AlarmLife::tellChannel(int channel) {
    const bool enabled = scene.state.channels[static_cast<std::size_t>(channel - 1)];
    scene.reportSystem("116", {std::to_string(channel), enabled ? "1" : "0", "OK"});
}

}  // namespace simulator
