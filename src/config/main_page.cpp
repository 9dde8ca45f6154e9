#include "config/main_page.h"

#include "model/node_key.h"
#include "text/text_rules.h"

namespace trunvex {

MainPage::MainPage(Session& session, PortTree& portTree, PortPage& port, SimPage& sim, GroupWrite& writeToGroup)
    : Page(session, {"main", "Ports", "Ports, SIMs and their groups", SimPort}), tree(portTree), portPage(port),
      simPage(sim), groupWrite(writeToGroup) {
    tree.tvGroups[0].changed().connect([this] {
        if (tree.tvGroups[0].selected() != selected_)
            select();
        else if (page_)
            page_->refresh();  // a node's name or a group's members may have changed
    });
    tree.cmdRefreshTree.pressed().connect([this] { opened(); });
    for (auto* panel : {static_cast<NodePage*>(&portPage), static_cast<NodePage*>(&simPage)})
        panel->writeStarted().connect([this] { writeStarted.emit(); });
}

void MainPage::holdWrites(bool held) {
    portPage.holdWrites(held);
    simPage.holdWrites(held);
}

std::vector<std::string> MainPage::unwritten(Edits which) const {
    std::vector<std::string> names = tree.unsaved(which == Edits::All);
    for (const auto* panel : {static_cast<const NodePage*>(&portPage), static_cast<const NodePage*>(&simPage)})
        for (auto& name : unwrittenOf(panel->form, which == Edits::All,
                                      [this](const std::string& key) { return tree.captionOf(key); }))
            names.push_back(std::move(name));
    return names;
}

void MainPage::discard() {
    portPage.form.forgetAll();
    simPage.form.forgetAll();
    tree.dropChanges();
}

void MainPage::identified() {
    portPage.form.resume(session_.state.gESN);
    simPage.form.resume(session_.state.gESN);
}

// What is selected may have been so while another page was open, which reads nothing of it.
void MainPage::opened() {
    if (shown()) select();
}

// The tree was built during the log-in.
void MainPage::loggedIn(LogInOutcome) {
    if (shown()) select();
}

// The selection asks the gateway while the page is shown, in a session that does more than watch the board.
bool MainPage::mayRead() const {
    return shown() && session_.state.phase == SessionPhase::Connected && !session_.state.workOnlyWithMonitor &&
           session_.objSpool.isConnected();
}

void MainPage::turnTo(NodePage* page) {
    page_ = page;
    panelChanged_.emit();
}

void MainPage::forget() {
    selected_.clear();
    portPage.forget();
    simPage.forget();
    turnTo(nullptr);
}

void MainPage::select() {
    selected_ = tree.tvGroups[0].selected();
    const auto key = selected_;
    lblSelectHint.setText(key.empty() ? "You must select Port\\Sim first ." : "");
    if (key.empty()) {
        forget();
        return;
    }
    const auto kind = node_key::kindOf(key);
    const bool ofSim = kind == node_key::Kind::Sim || kind == node_key::Kind::GroupSim;
    NodePage& page = ofSim ? static_cast<NodePage&>(simPage) : portPage;
    if (page.shownKey() != key) page.show(key);
    turnTo(&page);
    if (mayRead()) page.readMissing();
}

}  // namespace trunvex
