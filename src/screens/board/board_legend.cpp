#include "screens/board/board_legend.h"

#include <QPainter>

#include "monitor/sim_status.h"
#include "screens/board/board_paint.h"
#include "screens/kit/field_binding.h"

namespace trunvex {

BoardLegend::BoardLegend(frmSimStatus& board, QWidget* parent) : QWidget(parent), board_(board) {
    setObjectName("boardLegend");
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    QStringList words;
    for (const auto& entry : BoardColours::entries) words << tr(entry.meaning);
    setAccessibleName(tr("Colours of the cells"));
    setAccessibleDescription(words.join("; "));
    listen(this, board.coloursChanged, [this] { update(); });
}

QSize BoardLegend::sizeHint() const { return {400, fontMetrics().height()}; }

void BoardLegend::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const int side = fontMetrics().height() - 2;
    const int gap = side / 2;
    int left = 0;
    for (std::size_t which = 0; which < BoardColours::count; ++which) {
        const auto colour = screenColour(board_.colours()[static_cast<BoardColours::Which>(which)]);
        const auto text = tr(BoardColours::entries[which].meaning);
        const int wide = side + gap + fontMetrics().horizontalAdvance(text);
        if (left + wide > width()) return;
        const QRect box(left, 1, side, side);
        painter.fillRect(box, colour);
        IconPiece icon;
        icon.set(stateIcon(static_cast<BoardColours::Which>(which)), inkOn(colour), QRectF(box).adjusted(1, 1, -1, -1),
                 devicePixelRatioF());
        icon.paint(painter);
        painter.setPen(colours().muted);
        painter.drawText(QRect(left + side + gap, 0, wide, height()), Qt::AlignLeft | Qt::AlignVCenter, text);
        left += wide + 3 * gap;
    }
}

}  // namespace trunvex
