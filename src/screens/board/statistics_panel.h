#pragma once

#include <QWidget>

#include "screens/kit/screen_tools.h"

class QLayout;

namespace trunvex {

class SimStatistics;
class TableView;

// The grid of all SIMs, as the board's tab and the page Statistics show it.
class StatisticsPanel : public QWidget {
    Q_OBJECT

public:
    // The page Statistics has no button that resets.
    enum class Resets { Yes, No };
    StatisticsPanel(SimStatistics& statistics, const ScreenTools& tools, Resets resets, QWidget* parent = nullptr);

private:
    QLayout* buildSearch();
    QLayout* buildBalance();
    QLayout* buildButtons(Resets resets);
    void buildTable();
    void showEmpty();
    void openAt(int row, int column);

    SimStatistics& statistics_;
    ScreenTools tools_;
    TableView* table_ = nullptr;
};

}  // namespace trunvex
