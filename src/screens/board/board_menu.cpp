#include "screens/board/board_menu.h"

#include <QMenu>

#include "monitor/monitor_tools.h"
#include "screens/kit/field_binding.h"

namespace trunvex {

namespace {

QAction* addItem(QMenu* menu, ActionField& field) {
    auto* action = menu->addAction(shown(field.caption()).replace("&", "&&"), menu, [&field] { field.press(); });
    action->setObjectName(shown(field.name()));
    action->setEnabled(field.enabled());
    action->setVisible(field.visible());
    return action;
}

// The items of one kind behind the caption of theirs.
QMenu* addSubMenu(QMenu* menu, const ActionField& caption, const char* name, std::deque<ActionField>& items) {
    auto* sub = menu->addMenu(shown(caption.caption()));
    sub->setObjectName(name);
    sub->menuAction()->setObjectName(shown(caption.name()));
    sub->menuAction()->setVisible(caption.visible());
    for (auto& item : items) addItem(sub, item);
    return sub;
}

}  // namespace

QMenu* makePortMenu(MonitorTools& monitor, QWidget* parent) {
    auto& items = monitor.menu;
    auto* menu = new QMenu("PORT", parent);
    menu->setObjectName("mnuSims");
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addSection(QMenu::tr("Port %1").arg(items.port()));
    for (auto* item : {&items.mnuPortEnable, &items.mnuRefreshPort, &items.mnuResetPort}) addItem(menu, *item);
    menu->addSeparator();
    for (auto* item : {&items.mnuGetCell, &items.mnuDTMFDialer, &items.mnuMessages}) addItem(menu, *item);
    addSubMenu(menu, items.mnuReadSt, "mnuReadSim", items.mnuReadSim);
    addSubMenu(menu, items.mnuRestSt, "mnuResetSim", items.mnuResetSim);
    menu->addSeparator();
    // The lines are there to be looked at; only the last one does something.
    auto& lines = monitor.lastCalls.mnuLastDial;
    auto* calls = addSubMenu(menu, items.mnuDialedNum, "mnuLastDial", lines);
    calls->insertSeparator(calls->actions().back());
    return menu;
}

}  // namespace trunvex
