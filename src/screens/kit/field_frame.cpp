#include "screens/kit/field_frame.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QPainter>

#include "screens/kit/theme.h"

namespace trunvex {

namespace {

constexpr int margin = 2;
constexpr int barRoom = 6;
constexpr int barWidth = 3;

}  // namespace

FieldFrame::FieldFrame(QWidget* field, QWidget* parent) : QWidget(parent), field_(field) {
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(barRoom, margin, margin, margin);
    layout->addWidget(field);
    setSizePolicy(field->sizePolicy().horizontalPolicy(), QSizePolicy::Fixed);
}

void FieldFrame::setWrong(bool wrong) {
    wrong_ = wrong;
    update();
}

void FieldFrame::focusField() {
    field_->setFocus(Qt::OtherFocusReason);
    if (auto* edit = qobject_cast<QLineEdit*>(field_)) edit->selectAll();
}

void FieldFrame::setEdited(bool edited) {
    edited_ = edited;
    update();
}

void FieldFrame::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (edited_) painter.fillRect(QRect(0, margin, barWidth, height() - 2 * margin), colours().accent);
    if (!wrong_) return;
    painter.setPen(QPen(colours().danger, margin));
    painter.drawRoundedRect(QRectF(rect()).adjusted(barRoom - margin + 1, 1, -1, -1), 3, 3);
}

}  // namespace trunvex
