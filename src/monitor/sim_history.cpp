#include "monitor/sim_history.h"

#include <algorithm>
#include <fstream>

#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr const char* makeTable =
    "CREATE TABLE IF NOT EXISTS STA (time TEXT, sim TEXT, asr REAL, acd INTEGER, dialled INTEGER)";
constexpr const char* all = "SELECT sim, asr, acd, dialled FROM STA ORDER BY rowid";

constexpr std::size_t fewestEarlier = 5;  // reads that make a habit
constexpr std::int64_t fewestCalls = 10;  // that make a figure
constexpr double wellBelow = 0.7;         // of the usual

template <class Value>
Value median(std::vector<Value> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::ranges::nth_element(values, middle);
    return *middle;
}

std::string stamp(std::chrono::local_seconds when) {
    const auto days = std::chrono::floor<std::chrono::days>(when);
    const std::chrono::year_month_day date{days};
    return std::to_string(int(date.year())) + "-" + twoDigits(unsigned(date.month())) + "-" +
           twoDigits(unsigned(date.day())) + " " + timeOfDay(when);
}

}  // namespace

std::string SimHistory::keyOf(const SimFigures& sim) {
    return sim.simId.empty() ? "at " + sim.sim.digits() : escaped(sim.simId);
}

void SimHistory::remember(const std::string& key, const Reading& reading) {
    auto& readings = readings_[key];
    readings.push_back(reading);
    if (readings.size() > kept) readings.pop_front();
}

void SimHistory::open(const std::filesystem::path& path) {
    readings_.clear();
    path_ = path;
    if (path_.empty() || !std::filesystem::exists(path_)) return;
    const auto database = engine_.open(path_);
    database->execute(makeTable);
    const auto rows = database->query(all);
    while (rows->next())
        remember(std::string(rows->text(0)), {decimalOf(rows->text(1)), val(rows->text(2)), val(rows->text(3))});
}

void SimHistory::add(const std::vector<SimFigures>& read, std::chrono::local_seconds when) {
    for (const auto& sim : read) remember(keyOf(sim), {sim.asrPercent(), sim.acdSeconds(), sim.dialled});
    if (path_.empty() || read.empty()) return;
    if (!std::filesystem::exists(path_)) std::ofstream{path_};  // an empty file is an empty database
    const auto database = engine_.open(path_);
    const auto time = stamp(when);
    database->execute("BEGIN IMMEDIATE");
    database->execute(makeTable);
    for (const auto& sim : read) {
        const auto key = keyOf(sim);
        const auto acd = std::to_string(sim.acdSeconds());
        const auto dialled = std::to_string(sim.dialled);
        database->execute("INSERT INTO STA VALUES (?, ?, ?, ?, ?)", {time, key, sim.asr(), acd, dialled});
    }
    database->execute("COMMIT");
}

const std::deque<SimHistory::Reading>& SimHistory::of(const SimFigures& sim) const {
    static const std::deque<Reading> none;
    const auto found = readings_.find(keyOf(sim));
    return found == readings_.end() ? none : found->second;
}

std::string SimHistory::wordOn(const SimFigures& sim) const {
    const auto& readings = of(sim);
    if (readings.size() <= fewestEarlier || readings.back().dialled < fewestCalls) return {};
    std::vector<double> asr;
    std::vector<double> acd;
    for (auto reading = readings.begin(); reading + 1 != readings.end(); ++reading) {
        if (reading->dialled < fewestCalls) continue;
        asr.push_back(reading->asr);
        acd.push_back(static_cast<double>(reading->acd));
    }
    if (asr.size() < fewestEarlier) return {};
    const bool fewer = readings.back().asr < wellBelow * median(asr);
    const bool shorter = static_cast<double>(readings.back().acd) < wellBelow * median(acd);
    return fewer && shorter ? "ASR and ACD low" : fewer ? "ASR low" : shorter ? "ACD low" : "";
}

}  // namespace trunvex
