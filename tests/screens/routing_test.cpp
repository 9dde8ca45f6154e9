#include <QComboBox>
#include <QPushButton>
#include <QTabWidget>

#include "screens/kit/table_view.h"
#include "screens/pages/pairs_view.h"
#include "screens/pages/routing_screen.h"
#include "screens/screens_bench.h"

namespace trunvex::fakes {
namespace {

class RoutingWindow : public testing::Test {
protected:
    RoutingWindow() {
        gateway.state().routing.mode = "0";
        bench.logIn(gateway);
        page.cmdTslGetData.press();
        bench.advance(40000);
        window.resize(1280, 640);
        window.show();
        turnTo("Pa&irs");
    }
    void turnTo(const QString& text) {
        auto* tabs = window.findChild<QTabWidget*>("tabTsl");
        for (int tab = 0; tab < tabs->count(); ++tab)
            if (tabs->tabText(tab) == text) tabs->setCurrentIndex(tab);
        QCoreApplication::processEvents();
    }

    ConsoleBench bench;
    simulator::Gateway gateway{seeded(3)};
    RoutingPage& page = bench.console.pages.routing;
    RoutingScreen window{page};
};

TEST_F(RoutingWindow, PairsByMouseAndByKeys) {
    auto* view = window.findChild<PairsView*>("pairsView");
    const auto at = [view](int number, bool port) {
        const double width = view->width() / 32.0;
        return QPoint(static_cast<int>((number - 0.5) * width), port ? 40 : view->height() - 40);
    };
    const auto line = [&](int port) { return page.portSide.pairs.lineOf(port); };
    QTest::mouseClick(view, Qt::LeftButton, {}, at(2, true));
    QTest::mouseClick(view, Qt::LeftButton, {}, at(9, false));
    EXPECT_EQ(line(2) * 100 + line(9), 900);
    QTest::mouseClick(view, Qt::LeftButton, {}, at(32, true));
    QTest::keyClick(view, Qt::Key_Escape);
    for (const auto key : {Qt::Key_Left, Qt::Key_Space, Qt::Key_Down, Qt::Key_Right, Qt::Key_Space})
        QTest::keyClick(view, key);
    EXPECT_EQ(line(31) * 100 + line(32), 3200) << "the arrow keys have walked from end to end";
    turnTo("&Ports");
    window.findChild<QPushButton*>("lblTSLStock_4")->click();
    EXPECT_TRUE(window.findChild<QPushButton*>("lblTSLStock_4")->isChecked());
    window.findChild<QPushButton*>("lblTSLBch_1")->click();
    EXPECT_EQ(window.findChild<QPushButton*>("lblTSLStock_4")->text(), "B-ch #2");
    EXPECT_FALSE(window.findChild<QPushButton*>("lblTSLStock_4")->isChecked());
    EXPECT_THAT(page.portSide.records.unwritten(false),
                ElementsAre("Port 2", "Port 5", "Port 9", "Port 31", "Port 32"));
    for (const auto* tab : {"&Ports", "N&umbers", "&Channels", "Pre&fixes", "&Access", "&Try a number"}) {
        turnTo(tab);
        expectOperable(&window);
    }
}

TEST_F(RoutingWindow, OffersWhatTheRowAndTheListAreFor) {
    turnTo("&Direct lines");
    auto* table = window.findChild<TableView*>("ucDela");
    EXPECT_FALSE(page.directLines.cmdDelaWrite.enabled());
    table->setCurrentIndex(table->model()->index(1, 1));
    EXPECT_TRUE(page.directLines.cmdDelaWrite.enabled() && page.directLines.cmdDelaDelete.enabled());
    table->setCurrentIndex(table->model()->index(9, 1));
    EXPECT_FALSE(page.directLines.cmdDelaDelete.enabled()) << "the row that is not there yet";
    turnTo("&Access");
    auto* grid = window.findChild<TableView*>("ucTslAccessE1");
    window.findChild<QComboBox*>("cmbTslAccessE1")->setCurrentIndex(1);
    EXPECT_EQ(grid->model()->headerData(0, Qt::Horizontal).toString(), "Incoming ISDN Call(CLIP)");
    EXPECT_TRUE(window.findChild<QPushButton*>("cmdTslWriteAccE1")->isVisible());
    EXPECT_FALSE(window.findChild<QPushButton*>("cmdTslWriteAccGSM")->isVisible());
    turnTo("&Channels");
    auto* causes = window.findChild<TableView*>("ucTslClearCause");
    EXPECT_FALSE(causes->model()->index(0, 0).flags() & Qt::ItemIsEditable);
    EXPECT_TRUE(causes->model()->index(0, 1).flags() & Qt::ItemIsEditable);
    EXPECT_EQ(causes->model()->rowCount(), 16) << "and none to be typed into";
    table->setCurrentIndex(table->model()->index(4, 1));
    page.directLines.ucDela.removeRows({0});
    page.directLines.cmdDelaWrite.press();
    bench.advance(100);
    EXPECT_THAT(gateway.linesReceived().back(), testing::HasSubstr("005,1,")) << "the row that is current has moved up";
}

}  // namespace
}  // namespace trunvex::fakes
