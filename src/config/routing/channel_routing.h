#pragma once

#include "config/routing/routing_side.h"
#include "fields/grid_field.h"
#include "model/routing_records.h"

namespace trunvex {

// The channel side of the routing page: which B-channels are in use and their numbers, the outgoing numbers of the
// reserved lines, and with which causes calls are cleared that find no way. The gateway restarts behind each write.
class ChannelRouting final : public RoutingSide {
public:
    static constexpr int channels = 30;

    ChannelRouting(const PageTools& tools, RoutingRecords& routing);
    void park() { records.park(tools_.session.gESN); }

    std::deque<CheckField> chkTSLChannel;  // 30
    std::deque<TextField> txtTSLNumber;    // 30
    CheckField chkTSLAllChannel{"chkTSLAllChannel", "All channels"};
    std::array<TextField, 2> txtBCHOutNum{TextField("txtBCHOutNum_0"), TextField("txtBCHOutNum_1")};
    GridField ucTslClearCause;

private:
    RoutingBatch build() override;
    void showLine(int number);
    void showCauses();
    TextField& numberField(int line);
    std::string number(int line);
    BuiltLine firstFault();

    RoutingRecords& routing_;
    std::deque<RecordForm> lines_;  // by line - 1, the reserved ones behind the channels
    RecordForm causes_;
};

// What a clearing cause is for, in the order of the wire.
extern const std::array<const char*, RoutingRecords::causeCount> clearingReasons;

}  // namespace trunvex
