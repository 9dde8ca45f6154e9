#pragma once

#include <QWidget>

class QLayout;

namespace trunvex {

class Console;
class NodePage;

// What is beside the port tree, for a node or a group of them: caption, boxes of settings, buttons.
class NodePanel : public QWidget {
    Q_OBJECT

protected:
    NodePanel(Console& console, NodePage& page, QWidget* parent);

    // What became of a write to the group that is shown; stands among the boxes.
    QWidget* groupWriteList(const char* name);
    // The last step of a panel's constructor.
    void setBoxes(QLayout* boxes);

    Console& console_;

private:
    NodePage& page_;
};

}  // namespace trunvex
