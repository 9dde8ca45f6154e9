#pragma once

#include <QWidget>

#include "screens/kit/screen_tools.h"

class QLayout;

namespace trunvex {

class ChartView;
class Rehearsal;
class TimeChart;

// The chart of active times with its days, colours and buttons, as the board's tab and the page Statistics show it.
class ChartPanel : public QWidget {
    Q_OBJECT

public:
    ChartPanel(TimeChart& chart, Rehearsal& rehearsal, const ScreenTools& tools, QWidget* parent = nullptr);

private:
    QLayout* buildDays();
    QLayout* buildButtons();
    void chooseColour(int sim);
    void print();
    void savePicture();

    TimeChart& chart_;
    Rehearsal& rehearsal_;
    ScreenTools tools_;
    ChartView* view_;
};

}  // namespace trunvex
