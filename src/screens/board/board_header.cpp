#include "screens/board/board_header.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <algorithm>

#include "monitor/sim_status.h"
#include "screens/kit/board_frame.h"
#include "screens/kit/field_binding.h"
#include "screens/kit/labels.h"

namespace trunvex {

namespace {

constexpr const char* widestMark = "widestText";

// As in the text of a caption that stands before its field; over it, the colon is too much.
QString overField(QString caption) { return caption.remove(':').simplified(); }

}  // namespace

LampSign::LampSign(PictureField& field, const QString& caption, BoardFrame& frame, QWidget* parent)
    : QWidget(parent), field_(field), caption_(caption) {
    setObjectName(shown(field.name()));
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    frame.follow(this, {&field}, [this] {
        const auto word = lampOf(field_.picture()).word;
        setAccessibleName(caption_ + ": " + word);
        setToolTip(plainTip(caption_ + ": " + word));
        update();
    });
}

QString LampSign::picture() const { return shown(field_.picture()); }

QSize LampSign::sizeHint() const {
    int widest = 0;
    for (const char* picture : {"", "imgLedRed", "imgLedYellow", "imgLedGreen"})
        widest = std::max(widest, fontMetrics().horizontalAdvance(lampOf(picture).word));
    return {fontMetrics().height() * 5 / 4 + widest + 2, fontMetrics().height() + 2};
}

void LampSign::paintEvent(QPaintEvent*) {
    const auto lamp = lampOf(field_.picture());
    const auto side = fontMetrics().height();
    const auto colour = colours().*lamp.role;
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    IconPiece icon;
    icon.set(lamp.icon, colour, QRectF(0, qRound((height() - side) / 2.0), side, side), devicePixelRatioF());
    icon.paint(painter);
    painter.setPen(colour);
    painter.drawText(rect().adjusted(side * 5 / 4, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter, lamp.word);
    if (hasFocus()) painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void LampSign::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) Q_EMIT pressed();
}

void LampSign::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Space)
        Q_EMIT pressed();
    else
        QWidget::keyPressEvent(event);
}

LevelBar::LevelBar(int steps, QWidget* parent) : QWidget(parent), steps_(steps) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void LevelBar::setValue(int value) {
    value_ = value;
    setAccessibleDescription(tr("%1 of %2").arg(value_).arg(steps_));
    update();
}

QSize LevelBar::sizeHint() const { return {fontMetrics().height() * 6, fontMetrics().height()}; }

void LevelBar::paintEvent(QPaintEvent*) {
    const auto& roles = colours();
    QPainter painter(this);
    const int lit = std::clamp(value_, 0, steps_);
    for (int step = 0; step < steps_; ++step) {
        const int left = width() * step / steps_;
        const int right = width() * (step + 1) / steps_ - 1;
        const bool on = step < lit;
        const int top = on ? 0 : height() / 3;
        painter.fillRect(left, top, std::max(1, right - left), height() - 2 * top, on ? roles.accent : roles.border);
    }
}

BoardHeader::BoardHeader(frmSimStatus& board, LabelField& allocation, LabelField& faults, BoardFrame& frame,
                         QWidget* parent)
    : QWidget(parent), board_(board), allocation_(allocation), faults_(faults), frame_(frame),
      line_(new QHBoxLayout(this)) {
    line_->setContentsMargins(0, 0, 0, 0);
    line_->setSpacing(3 * grid / 2);
    addLamps();
    addFaults();
    addLevel();
    addFacts();
    addClock();
}

void BoardHeader::addTile(const QString& caption, QWidget* content, int stretch) {
    auto* tile = new QVBoxLayout;
    tile->setSpacing(0);
    tile->addWidget(roleLabel(caption, "muted"));
    tile->addWidget(content, 1, stretch ? Qt::AlignVCenter : Qt::AlignLeft | Qt::AlignVCenter);
    line_->addLayout(tile, stretch);
}

void BoardHeader::addLamps() {
    const QString captions[] = {overField(tr("Com Port :")), overField(tr("Network  :")), overField(tr("ISDN Line :"))};
    for (std::size_t i = 0; i < std::size(captions); ++i)
        addTile(captions[i], new LampSign(board_.imgSystemStatus[i], captions[i], frame_));
}

// In words; a dash tells that nothing stands, or that nothing is known.
void BoardHeader::addFaults() {
    auto* faults = new ElidedLabel;
    showInFrames(faults_, faults, tr("What stands now"));
    frame_.follow(faults, {&faults_}, [this, faults] {
        auto palette = faults->palette();
        palette.setColor(QPalette::WindowText, faults_.text().empty() ? colours().muted : colours().danger);
        faults->setPalette(palette);
    });
    addTile(tr("Stands now"), faults, 1);
}

void BoardHeader::addLevel() {
    auto& loading = board_.lblLoading;
    auto* content = new QWidget;
    auto* pair = new QHBoxLayout(content);
    pair->setContentsMargins(0, 0, 0, 0);
    pair->setSpacing(grid);
    auto* bar = new LevelBar(portCount);
    bar->setObjectName("ucEqualizer");
    bar->setAccessibleName(tr("Ports in a call"));
    bar->setToolTip(tr("Ports in a call, of %1").arg(portCount));
    frame_.follow(bar, {&loading}, [bar, board = &board_] { bar->setValue(board->gateway().portsInCall); });
    pair->addWidget(bar);
    pair->addWidget(valueLabel(loading, tr("Ports in a call"), "32"));
    addTile(overField(tr("Loading :")), content);
}

void BoardHeader::addFacts() {
    auto& board = board_;
    addTile(overField(tr("Total calls minute:")),
            valueLabel(board.lblTotalCounter, tr("Total calls minute"), "00000 :00"));
    addTile(overField(tr("Version of slave program :")),
            valueLabel(board.lblSlaveVer, tr("Version of slave program"), "000.00"));
    auto* allocation = new ElidedLabel;
    showInFrames(allocation_, allocation, tr("Allocation"));
    addTile(tr("Allocation"), allocation, 1);
    addTile(overField(tr("Gateway ESN:")), valueLabel(board.lblESN, tr("Serial number of the gateway"), "00000000"));
}

void BoardHeader::addClock() {
    auto& board = board_;
    auto* content = new QWidget;
    auto* line = new QHBoxLayout(content);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(0);
    line->addWidget(valueLabel(board.lblDate, tr("Date of the gateway"), "00/00/0000"));
    line->addSpacing(grid);
    const std::pair<LabelField&, QString> parts[] = {{board.lblHoure, tr("Hour of the gateway")},
                                                     {board.lblMinute, tr("Minute of the gateway")},
                                                     {board.lblSecond, tr("Second of the gateway")}};
    for (const auto& [field, name] : parts) {
        auto* colon = new QLabel(&field == &board.lblHoure ? "" : ":");
        auto* value = valueLabel(field, name, {});
        frame_.follow(value, {&field}, [colon, value, part = &field] {
            colon->setVisible(!part->text().empty());
            value->setVisible(!part->text().empty());
        });
        line->addWidget(colon);
        line->addWidget(value);
    }
    addTile(overField(tr("PRI System Time:")), content);
}

QLabel* BoardHeader::valueLabel(LabelField& field, const QString& name, const QString& widest) {
    auto* label = new QLabel;
    label->setProperty(widestMark, widest);
    showInFrames(field, label, name);
    return label;
}

void BoardHeader::showInFrames(LabelField& field, QLabel* label, const QString& name) {
    label->setObjectName(shown(field.name()));
    label->setTextFormat(Qt::PlainText);
    frame_.follow(label, {&field}, [label, name, &field] {
        showValue(label, shown(field.text()));
        label->setAccessibleName(name + ": " + label->text());
        takeWindowFont(label);  // the style sheet's marks put the program's back
    });
}

// A style sheet keeps fonts from being inherited, so each is given its own. A value is as wide as its widest text, so
// that the line stands still while its figures run.
void BoardHeader::takeWindowFont(QWidget* widget) {
    widget->setFont(widget->window()->font());
    const auto widest = widget->property(widestMark).toString();
    if (!widest.isEmpty()) widget->setMinimumWidth(widget->fontMetrics().horizontalAdvance(widest) + 2);
}

}  // namespace trunvex
