#pragma once

#include <QDialog>

#include "link/connection_dialog.h"

class QGridLayout;
class QStackedWidget;

namespace trunvex {

class FieldFrame;

// The window of frmConnectionSelect. Closing it in any other way than by a valid OK is a cancel.
class ConnectionDialogScreen : public QDialog {
    Q_OBJECT

public:
    ConnectionDialogScreen(frmConnectionSelect& model, QWidget* parent);

    void accept() override;
    void reject() override;

private:
    QWidget* buildKind();
    QWidget* buildSerial();
    QWidget* buildNet();
    QWidget* buildCommon();
    QWidget* buildButtons();
    void addErrorLine(QGridLayout* grid, int row, LabelField& error, FieldFrame* fieldFrame, const QString& hint);
    void orderTabs();
    void toFirstError();

    frmConnectionSelect& model_;
    QStackedWidget* frames_;
};

}  // namespace trunvex
