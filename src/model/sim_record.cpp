#include "model/sim_record.h"

namespace trunvex {

namespace {

template <std::size_t row, std::string TimeRow::*part>
constexpr Codec<SimRec> ofRow{[](SimRec& sim, std::string_view field) { sim.rows[row].*part = field; },
                              [](const SimRec& sim) { return sim.rows[row].*part; },
                              [](const SimRec& sim) { return escaped(sim.rows[row].*part); }};

using codec::number;
using codec::text;

constexpr std::array<Column<SimRec>, 20> columns{{
    {sim_at::PhoneNumber, "Phone Number", text<&SimRec::PhoneNumber>},
    {sim_at::Pin, "PIN", text<&SimRec::Pin>},
    {sim_at::Predial, "Predial", text<&SimRec::Predial>},
    {sim_at::CallerId, "Caller ID", number<&SimRec::CallerId>},
    {sim_at::MonthlyContract, "Monthly Budget", text<&SimRec::MonthlyContract>},
    {sim_at::CallMinutes, "Call Minutes", text<&SimRec::CallMinutes>},
    {sim_at::CellLock, "Cell Lock", text<&SimRec::CellLock>},
    {sim_at::BcchRssi, "BCCH RSSI", text<&SimRec::BcchRssi>},
    {sim_at::BcchTimer, "BCCH Timer", text<&SimRec::BcchTimer>},
    {sim_at::BcchNetId, "Operator ID", text<&SimRec::BcchNetId>},
    {sim_at::timeOf(0), "Time Table Row 1", ofRow<0, &TimeRow::time>},
    {sim_at::daysOf(0), "Days Of Row 1", ofRow<0, &TimeRow::days>},
    {sim_at::timeOf(1), "Time Table Row 2", ofRow<1, &TimeRow::time>},
    {sim_at::daysOf(1), "Days Of Row 2", ofRow<1, &TimeRow::days>},
    {sim_at::timeOf(2), "Time Table Row 3", ofRow<2, &TimeRow::time>},
    {sim_at::daysOf(2), "Days Of Row 3", ofRow<2, &TimeRow::days>},
    {sim_at::timeOf(3), "Time Table Row 4", ofRow<3, &TimeRow::time>},
    {sim_at::daysOf(3), "Days Of Row 4", ofRow<3, &TimeRow::days>},
    {sim_at::BundleFlags, "Bundle", text<&SimRec::BundleFlags>},
    {sim_at::Present, "Present", text<&SimRec::Present>, Writer::Gateway},
}};
static_assert(isGapless(columns) && columns.front().at == sim_at::PhoneNumber);

}  // namespace

constinit const Columns<SimRec> simColumns = columns;

void storeSim(SimRec& sim, const Fields& fields, bool acknowledged) {
    takeFields(sim, simColumns, fields, acknowledged);
    // A gateway that leaves the mark out has told the record all the same, but not one that tells nothing in it.
    if (!acknowledged && sim.Present.empty() && !sentField(fields, sim_at::BundleFlags).empty()) sim.Present = "1";
}

}  // namespace trunvex
