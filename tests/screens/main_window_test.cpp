// Real windows without a screen, driven by object names as an operator drives them by eye.
#include <gmock/gmock.h>

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>

#include "fakes/console_bench.h"
#include "screens/kit/theme.h"
#include "screens/main_window_screen.h"
#include "screens/pages/connection_dialog_screen.h"
#include "screens/screens.h"

namespace trunvex {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

template <class Widget>
Widget* find(QObject* in, const QString& name) {
    auto* widget = in->findChild<Widget*>(name);
    EXPECT_NE(widget, nullptr) << name.toStdString();
    return widget;
}

class Windows : public testing::Test {
protected:
    Windows() { screens.startWithoutSplash(); }
    QAction* tool(const char* key) { return find<QAction>(&screens.mainWindow(), QString("tool_") + key); }

    fakes::ConsoleBench bench;
    Console& console = bench.console;
    simulator::Gateway gateway{fakes::seeded(3)};
    std::function<void(frmConnectionSelect&)> scripted = console.session.bringUp.showConnectionDialog;
    Screens screens{console};
};

// Fills the dialog in by its widgets while it is open, then presses OK.
TEST_F(Windows, ConnectThroughTheDialogAndBack) {
    bench.attach(gateway);
    bool driven = false;
    QTimer::singleShot(0, [&] {
        auto* dialog = QApplication::activeModalWidget();
        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(dialog->objectName(), "frmConnectionSelect");
        auto* kind = find<QComboBox>(dialog, "cmbConSelect");
        kind->setCurrentIndex(0);
        EXPECT_FALSE(find<QWidget>(dialog, "framNET")->isVisibleTo(dialog));
        kind->setCurrentIndex(1);
        EXPECT_TRUE(find<QWidget>(dialog, "framNET")->isVisibleTo(dialog));
        find<QComboBox>(dialog, "txtIP")->setEditText("10.0.0.7");
        auto* password = find<QLineEdit>(dialog, "txtPass");
        EXPECT_EQ(password->echoMode(), QLineEdit::Password);
        QTest::keyClick(password, Qt::Key_Return);
        driven = true;
    });
    tool("connect")->trigger();
    ASSERT_TRUE(driven);
    EXPECT_EQ(std::get<TcpTarget>(bench.platform.peer.target).host, "10.0.0.7");
    bench.platform.peer.accepts();
    bench.advance(3000);
    EXPECT_EQ(console.session.bringUp.phase(), SessionPhase::Connected);
    EXPECT_EQ(tool("connect")->text(), "Disconnect");
    EXPECT_THAT(screens.mainWindow().windowTitle().toStdString(), HasSubstr("{10.0.0.7:4001}"));
    EXPECT_EQ(find<QLabel>(&screens.mainWindow(), "lblESN")->text(), "4711");
    tool("connect")->trigger();
    EXPECT_EQ(console.session.bringUp.phase(), SessionPhase::Idle);
}

TEST_F(Windows, CloseTheDialogMeansCancel) {
    QTimer::singleShot(0, [] { QApplication::activeModalWidget()->close(); });
    tool("connect")->trigger();
    EXPECT_EQ(console.session.bringUp.phase(), SessionPhase::Idle);
    EXPECT_EQ(bench.platform.peer.state, BytePipe::State::Closed);
}

TEST_F(Windows, EveryPageOpensByItsToolAndItsShortcut) {
    console.session.bringUp.showConnectionDialog = scripted;
    bench.logIn(gateway);
    for (auto* one : console.mainWindow.tools()) {
        const auto key = one->name().substr(5);
        auto* action = tool(key.c_str());
        EXPECT_FALSE(action->shortcut().isEmpty()) << key;
        EXPECT_THAT(action->toolTip().toStdString(),
                    HasSubstr(action->shortcut().toString(QKeySequence::NativeText).toStdString()));
        if (key == "connect" || key == "exit") continue;
        if (key == "sim") continue;  // a window of its own
        action->trigger();
        bench.advance(2000);
        EXPECT_EQ(console.mainWindow.page(), key);
    }
    tool("system")->trigger();
    EXPECT_NE(find<QLineEdit>(&screens.mainWindow(), "TxtSystemVer")->text(), "");
}

TEST_F(Windows, ExitOnlyWhenTheOperatorAgrees) {
    auto& window = screens.mainWindow();
    bool closed = false;
    QObject::connect(&window, &MainWindowScreen::closed, [&] { closed = true; });
    tool("exit")->trigger();
    EXPECT_FALSE(closed);
    EXPECT_TRUE(window.isVisible());
    bench.platform.boxes.answers = {Button::Yes};
    window.resize(1111, 777);
    window.close();
    EXPECT_TRUE(closed);
    EXPECT_EQ(bench.platform.boxes.shown.size(), 2u);
    EXPECT_EQ(bench.platform.boxes.shown[0].text, "Do you really want to exit the software?");
    Screens again(console);
    EXPECT_EQ(again.mainWindow().size(), QSize(1111, 777));
}

TEST_F(Windows, TheNoticeIsPlainTextAndCanBeDismissed) {
    console.session.tell("<b>bold</b>");
    auto* notice = find<QLabel>(&screens.mainWindow(), "lblNotice");
    EXPECT_EQ(notice->textFormat(), Qt::PlainText);
    EXPECT_TRUE(notice->isVisible());
    find<QAbstractButton>(&screens.mainWindow(), "cmdDismissNotice")->click();
    EXPECT_FALSE(notice->isVisible());
}

// A screen reader has a word for whatever can be operated, and Tab reaches it.
TEST_F(Windows, WhatCanBeOperatedHasANameAndIsReachedByTab) {
    QTimer::singleShot(0, [] {
        auto* dialog = QApplication::activeModalWidget();
        for (auto* widget : dialog->findChildren<QWidget*>()) {
            const bool operated = qobject_cast<QLineEdit*>(widget) || qobject_cast<QComboBox*>(widget) ||
                                  qobject_cast<QAbstractButton*>(widget);
            if (!operated || !widget->isVisible() || !widget->isEnabled() || widget->objectName().startsWith("qt_"))
                continue;
            const auto* button = qobject_cast<QAbstractButton*>(widget);
            const bool named = !widget->accessibleName().isEmpty() || (button && !button->text().isEmpty());
            const bool inner = qobject_cast<QComboBox*>(widget->parentWidget());  // the edit of a combo box
            EXPECT_TRUE(named || inner) << widget->objectName().toStdString();
            EXPECT_TRUE(inner || (widget->focusPolicy() & Qt::TabFocus)) << widget->objectName().toStdString();
        }
        dialog->close();
    });
    tool("connect")->trigger();
}

TEST(Theme, TextCanBeReadOnEveryGround) {
    for (const auto theme : {Theme::Light, Theme::Dark}) {
        const auto& roles = coloursOf(theme);
        for (const auto& text : {roles.text, roles.muted, roles.ok, roles.warning, roles.danger})
            for (const auto& ground : {roles.window, roles.surface, roles.field})
                EXPECT_GE(contrast(text, ground), 4.5) << text.name().toStdString() << ground.name().toStdString();
        EXPECT_GE(contrast(roles.onAccent, roles.accent), 4.5);
        EXPECT_GE(contrast(roles.text, roles.noticeBack), 4.5);
    }
}

}  // namespace
}  // namespace trunvex
