#include "model/sim_record.h"

#include <algorithm>

namespace trunvex {

namespace {

std::string timeWords(const TimeRow& row) { return fromOf(row) + "-" + toOf(row); }
std::string wordsOfDays(const TimeRow& row) { return dayWords(static_cast<int>(val(row.days))); }

template <std::size_t row, std::string TimeRow::*part, std::string (*words)(const TimeRow&)>
constexpr Codec<SimRec> ofRow{[](SimRec& sim, std::string_view field) { sim.rows[row].*part = field; },
                              [](const SimRec& sim) { return sim.rows[row].*part; },
                              [](const SimRec& sim) { return words(sim.rows[row]); }};
template <std::size_t row>
constexpr auto timeOfRow = ofRow<row, &TimeRow::time, timeWords>;
template <std::size_t row>
constexpr auto daysOfRow = ofRow<row, &TimeRow::days, wordsOfDays>;

constexpr Codec<SimRec> callerId{codec::takeNumber<&SimRec::CallerId>, codec::held<&SimRec::CallerId>,
                                 codec::listed<&SimRec::CallerId, callerIds>};

std::string bundleWords(const SimRec& sim) {
    const auto flags = static_cast<int>(val(sim.BundleFlags));
    const auto code = std::ranges::find(bundleModeCodes, flags & bundleModeBits);
    if (!isWhole(sim.BundleFlags) || code == bundleModeCodes.end()) return escaped(sim.BundleFlags);
    const auto day = flags & bundleDayBits;
    return bundleModes[static_cast<std::size_t>(code - bundleModeCodes.begin())] + std::string(", ") +
           bundleSwitches[(flags & bundleOnBit) != 0 ? 0 : 1] +
           (day == 0 ? "" : ", restore day " + std::to_string(day));
}

std::string rssiWords(const SimRec& sim) {
    const bool known = wholeWithin(sim.BcchRssi, 0, highestSignalLevel);
    return known ? signalLevelWords(val(sim.BcchRssi)) : escaped(sim.BcchRssi);
}

constexpr Codec<SimRec> bcchRssi{codec::takeText<&SimRec::BcchRssi>, codec::held<&SimRec::BcchRssi>, rssiWords};
constexpr Codec<SimRec> bundle{codec::takeText<&SimRec::BundleFlags>, codec::held<&SimRec::BundleFlags>, bundleWords};

using codec::text;

constexpr std::array<Column<SimRec>, 20> columns{{
    {sim_at::PhoneNumber, "Phone Number", text<&SimRec::PhoneNumber>},
    {sim_at::Pin, "PIN", text<&SimRec::Pin>},
    {sim_at::Predial, "Predial", text<&SimRec::Predial>},
    {sim_at::CallerId, "Caller ID", callerId},
    {sim_at::MonthlyContract, "Monthly Budget", text<&SimRec::MonthlyContract>},
    {sim_at::CallMinutes, "Call Minutes", text<&SimRec::CallMinutes>},
    {sim_at::CellLock, "Cell Lock", text<&SimRec::CellLock>},
    {sim_at::BcchRssi, "BCCH RSSI", bcchRssi},
    {sim_at::BcchTimer, "BCCH Timer", text<&SimRec::BcchTimer>},
    {sim_at::BcchNetId, "Operator ID", text<&SimRec::BcchNetId>},
    {sim_at::timeOf(0), "Time Table Row 1", timeOfRow<0>},
    {sim_at::daysOf(0), "Days Of Row 1", daysOfRow<0>},
    {sim_at::timeOf(1), "Time Table Row 2", timeOfRow<1>},
    {sim_at::daysOf(1), "Days Of Row 2", daysOfRow<1>},
    {sim_at::timeOf(2), "Time Table Row 3", timeOfRow<2>},
    {sim_at::daysOf(2), "Days Of Row 3", daysOfRow<2>},
    {sim_at::timeOf(3), "Time Table Row 4", timeOfRow<3>},
    {sim_at::daysOf(3), "Days Of Row 4", daysOfRow<3>},
    {sim_at::BundleFlags, "Bundle", bundle},
    {sim_at::Present, "Present", text<&SimRec::Present>, Writer::Gateway},
}};
static_assert(isGapless(columns) && columns.front().at == sim_at::PhoneNumber);

}  // namespace

std::string signalLevelWords(std::int64_t level) {
    constexpr int decibelsBelow = 111;
    return std::to_string(level - decibelsBelow) + " db";
}

constinit const Columns<SimRec> simColumns = columns;

void storeSim(SimRec& sim, const Fields& fields, bool acknowledged) {
    takeFields(sim, simColumns, fields, acknowledged);
    // A gateway that leaves the mark out has told the record all the same, but not one that tells nothing in it.
    if (!acknowledged && sim.Present.empty() && !sentField(fields, sim_at::BundleFlags).empty()) sim.Present = "1";
}

}  // namespace trunvex
