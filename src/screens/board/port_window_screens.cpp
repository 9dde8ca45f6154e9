#include "screens/board/port_window_screens.h"

#include <QLabel>
#include <QVBoxLayout>

#include "monitor/port_windows.h"
#include "screens/kit/field_binding.h"
#include "screens/kit/labels.h"
#include "screens/kit/theme.h"

namespace trunvex {

namespace {

constexpr QSize messageSize(480, 240);
constexpr QSize diallerSize(320, 160);

void fill(QDialog* window, LabelField& port, const QString& text) {
    auto* rows = new QVBoxLayout(window);
    rows->setContentsMargins(2 * grid, 2 * grid, 2 * grid, 2 * grid);
    rows->setSpacing(grid);
    auto* title = roleLabel({}, "title");
    bind(port, title);
    rows->addWidget(title);
    auto* words = roleLabel(text, "muted");
    words->setWordWrap(true);
    rows->addWidget(words);
    rows->addStretch(1);
}

void present(QDialog* window) {
    window->show();
    window->raise();
    window->activateWindow();
}

}  // namespace

MessageWindow::MessageWindow(frmSMS& window, QWidget* board) : QDialog(board) {
    setObjectName(QString("frmSMS_%1").arg(window.port.number()));
    setWindowTitle(tr("PORT %1").arg(window.port.number()));
    resize(messageSize);
    fill(this, window.lblPort, tr("Messages can't be read or sent from this version of the console yet."));
    listen(this, window.raised, [this] { bringUp(); });
    bringUp();
}

void MessageWindow::bringUp() { present(this); }

void showDialler(PortWindows& windows, QWidget* board) {
    auto* dialler = board->findChild<QDialog*>("ucDTMF");
    if (!dialler) {
        dialler = new QDialog(board);
        dialler->setObjectName("ucDTMF");
        dialler->setWindowTitle(QDialog::tr("DTMF Dialer"));
        dialler->resize(diallerSize);
        fill(dialler, windows.lblDiallerPort, QDialog::tr("This version of the console can't dial tones yet."));
    }
    present(dialler);
    dialler->move(board->frameGeometry().center() - dialler->rect().center());
}

}  // namespace trunvex
