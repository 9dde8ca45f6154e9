#include "screens/port_tree_screen.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "config/node_key.h"
#include "screens/field_binding.h"
#include "screens/labels.h"
#include "screens/select_group_screen.h"
#include "screens/theme.h"
#include "screens/tree_view.h"
#include "shell/console.h"

namespace trunvex {

namespace {

constexpr int sideWidth = 320;
constexpr int captionWidth = 96;

enum Fact { Address, Module, Group, Event, Number, Sim, Network, Signal, Counter, factCount };

QPushButton* button(ActionField& action) {
    auto* made = new QPushButton;
    bind(action, made);
    return made;
}

// The row above a tree: mark all or none, unfold, rebuild.
QHBoxLayout* treeTools(PortTree& tree, std::size_t firstLink) {
    auto* row = new QHBoxLayout;
    row->setSpacing(grid);
    row->addWidget(button(tree.ucLinkSelectPorts[firstLink]));
    row->addWidget(button(tree.ucLinkSelectPorts[firstLink + 1]));
    row->addStretch(1);
    return row;
}

QString groupOf(Console& console, const std::string& portKey) {
    const auto* node = console.portTree.tvGroups[0].find(portKey);
    const auto* list = node ? console.portTree.tvGroups[0].find(node->parent) : nullptr;
    const auto* group = list ? console.portTree.tvGroups[0].find(list->parent) : nullptr;
    return group ? shown(group->text) : QObject::tr("none");
}

}  // namespace

PortTreeScreen::PortTreeScreen(Console& console, QWidget* parent)
    : PageFrame("page_ports", tr("Ports"), parent), console_(console) {
    auto& tree = console.portTree;
    auto* columns = new QHBoxLayout;
    columns->setSpacing(2 * grid);
    auto* left = new QVBoxLayout;
    auto* tools = treeTools(tree, 0);
    auto* goTo = new QComboBox;
    auto* caption = captionLabel(tr("&Go to"));
    bind(tree.cmbGRPSelectPort, goTo, caption);
    tools->insertWidget(2, caption);
    tools->insertWidget(3, goTo);
    tools->addWidget(button(tree.cmdExpand));
    tools->addWidget(button(tree.cmdCollapse));
    tools->addWidget(button(tree.cmdRefreshTree));
    left->addLayout(tools);
    auto* ports = new TreeView(tree.tvGroups[0], tr("Ports and SIMs"));
    ports->setDragEnabled(false);  // groups are edited on their own page
    left->addWidget(ports, 1);
    columns->addLayout(left, 1);
    columns->addWidget(buildFacts());
    content()->addLayout(columns, 1);

    follow(this, tree.tvGroups[0], [this] { showFacts(); });
    for (int index = 1; index <= frmSimStatus::portCount; ++index)
        console.board.cell(index).forEachField([&](Field& field) {
            listen(this, field.changed(), [this, index] {
                if (!isVisible()) return;
                const auto& key = console_.portTree.tvGroups[0].selected();
                const bool ofPort = node_key::isPort(key) || node_key::isSim(key);
                if (ofPort && portNumber(node_key::mcu(key), node_key::module(key)) == index) showFacts();
            });
        });
}

// Changes are not followed while the page is hidden.
void PortTreeScreen::showEvent(QShowEvent* event) {
    PageFrame::showEvent(event);
    showFacts();
}

QGroupBox* PortTreeScreen::buildFacts() {
    auto* group = new QGroupBox(tr("Selected"));
    group->setFixedWidth(sideWidth);
    auto* form = new QFormLayout(group);
    form->setHorizontalSpacing(2 * grid);
    form->setVerticalSpacing(grid);
    heading_ = roleLabel({}, "strong");
    heading_->setObjectName("lblSelectedNode");
    form->addRow(heading_);
    const QString captions[factCount] = {tr("Address"), tr("Module"),  tr("Group"),  tr("Last event"), tr("Number"),
                                         tr("SIM"),     tr("Network"), tr("Signal"), tr("Talk time")};
    for (const auto& text : captions) {
        auto* value = new ElidedLabel;
        value->setAccessibleName(text);
        auto* caption = roleLabel(text, "muted");
        caption->setMinimumWidth(captionWidth);
        form->addRow(caption, value);
        facts_.append(value);
    }
    return group;
}

void PortTreeScreen::showFact(int row, const QString& text) { showValue(facts_[row], text); }

void PortTreeScreen::showFacts() {
    const auto& view = console_.portTree.tvGroups[0];
    const auto* node = view.find(view.selected());
    heading_->setText(node ? shown(node->text) : tr("Nothing selected"));
    for (auto* fact : facts_) showValue(fact, {});
    if (!node || (!node_key::isPort(node->key) && !node_key::isSim(node->key))) return;
    const int mcu = node_key::mcu(node->key);
    const int module = node_key::module(node->key);
    auto& cell = console_.board.cell(portNumber(mcu, module));
    const auto portKey = node_key::isPort(node->key) ? node->key : node->parent;
    const auto type = portKey.substr(0, 3);
    showFact(Address, tr("MCU %1, module %2").arg(mcu).arg(module));
    showFact(Module, type == "MOD" ? tr("GSM") : type == "CDM" ? tr("CDMA") : tr("not found"));
    showFact(Group, groupOf(console_, portKey));
    showFact(Event, shown(cell.lblMsg.text()));
    showFact(Number, shown(cell.lblMsgNumber.text()));
    showFact(Sim, shown(cell.LblSIM_num.text()));
    showFact(Network, shown(cell.lblNetworkID.text()));
    showFact(Signal, shown(cell.lblStrengthDB.text()));
    showFact(Counter, shown(cell.lblLimit.text()).section(':', 1));
}

GroupsScreen::GroupsScreen(Console& console, QWidget* parent)
    : PageFrame("page_groups", tr("Groups"), parent), console_(console) {
    auto& tree = console.portTree;
    auto* columns = new QHBoxLayout;
    columns->setSpacing(2 * grid);
    auto* left = new QVBoxLayout;
    left->addLayout(treeTools(tree, 2));
    tree_ = new TreeView(tree.tvGroups[1], tr("Groups and their ports"));
    tree_->rename = [&tree](const std::string& key, const std::string& text) { return tree.rename(key, text); };
    tree_->movePort = [&tree](const std::string& port, const std::string& target) { return tree.movePort(port, target); };
    left->addWidget(tree_, 1);
    columns->addLayout(left, 1);
    columns->addWidget(buildButtons());
    content()->addLayout(columns, 1);
    listen(this, tree.editName, [this](const std::string& key) { tree_->editKey(key); });
    tree.showSelectGroup = [this](frmSelectGroup& model) { SelectGroupScreen(model, window()).exec(); };
}

QGroupBox* GroupsScreen::buildButtons() {
    auto& tree = console_.portTree;
    auto* group = new QGroupBox(tr("Groups"));
    group->setFixedWidth(sideWidth);
    auto* column = new QVBoxLayout(group);
    column->setSpacing(grid);
    const auto hint = [&](const QString& text) {
        auto* label = roleLabel(text, "muted");
        label->setWordWrap(true);
        column->addWidget(label);
    };
    hint(tr("Make a group, mark ports in the tree and move them to it, or drag a port onto a group. F2 renames a group."));
    for (auto* action : {&tree.cmdCreateGroup, &tree.cmdMoveToGroup, &tree.cmdRenameGroup, &tree.cmdDeleteGroup})
        column->addWidget(button(*action));
    column->addSpacing(2 * grid);
    hint(tr("Save keeps the groups for this gateway; they are there again at its next log-in."));
    for (auto* action : {&tree.cmdSaveGroups, &tree.cmdExportGroups, &tree.cmdImportGroups})
        column->addWidget(button(*action));
    column->addSpacing(2 * grid);
    for (auto* action : {&tree.cmdExpand, &tree.cmdCollapse, &tree.cmdRefreshTree, &tree.cmdResetTree})
        column->addWidget(button(*action));
    column->addStretch(1);
    return group;
}

}  // namespace trunvex
