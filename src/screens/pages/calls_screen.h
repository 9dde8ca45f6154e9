#pragma once

#include <memory>
#include <vector>

#include "platform/timer.h"
#include "screens/kit/page_frame.h"
#include "screens/kit/screen_tools.h"

class QGroupBox;
class QLabel;

namespace trunvex {

class BarChart;
class CallsPage;
class TableView;

// The page "call": the list of calls with its filters and totals, charts of what is shown, the download and its
// settings.
class CallsScreen : public PageFrame {
    Q_OBJECT

public:
    CallsScreen(CallsPage& page, const ScreenTools& tools, QWidget* parent = nullptr);

private:
    QLayout* buildFilters();
    QWidget* buildList();
    QLayout* buildFoot();
    QWidget* buildSide();
    QGroupBox* buildDownload();
    QWidget* buildCharts();
    QWidget* buildSettings();
    void showSums();
    void showTotals();
    void showCharts();
    void showOrder();
    void keepColumns();

    CallsPage& page_;
    ScreenTools tools_;
    TableView* table_ = nullptr;
    QLabel* totals_ = nullptr;
    std::vector<BarChart*> charts_;  // in the order of chartGroups
    // A download adds calls faster than sums and charts are looked at: they are shown at once, then after each pause.
    std::unique_ptr<Timer> pause_;
    bool changedSince_ = false;
};

}  // namespace trunvex
