#pragma once

#include <QWidget>

namespace trunvex {

class frmSimStatus;

// What the colours and shapes of the cells stand for, in one line. What has no room at the end is left out.
class BoardLegend : public QWidget {
    Q_OBJECT

public:
    explicit BoardLegend(frmSimStatus& board, QWidget* parent = nullptr);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return {0, sizeHint().height()}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    frmSimStatus& board_;
};

}  // namespace trunvex
