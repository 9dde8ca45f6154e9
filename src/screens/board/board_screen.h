#pragma once

#include <QPointer>
#include <QWidget>
#include <vector>

#include "screens/kit/board_frame.h"

namespace trunvex {

class BoardCell;
class ColoursScreen;
class Console;

// The window frmSimStatus. Closing hides it: it lives as long as the console's screens do.
class BoardScreen : public QWidget {
    Q_OBJECT

public:
    explicit BoardScreen(Console& console);
    ~BoardScreen() override;

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QWidget* buildCells();
    void bringUp();
    void showColours();
    void moveFocus(int index, int columns, int rows);
    void keepTabStop(int index);
    void restorePlace();
    void savePlace();

    Console& console_;
    BoardFrame frame_;
    std::vector<BoardCell*> cells_;
    int tabStop_ = 1;
    QPointer<ColoursScreen> colours_;
};

}  // namespace trunvex
