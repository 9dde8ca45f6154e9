#pragma once

#include "config/port_page.h"
#include "config/sim_page.h"

namespace trunvex {

// The page "main": which panel stands beside the tree, and what is read of the node that is selected.
class MainPage {
public:
    enum class Panel { None, Port, Sim };

    MainPage(const PageTools& tools, PortTree& tree, PortPage& portPage, SimPage& simPage);

    // The selection handler: shows the selected node's panel and reads a record that was never read.
    void select();
    void forget();
    // While it is false, the panel follows the selection but the gateway is not asked.
    void setMayRead(bool mayRead) { mayRead_ = mayRead; }

    Panel panel() const { return !page_ ? Panel::None : page_ == &simPage_ ? Panel::Sim : Panel::Port; }
    sigc::signal<void()>& panelChanged() { return panelChanged_; }
    LabelField lblSelectHint{"lblSelectHint"};

private:
    void turnTo(NodePage* page);

    const PageTools& tools_;
    PortTree& tree_;
    PortPage& portPage_;
    SimPage& simPage_;
    NodePage* page_ = nullptr;  // that stands beside the tree
    std::string selected_;
    bool mayRead_ = false;
    sigc::signal<void()> panelChanged_;
};

}  // namespace trunvex
