#pragma once

#include <QWidget>
#include <vector>

#include "monitor/port_cell.h"
#include "screens/board/board_paint.h"

namespace trunvex {

class BoardFrame;
class frmSimStatus;

// One B-channel of the strip, painted as a whole: bchRow_1 to bchRow_30. Its fields are properties of their names.
class BoardChannelRow : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString lblSTBBch READ lblSTBBch)
    Q_PROPERTY(QString lblSTBCause READ lblSTBCause)
    Q_PROPERTY(bool chkSTBEnable READ chkSTBEnable)
    Q_PROPERTY(QColor colour READ colour)
    Q_PROPERTY(QString accessibleDescription READ stateInWords)

public:
    BoardChannelRow(BchRow& row, BoardFrame& frame, QWidget* parent);

    QString stateInWords() const;
    QSize minimumSizeHint() const override { return {96, 12}; }

Q_SIGNALS:
    // An arrow key: to the row so many below.
    void walked(int rows);

protected:
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    QString lblSTBBch() const;
    QString lblSTBCause() const;
    bool chkSTBEnable() const { return row_.chkSTBEnable.checked(); }
    QColor colour() const { return screenColour(row_.lblSTBBch.colour()); }
    void repaintLater();
    void layOut();

    BchRow& row_;
    bool stale_ = true;
    double pixelRatio_ = 0;
    QColor ground_;
    QRect chip_;
    QColor chipColour_;
    TextPiece number_;
    TextPiece cause_;
    IconPiece state_;
    IconPiece enable_;
    QRectF enableBox_;
};

// The strip: the column heading and its 30 rows.
class BoardChannels : public QWidget {
    Q_OBJECT

public:
    BoardChannels(frmSimStatus& board, BoardFrame& frame, QWidget* parent = nullptr);

private:
    void walk(int from, int rows);

    std::vector<BoardChannelRow*> rows_;
};

}  // namespace trunvex
