#include "screens/tool_bar.h"

#include <QAction>
#include <QToolButton>
#include <cstring>

#include "screens/kit/field_binding.h"
#include "screens/kit/icons.h"
#include "screens/kit/theme.h"
#include "shell/main_window.h"

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

ToolBar::ToolBar(FrmPRIGroups& model, QWidget* parent) : QToolBar(tr("Pages"), parent), model_(model) {
    setObjectName("toolBar");
    setMovable(false);
    setContextMenuPolicy(Qt::PreventContextMenu);
    setIconSize({iconPixels, iconPixels});
    setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    int position = 0;
    for (auto* tool : model.tools()) {
        const auto key = shown(tool->name()).mid(int(std::strlen("tool_")));
        const auto shortcut = shortcutOf(key, position++);
        const QString tip = shown(tool->tip()) + " (" + shortcut.toString(QKeySequence::NativeText) + ")";
        auto* action = addTool(*tool, key, tip, shortcut);
        if (key == "connect") followConnection(action, *tool);
    }
    auto* room = new QWidget(this);
    room->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    addWidget(room);
    addButton(model.cmdEvents, "events");
    addButton(model.cmbTrayIcon, "tray");
}

QAction* ToolBar::addTool(ActionField& tool, const QString& key, const QString& tip, const QKeySequence& shortcut) {
    auto* action = addAction(lineIcon(key), {});
    action->setCheckable(key != "exit" && key != "connect");
    action->setToolTip(plainTip(tip));
    action->setShortcut(shortcut);
    bind(tool, action);
    makeReachable(action);
    return action;
}

void ToolBar::followConnection(QAction* action, ActionField& button) {
    follow(action, button,
           [action, &button] { action->setIcon(lineIcon(button.caption() == "Connect" ? "connect" : "disconnect")); });
}

void ToolBar::addButton(ActionField& field, const char* icon) {
    auto* action = addAction(lineIcon(icon), {});
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
