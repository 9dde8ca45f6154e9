#pragma once

#include <QHash>
#include <QTreeWidget>
#include <functional>

#include "fields/tree_field.h"

namespace trunvex {

// Shows a TreeField: names, check marks on ports, in the second column what kind of module a port is. What the operator
// marks, unfolds or selects goes back to the field. A rebuild of the same nodes moves nothing on the screen.
class TreeView : public QTreeWidget {
    Q_OBJECT

public:
    TreeView(TreeField& field, const QString& accessibleName, QWidget* parent = nullptr);

    // What a finished edit in place and a drop of a port do; both answer whether it was accepted.
    std::function<bool(const std::string& key, const std::string& text)> rename;
    std::function<bool(const std::string& portKey, const std::string& targetKey)> movePort;

    void editKey(const std::string& key);

protected:
    QMimeData* mimeData(const QList<QTreeWidgetItem*>& items) const override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void refresh();
    bool sameNodes() const;
    void rebuild();
    void showNode(QTreeWidgetItem* item, const TreeField::Node& node);
    void takeChange(QTreeWidgetItem* item, int column);
    // The port that is dragged and the group it would come to; both empty when a drop here would do nothing.
    std::pair<std::string, std::string> moveBy(const QDropEvent& event) const;

    TreeField& field_;
    QHash<QString, QTreeWidgetItem*> items_;
    QStringList order_;  // key and parent of each node, to tell a rebuild from a change of texts
    bool refreshing_ = false;
};

}  // namespace trunvex
