#pragma once

#include "screens/board/overlay_card.h"

namespace trunvex {

class SimStatistics;

// framMSG: the figures of one SIM over the board.
class MessagePanel : public OverlayCard {
    Q_OBJECT

public:
    MessagePanel(SimStatistics& statistics, QWidget* board);
};

}  // namespace trunvex
