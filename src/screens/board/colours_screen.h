#pragma once

#include <QDialog>

#include "monitor/board_colours.h"

class QPushButton;

namespace trunvex {

class frmSimStatus;

// The window frmColors: the six state colours of the board. They are the board's when they are saved.
class ColoursScreen : public QDialog {
    Q_OBJECT

public:
    ColoursScreen(frmSimStatus& board, QWidget* parent);

private:
    QPushButton* swatch(LabelField& field);
    void choose(LabelField& field);

    frmColors model_;
};

}  // namespace trunvex
