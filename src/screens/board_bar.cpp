#include "screens/board_bar.h"

#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QRegularExpression>
#include <algorithm>

#include "queues/refresh_queue.h"
#include "screens/board_frame.h"
#include "screens/field_binding.h"
#include "screens/labels.h"
#include "screens/theme.h"

namespace trunvex {

namespace {

constexpr int cardCharacters = 56;

}  // namespace

BoardBar::BoardBar(RefreshQueue& refreshes, BoardFrame& frame, QWidget* parent)
    : QFrame(parent), refreshes_(refreshes), text_(new ElidedLabel), percent_(new QLabel), bar_(new QProgressBar) {
    auto& progress = refreshes.ucCoolProgressBar;
    setObjectName(shown(progress.name()) + "_card");
    setProperty("role", "card");
    text_->setObjectName(shown(progress.name()) + "_text");
    percent_->setFont(figureFont());
    bar_->setObjectName(shown(progress.name()));
    bar_->setTextVisible(false);
    bar_->setRange(0, 100);
    auto* cancel = new QPushButton(tr("Cancel"));
    cancel->setObjectName("cmdCancelRefresh");
    cancel->setAccessibleName(tr("Cancel refreshing"));
    connect(cancel, &QPushButton::clicked, this, [this] { refreshes_.abandon(); });

    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(2 * grid, 2 * grid, 2 * grid, 2 * grid);
    layout->setHorizontalSpacing(2 * grid);
    layout->setVerticalSpacing(grid);
    layout->setColumnStretch(0, 1);
    layout->addWidget(text_, 0, 0);
    layout->addWidget(percent_, 0, 1, Qt::AlignRight);
    layout->addWidget(bar_, 1, 0, 1, 2);
    layout->addWidget(cancel, 2, 1);

    parent->installEventFilter(this);
    frame.follow(this, {&progress}, [this] { refresh(); });
}

void BoardBar::refresh() {
    const auto& progress = refreshes_.ucCoolProgressBar;
    // The percents stand beside the text, where they are not cut off.
    static const QRegularExpression percents("\\s*\\d+%$");
    const auto text = shown(progress.text()).remove(percents);
    const int percent = std::clamp(progress.percent(), 0, 100);
    text_->setText(text);
    percent_->setText(QString::number(percent) + "%");
    bar_->setValue(percent);
    bar_->setAccessibleName(text);
    setVisible(progress.visible());
    if (!progress.visible()) return;
    centre();
    raise();
}

void BoardBar::centre() {
    setFixedWidth(fontMetrics().averageCharWidth() * cardCharacters);
    adjustSize();
    move((parentWidget()->width() - width()) / 2, (parentWidget()->height() - height()) / 2);
}

bool BoardBar::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize && isVisible()) centre();
    return QFrame::eventFilter(watched, event);
}

}  // namespace trunvex
