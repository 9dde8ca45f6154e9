#include "config/port_tree.h"

#include <algorithm>

#include "config/group_file.h"
#include "model/node_key.h"
#include "platform/quietly.h"
#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr std::size_t mostChildren = 201;
constexpr const char* emptyPortList = "Ports(0)";

using node_key::Kind;

constexpr const char* portTypes[] = {"MOD", "CDM", "ERR"};

std::string portText(PortAddress port) { return "Port " + std::to_string(port.number()); }

// The type letters of a node, from the module's type.
const char* nodeType(std::string_view kind) { return kind == "GSM" ? "MOD" : kind == "CDM" ? "CDM" : "ERR"; }

// "Ports(4)" and 1 more give "Ports(5)".
std::string oneMore(std::string_view text) {
    const auto open = text.find('(');
    const auto count = open == std::string_view::npos ? 0 : val(text.substr(open + 1));
    return "Ports(" + std::to_string(count + 1) + ")";
}

void addGroupNodes(TreeField& view, const TreeItem& group, const char* portListText) {
    view.add({group.Key, group.Caption, {}});
    for (int sim = 1; sim <= simsPerModule; ++sim)
        view.add(
            {node_key::ofGroup("SMM", group.Key) + std::to_string(sim), "Group Sim " + std::to_string(sim), group.Key});
    view.add({node_key::ofGroup("MDD", group.Key), "Group Port ", group.Key});
    view.add({node_key::ofGroup("PRT", group.Key), portListText, group.Key});
}

}  // namespace

PortTree::PortTree(Session& session, SharedTables& tables, PortDetection& detection, SettingsRecords& records)
    : dialogs_(session.platform.dialogs()), tables_(tables), session_(session.state), sender_(session.objSpool),
      tell_([&session](const std::string& text) { session.tell(text); }) {
    session.events.begun.connect([this] { forget(); });
    session.events.identified.connect([this] { takeIdentity(); });
    detection.portsDetected.connect([this] { takePorts(); });
    records.kindsChanged.connect([this] { build(Both, false); });
    std::vector<std::string> ports;
    for (int index = 1; index <= portCount; ++index) ports.push_back("Port " + std::to_string(index));
    cmbGRPSelectPort.setItems(std::move(ports));
    cmbGRPSelectPort.valueChanged().connect([this] { selectPort(); });
    cmdCreateGroup.pressed().connect([this] { createGroup(); });
    cmdDeleteGroup.pressed().connect([this] { deleteSelected(); });
    cmdRenameGroup.pressed().connect([this] { renameSelected(); });
    cmdMoveToGroup.pressed().connect([this] { moveChecked(); });
    cmdSaveGroups.pressed().connect([this] { saveGroups(); });
    cmdExportGroups.pressed().connect([this] { exportGroups(); });
    cmdImportGroups.pressed().connect([this] { importGroups(); });
    cmdResetTree.pressed().connect([this] { resetTree(); });
    cmdRefreshTree.pressed().connect([this] { build(Both, false); });
    cmdCollapse.pressed().connect([this] {
        for (auto& tree : tvGroups) tree.setAllExpanded(false);
    });
    cmdExpand.pressed().connect([this] {
        for (auto& tree : tvGroups) tree.setAllExpanded(true);
    });
    for (std::size_t link = 0; link < ucLinkSelectPorts.size(); ++link)
        ucLinkSelectPorts[link].pressed().connect([this, link] {
            auto& tree = tvGroups[link / 2];
            tree.change([&] {
                for (const auto& node : std::vector(tree.nodes()))
                    if (node_key::kindOf(node.key) == Kind::Gsm) tree.setChecked(node.key, link % 2 == 0);
            });
        });
}

TreeItem* PortTree::item(std::string_view key) {
    auto& items = tables_.gTreeItems;
    const auto found = std::find_if(items.begin(), items.end(), [&](const TreeItem& one) { return one.Key == key; });
    return found == items.end() ? nullptr : &*found;
}

void PortTree::build(Views which, bool fromFile) {
    if (fromFile) load({});
    for (int number = 0; number < 2; ++number)
        if (which == Both || which == number)
            buildView(tvGroups[static_cast<std::size_t>(number)], which != Both || number == Second);
}

// The node that was selected, also where its module has turned out to be of another type; else the first one.
std::string PortTree::successor(const TreeField& view, const std::string& selected) const {
    if (view.find(selected)) return selected;
    if (node_key::isPort(selected))
        for (const char* type : portTypes)
            if (auto key = type + std::string(right(selected, 2)); view.find(key)) return key;
    return view.nodes().front().key;
}

// Groups first, then what belongs to them, then the ports that are free. What was expanded or checked stays so.
void PortTree::buildView(TreeField& view, bool last) {
    const auto before = view.nodes();
    const auto selected = view.selected();
    view.change([&] {
        view.clear();
        addGroups(view);
        addMembers(view);
        addFreePorts(view, last);
        for (const auto& node : before) {
            view.setExpanded(node.key, node.expanded);
            view.setChecked(node.key, node.checked);
        }
        view.select(successor(view, selected));
    });
}

void PortTree::addGroups(TreeField& view) {
    for (const auto& one : tables_.gTreeItems)
        if (one.Kind == "GRP" && node_key::isGroup(one.Key)) addGroupNodes(view, one, emptyPortList);
}

// A member whose group is gone, or whose address does not exist, is left out here and stays in the list.
void PortTree::addMembers(TreeField& view) {
    for (const auto& one : tables_.gTreeItems) {
        if (one.Kind == "GRP" || one.Parent.empty()) continue;
        quietly("addMembers", [&] {
            const auto type = moduleType(one.Key);
            if (const auto sim = node_key::simOf(one.Key)) {
                const auto port = node_key::port("MOD", sim->port());
                if (type == "GSM" && one.Parent == port) view.add({one.Key, one.Caption, port});
                return;
            }
            if (node_key::kindOf(one.Parent) != Kind::GroupPorts) return;
            const auto key = std::string(nodeType(type)) + std::string(right(one.Key, 2));
            if (view.add({key, one.Caption, one.Parent})) countMember(view, one.Parent);
        });
    }
}

void PortTree::countMember(TreeField& view, const std::string& groupKey) {
    if (const auto* group = view.find(groupKey)) view.setText(groupKey, oneMore(group->text));
}

void PortTree::addFreePorts(TreeField& view, bool last) {
    for (const auto port : everyPort) {
        const auto key = node_key::port(nodeType(tables_.port(port).Kind), port);
        if (!view.find(key)) {
            const auto* known = item(node_key::stored(key));
            view.add({key, known ? known->Caption : portText(port), {}});
        }
        addSims(view, port);
        if (last) completeList(port);
    }
}

void PortTree::addSims(TreeField& view, PortAddress port) {
    if (tables_.port(port).Kind != "GSM") return;
    for (int sim = 1; sim <= simsPerModule; ++sim)
        view.add({node_key::sim({port, sim}), "SIM " + std::to_string(sim), node_key::port("MOD", port)});
}

// A fresh list fills itself from what the gateway has reported.
void PortTree::completeList(PortAddress port) {
    const auto key = node_key::port("MOD", port);
    const auto& kind = tables_.port(port).Kind;
    const auto append = [this](std::string itemKind, std::string itemKey, std::string caption, std::string parent) {
        if (auto* known = item(itemKey)) {
            if (node_key::isSim(itemKey)) known->Parent = std::move(parent);
            return;
        }
        TreeItem made;
        made.Kind = std::move(itemKind);
        made.Key = std::move(itemKey);
        made.Caption = std::move(caption);
        made.Parent = std::move(parent);
        tables_.gTreeItems.push_back(std::move(made));
    };
    append(kind.empty() ? "ERR" : kind, key, portText(port), {});
    if (kind != "GSM") return;
    for (int sim = 1; sim <= simsPerModule; ++sim)
        append("SIM", node_key::sim({port, sim}), "SIM " + std::to_string(sim), key);
}

std::string PortTree::moduleType(std::string_view key) const {
    const auto port = node_key::portOf(key);
    if (!port) throw std::out_of_range("no such port");
    const auto& kind = tables_.port(*port).Kind;
    return kind == "GSM" || kind == "CDM" ? kind : "ERR";
}

std::vector<std::string> PortTree::children(std::string_view key) const {
    std::vector<std::string> keys;
    for (const auto& one : tables_.gTreeItems) {
        if (one.Parent != key || keys.size() == mostChildren) continue;
        keys.push_back(one.Key);
    }
    return keys;
}

std::vector<std::string> PortTree::ports(std::string_view groupKey) const {
    auto keys = children(node_key::ofGroup("PRT", groupKey));
    std::erase_if(keys, [](const std::string& key) { return !node_key::isPort(key); });
    return keys;
}

std::vector<std::string> PortTree::workingPorts(std::string_view groupKey) const {
    auto keys = ports(groupKey);
    std::erase_if(keys,
                  [this](const std::string& key) { return tables_.port(node_key::portOf(key).value()).Kind == "ERR"; });
    return keys;
}

std::string PortTree::listed(const std::vector<std::string>& ports) {
    std::string text;
    for (const auto& port : ports)
        text += (text.empty() ? "" : ", ") + std::to_string(node_key::portOf(port).value().number());
    return text;
}

std::string PortTree::captionOf(std::string_view key) const {
    const auto stored = node_key::isPort(key) ? node_key::stored(key) : std::string(key);
    for (const auto& one : tables_.gTreeItems)
        if (one.Key == stored && node_key::isPort(stored)) return one.Caption;
    const auto parts = node_key::parse(key);
    if (parts.group != 0)
        return "Group " + std::to_string(parts.group) + (parts.sim == 0 ? "" : " SIM " + std::to_string(parts.sim));
    if (!parts.port) return std::string(key);
    return portText(*parts.port) + (parts.kind == Kind::Sim ? " SIM " + std::to_string(parts.sim) : "");
}

bool PortTree::rename(std::string_view key, const std::string& text) {
    auto* renamed = item(key);
    if (text.empty() || !renamed) return false;
    renamed->Caption = text;
    changed_ = true;
    for (auto& tree : tvGroups) tree.setText(key, text);
    return true;
}

void PortTree::deleteItem(std::string_view key) {
    const std::string gone(key);
    std::erase_if(tables_.gTreeItems, [&](const TreeItem& one) { return one.Key == gone; });
    for (auto& one : tables_.gTreeItems)
        if (one.Parent == gone) one.Parent.clear();
}

bool PortTree::movePort(std::string_view portKey, std::string_view groupKey) {
    const auto target = node_key::kindOf(groupKey);
    const bool toGroup = target == Kind::GroupPorts || target == Kind::Group;
    auto* moved = node_key::isPort(portKey) ? item(node_key::stored(portKey)) : nullptr;
    const auto list = node_key::ofGroup("PRT", groupKey);
    if (!toGroup || !moved || !item(node_key::ofGroup("GRP", groupKey)) || moved->Parent == list) return false;
    moved->Parent = list;
    regrouped();
    return true;
}

void PortTree::regrouped() {
    changed_ = true;
    build(Both, false);
}

void PortTree::createGroup() {
    const auto taken = [this](int number) {
        return std::any_of(tables_.gTreeItems.begin(), tables_.gTreeItems.end(),
                           [&](const TreeItem& one) { return val(one.Number) == number; });
    };
    int number = 1;
    while (number <= node_key::groupCount && taken(number)) ++number;
    if (number > node_key::groupCount) {
        dialogs_.info("you can create only " + std::to_string(node_key::groupCount) + " groups!!");
        return;
    }
    TreeItem group;
    group.Number = pad(std::to_string(number), 2, '0', PadSide::Left);
    group.Key = "GRP" + group.Number;
    group.Kind = "GRP";
    group.Caption = "Group " + std::to_string(number);
    tables_.gTreeItems.push_back(group);
    changed_ = true;
    // The list of ports has this text until the next rebuild.
    for (auto& tree : tvGroups) tree.change([&] { addGroupNodes(tree, group, "Group Port "); });
}

void PortTree::deleteSelected() {
    const auto key = view().selected();
    const auto* node = view().find(key);
    const auto kind = node_key::kindOf(key);
    if (!node || (kind != Kind::Gsm && kind != Kind::Group)) {
        dialogs_.info("you can only delete groups or port items!");
        return;
    }
    if (!dialogs_.agreed(Button::Yes,
                         {"are you sure that you want to delete this Item:" + node->text, "Delete", ButtonSet::YesNo,
                          BoxIcon::Question, 2},
                         forThisList()))
        return;
    if (kind == Kind::Group)
        for (const auto& member : children(node_key::ofGroup("PRT", key))) deleteItem(member);
    deleteItem(key);
    regrouped();
}

void PortTree::renameSelected() {
    const auto key = view().selected();
    if (!node_key::isGroup(key))
        dialogs_.info("you can only rename groups node!!");
    else
        editName.emit(key);
}

void PortTree::moveChecked() {
    frmSelectGroup window(tables_.gTreeItems);
    const auto list = forThisList();
    if (showSelectGroup) showSelectGroup(window);
    if (!list.good() || window.result.empty() || !item(node_key::ofGroup("GRP", window.result))) return;
    const auto nodes = view().nodes();
    for (auto node = nodes.rbegin(); node != nodes.rend(); ++node) {
        if (!node->checked || node_key::kindOf(node->key) != Kind::Gsm) continue;
        auto* moved = item(node_key::stored(node->key));
        if (!moved) continue;
        moved->Parent = window.result;
        moved->Caption = node->text;
        view().setChecked(node->key, false);
    }
    regrouped();
}

void PortTree::selectPort() {
    if (cmbGRPSelectPort.index() == ChoiceField::none) return;
    const auto port = PortAddress::ofNumber(cmbGRPSelectPort.index() + 1);
    // As it stands in the tree, which may be older than what is known of the module.
    for (auto& tree : tvGroups)
        for (const char* type : portTypes)
            if (const auto key = node_key::port(type, port); tree.find(key)) tree.select(key);
    cmbGRPSelectPort.setIndex(ChoiceField::none);  // so that the same port can be gone to again
}

std::vector<QueueItem> PortTree::groupWrite(std::string_view key, const Builder& buildLine) const {
    std::vector<QueueItem> batch;
    const auto add = [&](const std::string& member) {
        const auto parts = node_key::parse(member);
        auto line = buildLine(member);
        if (line.empty()) return;
        const auto sim = parts.kind == Kind::Sim ? " SIM " + std::to_string(parts.sim) : "";
        batch.push_back(command(std::move(line), portText(parts.port.value()) + sim));
    };
    const int number = node_key::parse(key).sim;
    for (const auto& port : workingPorts(key)) {
        if (number == 0) {
            add(port);
            continue;
        }
        for (const auto& child : children(port))
            if (const auto sim = node_key::simOf(child); sim && sim->sim() == number) add(child);
    }
    return batch;
}

frmSelectGroup::frmSelectGroup(const std::vector<TreeItem>& items) {
    for (const auto& one : items)
        if (one.Kind == "GRP") tvGroups.add({one.Key, one.Caption, {}});
    if (!tvGroups.nodes().empty()) tvGroups.select(tvGroups.nodes().front().key);
}

void frmSelectGroup::accept() {
    if (tvGroups.find(tvGroups.selected())) result = node_key::ofGroup("PRT", tvGroups.selected());
}

}  // namespace trunvex
