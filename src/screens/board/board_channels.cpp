#include "screens/board/board_channels.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QToolTip>
#include <QVBoxLayout>
#include <algorithm>

#include "monitor/sim_status.h"
#include "screens/kit/board_frame.h"
#include "screens/kit/field_binding.h"
#include "screens/kit/labels.h"

namespace trunvex {

namespace {

constexpr double designHeight = 20;
constexpr double tint = 0.22;      // how much of its colour a row takes on a dark ground
constexpr double faintMark = 0.6;  // what is as it should be stands back

class SpokenRow : public QAccessibleWidget {
public:
    explicit SpokenRow(BoardChannelRow* row) : QAccessibleWidget(row, QAccessible::StaticText) {}
    QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Description) return static_cast<BoardChannelRow*>(widget())->stateInWords();
        return QAccessibleWidget::text(kind);
    }
};

QAccessibleInterface* speak(const QString&, QObject* object) {
    auto* row = qobject_cast<BoardChannelRow*>(object);
    return row ? new SpokenRow(row) : nullptr;
}

}  // namespace

BoardChannelRow::BoardChannelRow(BchRow& row, BoardFrame& frame, QWidget* parent) : QWidget(parent), row_(row) {
    static const bool spoken = (QAccessible::installFactory(speak), true);
    Q_UNUSED(spoken)
    setObjectName(QString("bchRow_%1").arg(row.channel));
    setAccessibleName(tr("B-channel %1").arg(row.channel));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setFocusPolicy(row.channel == 1 ? Qt::StrongFocus : Qt::ClickFocus);
    const int part = frame.add([this] { repaintLater(); });
    for (auto* field : {static_cast<Field*>(&row.lblSTBBch), static_cast<Field*>(&row.lblSTBCause),
                        static_cast<Field*>(&row.chkSTBEnable)})
        listen(this, field->changed(), [&frame, part] { frame.mark(part); });
}

QString BoardChannelRow::lblSTBBch() const { return shown(row_.lblSTBBch.text()); }

QString BoardChannelRow::lblSTBCause() const { return shown(row_.lblSTBCause.text()); }

QString BoardChannelRow::stateInWords() const {
    const auto state = row_.status.state;
    const auto& told = row_.status.enabled;
    QStringList words{!told ? tr("enable flag not read yet") : *told ? tr("enabled") : tr("disabled")};
    if (state == ChannelStatus::State::NotTold) words << tr("use not read yet");
    if (state == ChannelStatus::State::InCall) words << tr("in a call");
    if (state == ChannelStatus::State::Idle) words << tr("idle");
    if (!lblSTBCause().isEmpty()) words << tr("last cause %1").arg(lblSTBCause());
    return words.join("; ");
}

void BoardChannelRow::repaintLater() {
    stale_ = true;
    update();
    if (!QAccessible::isActive()) return;
    QAccessibleEvent told(this, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&told);
}

void BoardChannelRow::layOut() {
    stale_ = false;
    pixelRatio_ = devicePixelRatioF();
    const auto& roles = colours();
    // Rows differ by a pixel; their columns are not to.
    const double unit = parentWidget()->height() / (frmSimStatus::channelCount + 1.0) / designHeight;
    const auto length = [unit](double design) { return qRound(design * unit); };
    const auto& font = boardFont(length(12));
    // On a dark ground the colour fills the number's field only, so that thirty rows do not outshine the room.
    chip_ = QRect(0, 0, length(46), height());
    chipColour_ = colour();
    ground_ = roles.dark ? mixed(chipColour_, roles.surface, tint) : chipColour_;
    const auto side = length(15);
    const auto icon = [&](int left) { return QRectF(left, qRound((height() - side) / 2.0), side, side); };
    const bool inCall = row_.lblSTBBch.colour() == bchInCall;
    const bool barred = row_.lblSTBBch.colour() == bchDisabled;
    const bool unknown = row_.lblSTBBch.colour() == bchNotTold;
    const auto chipInk = inkOn(chipColour_);
    const auto ink = inkOn(ground_);
    state_.set(inCall    ? "imgConnected"
               : barred  ? "state_off"
               : unknown ? "led_none"
                         : "",
               chipInk, icon(length(4)), pixelRatio_);
    number_.set(lblSTBBch(), font, QRectF(length(22), 0, chip_.width() - length(27), height()), chipInk,
                Qt::AlignRight);
    const auto right = width() - side - length(4);
    const bool off = row_.status.enabled && !chkSTBEnable();
    enableBox_ = QRectF(right - length(4), 0, width() - right + length(4), height());
    enable_.set(checkIcon(row_.status.enabled, chkSTBEnable()), mixed(ink, ground_, off ? 1 : faintMark), icon(right),
                pixelRatio_);
    cause_.set(lblSTBCause(), font, QRectF(length(52), 0, right - length(56), height()), ink);
}

void BoardChannelRow::paintEvent(QPaintEvent*) {
    if (stale_ || pixelRatio_ != devicePixelRatioF()) layOut();
    QPainter painter(this);
    painter.fillRect(rect(), ground_);
    painter.fillRect(chip_, chipColour_);
    painter.fillRect(0, height() - 1, width(), 1, colours().border);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    for (const auto* piece : {&state_, &enable_}) piece->paint(painter);
    for (const auto* piece : {&number_, &cause_}) piece->paint(painter);
    if (!hasFocus()) return;
    painter.setPen(QPen(colours().accent, 2));
    painter.drawRect(QRectF(rect()).adjusted(1, 1, -1, -1));
}

void BoardChannelRow::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && enableBox_.contains(event->position())) row_.chkSTBEnable.press();
}

void BoardChannelRow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Space)
        row_.chkSTBEnable.press();
    else if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down)
        Q_EMIT walked(event->key() == Qt::Key_Up ? -1 : 1);
    else
        QWidget::keyPressEvent(event);
}

void BoardChannelRow::focusInEvent(QFocusEvent*) { update(); }

void BoardChannelRow::focusOutEvent(QFocusEvent*) { update(); }

bool BoardChannelRow::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), plainTip(accessibleName() + ": " + stateInWords()),
                       this);
    return true;
}

void BoardChannelRow::resizeEvent(QResizeEvent*) { stale_ = true; }

void BoardChannelRow::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange) {
        stale_ = true;
        update();
    }
    QWidget::changeEvent(event);
}

BoardChannels::BoardChannels(frmSimStatus& board, BoardFrame& frame, QWidget* parent) : QWidget(parent) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    auto* heading = roleLabel(tr("        #     Cause"), "muted");
    heading->setAccessibleName(tr("B-channels: number and last cause"));
    layout->addWidget(heading);
    for (int channel = 1; channel <= frmSimStatus::channelCount; ++channel) {
        auto* row = new BoardChannelRow(board.row(channel), frame, this);
        connect(row, &BoardChannelRow::walked, this, [this, channel](int rows) { walk(channel - 1, rows); });
        layout->addWidget(row, 1);
        rows_.push_back(row);
    }
}

// Tab reaches the strip once, where the focus was last.
void BoardChannels::walk(int from, int rows) {
    const auto to = std::clamp(from + rows, 0, static_cast<int>(rows_.size()) - 1);
    for (auto* row : rows_) row->setFocusPolicy(Qt::ClickFocus);
    rows_[static_cast<std::size_t>(to)]->setFocusPolicy(Qt::StrongFocus);
    rows_[static_cast<std::size_t>(to)]->setFocus(Qt::TabFocusReason);
}

}  // namespace trunvex
