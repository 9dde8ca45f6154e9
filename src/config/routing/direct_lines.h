#pragma once

#include <set>

#include "config/routing/routing_side.h"
#include "config/table_csv.h"
#include "model/routing_records.h"

namespace trunvex {

// The direct extension lines of the routing page: callers that the gateway puts straight through to an extension, for
// a number of calls or without limit. An entry keeps its number in the gateway as long as it stands.
class DirectLines final : public RoutingSide {
public:
    DirectLines(const PageTools& tools, RoutingRecords& routing);
    void park() { records.park(tools_.session.gESN); }
    // The row that the single-entry buttons are about; beyond the last for none.
    void setRow(std::size_t row);

    enum Erase { Limited, Unlimited, All };

    GridField ucDela;
    LabelField lblDelaMode{"lblDelaMode"};  // what the gateway tells of the table as a whole
    ActionField cmdDELA{"cmdDELA", "Read"};
    ActionField cmdDelaWrite{"cmdDelaWrite", "Write entry"};
    ActionField cmdDelaDelete{"cmdDelaDelete", "Delete entry"};
    ChoiceField cmbDelaErase{"cmbDelaErase", {"All limited calls", "All unlimited calls", "All DELA calls"}};
    ActionField cmdDelaErase{"cmdDelaErase", "Erase"};
    TableCsv csv;

    void holdWrites(bool held);

private:
    RoutingBatch build() override;
    void showTable();
    void readTable();
    std::size_t indexOf(std::size_t row) const;
    void giveIndexes();
    void addEntry(RoutingBatch& batch, std::size_t row) const;
    void addDeletion(RoutingBatch& batch, std::size_t index) const;
    void writeRow();
    void deleteRow();
    void erase();
    void dropRows(const std::set<std::size_t>& gone);
    void followRow();

    RoutingRecords& routing_;
    RecordForm lines_;
    std::size_t row_ = 0;
    bool writesHeld_ = false;
};

}  // namespace trunvex
