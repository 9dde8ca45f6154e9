#pragma once

#include "config/grid_rows.h"
#include "config/routing/routing_side.h"
#include "config/table_csv.h"
#include "model/routing_records.h"

namespace trunvex {

// The prefixes of the routing page: to which groups of ports a dialled prefix leads.
class PrefixRouting final : public RoutingSide {
public:
    PrefixRouting(const PageTools& tools, RoutingRecords& routing);
    void park() { records.park(tools_.session.gESN); }

    GridField ucTslPrefixes;
    // What is written takes the place of all that the gateway has, or is laid over it.
    CheckField chkPrfEraseFirst{"chkPrfEraseFirst", "Erase the gateway's prefixes first"};
    LabelField lblPrfEraseFirst{"lblPrfEraseFirst"};  // what the choice costs
    LabelField lblPrfDoubled{"lblPrfDoubled"};        // prefixes that stand twice, rows that are empty
    ActionField cmdTslPrfEraseAll{"cmdTslPrfEraseAll", "Erase all"};
    TableCsv csv;

private:
    RoutingBatch build() override;
    void eraseAll();
    void followRows();

    RoutingRecords& routing_;
    RecordForm prefixes_;
    ReadBack readBack_;
};

}  // namespace trunvex
