#pragma once

#include "config/port_page.h"
#include "config/sim_page.h"
#include "pages/page.h"

namespace trunvex {

// The page "main": which panel stands beside the tree, and what is read of the node that is selected.
class MainPage final : public Page {
public:
    enum class Panel { None, Port, Sim };

    MainPage(Session& session, PortTree& tree, PortPage& portPage, SimPage& simPage, GroupWrite& groupWrite);

    // The selection handler: shows the selected node's panel and reads a record that was never read.
    void select();
    void forget();
    void holdWrites(bool held) override;
    std::vector<std::string> unwritten(Edits which) const override;
    void discard() override;

    Panel panel() const { return !page_ ? Panel::None : page_ == &simPage ? Panel::Sim : Panel::Port; }
    sigc::signal<void()>& panelChanged() { return panelChanged_; }
    LabelField lblSelectHint{"lblSelectHint"};

    PortTree& tree;
    PortPage& portPage;
    SimPage& simPage;
    GroupWrite& groupWrite;

private:
    void identified() override;
    void opened() override;
    void loggedIn(LogInOutcome outcome) override;
    bool mayRead() const;
    void turnTo(NodePage* page);

    NodePage* page_ = nullptr;  // that stands beside the tree
    std::string selected_;
    sigc::signal<void()> panelChanged_;
};

}  // namespace trunvex
