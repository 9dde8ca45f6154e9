#include "config/main_page.h"

#include "config/node_key.h"
#include "text/text_rules.h"

namespace trunvex {

MainPage::MainPage(const PageTools& tools, PortTree& tree, PortPage& portPage, SimPage& simPage)
    : tools_(tools), tree_(tree), portPage_(portPage), simPage_(simPage) {
    tree_.tvGroups[0].changed().connect([this] {
        if (tree_.tvGroups[0].selected() != selected_)
            select();
        else if (panel_ == Panel::Port)
            portPage_.refresh();  // a node's name or a group's members may have changed
        else if (panel_ == Panel::Sim)
            simPage_.refresh();
    });
}

void MainPage::turnTo(Panel panel) {
    panel_ = panel;
    panelChanged_.emit();
}

void MainPage::forget() {
    selected_.clear();
    portPage_.forget();
    simPage_.forget();
    turnTo(Panel::None);
}

void MainPage::select() {
    selected_ = tree_.tvGroups[0].selected();
    const auto key = selected_;
    const bool reads = mayRead_ && tools_.sender.isConnected();
    lblSelectHint.setText(key.empty() ? "You must select Port\\Sim first ." : "");
    if (key.empty()) {
        forget();
    } else if (contains(key, "SIM") || contains(key, "SMM")) {
        if (simPage_.shownKey() != key) simPage_.show(key);
        turnTo(Panel::Sim);
        if (reads && (simPage_.showsGroup() || !simPage_.form.known())) simPage_.cmdSimRefresh();
    } else {
        if (portPage_.shownKey() != key) portPage_.show(key);
        turnTo(Panel::Port);
        if (reads && contains(key, "MOD") && !portPage_.form.known()) portPage_.readSelected();
    }
}

}  // namespace trunvex
