#pragma once

#include <QWidget>

#include "screens/board/board_paint.h"

class QHBoxLayout;
class QLabel;

namespace trunvex {

class BoardFrame;
class frmSimStatus;

// A system lamp: its shape and its word tell as much as its colour.
class LampSign : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString picture READ picture)

public:
    LampSign(PictureField& field, const QString& caption, BoardFrame& frame, QWidget* parent = nullptr);
    QString picture() const;
    QSize sizeHint() const override;

Q_SIGNALS:
    // What is behind it is asked for.
    void pressed();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    PictureField& field_;
    QString caption_;
};

// How many ports are in a call: a step a port.
class LevelBar : public QWidget {
    Q_OBJECT
    Q_PROPERTY(int value READ value)

public:
    LevelBar(int steps, QWidget* parent = nullptr);
    int value() const { return value_; }
    void setValue(int value);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int steps_;
    int value_ = 0;
};

// The line above the cells: system lamps, loading level, totals, versions, clock.
class BoardHeader : public QWidget {
    Q_OBJECT

public:
    BoardHeader(frmSimStatus& board, LabelField& allocation, LabelField& faults, BoardFrame& frame,
                QWidget* parent = nullptr);
    // Gives a widget around the cells the font of its window, whose size goes with the window's.
    static void takeWindowFont(QWidget* widget);

private:
    // A caption with what it names under it.
    void addTile(const QString& caption, QWidget* content, int stretch = 0);
    void addLamps();
    void addLevel();
    void addFacts();
    void addFaults();
    void addClock();
    QLabel* valueLabel(LabelField& field, const QString& name, const QString& widest);
    void showInFrames(LabelField& field, QLabel* label, const QString& name);

    frmSimStatus& board_;
    LabelField& allocation_;
    LabelField& faults_;
    BoardFrame& frame_;
    QHBoxLayout* line_;
};

}  // namespace trunvex
