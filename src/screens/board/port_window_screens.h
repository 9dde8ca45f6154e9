#pragma once

#include <QDialog>

namespace trunvex {

class PortWindows;
struct frmSMS;

// The window frmSMS of a port, in front of the board. Closing hides it until it is asked for again.
class MessageWindow : public QDialog {
    Q_OBJECT

public:
    MessageWindow(frmSMS& window, QWidget* board);

private:
    void bringUp();
};

// The dialler ucDTMF, one for all ports, centred on the board.
void showDialler(PortWindows& windows, QWidget* board);

}  // namespace trunvex
