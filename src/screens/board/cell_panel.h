#pragma once

#include "screens/board/overlay_card.h"

namespace trunvex {

class CellView;

// picBStat: the cells that a port hears, over the board.
class CellPanel : public OverlayCard {
    Q_OBJECT

public:
    CellPanel(CellView& view, QWidget* board);

private:
    QWidget* buildCells();
    QLayout* buildState();

    CellView& view_;
};

// The board's tab with lsvBCCH, the serving cells of all ports.
class CellReport : public QWidget {
    Q_OBJECT

public:
    explicit CellReport(CellView& view, QWidget* parent = nullptr);
};

}  // namespace trunvex
