#pragma once

#include "config/grid_rows.h"
#include "config/routing/routing_side.h"
#include "config/table_csv.h"
#include "model/routing_records.h"

namespace trunvex {

// The two access lists of the routing page, in one grid: which callers of the radio side may reach the E1 line, and
// which of the E1 line the radio side. What is edited of one waits while the other is shown.
class AccessRouting final : public RoutingSide {
public:
    AccessRouting(const PageTools& tools, RoutingRecords& routing);
    void park();

    ChoiceField cmbTslAccessE1{"cmbTslAccessE1", {"Incoming GSM Call(CLIP)", "Incoming ISDN Call(CLIP)"}};
    ChoiceField cmbAccessMode{"cmbAccessMode", {"Off", "On"}};
    CheckField chkNumList{"chkNumList", "Admit callers that are not in the list"};
    GridField ucTslAccessE1;
    LabelField lblAccessEmpty{"lblAccessEmpty"};  // empty rows among the others
    // `write` writes the list of ISDN callers, this one that of GSM callers; only that of the list that is shown can.
    ActionField cmdTslWriteAccGSM{"cmdTslWriteAccGSM", "Write"};
    TableCsv csv;

    void holdWrites(bool held);

private:
    RoutingBatch build() override;
    bool showsGsm() const { return cmbTslAccessE1.index() == 0; }
    RoutingRecords::AccessList& list() { return showsGsm() ? routing_.fromGsm : routing_.fromIsdn; }
    void turn();
    void take(const RoutingRecords::AccessList& told);
    void show(const RoutingRecords::AccessList& told);
    void followButtons();

    RoutingRecords& routing_;
    RecordForm access_;
    ReadBack gsmBack_;
    ReadBack isdnBack_;
    bool writesHeld_ = false;
};

}  // namespace trunvex
