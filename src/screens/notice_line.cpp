#include "screens/notice_line.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

#include "fields/notices.h"
#include "screens/kit/field_binding.h"
#include "screens/kit/icons.h"
#include "screens/kit/labels.h"
#include "screens/kit/theme.h"

namespace trunvex {

NoticeLine::NoticeLine(Notices& model, QWidget* parent) : QFrame(parent) {
    setObjectName("noticeLine");
    auto* icon = new IconLabel(20);
    icon->setIcon(lineIcon("notice"));
    auto* text = new QLabel;
    text->setWordWrap(true);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    bind(model.lblNotice, text);
    auto* dismiss = new QToolButton;
    dismiss->setIcon(lineIcon("dismiss"));
    dismiss->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    dismiss->setText(shown(model.cmdDismissNotice.caption()));
    dismiss->setAutoRaise(true);
    dismiss->setFocusPolicy(Qt::StrongFocus);
    bind(model.cmdDismissNotice, dismiss, tr("Dismiss the notice"));

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(2 * grid, grid / 2, grid, grid / 2);
    layout->setSpacing(grid);
    layout->addWidget(icon);
    layout->addWidget(text, 1);
    layout->addWidget(dismiss);

    follow(this, model.lblNotice, [this, &model, text] {
        setVisible(!model.lblNotice.text().empty());
        if (model.lblNotice.text().empty()) return;
        QAccessibleEvent alert(text, QAccessible::Alert);
        QAccessible::updateAccessibility(&alert);
    });
}

}  // namespace trunvex
