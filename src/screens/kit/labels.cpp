#include "screens/kit/labels.h"

#include <QEvent>
#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

#include "screens/kit/theme.h"

namespace trunvex {

namespace {

constexpr int signSize = 14;
constexpr int shortestText = 48;

}  // namespace

IconLabel::IconLabel(int sizePixels, QWidget* parent) : QLabel(parent) { setFixedSize(sizePixels, sizePixels); }

void IconLabel::setIcon(const QIcon& icon) {
    icon_ = icon;
    update();
}

void IconLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    icon_.paint(&painter, rect(), Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
}

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

QSize ElidedLabel::minimumSizeHint() const { return {shortestText, QLabel::minimumSizeHint().height()}; }

bool ElidedLabel::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip || fontMetrics().horizontalAdvance(text()) <= width())
        return QLabel::event(event);
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), text().toHtmlEscaped(), this);
    return true;
}

void ElidedLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const auto shown = fontMetrics().elidedText(text().simplified(), Qt::ElideRight, width());
    style()->drawItemText(&painter, rect(), static_cast<int>(alignment()), palette(), isEnabled(), shown,
                          foregroundRole());
}

StateSign::StateSign(QWidget* parent) : QWidget(parent) { setFixedSize(signSize, signSize); }

void StateSign::setPhase(const QString& phase) {
    phase_ = phase;
    update();
}

// Idle is a ring, connecting half a disc, listening a ring with a dot, log-in a disc with a gap, connected a
// full disc, and half of one with something amiss.
void StateSign::paintEvent(QPaintEvent*) {
    const auto& roles = colours();
    const QColor colour = phase_ == "connected"   ? roles.ok
                          : phase_ == "listening" ? roles.accent
                          : phase_ == "idle"      ? roles.muted
                                                  : roles.warning;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colour, 2));
    const QRectF disc(2, 2, signSize - 4, signSize - 4);
    constexpr int degree = 16;
    painter.drawEllipse(disc);
    painter.setBrush(colour);
    if (phase_ == "connected") {
        painter.drawEllipse(disc);
    } else if (phase_ == "limited") {
        painter.drawChord(disc, 180 * degree, 180 * degree);
    } else if (phase_ == "connecting") {
        painter.drawPie(disc, 90 * degree, 180 * degree);
    } else if (phase_ == "login") {
        painter.drawPie(disc, 90 * degree, 270 * degree);
    } else if (phase_ == "listening") {
        painter.setPen(Qt::NoPen);
        painter.drawEllipse(disc.center(), 2.0, 2.0);
    }
}

QLabel* captionLabel(const QString& text, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    return label;
}

QLabel* roleLabel(const QString& text, const char* role, QWidget* parent) {
    auto* label = captionLabel(text, parent);
    label->setProperty("role", role);
    return label;
}

}  // namespace trunvex
