#include "screens/pages/pairs_view.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QToolTip>
#include <algorithm>

#include "screens/kit/field_binding.h"
#include "screens/kit/theme.h"

namespace trunvex {

namespace {

constexpr int ends = 32;
constexpr double boxHeight = 32;
constexpr double captionHeight = 24;
constexpr double gap = 3;

}  // namespace

PairsView::PairsView(PortRouting& side, QWidget* parent) : QWidget(parent), side_(side) {
    setObjectName("pairsView");
    setAccessibleName(tr("Pairs of ports and B-channels"));
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setFont(figureFont());
    listen(this, side.pairs.changed(), [this] { update(); });
    listen(this, side.records.changed(), [this] { update(); });
    follow(this, side.pairs.lblTSLPick, [this] { setAccessibleDescription(shown(side_.pairs.lblTSLPick.text())); });
}

QSize PairsView::sizeHint() const { return {ends * 36, 320}; }

QSize PairsView::minimumSizeHint() const { return {ends * 26, 200}; }

QRectF PairsView::box(End end) const {
    const double width = (this->width() - gap) / ends;
    const double top = end.port ? captionHeight : height() - captionHeight - boxHeight;
    return {gap + (end.number - 1) * width, top, width - gap, boxHeight};
}

std::optional<PairsView::End> PairsView::at(const QPointF& point) const {
    for (const bool port : {true, false})
        for (int number = 1; number <= ends; ++number)
            if (box({port, number}).contains(point)) return End{port, number};
    return {};
}

bool PairsView::edited(int port) const {
    return side_.pairs.bound[static_cast<std::size_t>(port - 1)].standing() == InputField::Standing::Edited;
}

int PairsView::portsOn(int line) const {
    int count = 0;
    for (int port = 1; port <= ends; ++port) count += side_.pairs.lineOf(port) == line ? 1 : 0;
    return count;
}

void PairsView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(colours().muted);
    const QRectF top(gap, 0, width() - 2 * gap, captionHeight);
    painter.drawText(top, Qt::AlignLeft | Qt::AlignVCenter, tr("Ports"));
    painter.drawText(top.translated(0, height() - captionHeight), Qt::AlignLeft | Qt::AlignVCenter,
                     tr("B-channels, and the two reserved lines"));
    paintPairs(painter);
    for (const bool port : {true, false})
        for (int number = 1; number <= ends; ++number) paintEnd(painter, {port, number});
}

void PairsView::paintPairs(QPainter& painter) const {
    const auto& roles = colours();
    for (int port = 1; port <= ends; ++port) {
        const int line = side_.pairs.lineOf(port);
        if (line == 0) continue;
        const bool current = current_ == End{true, port} || current_ == End{false, line};
        auto colour = portsOn(line) > 1 ? roles.danger : edited(port) ? roles.accent : roles.muted;
        if (!side_.pairs.isStatic()) colour = roles.border;
        painter.setPen(QPen(colour, current && hasFocus() ? 3 : 1.5));
        const auto from = box({true, port});
        const auto to = box({false, line});
        QPainterPath path(QPointF(from.center().x(), from.bottom()));
        const double bend = (to.top() - from.bottom()) / 2;
        path.cubicTo(from.center().x(), from.bottom() + bend, to.center().x(), to.top() - bend, to.center().x(),
                     to.top());
        painter.drawPath(path);
    }
}

void PairsView::paintEnd(QPainter& painter, End end) const {
    const auto& roles = colours();
    const auto& pairs = side_.pairs;
    const auto where = box(end);
    const bool picked = end.port ? pairs.pickedPort() == end.number : pairs.pickedLine() == end.number;
    const bool told = !end.port || pairs.told(end.number);
    const bool off = end.port && told && !side_.chkTSLPort[static_cast<std::size_t>(end.number - 1)].checked();
    painter.setPen(
        QPen(hasFocus() && current_ == end ? roles.accent : roles.outline, hasFocus() && current_ == end ? 2 : 1));
    painter.setBrush(picked ? roles.accent : told ? roles.field : roles.window);
    painter.drawRoundedRect(where, 4, 4);
    painter.setPen(picked ? roles.onAccent : off || !told ? roles.muted : roles.text);
    const bool reserved = !end.port && end.number >= ChannelPairs::firstReserved;
    const auto text = !told      ? QString(QChar(0x2013))
                      : reserved ? "R" + QString::number(end.number - ChannelPairs::firstReserved + 1)
                                 : QString::number(end.number);
    auto font = painter.font();
    font.setStrikeOut(off);
    painter.setFont(font);
    painter.drawText(where, Qt::AlignCenter, text);
    font.setStrikeOut(false);
    painter.setFont(font);
}

void PairsView::click(End end) {
    current_ = end;
    if (end.port)
        side_.pairs.clickPort(end.number);
    else
        side_.pairs.clickLine(end.number);
    update();
}

void PairsView::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    if (const auto end = at(event->position()))
        click(*end);
    else
        side_.pairs.dropPick();
}

void PairsView::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Left:
        case Qt::Key_Right:
            current_.number = std::clamp(current_.number + (event->key() == Qt::Key_Right ? 1 : -1), 1, ends);
            break;
        case Qt::Key_Up:
        case Qt::Key_Down:
            current_.port = event->key() == Qt::Key_Up;
            break;
        case Qt::Key_Space:
        case Qt::Key_Return:
            click(current_);
            return;
        case Qt::Key_Escape:
            side_.pairs.dropPick();
            return;
        default:
            QWidget::keyPressEvent(event);
            return;
    }
    update();
}

QString PairsView::tipOf(End end) const {
    const auto& pairs = side_.pairs;
    const auto at = static_cast<std::size_t>(end.number - 1);
    if (!end.port) {
        const auto ports = shown(pairs.lblTSLBch[at].text());
        const auto name = shown(lineName(end.number));
        return ports.isEmpty() ? tr("%1 is bound to no port").arg(name) : name + ": " + ports;
    }
    if (!pairs.told(end.number)) return tr("Port #%1 was not read yet").arg(end.number);
    const auto line = shown(pairs.lblTSLStock[at].text());
    const auto name = tr("Port #%1").arg(end.number);
    const auto state = side_.chkTSLPort[at].checked() ? QString() : tr(", disabled");
    return (line.isEmpty() ? tr("%1 is bound to no line").arg(name) : name + ": " + line) + state;
}

bool PairsView::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        if (const auto end = at(help->pos()))
            QToolTip::showText(help->globalPos(), tipOf(*end), this);
        else
            QToolTip::hideText();
        return true;
    }
    return QWidget::event(event);
}

}  // namespace trunvex
