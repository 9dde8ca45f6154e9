#pragma once

#include <QToolBar>

namespace trunvex {

class ActionField;
class FrmPRIGroups;

// The tool bar of the main window: the pages in their order, at the right end the way to the tray.
class ToolBar : public QToolBar {
    Q_OBJECT

public:
    ToolBar(FrmPRIGroups& model, QWidget* parent);

private:
    QAction* addTool(ActionField& tool, const QString& key, const QString& tip, const QKeySequence& shortcut);
    // Its picture tells what a press does.
    void followConnection(QAction* action, ActionField& button);
    void addButton(ActionField& field, const char* icon);
    // Lets the button of an action be reached by keyboard and read out.
    void makeReachable(QAction* action);

    FrmPRIGroups& model_;
};

}  // namespace trunvex
