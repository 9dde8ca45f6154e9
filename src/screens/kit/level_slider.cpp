#include "screens/kit/level_slider.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QSlider>
#include <QStyleOptionSlider>

#include "fields/fields.h"
#include "screens/kit/field_binding.h"
#include "screens/kit/theme.h"

namespace trunvex {

namespace {

constexpr int leverWidth = 224;
constexpr int valueWidth = 32;
constexpr int markRoom = 16;

}  // namespace

LevelSlider::LevelSlider(SliderField& field, const QStringList& marks, QWidget* parent)
    : QWidget(parent), field_(field), marks_(marks), slider_(new QSlider(Qt::Horizontal)), value_(new QLabel) {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, markRoom);
    row->setSpacing(grid);
    slider_->setRange(0, field.highest());
    slider_->setPageStep(1);
    slider_->setTickPosition(QSlider::TicksBelow);
    slider_->setFixedWidth(leverWidth);
    value_->setFixedWidth(valueWidth);
    value_->setFont(figureFont());
    value_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    row->addWidget(slider_);
    row->addWidget(value_);
    // A press on the middle counts too when no position was known before.
    connect(slider_, &QSlider::actionTriggered, this, [this] { field_.setPosition(slider_->sliderPosition()); });
    connect(slider_, &QSlider::sliderReleased, this, [this] { field_.setPosition(slider_->sliderPosition()); });
    connect(slider_, &QSlider::valueChanged, this, [this](int position) { field_.setPosition(position); });
    follow(this, field_, [this] { showPosition(); });
}

void LevelSlider::showPosition() {
    const bool known = field_.position() != SliderField::none;
    const QSignalBlocker quiet(slider_);
    slider_->setValue(known ? field_.position() : field_.highest() / 2);
    showValue(value_, known ? marks_.value(field_.position()) : QString());
    slider_->setAccessibleDescription(value_->text());
}

void LevelSlider::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    auto font = painter.font();
    font.setPointSizeF(font.pointSizeF() * 0.8);
    painter.setFont(font);
    painter.setPen(colours().muted);
    QStyleOptionSlider option;
    option.initFrom(slider_);
    option.orientation = Qt::Horizontal;
    option.maximum = slider_->maximum();
    const int handle = style()->pixelMetric(QStyle::PM_SliderLength, &option, slider_);
    const int span = slider_->width() - handle;
    for (int position = 0; position <= field_.highest(); ++position) {
        const int centre =
            slider_->x() + handle / 2 + QStyle::sliderPositionFromValue(0, field_.highest(), position, span);
        painter.drawText(QRect(centre - handle, slider_->geometry().bottom() - 1, 2 * handle, markRoom),
                         Qt::AlignHCenter | Qt::AlignTop, marks_.value(position));
    }
}

}  // namespace trunvex
