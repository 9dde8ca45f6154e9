#pragma once

#include <QPointer>
#include <QWidget>
#include <vector>

#include "screens/kit/board_frame.h"
#include "screens/kit/screen_tools.h"

class QLabel;
class QTabWidget;

namespace trunvex {

class BoardCell;
class ColoursScreen;
struct MonitorTools;
class frmSimStatus;

// The window frmSimStatus. Closing hides it: it lives as long as the console's screens do.
class BoardScreen : public QWidget {
    Q_OBJECT

public:
    BoardScreen(frmSimStatus& board, MonitorTools& monitor, LabelField& allocation, LabelField& notice,
                const ScreenTools& tools);
    ~BoardScreen() override;
    // Shows it, in front of the others.
    void bringUp();

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QWidget* buildBoard();
    QWidget* buildButtons();
    QLayout* buildFoot();
    QWidget* buildCells();
    void buildTabs();
    void followWindows();
    void mark(int index);
    void showAsOf();
    void showPortMenu(int index);
    void showColours();
    void moveFocus(int index, int columns, int rows);
    void keepTabStop(int index);
    void restorePlace();
    void savePlace();

    frmSimStatus& board_;
    MonitorTools& monitor_;
    LabelField& notice_;
    ScreenTools tools_;
    BoardFrame frame_;
    QTabWidget* tabs_ = nullptr;
    std::vector<BoardCell*> cells_;
    QLabel* asOf_ = nullptr;
    std::vector<QWidget*> pictures_;  // that turn grey when what they show is no longer live
    int tabStop_ = 1;
    QPointer<ColoursScreen> colours_;
};

}  // namespace trunvex
