#pragma once

#include "screens/page_frame.h"

class QGroupBox;
class QLabel;
class QTableView;

namespace trunvex {

class Console;

// The page "call": the list of calls with its filters and totals, the download and its settings.
class CallsScreen : public PageFrame {
    Q_OBJECT

public:
    explicit CallsScreen(Console& console, QWidget* parent = nullptr);

private:
    QLayout* buildFilters();
    QWidget* buildList();
    QLayout* buildFoot();
    QWidget* buildSide();
    QGroupBox* buildDownload();
    void showTotals();
    void copySelected();
    void chooseColumns(const QPoint& at);
    void keepColumns();

    Console& console_;
    QTableView* table_ = nullptr;
    QLabel* totals_ = nullptr;
    QLabel* empty_ = nullptr;
};

}  // namespace trunvex
