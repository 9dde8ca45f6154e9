#include "model/sim_record.h"

#include "model/record_fields.h"
#include "text/text_rules.h"

namespace trunvex {

void storeSim(SimRec& sim, const Fields& fields, bool acknowledged) {
    const RecordFields sent(fields, acknowledged);
    sent.store(1, sim.PhoneNumber);
    sent.store(2, sim.Pin);
    sent.store(3, sim.Predial);
    if (sent.has(4)) sim.CallerId = std::to_string(val(sent.at(4)));
    sent.store(5, sim.MonthlyContract);
    sent.store(6, sim.CallMinutes);
    sent.store(7, sim.CellLock);
    sent.store(8, sim.BcchRssi);
    sent.store(9, sim.BcchTimer);
    sent.store(10, sim.BcchNetId);
    for (std::size_t row = 0; row < timeRowCount; ++row) {
        sent.store(11 + 2 * row, sim.rows[row].time);
        sent.store(12 + 2 * row, sim.rows[row].days);
    }
    sent.store(19, sim.BundleFlags);
    if (acknowledged) return;
    sent.store(20, sim.Present);
    // A gateway that leaves the mark out has told the record all the same, but not one that tells nothing in it.
    if (sim.Present.empty() && !sent.at(19).empty()) sim.Present = "1";
}

}  // namespace trunvex
