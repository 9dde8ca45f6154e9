#include "cdr/call_sums.h"

#include <algorithm>

#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr const char* noGroup = "-";
enum Column : std::size_t { Port = 0, Sim = 1, OriginateTime = 7, Duration = 10, OperatorId = 15 };
constexpr std::size_t hourAt = 10;  // in "MM-DD-YY HH:MM:SS", from 1

void addTo(std::vector<CallSums::Group>& groups, std::string name, const CallTotals& totals) {
    if (totals.calls > 0) groups.push_back({std::move(name), totals});
}

}  // namespace

void CallTotals::add(std::string_view duration) {
    ++calls;
    if (duration.empty() || duration == "0") return;
    ++answered;
    talkSeconds += sortKey(duration, SortKind::Duration);
}

void CallTotals::add(const CallTotals& more) {
    calls += more.calls;
    answered += more.answered;
    talkSeconds += more.talkSeconds;
}

int CallTotals::asr() const { return calls == 0 ? 0 : static_cast<int>((answered * 100 + calls / 2) / calls); }

int CallTotals::acd() const {
    return answered == 0 ? 0 : static_cast<int>(talkSeconds / static_cast<std::int64_t>(answered));
}

void CallSums::add(const CallTexts& texts) {
    CallTotals call;
    call.add(texts[Duration]);
    all_.add(call);
    const bool onSim = wholeWithin(texts[Port], 1, portCount) && wholeWithin(texts[Sim], 0, simsOfPort - 1);
    const auto sim = static_cast<std::size_t>((val(texts[Port]) - 1) * std::int64_t{simsOfPort} + val(texts[Sim]));
    (onSim ? sims_[sim] : sims_.back()).add(call);
    const auto hour = mid(texts[OriginateTime], hourAt, 2);
    const bool known = texts[OriginateTime].find('-') == 2 && wholeWithin(hour, 0, hours - 1);
    (known ? hours_[static_cast<std::size_t>(val(hour))] : hours_.back()).add(call);
    auto carrier = operators_.find(texts[OperatorId]);
    if (carrier == operators_.end()) carrier = operators_.emplace(texts[OperatorId], CallTotals()).first;
    carrier->second.add(call);
}

std::vector<CallSums::Group> CallSums::by(By by) const {
    std::vector<Group> groups;
    switch (by) {
        case By::Port:
            for (std::size_t port = 0; port < portCount; ++port) {
                CallTotals totals;
                for (std::size_t sim = 0; sim < simsOfPort; ++sim) totals.add(sims_[port * simsOfPort + sim]);
                addTo(groups, std::to_string(port + 1), totals);
            }
            addTo(groups, noGroup, sims_.back());
            break;
        case By::Sim:
            for (std::size_t at = 0; at + 1 < sims_.size(); ++at)
                addTo(groups, std::to_string(at / simsOfPort + 1) + "/" + std::to_string(at % simsOfPort), sims_[at]);
            addTo(groups, noGroup, sims_.back());
            break;
        case By::Operator:
            for (const auto& [name, totals] : operators_) addTo(groups, name.empty() ? noGroup : name, totals);
            break;
        case By::Hour:
            for (std::size_t hour = 0; hour < hours && all_.calls > 0; ++hour)
                groups.push_back({pad(std::to_string(hour), 2, '0', PadSide::Left), hours_[hour]});
            addTo(groups, noGroup, hours_.back());
            break;
    }
    return groups;
}

}  // namespace trunvex
