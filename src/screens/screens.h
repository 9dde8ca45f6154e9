#pragma once

#include <QHash>
#include <memory>

#include "screens/main_window_screen.h"

namespace trunvex {

class BoardScreen;
class Console;
class SplashScreen;

// All windows of one console, and which screen shows which page. Make it after the QApplication; it gives the
// application its look, and the console the way to show its connection dialog. The console must outlive it.
class Screens {
public:
    explicit Screens(Console& console);
    ~Screens();
    Screens(const Screens&) = delete;
    Screens& operator=(const Screens&) = delete;

    // Shows the splash window, and when its time is over the main window.
    void start();
    void startWithoutSplash();

    MainWindowScreen& mainWindow() { return *mainWindow_; }
    // Made when it is first asked for.
    BoardScreen& board();

private:
    QHash<QString, MainWindowScreen::MakePage> pages();
    QWidget* buildMain();

    Console& console_;
    ScreenTools tools_;
    std::unique_ptr<SplashScreen> splash_;
    std::unique_ptr<MainWindowScreen> mainWindow_;
    std::unique_ptr<BoardScreen> board_;
};

}  // namespace trunvex
