#pragma once

#include "screens/kit/page_frame.h"
#include "screens/kit/screen_tools.h"

namespace trunvex {

struct MonitorTools;

// The page "stc", frmStatics: what the board's tabs show of the SIMs, beside the other pages.
class StatisticsScreen : public PageFrame {
    Q_OBJECT

public:
    StatisticsScreen(MonitorTools& monitor, const ScreenTools& tools, QWidget* parent = nullptr);
};

}  // namespace trunvex
