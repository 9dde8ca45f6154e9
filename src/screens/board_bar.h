#pragma once

#include <QFrame>

class QLabel;
class QProgressBar;

namespace trunvex {

class BoardFrame;
class RefreshQueue;

// The bar of the board's own reads: a small card in the middle of the board while they run.
class BoardBar : public QFrame {
    Q_OBJECT

public:
    BoardBar(RefreshQueue& refreshes, BoardFrame& frame, QWidget* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void refresh();
    void centre();

    RefreshQueue& refreshes_;
    QLabel* text_;
    QLabel* percent_;
    QProgressBar* bar_;
};

}  // namespace trunvex
