#include "screens/kit/look_style.h"

#include <QPainter>
#include <QStyleOption>

#include "screens/kit/theme.h"

namespace trunvex {

namespace {

constexpr double radius = 3;

void drawEdge(QPainter* painter, const QRect& rect, const QStyleOption& option, const QBrush& fill) {
    const auto& roles = colours();
    const bool enabled = option.state & QStyle::State_Enabled;
    const bool focus = enabled && option.state & QStyle::State_HasFocus;
    const double width = focus ? 2 : 1;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(focus ? roles.accent : enabled ? roles.outline : roles.border, width));
    painter->setBrush(fill);
    painter->drawRoundedRect(QRectF(rect).adjusted(width / 2, width / 2, -width / 2, -width / 2), radius, radius);
    painter->restore();
}

void drawTick(QPainter* painter, const QRectF& box, const QColor& colour) {
    const auto at = [&box](double x, double y) { return box.topLeft() + QPointF(x * box.width(), y * box.height()); };
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(colour, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter->drawPolyline(QPolygonF{at(0.25, 0.53), at(0.43, 0.71), at(0.76, 0.31)});
    painter->restore();
}

}  // namespace

LookStyle::LookStyle() : QProxyStyle("Fusion") {}

void LookStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const {
    if (element == PE_FrameLineEdit) {
        drawEdge(painter, option->rect, *option, Qt::NoBrush);
    } else if (element == PE_IndicatorCheckBox) {
        const bool enabled = option->state & State_Enabled;
        drawEdge(painter, option->rect, *option, option->palette.brush(QPalette::Base));
        if (option->state & State_On)
            drawTick(painter, option->rect, enabled ? colours().accent : colours().muted);
        else if (option->state & State_NoChange)
            painter->fillRect(option->rect.adjusted(4, 4, -4, -4), colours().muted);
    } else {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void LookStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                   const QWidget* widget) const {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    const auto* combo = qstyleoption_cast<const QStyleOptionComboBox*>(option);
    if (control == CC_ComboBox && combo && combo->frame) drawEdge(painter, option->rect, *option, Qt::NoBrush);
}

int LookStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* returned) const {
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
    return QProxyStyle::styleHint(hint, option, widget, returned);
}

}  // namespace trunvex
