// What the reports of the gateway bring into the list of events.
#include <algorithm>

#include "monitor/board_events.h"
#include "text/text_rules.h"

namespace trunvex {

namespace {

struct LampReport {
    std::string_view code;
    std::size_t lamp;
    Lamp light;
};

constexpr LampReport lampReports[] = {{"010", 2, Lamp::Green}, {"011", 2, Lamp::Red},    {"020", 0, Lamp::Yellow},
                                      {"021", 0, Lamp::Green}, {"022", 0, Lamp::Red},    {"023", 0, Lamp::Yellow},
                                      {"024", 0, Lamp::Red},   {"030", 1, Lamp::Yellow}, {"031", 1, Lamp::Green},
                                      {"032", 1, Lamp::Red},   {"033", 1, Lamp::Yellow}, {"034", 1, Lamp::Red}};
constexpr const char* lampNames[] = {"Com port", "Network", "ISDN line"};
constexpr std::string_view clearings[] = {"101", "102", "110", "111", "112", "113", "114", "115"};

// A call that someone ended, or that nobody took, is no trouble. Below 32 are the causes of that kind, but for those
// that find no way: no route, a channel that can't be used, a line that is out of order.
bool isTrouble(std::string_view cause) {
    constexpr int firstOfTrouble = 32;
    constexpr int noWay[] = {2, 3, 6, 27};
    if (!isWhole(cause)) return false;
    const auto number = val(cause);
    return number >= firstOfTrouble || std::ranges::find(noWay, number) != std::end(noWay);
}

}  // namespace

// Before its session has begun it is not known whose report this is, and the board forgets it too.
void BoardEvents::takeAlarm(const AlarmReport& report) {
    if (!live_) return;
    if (report.port)
        takePortAlarm(report);
    else
        takeSystemAlarm(report);
}

void BoardEvents::takeSystemAlarm(const AlarmReport& report) {
    if (std::ranges::find(clearings, report.code) != std::end(clearings)) {
        const auto cause = trim(report.second);
        if (isTrouble(cause)) raise(BoardEvent::Kind::Channel, "Cleared with cause " + std::string(cause), false);
        return;
    }
    const auto* told = std::ranges::find(lampReports, report.code, &LampReport::code);
    if (told != std::end(lampReports)) takeLamp(told->lamp, told->light);
}

void BoardEvents::takeLamp(std::size_t lamp, trunvex::Lamp light) {
    const int place = -1 - static_cast<int>(lamp);
    const auto what =
        light == Lamp::Green ? "" : lampNames[lamp] + std::string(light == Lamp::Red ? ": fault" : ": not ready");
    if (list_.clear(BoardEvent::Kind::Lamp, place, now(), what)) changed();
    if (!what.empty()) raise(BoardEvent::Kind::Lamp, what, true, place);
}

void BoardEvents::takePortAlarm(const AlarmReport& report) {
    using enum BoardEvent::Kind;
    const auto& row = alarmRow(report.alarm);
    const int port = report.port->number();
    const bool red = row.light == trunvex::Lamp::Red;
    const bool faulty = report.is(AlarmCode::SimAbsent) || row.effect == AlarmEffect::Fault;
    if (faulty) {
        const auto kind = report.alarm == AlarmCode::ErrorGsm ? Module : Sim;
        // As on the board, the last one is how the port stands.
        if (list_.clear(kind, port, now(), row.text)) changed();
        raise(kind, row.text, true, port, report.sim);
    } else if (row.lamp == AlarmLamp::Net && red)
        raise(Network, row.text ? row.text : "No network", true, port, report.sim);
    if (row.simAtWork)
        for (const auto kind : {Sim, Module}) clear(kind, port);
    if (row.lamp == AlarmLamp::Net && row.light == trunvex::Lamp::Green) clear(Network, port);
}

}  // namespace trunvex
