#include "monitor/rehearsal.h"

#include <algorithm>
#include <optional>

#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr std::size_t sliceCalls = 16000;  // some ms

struct Moment {
    int day;
    int minute;
};

// Of "MM-DD-YY HH:MM:SS Wd"; a call without its weekday or its time can't be laid over a day.
std::optional<Moment> momentOf(std::string_view stamp) {
    const auto weekday =
        std::ranges::find(dayNames, right(stamp, 2), [](const char* name) { return std::string_view(name); });
    const auto hours = mid(stamp, 10, 2);
    const auto minutes = mid(stamp, 13, 2);
    if (weekday == dayNames.end() || !wholeWithin(hours, 0, 23) || !wholeWithin(minutes, 0, 59)) return {};
    return Moment{static_cast<int>(weekday - dayNames.begin()), static_cast<int>(val(hours) * 60 + val(minutes))};
}

std::string counted(std::size_t calls) { return std::to_string(calls) + (calls == 1 ? " call" : " calls"); }

}  // namespace

Rehearsal::Rehearsal(Session& session, TimeChart& chart)
    : chart_(chart), work_(session.platform, lblRehearsalWork, cmdRehearsalCancel) {
    chkRehearse.valueChanged().connect([this] {
        chart_.showEdited(chkRehearse.checked());
        if (chkRehearse.checked()) {
            gather();
            return;
        }
        work_.drop();
        counts_.clear();
        lblRehearsal.setText("");
    });
    chart_.cmdASRefresh.pressed().connect([this] {
        if (chkRehearse.checked()) gather();
    });
    chart_.changed.connect([this] {
        if (!counts_.empty() && !work_.running()) judge();
    });
}

std::size_t Rehearsal::cell(PortAddress port, int day, int minute) {
    return (port.slot() * daysOfWeek + static_cast<std::size_t>(day)) * TimeChart::minutesOfDay +
           static_cast<std::size_t>(minute);
}

void Rehearsal::tablesChanged() {
    if (chkRehearse.checked()) chart_.changed.emit();
}

void Rehearsal::gather() {
    counts_.assign(cellCount, 0);
    at_ = 0;
    work_.run({"rehearsal", [this] { return gatherSome(sliceCalls); },
               [this] { return "Calls: " + std::to_string(at_) + " of " + std::to_string(calls_.count()); },
               [this](SlicedWork::End end, const std::string&) {
                   if (end == SlicedWork::End::Replaced) return;
                   judge();
                   chart_.changed.emit();
               }});
}

bool Rehearsal::gatherSome(std::size_t most) {
    const auto count = calls_.count ? calls_.count() : 0;
    for (const auto end = std::min(count, at_ + most); at_ < end; ++at_) {
        const auto [port, stamp] = calls_.call(at_);
        const auto moment = momentOf(stamp);
        if (moment && wholeWithin(port, 1, portCount))
            ++counts_[cell(PortAddress::ofNumber(val(port)), moment->day, moment->minute)];
    }
    return at_ < count;
}

void Rehearsal::judge() {
    active_.assign(cellCount, false);
    for (int day = 0; day < static_cast<int>(daysOfWeek); ++day)
        for (const auto& span : chart_.DrawChart(day))
            for (int minute = span.from; minute < span.to; ++minute) active_[cell(span.port, day, minute)] = true;
    std::size_t calls = 0;
    std::size_t missed = 0;
    for (std::size_t at = 0; at < cellCount; ++at) {
        calls += counts_[at];
        if (!active_[at]) missed += counts_[at];
    }
    lblRehearsal.setText(calls == 0 ? "The page Calls lists no calls that could be laid over the chart."
                                    : "Of " + counted(calls) + " " + std::to_string(missed) +
                                          " would have found no SIM by the tables as they are edited.");
}

std::vector<Rehearsal::Mark> Rehearsal::marks() const {
    std::vector<Mark> marks;
    if (counts_.empty() || active_.empty() || work_.running()) return marks;
    for (const auto port : everyPort)
        for (int minute = 0; minute < TimeChart::minutesOfDay; ++minute)
            if (const auto at = cell(port, chart_.day(), minute); counts_[at] > 0)
                marks.push_back({port, minute, !active_[at]});
    return marks;
}

}  // namespace trunvex
