// The page of the calls as the operator meets it: headings, search, keys, charts and the long list of values.
#include <QClipboard>
#include <QHeaderView>
#include <QTableView>

#include "cdr/calls_bench.h"
#include "screens/kit/bar_chart.h"
#include "screens/screens_bench.h"

namespace trunvex {
namespace {

class CallsOnScreen : public ScreensBench {
protected:
    CallsOnScreen() {
        show();
        console.session.state.gESN = "4711";
        console.callStore.setGateway("4711");
        console.mainWindow.openPage("call");
    }
    void add(const std::string& port, const std::string& dialled, const std::string& duration = "0") {
        fakes::addCall(console.callStore, port, dialled, duration);
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

    CallList& list = console.calls.lsvCallReport;
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
    EXPECT_TRUE(table().model()->rowCount() == 0);
}

TEST_F(CallsOnScreen, TakeBackASortingThatWasGivenUp) {
    addMany();
    clickHeading(5);
    EXPECT_TRUE(named<QPushButton>("cmdCDRCancel")->isVisible());
    EXPECT_THAT(named<QLabel>("lblCDRWork")->text().toStdString(), HasSubstr("Sorting: "));
    EXPECT_EQ(table().horizontalHeader()->sortIndicatorSection(), 5);
    EXPECT_EQ(column(5)[1], "7919") << "nothing is half sorted";
    click("cmdCDRCancel");
    EXPECT_FALSE(list.working());
    EXPECT_EQ(table().horizontalHeader()->sortIndicatorSection(), -1);
    EXPECT_FALSE(named<QPushButton>("cmdCDRCancel")->isVisible());
    clickHeading(5);
    bench.advance(1000);
    EXPECT_EQ(column(5)[1], "1");
    EXPECT_EQ(table().horizontalHeader()->sortIndicatorSection(), 5);
}

TEST_F(CallsOnScreen, ChartWhatIsShown) {
    const auto totals = [&] {
        bench.advance(1000);
        return named<QLabel>("lblCDRTotals")->text().toStdString();
    };
    EXPECT_EQ(totals(), "0 calls · 0 answered · talk time 0:00 · ASR – · ACD –");
    add("12", "0521", "2.05");
    EXPECT_EQ(totals(), "1 call · 1 answered · talk time 2:05 · ASR 100 % · ACD 2:05");
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
