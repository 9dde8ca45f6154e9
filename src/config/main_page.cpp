#include "config/main_page.h"

#include "model/node_key.h"
#include "text/text_rules.h"

namespace trunvex {

MainPage::MainPage(const PageTools& tools, PortTree& tree, PortPage& portPage, SimPage& simPage)
    : tools_(tools), tree_(tree), portPage_(portPage), simPage_(simPage) {
    tree_.tvGroups[0].changed().connect([this] {
        if (tree_.tvGroups[0].selected() != selected_)
            select();
        else if (page_)
            page_->refresh();  // a node's name or a group's members may have changed
    });
}

void MainPage::turnTo(NodePage* page) {
    page_ = page;
    panelChanged_.emit();
}

void MainPage::forget() {
    selected_.clear();
    portPage_.forget();
    simPage_.forget();
    turnTo(nullptr);
}

void MainPage::select() {
    selected_ = tree_.tvGroups[0].selected();
    const auto key = selected_;
    lblSelectHint.setText(key.empty() ? "You must select Port\\Sim first ." : "");
    if (key.empty()) {
        forget();
        return;
    }
    const bool ofSim = contains(key, "SIM") || contains(key, "SMM");
    NodePage& page = ofSim ? static_cast<NodePage&>(simPage_) : portPage_;
    if (page.shownKey() != key) page.show(key);
    turnTo(&page);
    if (mayRead_ && tools_.sender.isConnected()) page.readMissing();
}

}  // namespace trunvex
