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
    auto* texts = new QVBoxLayout;
    for (auto* field : {&model.lblLink, &model.lblNotice}) addText(*field, texts);
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
    layout->addLayout(texts, 1);
    layout->addWidget(dismiss);

    for (auto* field : {&model.lblLink, &model.lblNotice})
        follow(this, *field,
               [this, &model] { setVisible(!model.lblLink.text().empty() || !model.lblNotice.text().empty()); });
}

void NoticeLine::addText(LabelField& field, QVBoxLayout* texts) {
    auto* text = new QLabel;
    text->setWordWrap(true);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    bind(field, text);
    texts->addWidget(text);
    follow(text, field, [&field, text] {
        text->setVisible(!field.text().empty());
        if (field.text().empty()) return;
        QAccessibleEvent alert(text, QAccessible::Alert);
        QAccessible::updateAccessibility(&alert);
    });
}

}  // namespace trunvex
