#include "screens/pages/port_tree_screen.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

#include "config/main_page.h"
#include "model/node_key.h"
#include "screens/kit/field_binding.h"
#include "screens/kit/labels.h"
#include "screens/kit/theme.h"
#include "screens/pages/port_panel.h"
#include "screens/pages/select_group_screen.h"
#include "screens/pages/sim_panel.h"
#include "screens/pages/tree_view.h"

namespace trunvex {

namespace {

constexpr int sideWidth = 320;
constexpr int treeWidth = 340;
constexpr int factColumns = 5;

QPushButton* button(ActionField& action) {
    auto* made = new QPushButton;
    bind(action, made);
    return made;
}

// In a narrow column a button's own margins would take its word's room.
QPushButton* smallButton(ActionField& action) {
    auto* made = button(action);
    made->setProperty("role", "small");
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

QString groupOf(const TreeField& view, const std::string& portKey) {
    const auto* node = view.find(portKey);
    const auto* list = node ? view.find(node->parent) : nullptr;
    const auto* group = list ? view.find(list->parent) : nullptr;
    return group ? shown(group->text) : QObject::tr("none");
}

}  // namespace

PortTreeScreen::PortTreeScreen(MainPage& page, frmSimStatus& board, Platform& platform, QWidget* parent)
    : PageFrame("page_ports", tr("Ports"), parent), page_(page), board_(board), frame_(platform) {
    auto& tree = page.tree;
    auto* columns = new QHBoxLayout;
    columns->setSpacing(2 * grid);
    columns->addWidget(buildTree());
    columns->addLayout(buildSelected(), 1);
    content()->addLayout(columns, 1);

    follow(this, tree.tvGroups[0], [this] { showFacts(); });
    followCells();
}

// The gateway may report far more often than a label can be styled and laid out anew.
void PortTreeScreen::followCells() {
    const int part = frame_.add([this] { showFacts(); });
    for (int index = 1; index <= portCount; ++index)
        board_.cell(index).forEachField([&](Field& field) {
            listen(this, field.changed(), [this, index, part] {
                if (index == selectedPort_) frame_.mark(part);
            });
        });
}

void PortTreeScreen::showEvent(QShowEvent* event) {
    frame_.setAwake(true);
    PageFrame::showEvent(event);
}

void PortTreeScreen::hideEvent(QHideEvent* event) {
    frame_.setAwake(false);
    PageFrame::hideEvent(event);
}

QWidget* PortTreeScreen::buildTree() {
    auto& tree = page_.tree;
    auto* side = new QWidget;
    side->setFixedWidth(treeWidth);
    auto* rows = new QVBoxLayout(side);
    rows->setContentsMargins(0, 0, 0, 0);
    auto* tools = new QHBoxLayout;
    tools->setSpacing(grid / 2);
    auto* goTo = new QComboBox;
    auto* caption = captionLabel(tr("&Go to"));
    bind(tree.cmbGRPSelectPort, goTo, caption);
    tools->addWidget(caption);
    tools->addWidget(goTo);
    tools->addStretch(1);
    for (auto* action : {&tree.cmdExpand, &tree.cmdCollapse}) tools->addWidget(smallButton(*action));
    rows->addLayout(tools);
    auto* ports = new TreeView(tree.tvGroups[0], tr("Ports and SIMs"));
    ports->setDragEnabled(false);  // groups are edited on their own page
    rows->addWidget(ports, 1);
    auto* marks = new QHBoxLayout;
    marks->setSpacing(grid / 2);
    for (auto* action : {&tree.ucLinkSelectPorts[0], &tree.ucLinkSelectPorts[1], &tree.cmdRefreshTree})
        marks->addWidget(smallButton(*action));
    marks->addStretch(1);
    rows->addLayout(marks);
    return side;
}

// What goes on at the port at this moment, and its settings under it.
QLayout* PortTreeScreen::buildSelected() {
    auto* rows = new QVBoxLayout;
    rows->setSpacing(grid);
    factsCard_ = buildFacts();
    rows->addWidget(factsCard_);
    auto& page = page_;
    auto* panels = new QStackedWidget;
    panels->setObjectName("settingsPanels");
    auto* none = roleLabel({}, "muted");
    none->setAlignment(Qt::AlignCenter);
    bind(page.lblSelectHint, none);
    panels->addWidget(none);
    panels->addWidget(new PortPanel(page_));
    panels->addWidget(new SimPanel(page_));
    const auto choose = [panels, &page] { panels->setCurrentIndex(static_cast<int>(page.panel())); };
    choose();
    listen(this, page.panelChanged(), choose);
    rows->addWidget(panels, 1);
    return rows;
}

QFrame* PortTreeScreen::buildFacts() {
    auto* card = new QFrame;
    card->setProperty("role", "card");
    auto* form = new QGridLayout(card);
    form->setHorizontalSpacing(grid);
    form->setVerticalSpacing(grid / 4);
    const QString captions[factCount] = {tr("Address"), tr("Module"),  tr("Group"),  tr("Last event"), tr("Number"),
                                         tr("SIM"),     tr("Network"), tr("Signal"), tr("Talk time")};
    for (std::size_t fact = 0; fact < factCount; ++fact) {
        facts_[fact] = new ElidedLabel;
        facts_[fact]->setAccessibleName(captions[fact]);
        const int row = static_cast<int>(fact) / factColumns;
        const int column = static_cast<int>(fact) % factColumns * 2;
        form->addWidget(roleLabel(captions[fact], "muted"), row, column);
        form->addWidget(facts_[fact], row, column + 1);
        form->setColumnStretch(column + 1, 1);
    }
    return card;
}

void PortTreeScreen::showFacts() {
    const auto& view = page_.tree.tvGroups[0];
    const auto* node = view.find(view.selected());
    const auto port = node ? node_key::portOf(node->key) : std::nullopt;
    selectedPort_ = port ? port->number() : 0;
    factsCard_->setVisible(port.has_value());
    const auto texts = port ? factsOf(*port, node_key::isPort(node->key) ? node->key : node->parent)
                            : std::array<QString, factCount>();
    for (std::size_t row = 0; row < factCount; ++row) showValue(facts_[row], texts[row]);
}

std::array<QString, PortTreeScreen::factCount> PortTreeScreen::factsOf(PortAddress port, const std::string& key) const {
    const auto& cell = board_.cell(port);
    const auto type = node_key::kindOf(key);
    std::array<QString, factCount> facts;
    facts[Address] = tr("MCU %1, module %2").arg(port.mcu()).arg(port.module());
    facts[Module] = type == node_key::Kind::Gsm    ? tr("GSM")
                    : type == node_key::Kind::Cdma ? tr("CDMA")
                                                   : tr("not found");
    facts[Group] = groupOf(page_.tree.tvGroups[0], key);
    facts[Event] = shown(cell.lblMsg.text());
    facts[Number] = shown(cell.lblMsgNumber.text());
    facts[Sim] = cell.LblSIM_num.visible() ? shown(cell.LblSIM_num.text()) : QString();
    facts[Network] = shown(cell.lblNetworkID.text());
    facts[Signal] = shown(cell.lblStrengthDB.text());
    facts[Counter] = cell.lblLimit.visible() ? shown(cell.status.counter) : QString();
    return facts;
}

GroupsScreen::GroupsScreen(PortTree& tree, QWidget* parent)
    : PageFrame("page_groups", tr("Groups"), parent), tree_(tree) {
    auto* columns = new QHBoxLayout;
    columns->setSpacing(2 * grid);
    auto* left = new QVBoxLayout;
    left->addLayout(treeTools(tree, 2));
    view_ = new TreeView(tree.tvGroups[1], tr("Groups and their ports"));
    view_->rename = [&tree](const std::string& key, const std::string& text) { return tree.rename(key, text); };
    view_->movePort = [&tree](const std::string& port, const std::string& target) {
        return tree.movePort(port, target);
    };
    left->addWidget(view_, 1);
    columns->addLayout(left, 1);
    columns->addWidget(buildButtons());
    content()->addLayout(columns, 1);
    listen(this, tree.editName, [this](const std::string& key) { view_->editKey(key); });
    tree.showSelectGroup = [this](frmSelectGroup& model) { SelectGroupScreen(model, window()).exec(); };
}

QGroupBox* GroupsScreen::buildButtons() {
    auto& tree = tree_;
    auto* group = new QGroupBox(tr("Groups"));
    group->setFixedWidth(sideWidth);
    auto* column = new QVBoxLayout(group);
    column->setSpacing(grid);
    const auto hint = [&](const QString& text) {
        auto* label = roleLabel(text, "muted");
        label->setWordWrap(true);
        column->addWidget(label);
    };
    hint(tr(
        "Make a group, mark ports in the tree and move them to it, or drag a port onto a group. F2 renames a group."));
    const auto beside = [column](std::initializer_list<ActionField*> actions) {
        auto* row = new QHBoxLayout;
        row->setSpacing(grid);
        for (auto* action : actions) row->addWidget(button(*action), 1);
        column->addLayout(row);
    };
    beside({&tree.cmdCreateGroup, &tree.cmdMoveToGroup});
    beside({&tree.cmdRenameGroup, &tree.cmdDeleteGroup});
    column->addSpacing(2 * grid);
    hint(tr("Save keeps the groups for this gateway; they are there again at its next log-in."));
    column->addWidget(button(tree.cmdSaveGroups));
    beside({&tree.cmdExportGroups, &tree.cmdImportGroups});
    column->addSpacing(2 * grid);
    beside({&tree.cmdExpand, &tree.cmdCollapse});
    for (auto* action : {&tree.cmdRefreshTree, &tree.cmdResetTree}) column->addWidget(button(*action));
    column->addStretch(1);
    return group;
}

}  // namespace trunvex
