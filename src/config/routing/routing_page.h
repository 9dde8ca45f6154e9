#pragma once

#include "config/routing/access_routing.h"
#include "config/routing/channel_routing.h"
#include "config/routing/direct_lines.h"
#include "config/routing/port_routing.h"
#include "config/routing/prefix_routing.h"
#include "pages/page.h"

namespace trunvex {

struct RoutingPicture;

// The page "tsl": how calls find their way through the gateway. Its parts are written each by itself and read together.
class RoutingPage final : public Page {
public:
    RoutingPage(Session& session, const PageTools& tools, RoutingRecords& routing);

    std::vector<QueueItem> missing() override;
    void holdWrites(bool held) override;
    std::vector<std::string> unwritten(Edits which) const override;
    void discard() override;

    PortRouting portSide;
    ChannelRouting channelSide;
    PrefixRouting prefixes;
    AccessRouting access;
    DirectLines directLines;
    ActionField cmdTslGetData{"cmdTslGetData", "Read"};

    // What would become of a call, by the tables as they stand on the page.
    TextField txtTryNumber{"txtTryNumber"};
    TextField txtTryCaller{"txtTryCaller"};
    ChoiceField cmbTryChannel{"cmbTryChannel"};  // the first entry leaves it open
    LabelField lblTry{"lblTry"};                 // a line a step

private:
    void tornDown() override { park(); }
    void begun() override { park(); }
    void identified() override;
    void park();
    void readAll();
    void tryIt();
    std::string triedNow() const;
    void addLists(RoutingPicture& picture) const;

    const PageTools& tools_;
    RoutingRecords& routing_;
    std::vector<RoutingSide*> sides_;
};

}  // namespace trunvex
