#pragma once

#include "config/grid_rows.h"
#include "config/routing/channel_pairs.h"
#include "config/routing/routing_side.h"
#include "fields/grid_field.h"
#include "model/routing_records.h"

namespace trunvex {

// The port side of the routing page: how calls are allotted, the lines and prefix groups of the ports, and how numbers
// are modified.
class PortRouting final : public RoutingSide {
public:
    // More commands than these in one write, and the gateway is to restart behind them.
    static constexpr std::size_t mostWithoutRestart = 16;
    static constexpr int mostGroup = 255;

    PortRouting(const PageTools& tools, RoutingRecords& routing);

    // What is on the page differs from what the gateway holds in so much that the write ends with a restart.
    bool restarts() const;
    void park();

    ChoiceField optTSLMode{"optTSLMode", {"Static", "Cyclic", "Random"}};
    CheckField chkTSLByPrefix{"chkTSLByPrefix", "By prefixes"};
    TextField txtPRFDigits{"txtPRFDigits"};
    CheckField chkTSLMNP{"chkTSLMNP", "Prefixes carry an MNP routing code"};
    TextField txtTSLWait{"txtTSLWait"};         // seconds
    LabelField lblAllocation{"lblAllocation"};  // the allocation mode in words, shown on the status board too

    std::deque<CheckField> chkTSLPort;  // 32, by port number - 1
    std::deque<TextField> txtTSLPRF;    // 32: the port's prefix group
    ChannelPairs pairs;
    CheckField chkTSLAllPort{"chkTSLAllPort", "All ports"};
    TextField txtTSLGRPCol{"txtTSLGRPCol"};  // "1,3-5": the ports that are to have the group
    ChoiceField cmbTSLGRP{"cmbTSLGRP"};
    ActionField txtTSLGRPSet{"txtTSLGRPSet", "Set group"};

    TextField txtEDNMode{"txtEDNMode"};
    GridField ucTslNumModif;
    LabelField lblTslPortRestart{"lblTslPortRestart"};  // that the write will have the gateway restart

private:
    RoutingBatch build() override;
    void bindAllocation();
    void bindPorts();
    void bindModifications();
    void followMode();
    void showAllocation();
    void showPort(PortAddress at);
    void setGroups();
    std::string wireMode() const;
    bool changed() const;
    std::vector<int> changedPorts() const;
    std::size_t entries() const;
    BuiltLine firstFault();
    BuiltLine portFault(int port);
    void respell();
    void addPorts(RoutingBatch& batch) const;
    void addModifications(RoutingBatch& batch) const;

    RoutingRecords& routing_;
    RecordForm allocation_;
    RecordForm wait_;
    std::deque<RecordForm> ports_;
    RecordForm modificationMode_;
    RecordForm modifications_;
    ReadBack readBack_;
};

}  // namespace trunvex
