#include "screens/pages/select_group_screen.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QVBoxLayout>

#include "screens/kit/labels.h"
#include "screens/kit/theme.h"
#include "screens/pages/tree_view.h"

namespace trunvex {

SelectGroupScreen::SelectGroupScreen(frmSelectGroup& model, QWidget* parent) : QDialog(parent), model_(model) {
    setObjectName("frmSelectGroup");
    setWindowTitle(tr("Move to group"));
    auto* column = new QVBoxLayout(this);
    column->setSpacing(grid);
    const bool empty = model.tvGroups.nodes().empty();
    column->addWidget(roleLabel(
        empty ? tr("There is no group yet. Make one first.") : tr("The marked ports are moved to this group:"),
        "muted"));
    auto* tree = new TreeView(model.tvGroups, tr("Groups"));
    tree->setDragEnabled(false);
    tree->setEditTriggers(QAbstractItemView::NoEditTriggers);
    tree->hideColumn(1);
    column->addWidget(tree);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setObjectName("cmdOk");
    buttons->button(QDialogButtonBox::Ok)->setEnabled(!empty);
    connect(buttons, &QDialogButtonBox::accepted, this, &SelectGroupScreen::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    column->addWidget(buttons);
    resize(320, 360);
}

void SelectGroupScreen::accept() {
    model_.accept();
    QDialog::accept();
}

}  // namespace trunvex
