#pragma once

#include <QHash>
#include <QMainWindow>
#include <QPointer>

class QStackedWidget;

namespace trunvex {

class Console;

// The window FrmPRIGroups: tool bar, notice line, the pages, status bar. Asks before it closes.
class MainWindowScreen : public QMainWindow {
    Q_OBJECT

public:
    explicit MainWindowScreen(Console& console, QWidget* parent = nullptr);

Q_SIGNALS:
    // The operator agreed to end the program, and the window is closed.
    void closed();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void buildPages();
    void addPage(const QString& key, QWidget* page);
    QWidget* buildMain();
    QWidget* buildRouting();
    void showPage();
    void enablePages(bool enabled);
    void showWindow(bool shown);
    void restorePlace();
    void savePlace();

    Console& console_;
    QStackedWidget* pages_;
    QHash<QString, QWidget*> pageOf_;
    QWidget* readBar_ = nullptr;
    QPointer<QWidget> focusBefore_;  // where the focus was when a read took the pages away
    bool asking_ = false;
    bool agreed_ = false;
};

}  // namespace trunvex
