#pragma once

#include <memory>

namespace trunvex {

class BoardScreen;
class Console;
class MainWindowScreen;
class SplashScreen;

// All windows of one console. Make it after the QApplication; it gives the application its look, and the
// console the way to show its connection dialog. The console must outlive it.
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
    BoardScreen& board() { return *board_; }

private:
    Console& console_;
    std::unique_ptr<SplashScreen> splash_;
    std::unique_ptr<MainWindowScreen> mainWindow_;
    std::unique_ptr<BoardScreen> board_;
};

}  // namespace trunvex
