// The page of the calls as the operator meets it: headings, search, keys, charts and the long list of values.
#include <gmock/gmock.h>

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTest>

#include "fakes/console_bench.h"
#include "screens/kit/bar_chart.h"
#include "screens/main_window_screen.h"
#include "screens/screens.h"

namespace trunvex {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class CallsOnScreen : public testing::Test {
protected:
    CallsOnScreen() {
        screens = std::make_unique<Screens>(bench.console);
        window().resize(1280, 720);
        window().show();
        window().activateWindow();
        QApplication::processEvents();  // keys go to the active window
        bench.console.session.state.gESN = "4711";
        bench.console.callStore.setGateway("4711");
        bench.console.mainWindow.openPage("call");
    }
    QWidget& window() { return screens->mainWindow(); }
    template <class Widget>
    Widget* named(const char* name) {
        auto* widget = window().findChild<Widget*>(name);
        if (!widget) ADD_FAILURE() << "no widget " << name;
        return widget;
    }
    void add(const std::string& port, const std::string& dialled, const std::string& duration = "0") {
        CDRSlot record;
        record.RecordID = std::to_string(++number);
        record.port = port;
        record.sim = "1";
        record.Dialed_CLI = dialled;
        record.OriginateTime = "03-25-09 14:07:59 We";
        record.Duration = duration;
        bench.console.callStore.take(1, record);
        bench.console.callStore.add(1);
    }
    // More than a slice of sorting.
    void addMany() {
        CallRecord record;
        for (int call = 0; call < 20000; ++call) {
            record.Dialed_CLI = std::to_string(call * 7919 % 20011);
            list.add(record);
        }
    }
    QTableView& table() { return *named<QTableView>("lsvCallReport"); }
    void clickHeading(int column) {
        auto* header = table().horizontalHeader();
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                          {header->sectionViewportPosition(column) + 20, header->height() / 2});
    }
    std::vector<std::string> column(int place) {
        std::vector<std::string> texts;
        const auto& model = *table().model();
        for (int row = 0; row < model.rowCount(); ++row)
            texts.push_back(model.index(row, place).data().toString().toStdString());
        return texts;
    }
    std::string totals() { return named<QLabel>("lblCDRTotals")->accessibleName().toStdString(); }

    fakes::ConsoleBench bench;
    std::unique_ptr<Screens> screens;
    CallList& list = bench.console.calls.lsvCallReport;
    int number = 0;
};

TEST_F(CallsOnScreen, SortSearchAndCopyByMouseAndKeys) {
    add("12", "0521", "2.05");
    add("5", "0522");
    add("7", "0533", "0.07");
    clickHeading(0);
    EXPECT_THAT(column(0), ElementsAre("5", "7", "12"));
    clickHeading(0);
    EXPECT_THAT(column(0), ElementsAre("12", "7", "5"));
    QTest::keyClick(&table(), Qt::Key_F, Qt::ControlModifier);
    auto* search = named<QLineEdit>("txtCDRSearch");
    EXPECT_TRUE(search->hasFocus());
    QTest::keyClicks(search, "052");
    EXPECT_THAT(column(5), ElementsAre("0521", "0522")) << "in the order that the heading tells";
    table().horizontalHeader()->setSectionHidden(2, true);
    table().horizontalHeader()->moveSection(5, 0);
    table().setFocus();
    table().selectAll();
    QTest::keyClick(&table(), Qt::Key_C, Qt::ControlModifier);
    const auto lines = QApplication::clipboard()->text().split('\n', Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 2);
    EXPECT_TRUE(lines[0].startsWith("0521\t12\t1\t\t")) << lines[0].toStdString();
    QTest::keyClicks(search, "x");
    EXPECT_TRUE(window().findChild<QTableView*>("lsvCallReport")->model()->rowCount() == 0);
}

TEST_F(CallsOnScreen, TakeBackASortingThatWasGivenUp) {
    addMany();
    clickHeading(5);
    EXPECT_TRUE(named<QPushButton>("cmdCDRCancel")->isVisible());
    EXPECT_THAT(named<QLabel>("lblCDRWork")->text().toStdString(), HasSubstr("Sorting: "));
    EXPECT_EQ(table().horizontalHeader()->sortIndicatorSection(), 5);
    EXPECT_EQ(column(5)[1], "7919") << "nothing is half sorted";
    QTest::mouseClick(named<QPushButton>("cmdCDRCancel"), Qt::LeftButton);
    EXPECT_FALSE(list.working());
    EXPECT_EQ(table().horizontalHeader()->sortIndicatorSection(), -1);
    EXPECT_FALSE(named<QPushButton>("cmdCDRCancel")->isVisible());
    clickHeading(5);
    bench.advance(1000);
    EXPECT_EQ(column(5)[1], "1");
    EXPECT_EQ(table().horizontalHeader()->sortIndicatorSection(), 5);
}

TEST_F(CallsOnScreen, ChartWhatIsShown) {
    add("12", "0521", "2.05");
    add("12", "0522");
    add("5", "0533", "0.07");
    const auto told = [&](const char* name) {
        bench.advance(1000);
        return named<BarChart>(name)->accessibleDescription().toStdString();
    };
    EXPECT_THAT(told("chart_port"), HasSubstr("12: 2"));
    named<QComboBox>("cmbCDRMeasure")->setCurrentText("Talk time");
    EXPECT_THAT(told("chart_port"), HasSubstr("12: 2:05"));
    EXPECT_THAT(told("chart_hour"), HasSubstr("14: 2:12"));
}

}  // namespace
}  // namespace trunvex
