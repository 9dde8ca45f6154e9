#include "model/status_reports.h"

#include "text/text_rules.h"

namespace trunvex {

namespace {

std::optional<std::string_view> told(const Fields& event, std::size_t index) {
    if (index >= event.size() || event.at(index) == endMark) return std::nullopt;
    return event.at(index);
}

std::optional<bool> flag(const Fields& event, std::size_t index) {
    const auto text = told(event, index);
    return text && !text->empty() ? std::optional(lowBit(*text)) : std::nullopt;
}

AlarmCode alarmOf(std::int64_t number) {
    return number < 0 || number > highestAlarmCode ? AlarmCode::None : static_cast<AlarmCode>(number);
}

int digit(std::string_view text) {
    if (text.size() != 1 || text[0] < '0' || text[0] > '9') throw std::invalid_argument("no digit");
    return text[0] - '0';
}

}  // namespace

bool lowBit(std::string_view flag) { return (val(flag) & 1) != 0; }

AlarmReport::AlarmReport(std::optional<PortAddress> about, int ofSim, std::string_view codeText,
                         std::string_view argument1, std::string_view argument2, std::string_view argument3)
    : port(about), sim(ofSim), code(codeText), first(argument1), second(argument2), third(argument3),
      alarm(alarmOf(val(codeText))), plain(isWhole(codeText) && codeText.front() != '0') {}

AlarmReport AlarmReport::of(const Fields& event) {
    const int mcu = digit(event.at(0));
    const int module = digit(event.at(1));
    const int sim = digit(event.at(2));
    const auto argument = [&event](std::size_t index) {
        return index < event.size() ? event.at(index) : std::string_view();
    };
    const bool aboutSystem = mcu == 0 && module == 0 && sim == 0;
    return {aboutSystem ? std::nullopt : std::optional(PortAddress(mcu, module)),
            sim,
            event.at(3),
            argument(4),
            argument(5),
            argument(6)};
}

PortReport PortReport::of(const Fields& event) {
    return {PortAddress::parse(event.at(0)), flag(event, 1), told(event, 2), told(event, 3)};
}

ChannelReport ChannelReport::of(const Fields& event) { return {val(event.at(0)), flag(event, 1), told(event, 2)}; }

SystemReport SystemReport::of(const Fields& event) {
    SystemReport report{event.at(0), {}};
    for (std::size_t lamp = 0; lamp < report.lamps.size(); ++lamp) {
        const auto state = told(event, lamp + 1);
        if (state && (state == "0" || state == "1" || state == "2")) report.lamps[lamp] = state->front() - '0';
    }
    return report;
}

ClockReport ClockReport::of(const Fields& event) {
    return {event.at(0), event.at(1), event.at(2), event.at(3), event.at(4), event.at(5), told(event, 6)};
}

PortSnapshot PortSnapshot::of(const Fields& record) {
    constexpr std::size_t firstSim = 2;
    const auto sent = [&record](std::size_t index) {
        return index + 1 < record.size() ? std::optional(record.at(index)) : std::nullopt;
    };
    if (!sent(1)) throw std::out_of_range("snapshot without a state");
    PortSnapshot snapshot{
        PortAddress::parse(record.at(0)), *sent(1), {}, sent(10), sent(11), sent(12), sent(13), sent(14)};
    for (std::size_t sim = 0; sim < snapshot.sims.size(); ++sim)
        snapshot.sims[sim] = {sent(firstSim + 2 * sim), sent(firstSim + 2 * sim + 1)};
    return snapshot;
}

}  // namespace trunvex
