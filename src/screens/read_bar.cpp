#include "screens/read_bar.h"

#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <algorithm>

#include "queues/read_queue.h"
#include "screens/field_binding.h"
#include "screens/labels.h"
#include "screens/theme.h"

namespace trunvex {

namespace {

constexpr int cardWidth = 384;

}  // namespace

ReadBar::ReadBar(ReadQueue& reads, QWidget* parent)
    : QFrame(parent), reads_(reads), text_(new ElidedLabel), percent_(new QLabel), bar_(new QProgressBar) {
    setObjectName("prgLoadingCard");
    setFixedWidth(cardWidth);
    setFocusPolicy(Qt::ClickFocus);
    text_->setObjectName("prgLoading_text");
    percent_->setObjectName("prgLoading_percent");
    percent_->setFont(figureFont());
    bar_->setObjectName(shown(reads.prgLoading.name()));
    bar_->setTextVisible(false);
    bar_->setRange(0, 100);
    auto* cancel = new QPushButton(tr("Cancel"));
    cancel->setObjectName("cmdCancelLoading");
    cancel->setAccessibleName(tr("Cancel loading"));
    connect(cancel, &QPushButton::clicked, this, [this] { reads_.abandon(); });

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
    follow(this, reads.prgLoading, [this] { refresh(); });
}

void ReadBar::refresh() {
    const auto& loading = reads_.prgLoading;
    const auto text = shown(loading.text());
    const int percent = std::clamp(loading.percent(), 0, 100);
    text_->setText(text);
    percent_->setText(QString::number(percent) + "%");
    bar_->setValue(percent);
    bar_->setAccessibleName(text);
    setAccessibleName(text);
    setVisible(loading.visible());
    if (!loading.visible()) return;
    centre();
    raise();
}

void ReadBar::centre() {
    adjustSize();
    move((parentWidget()->width() - width()) / 2, (parentWidget()->height() - height()) / 2);
}

bool ReadBar::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize && isVisible()) centre();
    return QFrame::eventFilter(watched, event);
}

}  // namespace trunvex
