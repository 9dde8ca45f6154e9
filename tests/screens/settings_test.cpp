// The settings pages as the operator meets them: fields by their names, keys, marks and reasons.
#include <gmock/gmock.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSlider>
#include <QTest>
#include <QToolButton>

#include "fakes/console_bench.h"
#include "screens/kit/field_frame.h"
#include "screens/main_window_screen.h"
#include "screens/pages/time_table_view.h"
#include "screens/screens.h"

namespace trunvex {
namespace {

class SettingsPagesOnScreen : public testing::Test {
protected:
    SettingsPagesOnScreen() {
        auto scripted = bench.console.session.bringUp.showConnectionDialog;
        screens = std::make_unique<Screens>(bench.console);
        bench.console.session.bringUp.showConnectionDialog = scripted;
        window().resize(1280, 720);
        window().show();
        bench.console.mainWindow.openPage("main");
        bench.logIn(gateway);
    }
    QWidget& window() { return screens->mainWindow(); }
    template <class Widget>
    Widget* named(const char* name) {
        auto* widget = window().findChild<Widget*>(name);
        if (!widget) ADD_FAILURE() << "no widget " << name;
        return widget;
    }
    void select(const char* key) {
        bench.console.portTree.tvGroups[0].select(key);
        bench.advance(1500);
    }
    static FieldFrame* frameOf(QWidget* field) { return dynamic_cast<FieldFrame*>(field->parentWidget()); }
    void press(const char* button) {
        QTest::mouseClick(named<QPushButton>(button), Qt::LeftButton);
        bench.advance(1500);
    }

    simulator::Gateway gateway{fakes::seeded(3)};
    fakes::ConsoleBench bench;
    std::unique_ptr<Screens> screens;
};

TEST_F(SettingsPagesOnScreen, MarkWhatDiffersUntilItIsWritten) {
    select("MOD11");
    auto* digits = named<QLineEdit>("TxtMinDigits");
    ASSERT_FALSE(digits->text().isEmpty());
    EXPECT_FALSE(frameOf(digits)->edited());
    const auto other = digits->text() == "3" ? "4" : "3";
    digits->selectAll();
    QTest::keyClicks(digits, other);
    EXPECT_TRUE(frameOf(digits)->edited());
    EXPECT_THAT(digits->accessibleDescription().toStdString(), testing::HasSubstr("not written"));
    press("cmdWritePort");
    EXPECT_FALSE(frameOf(digits)->edited());
    EXPECT_EQ(digits->text(), other);
    QTest::keyClicks(digits, "9");
    press("cmdUndoPort");
    EXPECT_EQ(digits->text(), other);
}

TEST_F(SettingsPagesOnScreen, PointAtTheFieldThatIsWrong) {
    select("SIM111");
    auto* pin = named<QLineEdit>("txtPIN");
    pin->setText("12a4");
    gateway.forgetLinesReceived();
    press("cmdWriteSIM");
    EXPECT_TRUE(frameOf(pin)->wrong());
    EXPECT_EQ(window().focusWidget(), pin);
    bool told = false;
    for (auto* label : window().findChildren<QLabel*>())
        told = told || (label->isVisible() && label->text().toStdString() == bench.platform.boxes.texts().back());
    EXPECT_TRUE(told) << "the reason stands under the field";
    EXPECT_TRUE(gateway.linesReceived().empty());
    QTest::keyClicks(pin, "5");
    EXPECT_FALSE(frameOf(pin)->wrong()) << "a field that is being mended is not wrong any more";
}

TEST_F(SettingsPagesOnScreen, ShowWhatATimeRowMeansWhileItIsTyped) {
    select("SIM111");
    auto& table = bench.console.pages.sim.timeTable;
    table.chkTimeIntEnable.setChecked(false);
    QTest::mouseClick(named<QCheckBox>("chkTimeIntEnable"), Qt::LeftButton, {}, {6, 6});
    auto* words = named<QLabel>("lblTimeRow_1");
    EXPECT_EQ(words->text(), "every day, all day");
    QTest::mouseClick(named<QCheckBox>("chkDayOfWkEnable"), Qt::LeftButton, {}, {6, 6});
    for (const char* day : {"chkSIMDayOfWk_1_0", "chkSIMDayOfWk_1_6"})
        QTest::mouseClick(named<QToolButton>(day), Qt::LeftButton);
    auto* from = named<QLineEdit>("txtTimeIntFrom_1");
    from->selectAll();
    QTest::keyClicks(from, "08:00");
    auto* to = named<QLineEdit>("txtTimeIntTo_1");
    to->selectAll();
    QTest::keyClicks(to, "20:00");
    EXPECT_EQ(words->text(), "Mo-Fr 08:00-20:00");
    const auto* bar = window().findChild<TimeBar*>();
    ASSERT_NE(bar, nullptr);
    const auto picture = const_cast<TimeBar*>(bar)->grab().toImage();
    const auto at = [&](double hour) { return picture.pixelColor(static_cast<int>(picture.width() * hour / 24), 4); };
    EXPECT_NE(at(10), at(6));
    EXPECT_EQ(at(22), at(6)) << "outside the times the bar is empty";
    QTest::keyClick(to, Qt::Key_Backspace);
    EXPECT_THAT(words->text().toStdString(), testing::HasSubstr("not a time"));
}

TEST_F(SettingsPagesOnScreen, WriteToAGroupWhatIsMarkedAndTellWhoGotIt) {
    auto& tree = bench.console.portTree;
    tree.cmdCreateGroup.press();
    std::vector<std::string> ports;
    for (const auto& item : bench.console.tables.gTreeItems)
        if (item.Kind == "GSM" && ports.size() < 3) ports.push_back(item.Key);
    for (const auto& port : ports) tree.movePort(port, "PRT01");
    select("MOD11");
    EXPECT_FALSE(named<QCheckBox>("chkIncGrpMod_0")->isVisible()) << "a single port is written as a whole";
    select("MDD01");
    auto* include = named<QCheckBox>("chkIncGrpMod_6");
    ASSERT_TRUE(include->isVisible());
    EXPECT_FALSE(include->isChecked());
    include->setChecked(true);
    named<QLineEdit>("txtNoRegTimer")->setText("90");
    gateway.state().port(*simulator::PortAddress::parse(ports[1].substr(3))).module = '0';  // pulled out meanwhile
    bench.platform.boxes.answers = {Button::Ignore};
    press("cmdWritePort");
    bench.advance(5000);
    auto* list = named<QListWidget>("lstGroupWriteMod");
    ASSERT_TRUE(list->isVisible());
    ASSERT_EQ(list->count(), 3);
    EXPECT_TRUE(list->item(0)->text().endsWith("written"));
    EXPECT_TRUE(list->item(1)->text().endsWith("refused"));
    EXPECT_TRUE(list->item(2)->text().endsWith("written"));
    select("MOD11");
    EXPECT_FALSE(list->isVisible());
}

// Everything that can be operated is reached by the tab key, and says what it is.
TEST_F(SettingsPagesOnScreen, AreReachedByKeyboardAndNamed) {
    for (const char* key : {"isdn", "system", "main"}) {
        bench.console.mainWindow.openPage(key);
        bench.advance(2000);
        for (const char* node : {"MOD11", "SIM111"}) {
            if (std::string_view(key) == "main") select(node);
            auto* start = window().focusWidget();
            std::set<QWidget*> reached;
            for (QWidget* at = start; reached.insert(at).second; at = at->nextInFocusChain()) {
            }
            for (auto* widget : window().findChildren<QWidget*>()) {
                const bool input = qobject_cast<QLineEdit*>(widget) || qobject_cast<QComboBox*>(widget) ||
                                   qobject_cast<QCheckBox*>(widget) || qobject_cast<QSlider*>(widget);
                if (!input || !widget->isVisible() || !widget->isEnabled()) continue;
                if (qobject_cast<QComboBox*>(widget->parentWidget())) continue;  // the combo box speaks for it
                const auto name = widget->objectName().toStdString();
                EXPECT_TRUE(reached.count(widget)) << name;
                EXPECT_TRUE((widget->focusPolicy() & Qt::TabFocus) != 0) << name;
                EXPECT_FALSE(widget->accessibleName().isEmpty()) << name;
            }
        }
    }
}

TEST_F(SettingsPagesOnScreen, ADashStandsForWhatWasNeverRead) {
    select("MOD11");
    EXPECT_NE(named<QLineEdit>("TxtMaxDigits")->text(), "");
    simulator::switchOn(gateway.faults(), "R_MOD:silent");
    select("MOD12");
    EXPECT_EQ(named<QLineEdit>("TxtMaxDigits")->text(), "");
    EXPECT_EQ(named<QLineEdit>("TxtMaxDigits")->placeholderText(), QString(QChar(0x2013)));
    EXPECT_EQ(named<QComboBox>("cmbSimSwitching")->currentIndex(), -1);
}

}  // namespace
}  // namespace trunvex
