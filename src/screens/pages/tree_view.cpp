#include "screens/pages/tree_view.h"

#include <QCoreApplication>
#include <QDropEvent>
#include <QHeaderView>
#include <QMimeData>

#include "model/node_key.h"
#include "screens/kit/field_binding.h"
#include "screens/kit/icons.h"
#include "screens/kit/theme.h"

namespace trunvex {

namespace {

constexpr int keyRole = Qt::UserRole;

std::string keyOf(const QTreeWidgetItem* item) { return item->data(0, keyRole).toString().toStdString(); }

using node_key::Kind;

bool takesPorts(const std::string& key) {
    const auto kind = node_key::kindOf(key);
    return kind == Kind::Group || kind == Kind::GroupPorts;
}

// Of this program's own nodes: another console's ports are not ours.
QString nodeFormat() { return QString("application/x-trunvex-node-%1").arg(QCoreApplication::applicationPid()); }

QString moduleWord(const std::string& key) {
    switch (node_key::kindOf(key)) {
        case Kind::Gsm:
            return QObject::tr("GSM");
        case Kind::Cdma:
            return QObject::tr("CDMA");
        case Kind::Missing:
            return QObject::tr("no module");
        default:
            return {};
    }
}

QString iconName(const std::string& key) {
    if (takesPorts(key)) return "groups";
    if (node_key::isPort(key)) return "main";
    const auto kind = node_key::kindOf(key);
    return kind == Kind::Sim || kind == Kind::GroupSim ? "sim" : "system";
}

QString mark(const TreeField::Node& node) { return shown(node.key + "\n" + node.parent); }

}  // namespace

TreeView::TreeView(TreeField& field, const QString& accessibleName, QWidget* parent)
    : QTreeWidget(parent), field_(field) {
    setObjectName(shown(field.name()));
    setAccessibleName(accessibleName);
    setColumnCount(2);
    setHeaderLabels({tr("Name"), tr("Module")});
    header()->setSectionResizeMode(0, QHeaderView::Stretch);
    header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    header()->setStretchLastSection(false);
    setUniformRowHeights(true);
    setDragEnabled(true);
    setAcceptDrops(true);
    setDropIndicatorShown(true);
    setDragDropOverwriteMode(true);  // a port goes to a group, never between two lines
    setDragDropMode(QAbstractItemView::InternalMove);
    setEditTriggers(QAbstractItemView::EditKeyPressed);
    connect(this, &QTreeWidget::itemChanged, this, &TreeView::takeChange);
    connect(this, &QTreeWidget::itemExpanded, this, [this](QTreeWidgetItem* item) {
        field_.setExpanded(keyOf(item), true);  // also when scrolling to the selected node unfolds its parents
    });
    connect(this, &QTreeWidget::itemCollapsed, this, [this](QTreeWidgetItem* item) {
        if (!refreshing_) field_.setExpanded(keyOf(item), false);
    });
    connect(this, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
        if (!refreshing_ && item) field_.select(keyOf(item));
    });
    follow(this, field_, [this] { refresh(); });
}

void TreeView::refresh() {
    if (refreshing_) return;
    refreshing_ = true;
    const bool same = sameNodes();
    const auto known = items_.keys();
    if (!same) rebuild();
    for (const auto& node : field_.nodes()) showNode(items_.value(shown(node.key)), node);
    if (auto* selected = items_.value(shown(field_.selected())); selected && selected != currentItem()) {
        setCurrentItem(selected);
        scrollToItem(selected);
    }
    // A group that the operator has just made here stands behind all ports until the next rebuild.
    if (rename && isVisible() && !same && !known.isEmpty())
        for (const auto& node : field_.nodes())
            if (node_key::isGroup(node.key) && !known.contains(shown(node.key)))
                scrollToItem(items_.value(shown(node.key)));
    refreshing_ = false;
}

bool TreeView::sameNodes() const {
    if (static_cast<std::size_t>(order_.size()) != field_.nodes().size()) return false;
    for (qsizetype i = 0; i < order_.size(); ++i)
        if (order_[i] != mark(field_.nodes()[static_cast<std::size_t>(i)])) return false;
    return true;
}

void TreeView::rebuild() {
    setUpdatesEnabled(false);
    clear();
    items_.clear();
    order_.clear();
    for (const auto& node : field_.nodes()) {
        auto* parent = items_.value(shown(node.parent));
        auto* item = parent ? new QTreeWidgetItem(parent) : new QTreeWidgetItem(this);
        item->setData(0, keyRole, shown(node.key));
        item->setIcon(0, lineIcon(iconName(node.key)));
        auto flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
        if (node_key::isPort(node.key)) flags |= Qt::ItemIsDragEnabled;
        if (node_key::kindOf(node.key) == Kind::Gsm) flags |= Qt::ItemIsUserCheckable;
        if (takesPorts(node.key)) flags |= Qt::ItemIsDropEnabled;
        if (node_key::isGroup(node.key)) flags |= Qt::ItemIsEditable;
        item->setFlags(flags);
        items_.insert(shown(node.key), item);
        order_.append(mark(node));
    }
    setUpdatesEnabled(true);
}

void TreeView::showNode(QTreeWidgetItem* item, const TreeField::Node& node) {
    if (item->text(0) != shown(node.text)) item->setText(0, shown(node.text));
    const auto word = moduleWord(node.key);
    if (item->text(1) != word) item->setText(1, word);
    if (item->flags() & Qt::ItemIsUserCheckable) {
        const auto state = node.checked ? Qt::Checked : Qt::Unchecked;
        if (item->data(0, Qt::CheckStateRole) != QVariant(state)) item->setCheckState(0, state);
    }
    if (node_key::kindOf(node.key) == Kind::Missing)
        for (const int column : {0, 1}) item->setForeground(column, colours().muted);
    if (item->isExpanded() != node.expanded) item->setExpanded(node.expanded);
}

void TreeView::takeChange(QTreeWidgetItem* item, int column) {
    if (refreshing_ || column != 0) return;
    const auto key = keyOf(item);
    const auto* node = field_.find(key);
    if (!node) return;
    if (item->flags() & Qt::ItemIsUserCheckable) field_.setChecked(key, item->checkState(0) == Qt::Checked);
    if (item->text(0) == shown(node->text)) return;
    const auto text = item->text(0).trimmed().toStdString();
    if (!rename || !rename(key, text)) refresh();
}

void TreeView::editKey(const std::string& key) {
    if (auto* item = items_.value(shown(key))) editItem(item, 0);
}

// What is dragged goes by its key: the gateway may have the tree built anew before the drop.
QMimeData* TreeView::mimeData(const QList<QTreeWidgetItem*>& items) const {
    auto* carried = QTreeWidget::mimeData(items);
    if (carried && !items.isEmpty()) carried->setData(nodeFormat(), QByteArray::fromStdString(keyOf(items.front())));
    return carried;
}

std::pair<std::string, std::string> TreeView::moveBy(const QDropEvent& event) const {
    const auto* dragged = field_.find(event.mimeData()->data(nodeFormat()).toStdString());
    if (!movePort || !dragged || !node_key::isPort(dragged->key)) return {};
    // Onto a port of a group is as good as onto its list.
    const auto* target = itemAt(event.position().toPoint());
    while (target && !takesPorts(keyOf(target))) target = target->parent();
    if (!target || node_key::ofGroup("PRT", keyOf(target)) == dragged->parent) return {};
    return {dragged->key, keyOf(target)};
}

// Every drag of a port may come in; where it can be let go is told while it moves.
void TreeView::dragEnterEvent(QDragEnterEvent* event) {
    QTreeWidget::dragEnterEvent(event);
    event->setAccepted(event->mimeData()->hasFormat(nodeFormat()));
}

void TreeView::dragMoveEvent(QDragMoveEvent* event) {
    QTreeWidget::dragMoveEvent(event);  // scrolls at the edges and marks what is under the mouse
    event->setAccepted(!moveBy(*event).first.empty());
}

void TreeView::dropEvent(QDropEvent* event) {
    const auto [port, group] = moveBy(*event);
    stopAutoScroll();
    setState(NoState);
    event->setDropAction(Qt::IgnoreAction);  // the field moves the node, not the widget
    event->accept();
    if (!port.empty()) movePort(port, group);
}

void TreeView::changeEvent(QEvent* event) {
    QTreeWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) refresh();
}

}  // namespace trunvex
