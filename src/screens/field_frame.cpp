#include "screens/field_frame.h"

#include <QHBoxLayout>
#include <QPainter>

#include "screens/theme.h"

namespace trunvex {

namespace {

constexpr int margin = 2;

}  // namespace

FieldFrame::FieldFrame(QWidget* field, QWidget* parent) : QWidget(parent) {
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->addWidget(field);
    setSizePolicy(field->sizePolicy().horizontalPolicy(), QSizePolicy::Fixed);
}

void FieldFrame::setWrong(bool wrong) {
    wrong_ = wrong;
    update();
}

void FieldFrame::paintEvent(QPaintEvent*) {
    if (!wrong_) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colours().danger, margin));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 3, 3);
}

}  // namespace trunvex
