#pragma once

#include <QFrame>

class QLabel;
class QProgressBar;

namespace trunvex {

class ReadQueue;

// The bar of a read batch: a small card in the middle of its parent, there while prgLoading is visible.
class ReadBar : public QFrame {
    Q_OBJECT

public:
    ReadBar(ReadQueue& reads, QWidget* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void refresh();
    void centre();

    ReadQueue& reads_;
    QLabel* text_;
    QLabel* percent_;
    QProgressBar* bar_;
};

}  // namespace trunvex
