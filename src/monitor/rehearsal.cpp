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
            if (calls_.load) calls_.load();
            gather();
            return;
        }
        work_.drop();
        counts_.clear();
        lblRehearsal.setText("");
    });
    chart_.cmdASRefresh.pressed().connect([this] { callsChanged(); });
    chart_.changed.connect([this] {
        if (!counts_.empty() && !work_.running()) judge();
    });
}

std::size_t Rehearsal::minuteOfWeek(int day, int minute) {
    return static_cast<std::size_t>(day) * TimeChart::minutesOfDay + static_cast<std::size_t>(minute);
}

std::size_t Rehearsal::cell(PortAddress port, int day, int minute) {
    return port.slot() * weekMinutes + minuteOfWeek(day, minute);
}

void Rehearsal::tablesChanged() {
    if (chkRehearse.checked()) chart_.changed.emit();
}

void Rehearsal::callsChanged() {
    if (chkRehearse.checked()) gather();
}

void Rehearsal::gather() {
    counts_.clear();
    networks_.clear();
    at_ = 0;
    work_.run({"rehearsal", [this] { return gatherSome(sliceCalls); },
               [this] { return "Calls: " + std::to_string(at_) + " of " + std::to_string(calls_.count()); },
               [this](SlicedWork::End end, const std::string&) {
                   if (end == SlicedWork::End::Replaced) return;
                   counts_[""].resize(cellCount);
                   chart_.changed.emit();  // which judges
               }});
}

bool Rehearsal::gatherSome(std::size_t most) {
    const auto count = calls_.count ? calls_.count() : 0;
    for (const auto end = std::min(count, at_ + most); at_ < end; ++at_) add(calls_.call(at_));
    return at_ < count;
}

void Rehearsal::add(const Call& call) {
    const auto moment = momentOf(call.stamp);
    if (!moment || !wholeWithin(call.port, 1, portCount)) return;
    const auto port = PortAddress::ofNumber(val(call.port));
    const bool known = counts_.size() < mostNetworks || counts_.contains(std::string(call.network));
    const std::string network(known ? call.network : std::string_view());
    if (!network.empty() && wholeWithin(call.sim, 1, simsPerModule))
        networks_[SimAddress(port, static_cast<int>(val(call.sim))).digits()] = network;
    auto& counts = counts_[call.outgoing ? network : std::string()];
    counts.resize(cellCount);
    ++counts[cell(port, moment->day, moment->minute)];
}

bool Rehearsal::missed(const std::string& network, std::size_t at) const {
    if (active_[at]) return false;
    const auto elsewhere = anywhere_.find(network);
    return elsewhere == anywhere_.end() || !elsewhere->second[at % weekMinutes];
}

void Rehearsal::judge() {
    active_.assign(cellCount, false);
    anywhere_.clear();
    for (int day = 0; day < static_cast<int>(daysOfWeek); ++day)
        for (const auto& span : chart_.DrawChart(day)) {
            const auto known = networks_.find(SimAddress(span.port, span.sim).digits());
            auto* network = known == networks_.end() ? nullptr : &anywhere_[known->second];
            if (network) network->resize(weekMinutes);
            for (int minute = span.from; minute < span.to; ++minute) {
                active_[cell(span.port, day, minute)] = true;
                if (network) (*network)[minuteOfWeek(day, minute)] = true;
            }
        }
    std::size_t calls = 0;
    std::size_t lost = 0;
    for (const auto& [network, counts] : counts_)
        for (std::size_t at = 0; at < cellCount; ++at) {
            if (counts[at] == 0) continue;
            calls += counts[at];
            if (missed(network, at)) lost += counts[at];
        }
    lblRehearsal.setText(calls == 0 ? "The page Calls lists no calls that could be laid over the chart."
                                    : "Of " + counted(calls) + " " + std::to_string(lost) +
                                          " would have found no SIM by the tables as they are edited.");
}

std::vector<Rehearsal::Mark> Rehearsal::marks() const {
    std::vector<Mark> marks;
    if (counts_.empty() || active_.empty() || work_.running()) return marks;
    for (const auto port : everyPort)
        for (int minute = 0; minute < TimeChart::minutesOfDay; ++minute) {
            const auto at = cell(port, chart_.day(), minute);
            bool any = false;
            bool lost = false;
            for (const auto& [network, counts] : counts_) {
                any = any || counts[at] > 0;
                lost = lost || (counts[at] > 0 && missed(network, at));
            }
            if (any) marks.push_back({port, minute, lost});
        }
    return marks;
}

}  // namespace trunvex
