#include "screens/kit/column_choice.h"

#include <QHeaderView>
#include <QMenu>

namespace trunvex {

namespace {

void fill(QMenu& menu, QHeaderView* header, const std::function<void(int, bool)>& chosen) {
    for (int column = 0; column < header->count(); ++column) {
        auto* action = menu.addAction(header->model()->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString());
        action->setCheckable(true);
        action->setChecked(!header->isSectionHidden(column));
        // The last column stays: a table without one could not be brought back.
        action->setEnabled(!action->isChecked() || header->hiddenSectionCount() < header->count() - 1);
        QObject::connect(action, &QAction::toggled, header, [header, column, chosen](bool shown) {
            header->setSectionHidden(column, !shown);
            if (chosen) chosen(column, shown);
        });
    }
}

}  // namespace

void offerColumns(QHeaderView* header, std::function<void(int column, bool shown)> chosen) {
    header->setContextMenuPolicy(Qt::CustomContextMenu);
    QObject::connect(header, &QWidget::customContextMenuRequested, header,
                     [header, chosen = std::move(chosen)](const QPoint& at) {
                         QMenu menu;
                         menu.setObjectName("mnuColumns");
                         fill(menu, header, chosen);
                         menu.exec(header->mapToGlobal(at));
                     });
}

}  // namespace trunvex
