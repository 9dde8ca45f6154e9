#include "screens/kit/page_frame.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QStackedWidget>
#include <QVBoxLayout>

#include "screens/kit/icons.h"
#include "screens/kit/labels.h"
#include "screens/kit/theme.h"

namespace trunvex {

namespace {

constexpr int pictureSize = 48;
constexpr int cardWidth = 560;

}  // namespace

void turnTo(QStackedWidget* stack, QWidget* page) {
    const auto* focus = stack->window()->focusWidget();
    const bool within = focus && stack->isAncestorOf(focus);
    stack->setCurrentWidget(page);
    stack->setFocusProxy(page);
    if (within) page->setFocus(Qt::OtherFocusReason);
}

PageFrame::PageFrame(const QString& name, const QString& title, QWidget* parent)
    : QWidget(parent), content_(new QVBoxLayout) {
    setObjectName(name);
    setAccessibleName(title);
    setFocusPolicy(Qt::ClickFocus);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(2 * grid, 2 * grid, 2 * grid, 2 * grid);
    layout->setSpacing(2 * grid);
    layout->addWidget(roleLabel(title, "title"));
    layout->addLayout(content_, 1);
    content_->setSpacing(2 * grid);
}

PlaceholderPage::PlaceholderPage(const QString& name, const QString& title, const QString& icon, const QString& purpose,
                                 QWidget* parent)
    : PageFrame(name, title, parent) {
    auto* card = new QFrame;
    card->setProperty("role", "card");
    card->setMinimumWidth(cardWidth);
    auto* row = new QHBoxLayout(card);
    row->setContentsMargins(3 * grid, 3 * grid, 3 * grid, 3 * grid);
    row->setSpacing(3 * grid);
    auto* picture = new IconLabel(pictureSize);
    picture->setIcon(lineIcon(icon, &ColourRoles::muted));
    row->addWidget(picture, 0, Qt::AlignTop);
    auto* words = new QVBoxLayout;
    words->setSpacing(grid);
    words->addWidget(captionLabel(purpose));
    words->addWidget(roleLabel(tr("This page is empty in this version."), "muted"));
    row->addLayout(words, 1);
    content()->addStretch(1);
    content()->addWidget(card, 0, Qt::AlignHCenter);
    content()->addStretch(4);
}

}  // namespace trunvex
