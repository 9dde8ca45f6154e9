#include "screens/screens.h"

#include <QApplication>
#include <QStackedWidget>

#include "screens/board/board_screen.h"
#include "screens/board/statistics_screen.h"
#include "screens/kit/field_binding.h"
#include "screens/kit/icons.h"
#include "screens/kit/page_frame.h"
#include "screens/kit/theme.h"
#include "screens/pages/calls_screen.h"
#include "screens/pages/connection_dialog_screen.h"
#include "screens/pages/isdn_page_screen.h"
#include "screens/pages/port_tree_screen.h"
#include "screens/pages/routing_screen.h"
#include "screens/pages/start_page.h"
#include "screens/pages/system_page_screen.h"
#include "screens/splash_screen.h"
#include "shell/console.h"

namespace trunvex {

Screens::Screens(Console& console) : console_(console), tools_{console.session.platform, console.files.setting} {
    applyTheme(*qApp);
    QApplication::setWindowIcon(applicationIcon());
    // In the tray no window is open, and the end of a message box is then not the end of the program.
    QApplication::setQuitOnLastWindowClosed(false);
    mainWindow_ = std::make_unique<MainWindowScreen>(console.mainWindow, tools_, pages());
    listen(mainWindow_.get(), console.board.asked(), [this] { board().bringUp(); });
    listen(mainWindow_.get(), console.monitor.events.alerted, [&console](const std::string&) {
        if (console.monitor.events.chkEventSound.checked()) QApplication::beep();
    });
    // The calls of a SIM stand in the main window, also when they are asked for on the board.
    listen(mainWindow_.get(), console.monitor.statistics.callsAsked,
           [this](const SimFigures&) { mainWindow_->bringUp(); });
    // exit and not quit: quit would ask every window once more.
    QObject::connect(mainWindow_.get(), &MainWindowScreen::closed, qApp, [] { QCoreApplication::exit(); });
    console_.session.bringUp.showConnectionDialog = [this](frmConnectionSelect& model) {
        ConnectionDialogScreen(model, mainWindow_.get()).exec();
    };
}

Screens::~Screens() { console_.session.bringUp.showConnectionDialog = nullptr; }

void Screens::start() {
    splash_ = std::make_unique<SplashScreen>(tools_.platform, shown(console_.mainWindow.lblVersion.text()),
                                             [this] { startWithoutSplash(); });
    splash_->show();
}

void Screens::startWithoutSplash() {
    mainWindow_->show();
    // The splash may be the one that calls.
    if (splash_) splash_.release()->deleteLater();
}

BoardScreen& Screens::board() {
    if (!board_)
        board_ = std::make_unique<BoardScreen>(console_.board, console_.monitor,
                                               console_.pages.routing.portSide.lblAllocation,
                                               console_.session.notices.lblNotice, tools_);
    return *board_;
}

// A row a page: its key, and what shows it.
QHash<QString, MainWindowScreen::MakePage> Screens::pages() {
    auto& console = console_;
    const auto empty = [](const char* key, const char* name, const QString& title, const QString& purpose) {
        return [=] { return new PlaceholderPage(name, title, key, purpose); };
    };
    return {
        {"main", [this] { return buildMain(); }},
        {"groups", [&console] { return new GroupsScreen(console.portTree); }},
        {"tsl", [&console] { return new RoutingScreen(console.pages.routing); }},
        {"call", [this, &console] { return new CallsScreen(console.calls, tools_); }},
        {"isdn", [&console] { return new IsdnPageScreen(console.pages.isdn, console.pages.system); }},
        {"system",
         [&console] {
             return new SystemPageScreen(console.pages.system, console.mainWindow.lblTimePanel,
                                         console.mainWindow.lblUpdateStatus);
         }},
        {"stc", [this, &console] { return new StatisticsScreen(console.monitor, tools_); }},
        {"hst", empty("hst", "page_hst", QObject::tr("Handset test"),
                      QObject::tr("A test call over one port, to be dialled and heard here."))},
        {"dbg", empty("dbg", "page_dbg", QObject::tr("Debug console"),
                      QObject::tr("The lines that go to and come from the gateway, to be watched here."))},
    };
}

// Without a session there is nothing to show of a gateway, so the page says how to begin.
QWidget* Screens::buildMain() {
    auto* both = new QStackedWidget;
    both->setObjectName("page_main");
    both->addWidget(new StartPage(console_.session.connectButton));
    const auto choose = [this, both] {
        const auto phase = console_.session.state.phase;
        const bool known = phase == SessionPhase::LogIn || phase == SessionPhase::Connected;
        if (known && both->count() == 1)
            both->addWidget(new PortTreeScreen(console_.pages.main, console_.board, tools_.platform));
        turnTo(both, both->widget(known ? 1 : 0));
    };
    choose();
    listen(both, console_.session.events.phaseChanged, choose);
    return both;
}

}  // namespace trunvex
