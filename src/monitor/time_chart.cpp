#include "monitor/time_chart.h"

#include <utility>

#include "monitor/port_caption.h"
#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr const char* section = "STA";
constexpr std::array<Colour, simsPerModule> defaults{255, 65280, 65535, 16711680};
constexpr Colour white = 0xFFFFFF;
constexpr int lastMinute = TimeChart::minutesOfDay - 1;
constexpr const char* midnight = "00:00";

std::string colourKey(int sim) { return "COL" + std::to_string(sim); }

// Of HH:MM; what is shorter is midnight, what is no time of day is none.
std::optional<int> minuteOf(std::string_view time) {
    if (time.size() < 5) time = midnight;
    const auto hours = time.substr(0, 2);
    const auto minutes = time.substr(3);
    if (!wholeWithin(hours, 0, 23) || !wholeWithin(minutes, 0, 59)) return {};
    return static_cast<int>(val(hours) * 60 + val(minutes));
}

// The last minute of a day belongs to its window, so that 23:59 reaches the end of the day.
void DrawRect(std::vector<TimeChart::Span>& spans, SimAddress sim, const std::string& fromTime,
              const std::string& toTime) {
    const auto from = minuteOf(fromTime);
    const auto to = minuteOf(toTime);
    if (!from || !to || *from == *to) return;
    const int end = *to == lastMinute ? TimeChart::minutesOfDay : *to;
    if (*from < end) {
        spans.push_back({sim.port(), sim.sim(), *from, end});
        return;
    }
    spans.push_back({sim.port(), sim.sim(), *from, TimeChart::minutesOfDay});
    if (end > 0) spans.push_back({sim.port(), sim.sim(), 0, end});
}

}  // namespace

TimeChart::TimeChart(Session& session, SharedTables& tables, SettingsRecords& records, BoardOperations& operations)
    : session_(session), tables_(tables), operations_(operations) {
    for (int sim = 1; sim <= simsPerModule; ++sim) {
        const auto at = static_cast<std::size_t>(sim - 1);
        const auto kept = session.setting.Read(section, colourKey(sim));
        colours_[at] = wholeWithin(kept, 0, white) ? static_cast<Colour>(val(kept)) : defaults[at];
        cmdLegend.emplace_back(arrayName("cmdLegend", sim - 1), "Sim " + std::to_string(sim));
    }
    for (std::size_t day = 0; day < daysOfWeek; ++day)
        cmdDay.emplace_back(arrayName("cmdDay", static_cast<int>(day)), dayNames[day]).pressed().connect([this, day] {
            chosen_ = true;
            choose(static_cast<int>(day));
        });
    choose(0);
    cmdASRefresh.pressed().connect([this] { changed.emit(); });
    cmdGetASRSimData.pressed().connect([this] { read(); });
    records.simStored.connect([this](SimAddress) { changed.emit(); });
    session.reads.ended().connect([this](ReadQueue::Ending) {
        if (std::exchange(reading_, false)) cmdASRefresh.press();
    });
    session.events.begun.connect([this] { changed.emit(); });
    session.realTimeUpdate.on("CLK", [this](const Fields&) {
        const auto today = gatewayDay();
        if (today && !chosen_) choose(*today);
    });
    // The clock runs on there between two reports.
    session.panel.staStatusTime.changed().connect([this] { followClock(); });
}

std::optional<int> TimeChart::gatewayDay() const {
    constexpr std::size_t weekday = 3;
    const auto& told = session_.state.gClockField[weekday];
    if (!session_.state.gGotClock || !wholeWithin(told, 1, daysOfWeek)) return {};
    return static_cast<int>(val(told)) - 1;
}

std::optional<int> TimeChart::now() const {
    const auto& clock = session_.state.gClockField;
    if (gatewayDay() != day_ || !wholeWithin(clock[4], 0, 23) || !wholeWithin(clock[5], 0, 59)) return {};
    return static_cast<int>(val(clock[4]) * 60 + val(clock[5]));
}

// The line moves once a minute, and at midnight the day that is shown too.
void TimeChart::followClock() {
    const auto today = gatewayDay();
    if (today && !chosen_ && *today != day_)
        choose(*today);
    else if (const auto at = now(); std::exchange(lineAt_, at) != at)
        changed.emit();
}

TimeChart::Rows TimeChart::rowsOf(SimAddress sim) const {
    return edited_ && rowsAsEdited ? rowsAsEdited(sim) : tables_.sim(sim).rows;
}

void TimeChart::showEdited(bool edited) {
    edited_ = edited;
    changed.emit();
}

void TimeChart::choose(int day) {
    day_ = day;
    for (std::size_t at = 0; at < cmdDay.size(); ++at) cmdDay[at].setMarked(static_cast<int>(at) == day);
    changed.emit();
}

void TimeChart::setColour(int sim, Colour colour) {
    colours_[static_cast<std::size_t>(sim - 1)] = colour;
    session_.setting.Write(section, colourKey(sim), std::to_string(colour));
    changed.emit();
}

std::vector<TimeChart::Span> TimeChart::DrawChart(int day) const {
    std::vector<Span> spans;
    for (const auto port : everyPort)
        for (int sim = 1; sim <= simsPerModule; ++sim)
            for (const auto& row : rowsOf({port, sim})) {
                const bool flag = (val(row.days) & dayBit(static_cast<std::size_t>(day))) != 0;
                DrawRect(spans, {port, sim}, flag ? fromOf(row) : midnight, flag ? toOf(row) : midnight);
            }
    return spans;
}

void TimeChart::read() {
    if (!operations_.mayAsk()) return;
    session_.reads.whenFree("chart", [this] {
        if (!operations_.mayAsk()) return;
        std::vector<QueueItem> batch;
        for (const auto port : everyPort)
            for (int sim = 1; sim <= simsPerModule; ++sim)
                if (tables_.port(port).Kind != "ERR")
                    batch.push_back(command("R_SIM" + SimAddress(port, sim).digits(),
                                            portCaption(tables_, port) + " SIM " + std::to_string(sim)));
        reading_ = session_.reads.start(std::move(batch));
    });
}

}  // namespace trunvex
