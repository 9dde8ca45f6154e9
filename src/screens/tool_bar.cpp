#include "screens/tool_bar.h"

#include <QAction>
#include <QToolButton>

#include "screens/kit/field_binding.h"
#include "screens/kit/icons.h"
#include "screens/kit/theme.h"
#include "shell/console.h"

namespace trunvex {

namespace {

constexpr int iconPixels = 24;
constexpr int numberedTools = 10;  // Ctrl+1 to Ctrl+9, then Ctrl+0

QKeySequence shortcutOf(const QString& key, int position) {
    if (key == "exit") return QKeySequence("Ctrl+Q");
    if (key == "dbg") return QKeySequence("Ctrl+Shift+D");
    return position < numberedTools ? QKeySequence("Ctrl+" + QString::number((position + 1) % numberedTools))
                                    : QKeySequence();
}

}  // namespace

ToolBar::ToolBar(Console& console, QWidget* parent) : QToolBar(tr("Pages"), parent), console_(console) {
    setObjectName("toolBar");
    setMovable(false);
    setContextMenuPolicy(Qt::PreventContextMenu);
    setIconSize({iconPixels, iconPixels});
    setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    int position = 0;
    for (const auto& page : toolPages) {
        const auto shortcut = shortcutOf(page.key, position++);
        const QString tip = tr(page.tip) + " (" + shortcut.toString(QKeySequence::NativeText) + ")";
        if (QString(page.key) == "connect")
            addConnect(tip, shortcut);
        else
            addTool(page.key, tip, shortcut);
    }
    addTray();
}

QAction* ToolBar::addTool(const char* key, const QString& tip, const QKeySequence& shortcut) {
    auto* action = addAction(lineIcon(key), {});
    action->setCheckable(QString(key) != "exit" && QString(key) != "connect");
    action->setToolTip(plainTip(tip));
    action->setShortcut(shortcut);
    bind(console_.mainWindow.tool(key), action);
    makeReachable(action);
    return action;
}

void ToolBar::addConnect(const QString& tip, const QKeySequence& shortcut) {
    auto* action = addTool("connect", tip, shortcut);
    auto& button = console_.connectButton;
    follow(action, button,
           [action, &button] { action->setIcon(lineIcon(button.caption() == "Connect" ? "connect" : "disconnect")); });
}

void ToolBar::addTray() {
    auto* room = new QWidget(this);
    room->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    addWidget(room);
    auto& field = console_.mainWindow.cmbTrayIcon;
    auto* action = addAction(lineIcon("tray"), {});
    action->setToolTip(plainTip(shown(field.tip())));
    bind(field, action);
    makeReachable(action);
}

void ToolBar::makeReachable(QAction* action) {
    auto* button = qobject_cast<QToolButton*>(widgetForAction(action));
    button->setFocusPolicy(Qt::TabFocus);
    const auto name = [action, button] { button->setAccessibleName(action->text()); };
    name();
    connect(action, &QAction::changed, button, name);
}

}  // namespace trunvex
