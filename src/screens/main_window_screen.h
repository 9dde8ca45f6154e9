#pragma once

#include <QHash>
#include <QMainWindow>
#include <QPointer>
#include <functional>

#include "screens/kit/screen_tools.h"

class QStackedWidget;

namespace trunvex {

class FrmPRIGroups;

// The window FrmPRIGroups: tool bar, notice line, the pages, status bar. Asks before it closes.
class MainWindowScreen : public QMainWindow {
    Q_OBJECT

public:
    // The screen of a page is made when it is first opened.
    using MakePage = std::function<QWidget*()>;
    MainWindowScreen(FrmPRIGroups& model, const ScreenTools& tools, QHash<QString, MakePage> pages);

    // Shows it, in front of the others.
    void bringUp() { showWindow(true); }

Q_SIGNALS:
    // The operator agreed to end the program, and the window is closed.
    void closed();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void showPage();
    void enablePages(bool enabled);
    void showWindow(bool shown);
    void restorePlace();
    void savePlace();

    FrmPRIGroups& model_;
    ScreenTools tools_;
    QStackedWidget* pages_;
    QHash<QString, MakePage> makePage_;
    QHash<QString, QWidget*> pageOf_;
    QWidget* readBar_ = nullptr;
    QPointer<QWidget> focusBefore_;  // where the focus was when a read took the pages away
    bool asking_ = false;
    bool agreed_ = false;
};

}  // namespace trunvex
