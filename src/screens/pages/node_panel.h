#pragma once

#include <QWidget>

class QLayout;

namespace trunvex {

class MainPage;
class NodePage;

// What is beside the port tree, for a node or a group of them: caption, boxes of settings, buttons.
class NodePanel : public QWidget {
    Q_OBJECT

protected:
    NodePanel(MainPage& main, NodePage& page, QWidget* parent);

    // What became of a write to the group that is shown; stands among the boxes.
    QWidget* groupWriteList(const char* name);
    // The last step of a panel's constructor.
    void setBoxes(QLayout* boxes);

    MainPage& main_;

private:
    NodePage& page_;
};

}  // namespace trunvex
