#include "config/node_page.h"

#include <algorithm>

#include "config/page_table.h"
#include "model/node_key.h"

namespace trunvex {

namespace {

constexpr int refreshBudgetMs = 1000;

}  // namespace

NodePage::NodePage(const PageTools& tools, PortTree& tree, GroupWrite& groupWrite, const Frame& pageFrame)
    : frame(pageFrame), tools_(tools), tree_(tree), groupWrite_(groupWrite) {}

void NodePage::begin() {
    form.changed().connect([this] { follow(); });
    groupWrite_.complete().connect([this](const std::string& group) {
        if (group == key_) form.settle();
    });
    frame.write.pressed().connect([this] { write(); });
    frame.read.pressed().connect([this] { readAgain(); });
    frame.undo.pressed().connect([this] { form.undo(); });
    forget();
}

bool NodePage::checked(std::size_t box, const InputField& field) const {
    return included(box) && field.enabled() && !untouched(field);
}

bool NodePage::showsGroup() const { return node_key::parse(key_).group != 0; }

void NodePage::forget() {
    key_.clear();
    form.forgetAll();
    form.turnTo({});
    refresh();
}

void NodePage::show(const std::string& key) {
    key_ = key;
    form.turnTo(key);
    const bool single = !showsGroup();
    for (auto& box : frame.include) {
        box.setVisible(!single);
        box.setChecked(single);  // a group write sends what its operator has marked, and nothing before that
    }
    refresh();
}

void NodePage::refresh() {
    frame.hint.setText("");
    if (showsGroup())
        showGroup();
    else
        fillRecord();
    follow();
}

void NodePage::showGroup() {
    const auto ports = tree_.ports(key_);
    const auto [kind, group, port, sim] = node_key::parse(key_);
    frame.caption.setText("Groups " + std::to_string(group) + (sim == 0 ? "" : ", SIM " + std::to_string(sim)) +
                          " Ports: " + PortTree::listed(ports));
    fillGroup(ports);
    if (ports.empty()) frame.hint.setText("This group has no ports.");
}

void NodePage::follow() {
    followRules();
    frame.write.setEnabled((showsGroup() || writable()) && !writesHeld_);
    frame.undo.setEnabled(form.edited());
}

void NodePage::holdWrites(bool held) {
    writesHeld_ = held;
    follow();
}

bool NodePage::mayRead() {
    if (key_.empty())
        tools_.dialogs.info("Please select first the port in the ports list.");
    else if (!tools_.sender.isConnected())
        tools_.dialogs.info("Please connect first the gateway.");
    else
        return tools_.mayLose(form);
    return false;
}

void NodePage::readAgain() {
    if (!mayRead()) return;
    if (auto batch = readBatch(); !batch.empty()) tools_.read(std::move(batch), refreshBudgetMs);
}

bool NodePage::mayWrite() const {
    if (!tools_.connected()) return false;
    const auto marked = [this] {
        const auto& boxes = frame.include;
        return std::any_of(boxes.begin(), boxes.end(), [](const CheckField& box) { return box.checked(); });
    };
    if (key_.empty())
        tools_.dialogs.info("You must select Port\\Sim first .");
    else if (!showsGroup() && !form.known())
        tools_.tell(nothingReadText);
    else if (showsGroup() && !marked())
        tools_.tell("Nothing is marked to be written to the group. Mark the fields that the write is to include.");
    else
        return true;
    return false;
}

void NodePage::write() {
    if (!mayWrite()) return;
    form.clearProblems();
    const auto line = buildShown().orTell(tools_.dialogs);
    if (!line.empty() && startWrite(line)) writeStarted_.emit();
}

bool NodePage::startWrite(const std::string& line) {
    if (showsGroup())
        return groupWrite_.start(
            key_, tree_.groupWrite(key_, [this](const std::string& member) { return buildMember(member).line; }));
    // "016" is told back as 16, and what was left empty as it was: neither is an edit any more once it is written.
    form.respell(valuesAfter(line));
    return tools_.write(line, tree_.captionOf(key_));
}

}  // namespace trunvex
