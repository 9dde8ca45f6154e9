#include "screens/screens.h"

#include <QApplication>

#include "screens/board/board_screen.h"
#include "screens/kit/icons.h"
#include "screens/kit/theme.h"
#include "screens/main_window_screen.h"
#include "screens/pages/connection_dialog_screen.h"
#include "screens/splash_screen.h"
#include "shell/console.h"

namespace trunvex {

Screens::Screens(Console& console) : console_(console) {
    applyTheme(*qApp);
    QApplication::setWindowIcon(applicationIcon());
    // In the tray no window is open, and the end of a message box is then not the end of the program.
    QApplication::setQuitOnLastWindowClosed(false);
    mainWindow_ = std::make_unique<MainWindowScreen>(console);
    board_ = std::make_unique<BoardScreen>(console);
    // exit and not quit: quit would ask every window once more.
    QObject::connect(mainWindow_.get(), &MainWindowScreen::closed, qApp, [] { QCoreApplication::exit(); });
    console_.bringUp.showConnectionDialog = [this](frmConnectionSelect& model) {
        ConnectionDialogScreen(model, mainWindow_.get()).exec();
    };
}

Screens::~Screens() { console_.bringUp.showConnectionDialog = nullptr; }

void Screens::start() {
    splash_ =
        std::make_unique<SplashScreen>(console_.platform, QString::fromStdString(console_.mainWindow.lblVersion.text()),
                                       [this] { startWithoutSplash(); });
    splash_->show();
}

void Screens::startWithoutSplash() {
    mainWindow_->show();
    // The splash may be the one that calls.
    if (splash_) splash_.release()->deleteLater();
}

}  // namespace trunvex
