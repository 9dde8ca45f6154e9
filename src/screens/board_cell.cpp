#include "screens/board_cell.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QContextMenuEvent>
#include <QFontMetricsF>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>

#include "screens/board_frame.h"
#include "screens/field_binding.h"
#include "shell/console.h"

namespace trunvex {

namespace {

// All lengths below are those of a cell of this size; they grow with it.
constexpr double designWidth = 138;
constexpr double designHeight = 150;

constexpr const char* stateIcons[BoardColours::count] = {"state_idle",    "state_off",      "state_connected",
                                                         "state_problem", "state_alerting", "state_call"};

QString withoutColon(QString caption) {
    return caption.remove(':').simplified();
}

// How many characters of the text make up its first line; all of them when it can't be broken.
qsizetype firstLine(const QString& text, const QFontMetricsF& metrics, double width) {
    for (const auto room : {width, width / TextPiece::smallestFit}) {
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

BoardCell::BoardCell(Console& console, int index, BoardFrame& frame, QWidget* parent)
    : QWidget(parent), console_(console), cell_(console.board.cell(index)) {
    static const bool spoken = (QAccessible::installFactory(speak), true);
    Q_UNUSED(spoken)
    setObjectName(QString("portCell_%1").arg(index));
    const auto [mcu, module] = portAtPosition(index);
    setAccessibleName(tr("Port %1, MCU %2, module %3").arg(index).arg(mcu).arg(module));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::ClickFocus);
    const int part = frame.add([this] { repaintLater(); });
    cell_.forEachField([&](Field& field) { listen(this, field.changed(), [&frame, part] { frame.mark(part); }); });
    noteState();
    listen(this, cell_.shpSim.changed(), [this] { noteState(); });
}

QString BoardCell::text(const LabelField& field) {
    return shown(field.text());
}

QString BoardCell::text(const PictureField& field) {
    return shown(field.picture());
}

QString BoardCell::cmdResetLimit() const {
    return shown(cell_.cmdResetLimit.caption());
}

void BoardCell::repaintLater() {
    stale_ = true;
    update();
    if (!QAccessible::isActive()) return;
    QAccessibleEvent told(this, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&told);
}

void BoardCell::hardwareChanged() {
    repaintLater();
}

// The colour alone tells the state only against the colours of its time: those may be edited while the cell stands.
void BoardCell::noteState() {
    const auto& values = console_.board.colours().values;
    const auto* found = std::find(values.begin(), values.end(), cell_.shpSim.colour());
    if (found != values.end()) state_ = static_cast<BoardColours::Which>(found - values.begin());
}

bool BoardCell::absent() const {
    const auto [mcu, module] = portAtPosition(cell_.index);
    const auto& kind = console_.tables.port(mcu, module).Kind;
    return (kind.empty() || kind == "ERR") && state_ == BoardColours::PORT_NOT_ACTIVE && cell_.lblMsg.text().empty() &&
           cell_.LblSIM_num.text().empty() && cell_.imgStatusSim.picture().empty() &&
           cell_.imgStatusNet.picture().empty();
}

QStringList BoardCell::stateLines() const {
    const auto [mcu, module] = portAtPosition(cell_.index);
    const auto kind = shown(console_.tables.port(mcu, module).Kind);
    QStringList lines;
    const auto add = [&lines](const QString& line) {
        if (!line.simplified().isEmpty()) lines << line.simplified();
    };
    const auto addLamp = [&add](const PictureField& lamp) {
        add(shown(lamp.tip()) + (lamp.picture().empty() ? QString() : " (" + lampOf(lamp.picture()).word + ")"));
    };
    add(lblBCH());
    add(tr("MCU %1, module %2: %3")
            .arg(mcu)
            .arg(module)
            .arg(kind.isEmpty()  ? tr("not reported yet")
                 : kind == "ERR" ? tr("no module")
                                 : kind));
    add(chkSTPEnable() ? tr("Enabled") : tr("Disabled"));
    add(tr("State: %1").arg(tr(BoardColours::entries[state_].meaning)));
    if (!lblMsg().isEmpty()) add(tr("Last event: %1").arg(lblMsg()));
    if (!lblMsgNumber().isEmpty()) add(tr("Number: %1").arg(lblMsgNumber()));
    if (!imgStatus().isEmpty()) add(tr("Call connected"));
    add(LblSIM_num());
    addLamp(cell_.imgStatusSim);
    addLamp(cell_.imgStatusNet);
    addLamp(cell_.imgStatusLock);
    if (!lblNetworkID().isEmpty()) add(lblNetwork() + " " + lblNetworkID());
    if (lblRM_HM() == "Hm") add(tr("Home network"));
    if (lblRM_HM() == "Rm") add(tr("Roaming"));
    add(lblNetBCCH());
    if (imgAntenna().startsWith("imgAnt_")) add(tr("Signal: %1 of 4 bars").arg(imgAntenna().back()));
    add(lblStrengthDB());
    add(lblLimit());
    if (!imgSMS().isEmpty()) add(cell_.imgSMS.tip().empty() ? tr("New SMS message") : shown(cell_.imgSMS.tip()));
    return lines;
}

void BoardCell::layOut() {
    stale_ = false;
    pixelRatio_ = devicePixelRatioF();
    for (auto& piece : texts_) piece.clear();
    for (auto& piece : icons_) piece.clear();
    const Sizes sizes{std::min(width() / designWidth, height() / designHeight), width(), height()};
    layOutHeading(sizes);
    if (absent()) {
        const auto [mcu, module] = portAtPosition(cell_.index);
        const bool told = !console_.tables.port(mcu, module).Kind.empty();
        texts_[Message].set(told ? tr("No module") : tr("Not reported"), sizes.font(12),
                            QRectF(sizes.inset(), 0, width() - 2 * sizes.inset(), height()), colours().muted,
                            Qt::AlignHCenter);
        return;
    }
    layOutBand(sizes);
    layOutLamps(sizes);
    layOutNetwork(sizes);
    layOutCounter(sizes);
}

void BoardCell::layOutHeading(const Sizes& sizes) {
    const auto& roles = colours();
    const QRectF line(sizes.inset(), 1, width() - 2 * sizes.inset(), height() * 0.15);
    const auto box = sizes.iconIn(line, 13);
    const bool enabled = chkSTPEnable();
    const bool faint = absent();
    icons_[Enable].set(enabled ? "check_on" : "check_off", faint || enabled ? roles.muted : roles.danger, box,
                       pixelRatio_);
    const auto colour = cell_.lblBCH.colour();
    const auto ink = faint                   ? roles.muted
                     : colour == colourBlack ? roles.text
                                             : readableOn(roles.surface, screenColour(colour));
    texts_[Heading].set(lblBCH(), sizes.font(11, cell_.lblBCH.bold()),
                        line.adjusted(box.width() + sizes.length(4), 0, 0, 0), ink);
}

void BoardCell::layOutBand(const Sizes& sizes) {
    band_ = QRect(1, qRound(height() * 0.16), width() - 2, qRound(height() * 0.32));
    const auto ink = inkOn(shpSim());
    const auto inset = sizes.inset();
    const auto upper = QRectF(band_).adjusted(inset - 1, sizes.length(3), 1 - inset, -band_.height() / 2.0);
    const auto lower = QRectF(band_).adjusted(inset - 1, band_.height() / 2.0, 1 - inset, -sizes.length(3));
    const auto mark = sizes.iconIn(upper, 17);
    icons_[State].set(stateIcons[state_], ink, mark, pixelRatio_);
    const auto words = upper.adjusted(mark.width() + sizes.length(4), 0, 0, 0);
    auto number = lower;
    if (!imgStatus().isEmpty()) {
        icons_[Call].set(imgStatus(), ink, sizes.iconIn(lower, 17), pixelRatio_);
        number = number.adjusted(mark.width() + sizes.length(4), 0, 0, 0);
    }
    // Before the first event the band says what its colour means.
    const bool heard = !lblMsg().isEmpty();
    const auto message = heard ? lblMsg().simplified() : tr(BoardColours::entries[state_].meaning);
    const auto& font = sizes.font(12, heard);
    // Without a number under it, what does not fit goes on in the second line.
    const auto cut = lblMsgNumber().isEmpty() ? firstLine(message, QFontMetricsF(font), words.width()) : message.size();
    texts_[Message].set(message.left(cut), font, words, ink);
    if (lblMsgNumber().isEmpty())
        texts_[SecondLine].set(message.mid(cut), font, number, ink);
    else
        texts_[SecondLine].set(lblMsgNumber(), sizes.font(14), number, ink);
}

void BoardCell::layOutLamps(const Sizes& sizes) {
    const auto& roles = colours();
    const auto addLamp = [&](Icon icon, const PictureField& field, const QRectF& line) {
        const auto lamp = lampOf(field.picture());
        const auto box = sizes.iconIn(line, 15);
        icons_[icon].set(lamp.icon, roles.*lamp.role, box, pixelRatio_);
        return line.adjusted(box.width() + sizes.length(4), 0, 0, 0);
    };
    const auto sim = addLamp(SimLamp, cell_.imgStatusSim, sizes.line(0, 0, 0.58));
    const auto& font = sizes.font(12);
    if (LblSIM_num().isEmpty())
        texts_[Sim].set(withoutColon(lblSimLed()), font, sim, roles.muted);
    else
        texts_[Sim].set(LblSIM_num(), font, sim, roles.text);

    const auto net = addLamp(NetLamp, cell_.imgStatusNet, sizes.line(0, 0.6, 1));
    if (lblRM_HM().isEmpty())
        texts_[Net].set(withoutColon(lblNetworkLed()), font, net, roles.muted);
    else
        texts_[Home].set(lblRM_HM(), sizes.font(12, true), net, lblRM_HM() == "Rm" ? roles.warning : roles.text);
}

void BoardCell::layOutNetwork(const Sizes& sizes) {
    const auto& roles = colours();
    auto line = sizes.line(1);
    const auto& font = sizes.font(12);
    const auto bcch = lblNetBCCH();
    const auto bcchWidth = std::min(QFontMetricsF(font).horizontalAdvance(bcch), line.width() * 0.62);
    texts_[Bcch].set(bcch, font, line.adjusted(line.width() - bcchWidth, 0, 0, 0), roles.text, Qt::AlignRight);
    if (!bcch.isEmpty()) line.adjust(0, 0, -bcchWidth - sizes.length(4), 0);
    if (lblNetworkID().isEmpty())
        texts_[NetworkId].set(withoutColon(lblNetwork()), font, line, roles.muted);
    else
        texts_[NetworkId].set(lblNetworkID(), sizes.font(12, cell_.lblNetworkID.bold()), line, roles.text);
}

void BoardCell::layOutCounter(const Sizes& sizes) {
    const auto& roles = colours();
    const auto signal = sizes.line(2);
    const bool weak = imgAntenna() == "imgAnt_0" || imgAntenna() == "imgAnt_1" || imgAntenna() == "imgREG2";
    const auto antenna = sizes.iconIn(signal, 17);
    icons_[Antenna].set(imgAntenna().isEmpty() ? "imgAnt_0" : imgAntenna(),
                        imgAntenna().isEmpty() ? roles.muted
                        : weak                 ? roles.warning
                                               : roles.text,
                        antenna, pixelRatio_);
    texts_[Decibel].set(lblStrengthDB(), sizes.font(12), signal.adjusted(antenna.width() + sizes.length(6), 0, 0, 0),
                        roles.text);
    auto right = signal.right();
    const auto mark = [&](Icon icon, const QString& picture, const QColor& colour) {
        if (picture.isEmpty()) return;
        auto box = sizes.iconIn(signal, 17);
        box.moveRight(right);
        icons_[icon].set(picture, colour, box, pixelRatio_);
        right = box.left() - sizes.length(4);
    };
    mark(Sms, imgSMS(), roles.accent);
    if (!imgStatusLock().isEmpty()) mark(Lock, "net_lock", roles.*lampOf(cell_.imgStatusLock.picture()).role);
    texts_[Count].set(lblLimit(), sizes.font(12), sizes.line(3), roles.text);
}

void BoardCell::paintEvent(QPaintEvent*) {
    if (stale_ || pixelRatio_ != devicePixelRatioF()) layOut();
    const auto& roles = colours();
    const bool faint = absent();
    QPainter painter(this);
    painter.fillRect(rect(), hasFocus() ? roles.accent : roles.border);
    const int edge = hasFocus() ? 2 : 1;
    painter.fillRect(rect().adjusted(edge, edge, -edge, -edge), faint ? roles.window : roles.surface);
    for (const auto& corner : {rect().topLeft(), rect().topRight(), rect().bottomLeft(), rect().bottomRight()})
        painter.fillRect(QRect(corner, QSize(1, 1)), roles.window);
    if (!faint) painter.fillRect(band_.adjusted(edge - 1, 0, 1 - edge, 0), shpSim());
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

void BoardCell::resizeEvent(QResizeEvent*) {
    stale_ = true;
}

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
        default:
            QWidget::keyPressEvent(event);
    }
}

void BoardCell::focusInEvent(QFocusEvent*) {
    update();
    Q_EMIT focused();
}

void BoardCell::focusOutEvent(QFocusEvent*) {
    update();
}

void BoardCell::contextMenuEvent(QContextMenuEvent*) {
    cell_.cmdResetLimit.press();
}

}  // namespace trunvex
