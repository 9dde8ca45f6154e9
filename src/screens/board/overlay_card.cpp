#include "screens/board/overlay_card.h"

#include <QEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QVBoxLayout>

#include "screens/kit/labels.h"
#include "screens/kit/theme.h"

namespace trunvex {

OverlayCard::OverlayCard(const QString& name, QWidget* parent)
    : QFrame(parent), rows_(new QVBoxLayout(this)), title_(roleLabel({}, "strong")) {
    setObjectName(name);
    setProperty("role", "card");
    setAutoFillBackground(true);
    setFocusPolicy(Qt::ClickFocus);
    rows_->setContentsMargins(2 * grid, 2 * grid, 2 * grid, 2 * grid);
    rows_->setSpacing(grid);
    rows_->addWidget(title_);
    setVisible(false);
    parent->installEventFilter(this);
}

void OverlayCard::setTitle(const QString& title) {
    title_->setText(title);
    setAccessibleName(title);
}

void OverlayCard::setOpen(bool open) {
    const bool opens = open && isHidden();
    setVisible(open);
    if (!open) return;
    centre();
    raise();
    if (opens) setFocus(Qt::OtherFocusReason);
}

void OverlayCard::centre() {
    layout()->activate();
    adjustSize();
    move((parentWidget()->width() - width()) / 2, (parentWidget()->height() - height()) / 2);
}

bool OverlayCard::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize && !isHidden()) centre();
    return QFrame::eventFilter(watched, event);
}

void OverlayCard::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        Q_EMIT closeAsked();
    else
        QFrame::keyPressEvent(event);
}

}  // namespace trunvex
