// Real windows without a screen, driven by object names as an operator drives them by eye.
#include <QTimer>

#include "screens/kit/theme.h"
#include "screens/screens_bench.h"

namespace trunvex {
namespace {

class Windows : public ScreensBench {
protected:
    Windows() { screens.startWithoutSplash(); }
};

// Fills the dialog in by its widgets while it is open, then presses OK.
TEST_F(Windows, ConnectThroughTheDialogAndBack) {
    bench.attach(gateway);
    bool driven = false;
    QTimer::singleShot(0, [&] {
        auto* dialog = QApplication::activeModalWidget();
        ASSERT_TRUE(dialog && dialog->objectName() == "frmConnectionSelect");
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
    EXPECT_THAT(window().windowTitle().toStdString(), HasSubstr("{10.0.0.7:4001}"));
    EXPECT_EQ(named<QLabel>("lblESN")->text(), "4711");
    tool("connect")->trigger();
    EXPECT_EQ(console.session.bringUp.phase(), SessionPhase::Idle);
}

TEST_F(Windows, CloseTheDialogMeansCancel) {
    QTimer::singleShot(0, [] {
        expectOperable(QApplication::activeModalWidget());
        QApplication::activeModalWidget()->close();
    });
    tool("connect")->trigger();
    EXPECT_EQ(console.session.bringUp.phase(), SessionPhase::Idle);
    EXPECT_EQ(bench.platform.peer.state, BytePipe::State::Closed);
}

TEST_F(Windows, EveryPageOpensByItsToolAndItsShortcut) {
    answerByScript();
    bench.logIn(gateway);
    for (auto* one : console.mainWindow.tools()) {
        const auto key = one->name().substr(5);
        auto* action = tool(key);
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
    EXPECT_NE(named<QLineEdit>("TxtSystemVer")->text(), "");
}

TEST_F(Windows, ExitOnlyWhenTheOperatorAgrees) {
    bool closed = false;
    QObject::connect(&window(), &MainWindowScreen::closed, [&] { closed = true; });
    tool("exit")->trigger();
    EXPECT_FALSE(closed);
    EXPECT_TRUE(window().isVisible());
    bench.platform.boxes.answers = {Button::Yes};
    window().resize(1111, 777);
    window().close();
    EXPECT_TRUE(closed);
    EXPECT_EQ(bench.platform.boxes.shown.size(), 2u);
    EXPECT_EQ(bench.platform.boxes.shown[0].text, "Do you really want to exit the software?");
    Screens again(console);
    EXPECT_EQ(again.mainWindow().size(), QSize(1111, 777));
}

TEST_F(Windows, TheNoticeIsPlainTextAndCanBeDismissed) {
    console.session.tell("<b>bold</b>");
    auto* notice = named<QLabel>("lblNotice");
    EXPECT_EQ(notice->textFormat(), Qt::PlainText);
    EXPECT_TRUE(notice->isVisible());
    named<QAbstractButton>("cmdDismissNotice")->click();
    EXPECT_FALSE(notice->isVisible());
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
