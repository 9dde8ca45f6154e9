#pragma once

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QTest>
#include <QToolButton>

#include "fakes/console_test.h"
#include "screens/main_window_screen.h"
#include "screens/screens.h"

namespace trunvex {

template <class Widget>
Widget* find(QObject* in, const QString& name) {
    auto* widget = in->findChild<Widget*>(name);
    EXPECT_NE(widget, nullptr) << name.toStdString();
    return widget;
}

// A screen reader has a word for whatever can be operated, and Tab reaches it.
inline void expectOperable(QWidget* in) {
    std::set<QWidget*> reached;
    for (QWidget* at = in->window(); reached.insert(at).second; at = at->nextInFocusChain()) {
    }
    for (auto* widget : in->findChildren<QWidget*>()) {
        const auto* button = qobject_cast<QAbstractButton*>(widget);
        const bool operated = button || qobject_cast<QLineEdit*>(widget) || qobject_cast<QComboBox*>(widget) ||
                              qobject_cast<QSlider*>(widget);
        if (!operated || !widget->isVisible() || !widget->isEnabled() || widget->objectName().startsWith("qt_"))
            continue;
        if (widget->inherits("QTableCornerButton")) continue;            // Ctrl+A does what it does
        if (qobject_cast<QComboBox*>(widget->parentWidget())) continue;  // the combo box speaks for it
        const auto name = widget->objectName().toStdString();
        EXPECT_TRUE(!widget->accessibleName().isEmpty() || (button && !button->text().isEmpty())) << name;
        EXPECT_TRUE((widget->focusPolicy() & Qt::TabFocus) && reached.count(widget)) << name;
    }
}

// The real windows of a console, without a screen and on the manual clock.
class ScreensBench : public testing::Test {
protected:
    // The dialog of the bench answers by itself; the window's own would wait for an operator.
    void answerByScript() { console.session.bringUp.showConnectionDialog = scripted; }
    MainWindowScreen& window() { return screens.mainWindow(); }
    template <class Widget>
    Widget* named(const char* name) {
        return find<Widget>(&window(), name);
    }
    QAction* tool(const std::string& key) { return named<QAction>(("tool_" + key).c_str()); }
    void click(const char* button) { QTest::mouseClick(named<QPushButton>(button), Qt::LeftButton); }
    void show() {
        window().resize(1280, 720);
        window().show();
        window().activateWindow();
        QApplication::processEvents();  // keys go to the active window
    }

    simulator::Gateway gateway{seeded(3)};
    ConsoleBench bench;
    Console& console = bench.console;
    std::function<void(frmConnectionSelect&)> scripted = console.session.bringUp.showConnectionDialog;
    Screens screens{console};
};

}  // namespace trunvex
