#pragma once

#include <QToolBar>

namespace trunvex {

class Console;

// The tool bar of the main window: the pages in their order, at the right end the way to the tray.
class ToolBar : public QToolBar {
    Q_OBJECT

public:
    ToolBar(Console& console, QWidget* parent);

private:
    QAction* addTool(const char* key, const QString& tip, const QKeySequence& shortcut);
    void addConnect(const QString& tip, const QKeySequence& shortcut);
    void addTray();
    // Lets the button of an action be reached by keyboard and read out.
    void makeReachable(QAction* action);

    Console& console_;
};

}  // namespace trunvex
