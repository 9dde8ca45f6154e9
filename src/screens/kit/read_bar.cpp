#include "screens/kit/read_bar.h"

#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QRegularExpression>
#include <algorithm>

#include "queues/read_queue.h"
#include "screens/kit/field_binding.h"
#include "screens/kit/labels.h"
#include "screens/kit/theme.h"

namespace trunvex {

namespace {

constexpr int cardCharacters = 56;

}  // namespace

ReadBar::ReadBar(CoolProgressBar& bar, Cancel cancel, const Follow& follow, QWidget* parent)
    : QFrame(parent), progress_(bar), text_(new ElidedLabel), percent_(new QLabel), bar_(new QProgressBar) {
    const auto name = shown(bar.name());
    setObjectName(name + "Card");
    setProperty("role", "card");
    setFocusPolicy(Qt::ClickFocus);
    text_->setObjectName(name + "_text");
    percent_->setObjectName(name + "_percent");
    percent_->setFont(figureFont());
    bar_->setObjectName(name);
    bar_->setTextVisible(false);
    bar_->setRange(0, 100);
    auto* button = new QPushButton(tr("Cancel"));
    button->setObjectName(cancel.name);
    button->setAccessibleName(cancel.spoken);
    connect(button, &QPushButton::clicked, this, [press = std::move(cancel.press)] { press(); });

    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(2 * grid, 2 * grid, 2 * grid, 2 * grid);
    layout->setHorizontalSpacing(2 * grid);
    layout->setVerticalSpacing(grid);
    layout->setColumnStretch(0, 1);
    layout->addWidget(text_, 0, 0);
    layout->addWidget(percent_, 0, 1, Qt::AlignRight);
    layout->addWidget(bar_, 1, 0, 1, 2);
    layout->addWidget(button, 2, 1);

    parent->installEventFilter(this);
    follow(this, progress_, [this] { refresh(); });
}

ReadBar::ReadBar(ReadQueue& reads, QWidget* parent)
    : ReadBar(
          reads.bar, {"cmdCancelLoading", tr("Cancel loading"), [&reads] { reads.cancel(); }},
          [](QObject* owner, Field& bar, std::function<void()> refresh) {
              trunvex::follow(owner, bar, std::move(refresh));
          },
          parent) {}

void ReadBar::refresh() {
    // Where the text ends in percents, they stand beside it already, and there they are not cut off.
    static const QRegularExpression percents("\\s*\\d+%$");
    const auto text = shown(progress_.text()).remove(percents);
    const int percent = std::clamp(progress_.percent(), 0, 100);
    text_->setText(text);
    percent_->setText(QString::number(percent) + "%");
    bar_->setValue(percent);
    bar_->setAccessibleName(text);
    setAccessibleName(text);
    setVisible(progress_.visible());
    if (!progress_.visible()) return;
    centre();
    raise();
}

void ReadBar::centre() {
    setFixedWidth(fontMetrics().averageCharWidth() * cardCharacters);
    adjustSize();
    move((parentWidget()->width() - width()) / 2, (parentWidget()->height() - height()) / 2);
}

bool ReadBar::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize && isVisible()) centre();
    return QFrame::eventFilter(watched, event);
}

}  // namespace trunvex
