#include "screens/board/statistics_delegate.h"

#include <QPainter>
#include <algorithm>

#include "monitor/sim_statistics.h"
#include "screens/board/board_paint.h"
#include "screens/kit/theme.h"

namespace trunvex {

namespace {

constexpr double tint = 0.34;
constexpr double bestAsr = 70;   // percent; what is above is as good
constexpr double bestAcd = 180;  // seconds

}  // namespace

StatisticsDelegate::StatisticsDelegate(const SimStatistics& statistics, QObject* parent)
    : TableDelegate(parent), statistics_(statistics) {}

double StatisticsDelegate::share(std::size_t row, int column) const {
    const auto& figures = statistics_.figures(row);
    if (column == SimStatistics::Asr && figures.dialled > 0)
        return std::clamp(figures.asrPercent() / bestAsr, 0.0, 1.0);
    if (column == SimStatistics::Acd && figures.succeeded > 0)
        return std::clamp(static_cast<double>(figures.acdSeconds()) / bestAcd, 0.0, 1.0);
    return -1;
}

void StatisticsDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    TableDelegate::initStyleOption(option, index);
    const auto& roles = colours();
    const auto part = share(static_cast<std::size_t>(index.row()), index.column());
    if (part >= 0) option->backgroundBrush = mixed(mixed(roles.ok, roles.warning, part), roles.surface, tint);
    if (index.column() == SimStatistics::Trend) option->text.clear();
    if (index.column() == SimStatistics::Word && !option->text.isEmpty()) {
        option->font.setUnderline(true);
        option->palette.setColor(QPalette::Text, roles.danger);
    }
}

void StatisticsDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    TableDelegate::paint(painter, option, index);
    if (index.column() == SimStatistics::Trend)
        paintTrend(painter, QRectF(option.rect).adjusted(6, 4, -6, -4), static_cast<std::size_t>(index.row()),
                   option.state.testFlag(QStyle::State_Selected));
}

// The newest read is at the right; a single one is a point.
void StatisticsDelegate::paintTrend(QPainter* painter, const QRectF& box, std::size_t row, bool chosen) const {
    const auto& readings = statistics_.readings(row);
    if (readings.empty()) return;
    const double step = box.width() / static_cast<double>(SimHistory::kept - 1);
    QPolygonF line;
    for (std::size_t i = 0; i < readings.size(); ++i) {
        const auto back = static_cast<double>(readings.size() - 1 - i);
        line << QPointF(box.right() - back * step,
                        box.bottom() - box.height() * std::clamp(readings[i].asr, 0.0, 100.0) / 100);
    }
    const auto& roles = colours();
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(chosen ? roles.onAccent : roles.accent, 1.5));
    painter->drawPolyline(line);
    painter->setBrush(painter->pen().color());
    painter->drawEllipse(line.back(), 2, 2);
    painter->restore();
}

}  // namespace trunvex
