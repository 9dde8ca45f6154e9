#include "screens/board/chart_view.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <cmath>

#include "monitor/rehearsal.h"
#include "screens/board/board_paint.h"
#include "screens/kit/field_binding.h"

namespace trunvex {

namespace {

constexpr int hours = 24;
constexpr double rowGap = 1.5;

QString timeText(int minute) {
    return QString("%1:%2").arg(minute / 60, 2, 10, QChar('0')).arg(minute % 60, 2, 10, QChar('0'));
}

}  // namespace

// Where things stand in the rectangle that is drawn into.
struct ChartView::Frame {
    QRectF area;  // of the bars
    double rowHeight;
    const ColourRoles& roles;
    double pixelRatio;
    double x(int minute) const { return area.left() + area.width() * minute / TimeChart::minutesOfDay; }
    QRectF row(PortAddress port) const {
        return {area.left(), area.top() + rowHeight * static_cast<double>(port.slot()), area.width(), rowHeight};
    }
    // A lane of the row for each SIM.
    QRectF lane(const TimeChart::Span& span) const {
        const auto whole = row(span.port).adjusted(0, rowGap, 0, -rowGap);
        const double each = whole.height() / simsPerModule;
        const double top = snapped(whole.top() + each * (span.sim - 1));
        const double bottom = snapped(whole.top() + each * span.sim) - 1 / pixelRatio;
        const double left = snapped(x(span.from));
        return {left, top, snapped(x(span.to)) - left, std::max(bottom - top, 1 / pixelRatio)};
    }
    // To the device's own pixels, so that all bars are equally high and sharp.
    double snapped(double at) const { return std::round(at * pixelRatio) / pixelRatio; }
};

ChartView::ChartView(const TimeChart& chart, const Rehearsal& rehearsal, QWidget* parent)
    : QWidget(parent), chart_(chart), rehearsal_(rehearsal) {
    setObjectName("picDraw");
    setAccessibleName(tr("Active times of the SIMs"));
    setMouseTracking(true);
}

ChartView::Frame ChartView::frameOf(const QRectF& box, const QFontMetricsF& metrics, const ColourRoles& roles) const {
    const double left = metrics.horizontalAdvance("32") + 12;
    const double right = metrics.horizontalAdvance("24:00") / 2 + 2;
    const QRectF area = box.adjusted(left, metrics.height() + 6, -right, -2);
    return {area, area.height() / portCount, roles, devicePixelRatioF()};
}

void ChartView::draw(QPainter& painter, const QRectF& box, const ColourRoles& roles) const {
    const auto frame = frameOf(box, QFontMetricsF(painter.font(), painter.device()), roles);
    drawAxis(painter, frame);
    drawPorts(painter, frame);
    drawSpans(painter, frame);
    drawCalls(painter, frame);
    drawNow(painter, frame);
}

void ChartView::drawAxis(QPainter& painter, const Frame& frame) const {
    const auto& roles = frame.roles;
    const QFontMetricsF metrics(painter.font(), painter.device());
    const bool each = frame.area.width() / hours > metrics.horizontalAdvance("00:00") * 1.2;
    for (int hour = 0; hour <= hours; ++hour) {
        const double x = frame.x(hour * 60);
        const bool named = each || hour % 3 == 0;
        painter.setPen(QPen(named ? roles.outline : roles.border, 0));
        painter.drawLine(QPointF(x, frame.area.top()), QPointF(x, frame.area.bottom()));
        if (!named) continue;
        painter.setPen(roles.muted);
        painter.drawText(QRectF(x - 60, frame.area.top() - metrics.height() - 3, 120, metrics.height()),
                         Qt::AlignHCenter | Qt::AlignVCenter, timeText(hour * 60));
    }
}

void ChartView::drawPorts(QPainter& painter, const Frame& frame) const {
    const auto& roles = frame.roles;
    const QFontMetricsF metrics(painter.font(), painter.device());
    const bool each = frame.rowHeight >= metrics.height() * 0.8;
    for (const auto port : everyPort) {
        const auto row = frame.row(port);
        painter.setPen(QPen(port.module() == 1 ? roles.outline : roles.border, 0));
        painter.drawLine(row.topLeft(), row.topRight());
        if (!each && port.module() != 1) continue;
        painter.setPen(roles.muted);
        painter.drawText(QRectF(row.left() - 60, row.center().y() - metrics.height() / 2, 54, metrics.height()),
                         Qt::AlignRight | Qt::AlignVCenter, QString::number(port.number()));
    }
    painter.setPen(QPen(roles.outline, 0));
    painter.drawLine(frame.area.bottomLeft(), frame.area.bottomRight());
}

void ChartView::drawSpans(QPainter& painter, const Frame& frame) const {
    painter.setPen(Qt::NoPen);
    for (const auto& span : chart_.DrawChart())
        painter.fillRect(frame.lane(span), screenColour(chart_.colour(span.sim)));
}

// A call that finds a SIM is a thin stroke, one that would not a cross.
void ChartView::drawCalls(QPainter& painter, const Frame& frame) const {
    const auto& roles = frame.roles;
    for (const auto& mark : rehearsal_.marks()) {
        const auto row = frame.row(mark.port).adjusted(0, rowGap, 0, -rowGap);
        const double x = frame.x(mark.minute);
        painter.setPen(QPen(mark.missed ? roles.danger : roles.text, mark.missed ? 1.5 : 1));
        if (!mark.missed) {
            painter.drawLine(QPointF(x, row.top()), QPointF(x, row.bottom()));
            continue;
        }
        const double half = std::min(row.height() / 2, 4.0);
        const QPointF middle(x, row.center().y());
        painter.drawLine(middle + QPointF(-half, -half), middle + QPointF(half, half));
        painter.drawLine(middle + QPointF(-half, half), middle + QPointF(half, -half));
    }
}

void ChartView::drawNow(QPainter& painter, const Frame& frame) const {
    const auto now = chart_.now();
    if (!now) return;
    const double x = frame.x(*now);
    painter.setPen(QPen(frame.roles.danger, 1.5));
    painter.drawLine(QPointF(x, frame.area.top() - 4), QPointF(x, frame.area.bottom()));
}

void ChartView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), colours().field);
    draw(painter, rect(), colours());
}

QString ChartView::tipAt(QPointF place) const {
    const auto frame = frameOf(rect(), QFontMetricsF(font()), colours());
    if (!frame.area.contains(place)) return {};
    const auto port = PortAddress::ofNumber(static_cast<int>((place.y() - frame.area.top()) / frame.rowHeight) + 1);
    const int minute = static_cast<int>((place.x() - frame.area.left()) / frame.area.width() * TimeChart::minutesOfDay);
    QStringList lines{tr("Port %1 at %2").arg(port.number()).arg(timeText(minute))};
    for (const auto& span : chart_.DrawChart())
        if (span.port == port)
            lines << tr("SIM %1: %2 to %3").arg(span.sim).arg(timeText(span.from), timeText(span.to));
    if (lines.size() == 1) lines << tr("No SIM is active on this day.");
    return lines.join("\n");
}

bool ChartView::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    auto* help = static_cast<QHelpEvent*>(event);
    QToolTip::showText(help->globalPos(), plainTip(tipAt(help->pos())).replace("\n", "<br>"), this);
    return true;
}

}  // namespace trunvex
