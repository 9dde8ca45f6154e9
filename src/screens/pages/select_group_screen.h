#pragma once

#include <QDialog>

#include "config/port_tree.h"

namespace trunvex {

// The window of frmSelectGroup. Closing it in any other way than by OK selects nothing.
class SelectGroupScreen : public QDialog {
    Q_OBJECT

public:
    SelectGroupScreen(frmSelectGroup& model, QWidget* parent);

    void accept() override;

private:
    frmSelectGroup& model_;
};

}  // namespace trunvex
