#include "screens/board/board_cell.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QContextMenuEvent>
#include <QFontMetricsF>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <cmath>
#include <utility>

#include "model/shared_tables.h"
#include "monitor/port_cell.h"
#include "screens/kit/board_frame.h"
#include "screens/kit/field_binding.h"

namespace trunvex {

namespace {

// All lengths below are those of a cell of this size; they grow with it.
constexpr double designWidth = 138;
constexpr double designHeight = 150;
constexpr double markTint = 0.3;

QString withoutColon(QString caption) { return caption.remove(':').simplified(); }

// How many characters of the text make up its first line; all of them when it can't be broken.
qsizetype firstLine(const QString& text, const QFontMetricsF& metrics, double width) {
    for (const auto room : {width, width / smallestFit}) {
        for (auto cut = text.size(); cut > 0; --cut) {
            const bool breaks = cut == text.size() || text[cut] == ' ' || text[cut - 1] == '-';
            if (breaks && metrics.horizontalAdvance(text.left(cut)) <= room) return cut;
        }
    }
    return text.size();
}

// A screen reader asks when it wants to know; nobody else pays for the words.
class SpokenCell : public QAccessibleWidget {
public:
    explicit SpokenCell(BoardCell* cell) : QAccessibleWidget(cell, QAccessible::StaticText) {}
    QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Description) return static_cast<BoardCell*>(widget())->stateInWords();
        return QAccessibleWidget::text(kind);
    }
};

QAccessibleInterface* speak(const QString&, QObject* object) {
    auto* cell = qobject_cast<BoardCell*>(object);
    return cell ? new SpokenCell(cell) : nullptr;
}

}  // namespace

struct BoardCell::Sizes {
    double unit;
    int width;
    int height;
    const QFont& font(double pixels, bool bold = false) const { return boardFont(qRound(pixels * unit), bold); }
    int length(double design) const { return qRound(design * unit); }
    int inset() const { return length(5); }
    // The nth of the four lines under the band.
    QRectF line(int number, double left = 0, double right = 1) const {
        const double top = height * 0.485;
        const double each = (height - length(3) - top) / 4;
        const double room = width - 2 * inset();
        return QRectF(inset() + room * left, top + each * number, room * (right - left), each);
    }
    QRectF iconIn(const QRectF& box, double size) const {
        const int side = length(size);
        return QRectF(qRound(box.left()), qRound(box.center().y() - side / 2.0), side, side);
    }
};

BoardCell::BoardCell(PortCell& cell, BoardFrame& frame, QWidget* parent) : QWidget(parent), cell_(cell) {
    const int index = cell.index;
    static const bool spoken = (QAccessible::installFactory(speak), true);
    Q_UNUSED(spoken)
    setObjectName(QString("portCell_%1").arg(index));
    const auto port = PortAddress::ofNumber(index);
    setAccessibleName(tr("Port %1, MCU %2, module %3").arg(index).arg(port.mcu()).arg(port.module()));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::ClickFocus);
    const int part = frame.add([this] { repaintLater(); });
    cell_.forEachField([&](Field& field) { listen(this, field.changed(), [&frame, part] { frame.mark(part); }); });
}

QString BoardCell::text(const LabelField& field) { return shown(field.text()); }

QString BoardCell::text(const PictureField& field) { return shown(field.picture()); }

// Nothing of a field that is hidden.
QString BoardCell::seen(const LabelField& field) { return field.visible() ? text(field) : QString(); }

QString BoardCell::cmdResetLimit() const { return shown(cell_.cmdResetLimit.caption()); }

QString BoardCell::cmdResetSlave() const { return shown(cell_.cmdResetSlave.caption()); }

void BoardCell::repaintLater() {
    stale_ = true;
    update();
    if (!QAccessible::isActive()) return;
    QAccessibleEvent told(this, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&told);
}

void BoardCell::hardwareChanged() { repaintLater(); }

QString BoardCell::meaning() const { return shown(cell_.shpSim.tip()); }

bool BoardCell::absent() const {
    const auto& status = cell_.status;
    const bool silent = status.state.value_or(BoardColours::PORT_NOT_ACTIVE) == BoardColours::PORT_NOT_ACTIVE &&
                        status.event == AlarmCode::None && !status.sim && status.simLamp == Lamp::Off &&
                        status.netLamp == Lamp::Off;
    return silent && (status.kind == ModuleKind::NotTold || status.kind == ModuleKind::Missing);
}

void BoardCell::layOut() {
    stale_ = false;
    pixelRatio_ = devicePixelRatioF();
    for (auto& piece : texts_) piece.clear();
    for (auto& piece : icons_) piece.clear();
    buttons_.fill({});
    const Sizes sizes{std::min(width() / designWidth, height() / designHeight), width(), height()};
    faint_ = absent();
    layOutHeading(sizes);
    if (faint_) {
        const bool told = cell_.status.kind != ModuleKind::NotTold;
        texts_[Message].set(told ? tr("No module") : tr("Not reported"), sizes.font(12),
                            QRectF(sizes.inset(), 0, width() - 2 * sizes.inset(), height()), colours().muted,
                            Qt::AlignHCenter);
        return;
    }
    layOutBand(sizes);
    layOutLamps(sizes);
    layOutNetwork(sizes);
    layOutButtons(sizes);
    layOutCounter(sizes);
}

void BoardCell::layOutHeading(const Sizes& sizes) {
    const auto& roles = colours();
    const QRectF line(sizes.inset(), 1, width() - 2 * sizes.inset(), height() * 0.15);
    const auto box = sizes.iconIn(line, 13);
    const bool enabled = chkSTPEnable();
    if (!faint_) buttons_[EnableBox] = box.adjusted(-3, -3, 3, 3);
    const bool off = cell_.status.enabled && !enabled;
    icons_[Enable].set(checkIcon(cell_.status.enabled, enabled), off && !faint_ ? roles.danger : roles.muted, box,
                       pixelRatio_);
    const auto colour = cell_.lblBCH.colour();
    const auto ink = faint_                  ? roles.muted
                     : colour == colourBlack ? roles.text
                                             : readableOn(roles.surface, screenColour(colour));
    texts_[Heading].set(lblBCH(), sizes.font(11, cell_.lblBCH.bold()),
                        line.adjusted(box.width() + sizes.length(4), 0, 0, 0), ink);
}

// The event in words, then the number of the call. Words that are too long go on in a second line, and with a number
// under them the three lines share the band.
void BoardCell::layOutBand(const Sizes& sizes) {
    band_ = QRect(1, qRound(height() * 0.16), width() - 2, qRound(height() * 0.32));
    bandColour_ = shpSim();
    const auto ink = inkOn(bandColour_);
    const auto inset = sizes.inset() - 1;
    const QRectF inside = QRectF(band_).adjusted(inset, sizes.length(3), -inset, -sizes.length(3));
    // Before the first event the band says what its colour means.
    const bool heard = !lblMsg().isEmpty();
    const auto message = heard ? lblMsg().simplified() : meaning();
    const bool numbered = !lblMsgNumber().isEmpty();
    const auto markWidth = sizes.length(17 + 4);
    const auto cut = firstLine(message, QFontMetricsF(sizes.font(12, heard)), inside.width() - markWidth);
    const int lines = cut < message.size() && numbered ? 3 : 2;
    const auto line = [&](int number) {
        const double each = inside.height() / lines;
        return QRectF(inside.left(), inside.top() + each * number, inside.width(), each);
    };
    const auto beside = [&](const QRectF& whole) { return whole.adjusted(markWidth, 0, 0, 0); };
    const auto& state = cell_.status.state;
    icons_[State].set(state ? stateIcon(*state) : "led_none", ink, sizes.iconIn(line(0), 17), pixelRatio_);
    const bool inCall = !imgStatus().isEmpty();
    if (inCall) icons_[Call].set(imgStatus(), ink, sizes.iconIn(line(lines - 1), 17), pixelRatio_);

    const auto& font = fittingFont(sizes.font(lines == 3 ? 11 : 12, heard), message.left(cut), beside(line(0)).width());
    texts_[Message].set(message.left(cut), font, beside(line(0)), ink);
    texts_[SecondLine].set(message.mid(cut).trimmed(), font, beside(line(1)), ink);
    texts_[Number].set(lblMsgNumber(), sizes.font(lines == 3 ? 12 : 14),
                       inCall || lines == 3 ? beside(line(lines - 1)) : line(1), ink);
}

void BoardCell::layOutLamps(const Sizes& sizes) {
    const auto& roles = colours();
    const auto addLamp = [&](Icon icon, const PictureField& field, const QRectF& line) {
        if (!field.visible()) return line;
        const auto lamp = lampOf(field.picture());
        const auto box = sizes.iconIn(line, 15);
        icons_[icon].set(lamp.icon, roles.*lamp.role, box, pixelRatio_);
        return line.adjusted(box.width() + sizes.length(4), 0, 0, 0);
    };
    const auto sim = addLamp(SimLamp, cell_.imgStatusSim, sizes.line(0, 0, 0.58));
    const auto& font = sizes.font(12);
    if (seen(cell_.LblSIM_num).isEmpty())
        texts_[Sim].set(withoutColon(seen(cell_.lblSimLed)), font, sim, roles.muted);
    else
        texts_[Sim].set(LblSIM_num(), font, sim, roles.text);

    const auto net = addLamp(NetLamp, cell_.imgStatusNet, sizes.line(0, 0.6, 1));
    if (lblRM_HM().isEmpty())
        texts_[Net].set(withoutColon(lblNetworkLed()), font, net, roles.muted);
    else
        texts_[Home].set(lblRM_HM(), sizes.font(12, true), net,
                         cell_.status.network == PortStatus::Network::Roaming ? roles.warning : roles.text);
}

// Network and BCCH share a line; where it is too short for both, both give way.
void BoardCell::layOutNetwork(const Sizes& sizes) {
    const auto& roles = colours();
    auto line = sizes.line(1);
    const bool known = !lblNetworkID().isEmpty();
    const auto network = known ? lblNetworkID() : withoutColon(lblNetwork());
    const auto bcch = lblNetBCCH();
    const auto gap = bcch.isEmpty() ? 0 : sizes.length(4);
    const auto pixels = fittingFont(sizes.font(12), network + bcch, line.width() - gap).pixelSize();
    const auto& font = boardFont(pixels, cell_.lblNetBCCH.bold());
    const auto bcchWidth = std::ceil(QFontMetricsF(font).horizontalAdvance(bcch));
    texts_[Bcch].set(bcch, font, line.adjusted(line.width() - bcchWidth, 0, 0, 0), roles.text, Qt::AlignRight);
    line.adjust(0, 0, -bcchWidth - gap, 0);
    texts_[NetworkId].set(network, boardFont(pixels, known && cell_.lblNetworkID.bold()), line,
                          known ? roles.text : roles.muted);
}

void BoardCell::layOutCounter(const Sizes& sizes) {
    const auto& roles = colours();
    const auto signal = sizes.line(2);
    const auto reception = cell_.status.antenna;
    const bool weak =
        reception == Antenna::Unregistered || reception == Antenna::NoSignal || reception == Antenna::OneBar;
    const auto antenna = sizes.iconIn(signal, 17);
    icons_[Antenna].set(imgAntenna().isEmpty() ? "imgAnt_0" : imgAntenna(),
                        imgAntenna().isEmpty() ? roles.muted
                        : weak                 ? roles.warning
                                               : roles.text,
                        antenna, pixelRatio_);
    texts_[Decibel].set(lblStrengthDB(), sizes.font(12), signal.adjusted(antenna.width() + sizes.length(6), 0, 0, 0),
                        roles.text);
    auto right = buttons_[ResetButton].isNull() ? signal.right() : buttons_[ResetButton].left() - sizes.length(3);
    const auto mark = [&](Icon icon, const QString& picture, const QColor& colour) {
        if (picture.isEmpty()) return;
        auto box = sizes.iconIn(signal, 17);
        box.moveRight(right);
        icons_[icon].set(picture, colour, box, pixelRatio_);
        right = box.left() - sizes.length(4);
    };
    mark(Sms, imgSMS(), roles.accent);
    if (!imgStatusLock().isEmpty()) mark(Lock, "net_lock", roles.*lampOf(cell_.imgStatusLock.picture()).role);
    texts_[Count].set(seen(cell_.lblLimit), sizes.font(12),
                      sizes.line(3).adjusted(0, 0, -buttons_[MenuButton].width() - sizes.length(2), 0), roles.text);
}

// The menu's button is always there; the one that resets at a single press only where the operator is.
void BoardCell::layOutButtons(const Sizes& sizes) {
    const auto& roles = colours();
    const auto under = [&](int number, int width) {
        const auto line = sizes.line(number);
        const auto high = std::min<double>(line.height(), sizes.length(17));
        return QRectF(qRound(line.right()) - width + 0.5, qRound(line.center().y() - high / 2) + 0.5, width, high);
    };
    buttons_[MenuButton] = under(3, sizes.length(21));
    const double side = sizes.length(13);
    QRectF icon(0, 0, side, side);
    icon.moveCenter(buttons_[MenuButton].center());
    icons_[Menu].set("port_menu", roles.text, QRectF(qRound(icon.left()), qRound(icon.top()), side, side), pixelRatio_);
    if (!hasFocus() && !underMouse()) return;
    buttons_[ResetButton] = under(2, sizes.length(42));
    texts_[Reset].set(cmdResetSlave(), sizes.font(10), buttons_[ResetButton], roles.text, Qt::AlignHCenter);
}

void BoardCell::layOutLater() {
    stale_ = true;
    update();
}

void BoardCell::setMarked(bool marked) {
    if (marked_ == marked) return;
    marked_ = marked;
    repaintLater();
}

int BoardCell::buttonAt(QPointF place) const {
    for (int button = 0; button < Buttons; ++button)
        if (buttons_[static_cast<std::size_t>(button)].contains(place)) return button;
    return Buttons;
}

void BoardCell::press(int button) {
    if (button == EnableBox) cell_.chkSTPEnable.press();
    if (button == MenuButton) cell_.cmdResetLimit.press();
    if (button == ResetButton) cell_.cmdResetSlave.press();
}

void BoardCell::mousePressEvent(QMouseEvent* event) {
    const bool left = event->button() == Qt::LeftButton;
    if (left && event->modifiers().testFlag(Qt::ControlModifier))
        Q_EMIT markAsked();
    else
        pressed_ = left ? buttonAt(event->position()) : Buttons;
}

void BoardCell::mouseReleaseEvent(QMouseEvent* event) {
    const int button = std::exchange(pressed_, static_cast<int>(Buttons));
    if (button != Buttons && buttonAt(event->position()) == button) press(button);
}

void BoardCell::enterEvent(QEnterEvent*) { layOutLater(); }

void BoardCell::leaveEvent(QEvent*) { layOutLater(); }

void BoardCell::paintEvent(QPaintEvent*) {
    if (stale_ || pixelRatio_ != devicePixelRatioF()) layOut();
    const auto& roles = colours();
    QPainter painter(this);
    painter.fillRect(rect(), hasFocus() ? roles.accent : roles.border);
    const int edge = hasFocus() ? 2 : 1;
    painter.fillRect(rect().adjusted(edge, edge, -edge, -edge), faint_ ? roles.window : roles.surface);
    for (const auto& corner : {rect().topLeft(), rect().topRight(), rect().bottomLeft(), rect().bottomRight()})
        painter.fillRect(QRect(corner, QSize(1, 1)), roles.window);
    if (!faint_) painter.fillRect(band_.adjusted(edge - 1, 0, 1 - edge, 0), bandColour_);
    if (marked_)
        painter.fillRect(QRect(edge, edge, width() - 2 * edge, band_.top() - edge),
                         mixed(roles.accent, roles.surface, markTint));
    painter.setPen(roles.outline);
    painter.setBrush(roles.button);
    for (const auto button : {MenuButton, ResetButton})
        if (!buttons_[button].isNull()) painter.drawRoundedRect(buttons_[button], 2, 2);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    for (const auto& piece : icons_) piece.paint(painter);
    for (const auto& piece : texts_) piece.paint(painter);
}

bool BoardCell::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    auto lines = stateLines();
    for (auto& line : lines) line = line.toHtmlEscaped();
    lines.front() = "<b>" + lines.front() + "</b>";
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(),
                       "<p style='white-space:pre'>" + lines.join("<br>") + "</p>", this);
    return true;
}

void BoardCell::resizeEvent(QResizeEvent*) { stale_ = true; }

void BoardCell::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange) {
        stale_ = true;
        update();
    }
    QWidget::changeEvent(event);
}

void BoardCell::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Left:
            Q_EMIT walked(-1, 0);
            break;
        case Qt::Key_Right:
            Q_EMIT walked(1, 0);
            break;
        case Qt::Key_Up:
            Q_EMIT walked(0, -1);
            break;
        case Qt::Key_Down:
            Q_EMIT walked(0, 1);
            break;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            cell_.cmdResetLimit.press();
            break;
        case Qt::Key_Space:
            if (event->modifiers().testFlag(Qt::ControlModifier)) Q_EMIT markAsked();
            break;
        default:
            QWidget::keyPressEvent(event);
    }
}

void BoardCell::focusInEvent(QFocusEvent*) {
    layOutLater();
    Q_EMIT focused();
}

void BoardCell::focusOutEvent(QFocusEvent*) { layOutLater(); }

void BoardCell::contextMenuEvent(QContextMenuEvent*) { cell_.cmdResetLimit.press(); }

}  // namespace trunvex
