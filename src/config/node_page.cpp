#include "config/node_page.h"

#include <algorithm>

#include "config/page_table.h"
#include "model/node_key.h"

namespace trunvex {

NodePage::NodePage(const PageTools& tools, PortTree& tree, GroupWrite& groupWrite, const Frame& pageFrame)
    : frame(pageFrame), tools_(tools), tree_(tree), groupWrite_(groupWrite), word_(tools.writes, tools.clock, form) {}

void NodePage::begin(std::vector<BoxedField> fields) {
    fields_ = std::move(fields);
    for (const auto& [field, box] : fields_)
        field->valueChanged().connect([this, field = field, box = box] {
            if (showsGroup() && !form.filling() && form.edited(*field)) frame.include[box].setChecked(true);
        });
    for (auto& box : frame.include) box.valueChanged().connect([this] { showRemark(); });
    form.changed().connect([this] { follow(); });
    groupWrite_.complete().connect([this](const std::string& group) { groupWritten(group); });
    frame.write.pressed().connect([this] { write(); });
    frame.read.pressed().connect([this] { readAgain(); });
    frame.undo.pressed().connect([this] { form.undo(); });
    forget();
}

// What the write of a group that begins now will have brought to its members, when it is complete.
RecordForm::Values NodePage::groupValues() const {
    RecordForm::Values values;
    for (const auto& [field, box] : fields_)
        if (included(box) && !emptiedBehind(box)) values[field] = field->value();
    return values;
}

// What was not marked, what was empty and what was edited since has reached nobody.
void NodePage::groupWritten(const std::string& group) {
    const auto written = [this](const InputField& field, const std::string& value) {
        const auto one = sent_.find(&field);
        return one != sent_.end() && one->second == value;
    };
    const auto key = formKey(group);
    if (key != form.key()) {
        form.settleDraft(key, written);
        return;
    }
    form.settle(written);
    word_.tell(groupWrite_.summary());
}

// All nodes of a group's ports show one record.
std::string NodePage::formKey(const std::string& key) {
    const auto node = node_key::parse(key);
    return node.group != 0 && node.sim == 0 ? node_key::ofGroup("MDD", key) : key;
}

bool NodePage::editedBehind(std::size_t box) const {
    return std::any_of(fields_.begin(), fields_.end(),
                       [&](const BoxedField& one) { return one.second == box && form.edited(*one.first); });
}

// An empty field, which is the operator's doing: emptied, or marked for a group.
bool NodePage::emptiedBehind(std::size_t box) const {
    return silent(box) && std::any_of(fields_.begin(), fields_.end(), [&](const BoxedField& one) {
               return one.second == box && one.first->visible() && one.first->value().empty() &&
                      (showsGroup() || form.edited(*one.first));
           });
}

bool NodePage::isForgotten(std::size_t box) const { return editedBehind(box) && !included(box); }
bool NodePage::isKept(std::size_t box) const { return included(box) && emptiedBehind(box); }

std::string NodePage::captionsOf(bool (NodePage::*holds)(std::size_t box) const) const {
    std::string captions;
    for (std::size_t box = 0; box < frame.include.size(); ++box)
        if ((this->*holds)(box)) captions += (captions.empty() ? "" : ", ") + frame.include[box].caption();
    return captions;
}

void NodePage::showRemark() {
    const auto forgotten = captionsOf(&NodePage::isForgotten);
    const auto kept = captionsOf(&NodePage::isKept);
    frame.remark.setText((forgotten.empty() ? "" : "Changed, but not marked to be written: " + forgotten + ". ") +
                         (kept.empty() ? "" : "Empty, so the gateway keeps what it has: " + kept + "."));
}

bool NodePage::checked(std::size_t box, const InputField& field) const {
    return included(box) && field.enabled() && !untouched(field);
}

bool NodePage::showsGroup() const { return node_key::parse(key_).group != 0; }

void NodePage::forget() {
    key_.clear();
    marks_.clear();
    form.park(tools_.session.gESN);
    form.turnTo({});
    refresh();
}

void NodePage::keepMarks() {
    auto& marks = marks_[form.key()];
    marks.clear();
    for (const auto& box : frame.include) marks.push_back(box.checked());
}

// The nodes of a group that stand for its ports show the same record.
void NodePage::show(const std::string& key) {
    keepMarks();
    key_ = key;
    const bool single = !showsGroup();
    form.turnTo(formKey(key));
    const auto marks = marks_.find(form.key());
    for (std::size_t box = 0; box < frame.include.size(); ++box) {
        frame.include[box].setVisible(!single);
        // A group write sends what its operator has marked, and nothing before that.
        frame.include[box].setChecked(single || (marks != marks_.end() && marks->second[box]));
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
    const auto working = tree_.workingPorts(key_);
    fillGroup(working);
    auto silentPorts = ports;
    std::erase_if(silentPorts, [&](const std::string& one) { return std::ranges::count(working, one) != 0; });
    if (ports.empty())
        frame.hint.setText("This group has no ports.");
    else if (!silentPorts.empty())
        frame.hint.setText(frame.hint.text() + (frame.hint.text().empty() ? "" : " ") +
                           "No module, so left out: port " + PortTree::listed(silentPorts) + ".");
}

void NodePage::follow() {
    followRules();
    showRemark();
    frame.write.setEnabled((showsGroup() || writable()) && !writesHeld_);
    frame.undo.setEnabled(form.edited());
}

void NodePage::holdWrites(bool held) {
    writesHeld_ = held;
    follow();
}

std::string NodePage::nodeText() const {
    const auto* node = tree_.tvGroups[0].find(key_);
    return node ? node->text : key_;
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
    if (auto batch = readBatch(); !batch.empty()) read(std::move(batch), refreshBudgetMs);
}

bool NodePage::mayWrite() const {
    if (!tools_.connected()) return false;
    bool marked = false;
    bool sends = false;
    for (std::size_t box = 0; box < frame.include.size(); ++box) {
        marked = marked || included(box);
        sends = sends || (included(box) && !emptiedBehind(box));
    }
    if (key_.empty())
        tools_.dialogs.info("You must select Port\\Sim first .");
    else if (!showsGroup() && !form.known())
        tools_.tell(nothingReadText);
    else if (showsGroup() && !marked)
        tools_.tell("Nothing is marked to be written to the group. Mark the fields that the write is to include.");
    else if (showsGroup() && !sends && !tree_.workingPorts(key_).empty())
        tools_.tell("Nothing is written: what is marked is empty, and the gateway keeps what it has.");
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
    if (showsGroup()) {
        if (!groupWrite_.start(
                key_, tree_.groupWrite(key_, [this](const std::string& member) { return buildMember(member).line; })))
            return false;
        sent_ = groupValues();
        return true;
    }
    const auto name = tree_.captionOf(key_);
    if (!tools_.write(line, name)) return false;
    // "016" is told back as 16, and what was left empty as it was: neither is an edit any more once it is written.
    form.respell(valuesAfter(line));
    word_.expect(line, name);
    return true;
}

}  // namespace trunvex
