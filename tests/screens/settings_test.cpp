// The settings pages as the operator meets them: fields by their names, keys, marks and reasons.
#include <QListWidget>
#include <QSlider>

#include "screens/kit/field_frame.h"
#include "screens/pages/time_table_view.h"
#include "screens/screens_bench.h"

namespace trunvex {
namespace {

class SettingsPagesOnScreen : public ScreensBench {
protected:
    SettingsPagesOnScreen() {
        answerByScript();
        show();
        console.mainWindow.openPage("main");
        bench.logIn(gateway);
    }
    void select(const char* key) {
        console.portTree.tvGroups[0].select(key);
        bench.advance(1500);
    }
    static FieldFrame* frameOf(QWidget* field) { return dynamic_cast<FieldFrame*>(field->parentWidget()); }
    void press(const char* button) {
        click(button);
        bench.advance(1500);
    }
};

TEST_F(SettingsPagesOnScreen, MarkWhatDiffersUntilItIsWritten) {
    select("MOD11");
    auto* digits = named<QLineEdit>("TxtMinDigits");
    ASSERT_FALSE(digits->text().isEmpty());
    EXPECT_FALSE(frameOf(digits)->edited());
    EXPECT_NE(named<QSlider>("SldTXvol")->isVisible(), named<QSlider>("SldTX_SE")->isVisible()) << "one scale";
    const auto other = digits->text() == "3" ? "4" : "3";
    digits->selectAll();
    QTest::keyClicks(digits, other);
    EXPECT_TRUE(frameOf(digits)->edited());
    EXPECT_THAT(digits->accessibleDescription().toStdString(), HasSubstr("not written"));
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
    auto& table = console.pages.sim.timeTable;
    table.chkTimeIntEnable.setChecked(false);
    QTest::mouseClick(named<QCheckBox>("chkTimeIntEnable"), Qt::LeftButton, {}, {6, 6});
    auto* words = named<QLabel>("lblTimeRow_1");
    EXPECT_EQ(words->text(), "every day, all day");
    QTest::mouseClick(named<QCheckBox>("chkDayOfWkEnable"), Qt::LeftButton, {}, {6, 6});
    for (const char* day : {"chkSIMDayOfWk_1_0", "chkSIMDayOfWk_1_6"})
        QTest::mouseClick(named<QToolButton>(day), Qt::LeftButton);
    auto* to = named<QLineEdit>("txtTimeIntTo_1");
    for (const auto& [edit, time] : {std::pair{named<QLineEdit>("txtTimeIntFrom_1"), "08:00"}, {to, "20:00"}}) {
        edit->selectAll();
        QTest::keyClicks(edit, time);
    }
    EXPECT_EQ(words->text(), "Mo-Fr 08:00-20:00");
    const auto picture = find<TimeBar>(&window(), {})->grab().toImage();
    const auto at = [&](double hour) { return picture.pixelColor(static_cast<int>(picture.width() * hour / 24), 4); };
    EXPECT_NE(at(10), at(6));
    EXPECT_EQ(at(22), at(6)) << "outside the times the bar is empty";
    QTest::keyClick(to, Qt::Key_Backspace);
    EXPECT_THAT(words->text().toStdString(), HasSubstr("not a time"));
}

TEST_F(SettingsPagesOnScreen, WriteToAGroupWhatIsMarkedAndTellWhoGotIt) {
    console.portTree.cmdCreateGroup.press();
    std::vector<std::string> ports;
    for (const auto& item : console.tables.gTreeItems)
        if (item.Kind == "GSM" && ports.size() < 3) ports.push_back(item.Key);
    for (const auto& port : ports) console.portTree.movePort(port, "PRT01");
    auto* include = named<QCheckBox>("chkIncGrpMod_6");
    auto* list = named<QListWidget>("lstGroupWriteMod");
    select("MOD11");
    EXPECT_FALSE(include->isVisible()) << "a single port is written as a whole";
    select("MDD01");
    ASSERT_TRUE(include->isVisible());
    include->setChecked(true);
    named<QLineEdit>("txtNoRegTimer")->setText("90");
    gateway.state().port(*simulator::PortAddress::parse(ports[1].substr(3))).module = '0';  // pulled out meanwhile
    bench.platform.boxes.answers = {Button::Ignore};
    press("cmdWritePort");
    bench.advance(5000);
    ASSERT_TRUE(list->isVisible() && list->count() == 3);
    for (const auto& [row, end] : {std::pair{0, "written"}, {1, "refused"}, {2, "written"}})
        EXPECT_TRUE(list->item(row)->text().endsWith(end)) << row;
    select("MOD11");
    EXPECT_FALSE(list->isVisible());
}

TEST_F(SettingsPagesOnScreen, AreReachedByKeyboardAndNamed) {
    for (const char* key : {"isdn", "system", "main"}) {
        console.mainWindow.openPage(key);
        bench.advance(2000);
        for (const char* node : {"MOD11", "SIM111"}) {
            if (std::string_view(key) == "main") select(node);
            expectOperable(&window());
        }
    }
}

TEST_F(SettingsPagesOnScreen, ADashStandsForWhatWasNeverRead) {
    select("MOD11");
    auto* digits = named<QLineEdit>("TxtMaxDigits");
    EXPECT_NE(digits->text(), "");
    simulator::switchOn(gateway.faults(), "R_MOD:silent");
    select("MOD12");
    EXPECT_EQ(digits->text(), "");
    EXPECT_EQ(digits->placeholderText(), QString(QChar(0x2013)));
    EXPECT_EQ(named<QComboBox>("cmbSimSwitching")->currentIndex(), -1);
}

}  // namespace
}  // namespace trunvex
