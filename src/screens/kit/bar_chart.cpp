#include "screens/kit/bar_chart.h"

#include <QAccessible>
#include <QFontMetricsF>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <cmath>
#include <numeric>

#include "screens/kit/field_binding.h"
#include "screens/kit/theme.h"

namespace trunvex {

namespace {

constexpr int leastWidth = 280;
constexpr int leastHeight = 72;
constexpr int usualHeight = 120;
constexpr int leastBarsHeight = 12;
constexpr int leastBarWidth = 3;
constexpr int leastGap = 1;
constexpr double barShare = 0.72;  // of a bar's strip
constexpr double widestBar = 40;
constexpr int margin = 6;
constexpr int tickHeight = 3;
constexpr double smallSize = 0.85;
constexpr double labelGap = 6;
// Names are cut rather than left out where at least so much of them can be seen.
constexpr int leastLabelChars = 5;
constexpr int spokenBars = 3;

double sizeOf(const Bar& bar) { return std::isfinite(bar.value) ? std::max(bar.value, 0.0) : 0; }

QString inWords(const Bar& bar) { return bar.label + ": " + bar.valueText; }

QColor mixed(const QColor& one, const QColor& other, double share) {
    const auto mix = [share](float a, float b) { return static_cast<float>(a * share + b * (1 - share)); };
    return QColor::fromRgbF(mix(one.redF(), other.redF()), mix(one.greenF(), other.greenF()),
                            mix(one.blueF(), other.blueF()));
}

// Edges on whole pixels of the screen, whatever its scale, so that bars of one width look it.
class PixelGrid {
public:
    explicit PixelGrid(double ratio) : ratio_(ratio) {}
    double snap(double value) const { return std::round(value * ratio_) / ratio_; }
    QRectF rect(double x, double y, double width, double bottom) const {
        const QPointF corner(snap(x), snap(y));
        return {corner, QSizeF(std::max(snap(width), 1 / ratio_), snap(bottom) - corner.y())};
    }

private:
    double ratio_;
};

}  // namespace

struct BarChart::Rows {
    QRectF title;
    QRectF value;
    QRectF bars;
    QRectF labels;
};

BarChart::BarChart(QWidget* parent) : QWidget(parent), emptyText_(tr("No calls")) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    speak();
}

void BarChart::setBars(const QString& title, std::vector<Bar> bars) {
    if (title == title_ && bars == bars_) return;
    const auto inHand = highlighted_ == none ? QString() : barAt(highlighted_).label;
    title_ = title;
    bars_ = std::move(bars);
    highlighted_ = none;
    chooseBars();
    for (int place = 0; place < count() && !inHand.isNull(); ++place)
        if (barAt(place).label == inHand) highlighted_ = place;
    setAccessibleName(title_);
    speak();
    update();
}

QFont BarChart::smallFont() const {
    auto small = font();
    small.setPointSizeF(QFontInfo(small).pointSizeF() * smallSize);
    return small;
}

QSize BarChart::minimumSizeHint() const {
    const double texts = QFontMetricsF(font()).height() + 2 * QFontMetricsF(smallFont()).height();
    return {leastWidth, std::max(leastHeight, qCeil(texts) + leastBarsHeight + tickHeight + 2 * margin)};
}

QSize BarChart::sizeHint() const { return {leastWidth, std::max(usualHeight, minimumSizeHint().height())}; }

BarChart::Rows BarChart::rows() const {
    const double small = std::ceil(QFontMetricsF(smallFont()).height());
    const double wide = width() - 2 * margin;
    Rows rows;
    rows.title = QRectF(margin, margin, wide, std::ceil(QFontMetricsF(font()).height()));
    rows.value = QRectF(margin, rows.title.bottom(), wide, small);
    rows.labels = QRectF(margin, height() - margin - small, wide, small);
    rows.bars = QRectF(QPointF(margin, rows.value.bottom()), QPointF(margin + wide, rows.labels.top() - tickHeight));
    return rows;
}

// Which bars there is room for.
void BarChart::chooseBars() {
    shown_.resize(bars_.size());
    std::iota(shown_.begin(), shown_.end(), std::size_t{0});
    const int room = std::max((width() - 2 * margin) / (leastBarWidth + leastGap), 1);
    if (count() > room) {
        std::stable_sort(shown_.begin(), shown_.end(), [this](std::size_t one, std::size_t other) {
            return sizeOf(bars_[one]) > sizeOf(bars_[other]);
        });
        shown_.resize(static_cast<std::size_t>(room));
        std::sort(shown_.begin(), shown_.end());
    }
    largest_ = 0;
    largestPlace_ = none;
    for (int place = 0; place < count(); ++place) {
        if (sizeOf(barAt(place)) <= largest_) continue;
        largest_ = sizeOf(barAt(place));
        largestPlace_ = place;
    }
    if (largestPlace_ == none) shown_.clear();
}

double BarChart::left(int place) const { return margin + (width() - 2.0 * margin) * place / std::max(count(), 1); }

int BarChart::placeAt(double x) const {
    const double within = (x - margin) / (width() - 2.0 * margin);
    return within >= 0 && within < 1 && count() > 0 ? static_cast<int>(within * count()) : none;
}

void BarChart::highlight(int place) {
    if (place == highlighted_) return;
    highlighted_ = place;
    speak();
    update();
}

QString BarChart::largestInWords() const {
    std::vector<const Bar*> order;
    for (const auto& bar : bars_)
        if (sizeOf(bar) > 0) order.push_back(&bar);
    const auto told = std::min<std::ptrdiff_t>(spokenBars, static_cast<std::ptrdiff_t>(order.size()));
    std::partial_sort(order.begin(), order.begin() + told, order.end(),
                      [](const Bar* one, const Bar* other) { return sizeOf(*one) > sizeOf(*other); });
    QStringList words;
    for (auto bar = order.begin(); bar != order.begin() + told; ++bar) words << inWords(**bar);
    return tr("Largest: %1").arg(words.join("; "));
}

// For who can't see the bars: the bar in hand, then the largest.
void BarChart::speak() {
    QStringList words;
    if (highlighted_ != none) words << inWords(barAt(highlighted_));
    words << (count() > 0 ? largestInWords() : emptyText_);
    setAccessibleDescription(words.join(". "));
}

bool BarChart::event(QEvent* event) {
    return event->type() == QEvent::ToolTip ? showTip(static_cast<QHelpEvent*>(event)) : QWidget::event(event);
}

bool BarChart::showTip(QHelpEvent* event) {
    const int place = placeAt(event->pos().x());
    if (place == none || barAt(place).tip.isEmpty()) {
        QToolTip::hideText();
        return true;
    }
    const QRect strip(qFloor(left(place)), 0, qCeil(left(place + 1) - left(place)), height());
    QToolTip::showText(event->globalPos(), plainTip(barAt(place).tip).replace("\n", "<br>"), this, strip);
    return true;
}

void BarChart::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() != QEvent::FontChange && event->type() != QEvent::StyleChange) return;
    updateGeometry();
    update();
}

void BarChart::resizeEvent(QResizeEvent*) {
    const auto before = shown_;
    chooseBars();
    if (shown_ != before) highlight(none);
}

void BarChart::mouseMoveEvent(QMouseEvent* event) { highlight(placeAt(event->position().x())); }
void BarChart::mousePressEvent(QMouseEvent* event) { highlight(placeAt(event->position().x())); }
void BarChart::leaveEvent(QEvent*) { highlight(none); }

void BarChart::keyPressEvent(QKeyEvent* event) {
    const int last = count() - 1;
    switch (event->key()) {
        case Qt::Key_Left:
            return highlight(highlighted_ == none ? last : std::max(highlighted_ - 1, std::min(0, last)));
        case Qt::Key_Right:
            return highlight(std::min(highlighted_ + 1, last));
        case Qt::Key_Home:
            return highlight(std::min(0, last));
        case Qt::Key_End:
            return highlight(last);
        default:
            QWidget::keyPressEvent(event);
    }
}

void BarChart::focusInEvent(QFocusEvent*) { update(); }

void BarChart::focusOutEvent(QFocusEvent* event) {
    if (event->reason() != Qt::ActiveWindowFocusReason && event->reason() != Qt::PopupFocusReason) highlight(none);
    update();
}

void BarChart::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const auto& roles = colours();
    const auto parts = rows();
    if (hasFocus()) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(roles.accent, 2));
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), grid / 2.0, grid / 2.0);
        painter.setRenderHint(QPainter::Antialiasing, false);
    }
    paintTitle(painter, parts);
    paintBars(painter, parts);
    if (count() == 0) {
        painter.setPen(roles.muted);
        painter.drawText(parts.value.united(parts.bars), Qt::AlignCenter, emptyText_);
        return;
    }
    painter.setFont(smallFont());
    paintLargest(painter, parts);
    paintLabels(painter, parts);
}

void BarChart::paintTitle(QPainter& painter, const Rows& rows) const {
    const QFontMetricsF metrics(font());
    auto room = rows.title;
    auto title = title_;
    if (shown_.size() < bars_.size() && count() > 0)
        title += tr(" (the largest %1 of %2)").arg(shown_.size()).arg(bars_.size());
    painter.setPen(colours().text);
    if (highlighted_ != none) {
        const auto& bar = barAt(highlighted_);
        auto strong = font();
        strong.setWeight(QFont::DemiBold);
        painter.setFont(strong);
        const auto value = QFontMetricsF(strong).elidedText(inWords(bar), Qt::ElideLeft, room.width());
        painter.drawText(room, Qt::AlignRight | Qt::AlignVCenter, value);
        room.setWidth(std::max(room.width() - QFontMetricsF(strong).horizontalAdvance(value) - 2 * grid, 0.0));
    }
    painter.setFont(font());
    painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter, metrics.elidedText(title, Qt::ElideRight, room.width()));
}

void BarChart::paintBars(QPainter& painter, const Rows& rows) const {
    const auto& roles = colours();
    const PixelGrid pixels(devicePixelRatioF());
    const auto fill = palette().color(backgroundRole());
    const auto calm = mixed(roles.accent, fill, 0.8);
    const double strip = left(1) - left(0);
    // All of one width, and a gap between any two of them wherever their edges come to lie.
    const double wide = std::clamp(std::floor(strip * barShare), double{leastBarWidth}, widestBar);
    for (int place = 0; place < count(); ++place) {
        const double x = left(place) + (strip - wide) / 2;
        if (place == highlighted_)
            painter.fillRect(pixels.rect(x - leastGap, rows.bars.top(), wide + 2 * leastGap, rows.bars.bottom()),
                             mixed(roles.border, fill, 0.7));
        const double size = sizeOf(barAt(place));
        if (size <= 0) continue;
        // The least value can be seen too.
        const double high = std::max(rows.bars.height() * size / largest_, 1.0);
        painter.fillRect(pixels.rect(x, rows.bars.bottom() - high, wide, rows.bars.bottom()),
                         place == highlighted_ ? roles.text : calm);
    }
    painter.fillRect(pixels.rect(rows.bars.left(), rows.bars.bottom(), rows.bars.width(), rows.bars.bottom() + 1),
                     roles.outline);
}

// A box as wide as its text, at the middle of a bar's strip but within the chart.
QRectF centred(const QRectF& row, double middle, double wide) {
    const double x = std::clamp(middle - wide / 2, row.left(), std::max(row.right() - wide, row.left()));
    return {x, row.top(), std::min(wide, row.width()), row.height()};
}

void BarChart::paintLargest(QPainter& painter, const Rows& rows) const {
    const auto& text = barAt(largestPlace_).valueText;
    const double middle = (left(largestPlace_) + left(largestPlace_ + 1)) / 2;
    painter.setPen(colours().muted);
    painter.drawText(centred(rows.value, middle, painter.fontMetrics().horizontalAdvance(text) + 1), Qt::AlignCenter,
                     text);
}

QRectF BarChart::labelBox(int place, const Rows& rows) const {
    const double wide = std::ceil(QFontMetricsF(smallFont()).horizontalAdvance(barAt(place).label));
    return centred(rows.labels, (left(place) + left(place + 1)) / 2, wide);
}

// Each bar has its label, or each second, each fourth...: what comes in groups of four or eight keeps them.
int BarChart::labelStep(const Rows& rows) const {
    const double strip = left(1) - left(0);
    if (strip - labelGap >= leastLabelChars * QFontMetricsF(smallFont()).averageCharWidth()) return 1;
    for (int step = 1; step < count(); step *= 2) {
        double end = -labelGap;
        int place = 0;
        for (; place < count(); place += step) {
            const auto box = labelBox(place, rows);
            if (box.left() < end + labelGap) break;
            end = box.right();
        }
        if (place >= count()) return step;
    }
    return count();
}

void BarChart::paintLabels(QPainter& painter, const Rows& rows) const {
    const auto& roles = colours();
    const PixelGrid pixels(devicePixelRatioF());
    const QFontMetricsF metrics(smallFont());
    const double strip = left(1) - left(0);
    const int step = labelStep(rows);
    for (int place = 0; place < count(); place += step) {
        const double middle = (left(place) + left(place + 1)) / 2;
        auto box = labelBox(place, rows);
        auto label = barAt(place).label;
        if (step == 1 && box.width() > strip - labelGap) {
            label = metrics.elidedText(label, Qt::ElideRight, strip - labelGap);
            box = centred(rows.labels, middle, strip);
        }
        if (step > 1)
            painter.fillRect(pixels.rect(middle - 0.5, rows.bars.bottom(), 1, rows.bars.bottom() + tickHeight),
                             roles.outline);
        painter.setPen(place == highlighted_ ? roles.text : roles.muted);
        painter.drawText(box.adjusted(-1, 0, 1, 0), Qt::AlignCenter, label);
    }
}

}  // namespace trunvex
