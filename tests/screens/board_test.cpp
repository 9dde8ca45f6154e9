// The status board's window, fed with lines as the gateway sends them.
#include <gmock/gmock.h>

#include <QAccessible>
#include <QColorDialog>
#include <QCoreApplication>
#include <QHash>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>

#include "fakes/console_bench.h"
#include "screens/board_cell.h"
#include "screens/board_frame.h"
#include "screens/board_screen.h"
#include "screens/screens.h"
#include "screens/theme.h"

namespace trunvex {
namespace {

using testing::HasSubstr;

// Counts the paint events of the widgets it watches.
class PaintCounter : public QObject {
public:
    void watch(QWidget* widget) { widget->installEventFilter(this); }
    int of(QWidget* widget) const { return paints_.value(widget); }
    int all() const {
        int sum = 0;
        for (const int count : paints_) sum += count;
        return sum;
    }
    void reset() { paints_.clear(); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint) ++paints_[watched];
        return false;
    }

private:
    QHash<QObject*, int> paints_;
};

class BoardWindow : public testing::Test {
protected:
    void receive(const std::string& line) { console.dispatcher.AnalyzeCmd(line, true); }
    // SIM 1 of a port, by board index.
    void report(int index, const std::string& code, const std::string& first = "", const std::string& second = "") {
        const auto [mcu, module] = portAtPosition(index);
        receive("I_ALR" + std::to_string(mcu) + std::to_string(module) + "1," + code + "," + first + "," + second +
                ",");
    }
    template <class Widget = QWidget>
    Widget* part(const QString& name) {
        auto* found = window.findChild<Widget*>(name);
        EXPECT_NE(found, nullptr) << name.toStdString();
        return found;
    }
    BoardCell* cell(int index) { return part<BoardCell>(QString("portCell_%1").arg(index)); }
    std::string property(QWidget* widget, const char* name) {
        EXPECT_TRUE(widget->property(name).isValid()) << name;
        return widget->property(name).toString().toStdString();
    }
    void open() {
        console.board.show();
        settle();
    }
    // Lets the frames run out and what they asked for be painted.
    void settle() {
        bench.advance(3 * BoardFrame::intervalMs);
        QCoreApplication::processEvents();
    }
    std::string spoken(QWidget* widget) {
        auto* face = QAccessible::queryAccessibleInterface(widget);
        return (face->text(QAccessible::Name) + ": " + face->text(QAccessible::Description)).toStdString();
    }
    static QColor bandOf(BoardCell* cell) {
        const auto image = cell->grab().toImage();
        return image.pixelColor(image.width() - 4, image.height() / 4);
    }

    fakes::ConsoleBench bench;
    Console& console = bench.console;
    std::function<void(frmConnectionSelect&)> scripted = console.bringUp.showConnectionDialog;
    Screens screens{console};
    BoardScreen& window = screens.board();
};

TEST_F(BoardWindow, EachFieldIsAPropertyOfItsCell) {
    receive("A_PPR" + std::string(32, '1'));
    report(19, "40");
    report(19, "2", "0501234567");
    report(19, "4", "00012:33");
    report(19, "21", "42501");
    report(19, "15", "77", "0");
    report(19, "25", "40");
    report(19, "50");
    const std::pair<const char*, const char*> expected[] = {{"LblSIM_num", "SIM #1"},
                                                            {"lblMsg", "REGISTERED"},
                                                            {"lblMsgNumber", "0501234567"},
                                                            {"lblLimit", "Count:00012:33"},
                                                            {"imgStatus", "imgConnected"},
                                                            {"imgStatusSim", "imgLedGreen"},
                                                            {"lblNetworkID", "42501"},
                                                            {"lblNetBCCH", "BCCH: 77"},
                                                            {"lblStrengthDB", "-71db"},
                                                            {"imgAntenna", "imgAnt_3"},
                                                            {"lblRM_HM", "Rm"},
                                                            {"imgStatusNet", "imgLedGreen"}};
    for (const auto& [name, value] : expected) EXPECT_EQ(property(cell(19), name), value) << name;
    // What a property shows is the model's, field by field and under its name.
    auto& model = console.board.cell(19);
    model.forEachField([this](Field& field) {
        const auto name = QString::fromStdString(field.name()).remove("_19").toLatin1();
        EXPECT_TRUE(cell(19)->property(name).isValid()) << name.toStdString();
    });
    receive("A_MON" + std::string(31, '1') + "0" + "10" + std::string(28, '1'));
    EXPECT_EQ(cell(32)->property("chkSTPEnable"), false);
    EXPECT_EQ(cell(31)->property("chkSTPEnable"), true);
    EXPECT_EQ(part("bchRow_2")->property("chkSTBEnable"), false);
    receive("I_ALR000,110,3,16,,");
    EXPECT_EQ(property(part("bchRow_3"), "lblSTBCause"), "16");
}

TEST_F(BoardWindow, ManyChangesInAFrameArePaintedOnce) {
    open();
    PaintCounter counter;
    for (int index = 1; index <= frmSimStatus::portCount; ++index) counter.watch(cell(index));
    for (int i = 0; i < 10; ++i) {
        report(1, "2", std::to_string(i));
        report(2, "16");
        bench.advance(1);
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(counter.all(), 0);  // the frame is not over yet
    settle();
    EXPECT_EQ(counter.of(cell(1)), 1);
    EXPECT_EQ(counter.of(cell(2)), 1);
    EXPECT_EQ(counter.all(), 2);  // and the cells beside them rest
    const int idle = bench.platform.loop.runningTimers();
    report(3, "16");
    EXPECT_EQ(bench.platform.loop.runningTimers(), idle + 1);
    settle();
    EXPECT_EQ(bench.platform.loop.runningTimers(), idle);
}

TEST_F(BoardWindow, ClosingHidesItAndNothingIsPaintedThen) {
    open();
    EXPECT_TRUE(window.isVisible());
    window.close();
    EXPECT_FALSE(window.isVisible());
    PaintCounter counter;
    counter.watch(cell(5));
    const int idle = bench.platform.loop.runningTimers();
    report(5, "16");
    console.board.lblTotalCounter.setText("3 :07");
    EXPECT_EQ(bench.platform.loop.runningTimers(), idle);
    settle();
    EXPECT_EQ(counter.all(), 0);
    EXPECT_EQ(property(cell(5), "lblMsg"), "ALERTING");
    open();
    EXPECT_EQ(bandOf(cell(5)), QColor(0x8A, 0xDB, 0xDB));
    EXPECT_EQ(part<QLabel>("lblTotalCounter")->text(), "3 :07");
}

TEST_F(BoardWindow, KeepsItsSizeFromOneRunToTheNext) {
    open();
    window.resize(1400, 800);
    window.close();
    EXPECT_EQ(BoardScreen(console).size(), QSize(1400, 800));
}

// The picture of a cell is in the state's colour, and what is written on it can be read.
TEST_F(BoardWindow, TheBandFollowsTheState) {
    receive("A_PPR" + std::string(32, '1'));
    open();
    for (const auto& [code, which] : {std::pair{"3", BoardColours::PORT_CALL},
                                      {"4", BoardColours::PORT_CONNECTED},
                                      {"6", BoardColours::PORT_ACTIVE},
                                      {"35", BoardColours::PORT_PROBLEM},
                                      {"26", BoardColours::PORT_NOT_ACTIVE}}) {
        report(9, code);
        settle();
        EXPECT_EQ(bandOf(cell(9)), screenColour(console.board.colours()[which])) << code;
    }
}

TEST(BoardInk, CanBeReadOnAnyColour) {
    for (int red = 0; red < 256; red += 51)
        for (int green = 0; green < 256; green += 51)
            for (int blue = 0; blue < 256; blue += 51) {
                const QColor ground(red, green, blue);
                EXPECT_GE(contrast(inkOn(ground), ground), 4.5) << ground.name().toStdString();
            }
}

TEST_F(BoardWindow, AModuleThatIsNotThereIsFaint) {
    receive("A_PPR" + std::string(31, '1') + "0");
    open();
    EXPECT_FALSE(cell(1)->absent());
    EXPECT_TRUE(cell(32)->absent());
    const auto faint = bandOf(cell(32));
    report(32, "40");  // it reports all the same
    settle();
    EXPECT_NE(bandOf(cell(32)), faint);
    report(32, "26");
    receive("A_PPR" + std::string(32, '1'));
    settle();
    EXPECT_FALSE(cell(32)->absent());
}

TEST_F(BoardWindow, AScreenReaderHearsTheWholeStateInWords) {
    receive("A_PPR" + std::string(31, '1') + "0");
    report(6, "40");
    report(6, "50");
    report(6, "2", "0501234567");
    report(6, "4", "00001:00");
    const auto words = spoken(cell(6));
    for (const char* word :
         {"Port 6, MCU 2, module 2", "Disabled", "Call connected", "MS CONNECTED", "0501234567", "SIM #1",
          "sim status:SIM ready (OK)", "Network status: REGISTERED (OK)", "Roaming", "Count:00001:00"})
        EXPECT_THAT(words, HasSubstr(word));
    EXPECT_THAT(spoken(cell(32)), HasSubstr("no module"));
    report(6, "35");
    EXPECT_THAT(spoken(cell(6)), HasSubstr("State: SIM or module fault"));
    receive("I_ALR000,140,4,,,");
    EXPECT_THAT(spoken(part("bchRow_4")), HasSubstr("in a call"));
    receive("I_ALR000,022,,,,");
    open();
    receive("I_ALR000,032,,,,");
    settle();
    EXPECT_EQ(part("imgSystemStatus_1")->accessibleName(), "Network: Fault");
}

// The word for the state is that of the moment when the cell took it, whatever the colours are by now.
TEST_F(BoardWindow, NewColoursDoNotTwistTheWords) {
    report(6, "35");
    auto swapped = console.board.colours();
    std::swap(swapped.values[BoardColours::PORT_PROBLEM], swapped.values[BoardColours::PORT_CONNECTED]);
    console.board.takeColours(swapped);
    report(6, "18", "00001:00");
    EXPECT_THAT(spoken(cell(6)), HasSubstr("SIM or module fault"));
    report(6, "4");
    EXPECT_THAT(spoken(cell(6)), HasSubstr("State: Call connected"));
}

TEST_F(BoardWindow, ArrowKeysWalkTheCellsAndTabEntersThemOnce) {
    open();
    cell(1)->setFocus();
    const std::pair<Qt::Key, int> walk[] = {{Qt::Key_Right, 5}, {Qt::Key_Down, 6}, {Qt::Key_Left, 2},
                                            {Qt::Key_Left, 2},  {Qt::Key_Up, 1},   {Qt::Key_Up, 1}};
    for (const auto& [key, index] : walk) {
        QTest::keyClick(window.focusWidget(), key);
        EXPECT_EQ(window.focusWidget(), cell(index));
    }
    int stops = 0;
    for (int index = 1; index <= frmSimStatus::portCount; ++index)
        stops += cell(index)->focusPolicy() & Qt::TabFocus ? 1 : 0;
    EXPECT_EQ(stops, 1);
}

TEST_F(BoardWindow, AStormLeavesNothingBehind) {
    open();
    const auto objects = window.findChildren<QObject*>().size();
    PaintCounter counter;
    for (int index = 1; index <= frmSimStatus::portCount; ++index) counter.watch(cell(index));
    const char* codes[] = {"1", "3", "4", "5", "16", "22", "24", "25", "26", "40", "50", "12", "35"};
    constexpr int events = 10000;
    constexpr int eventsPerFrame = 200;
    for (int i = 0; i < events; ++i) {
        report(i % 32 + 1, codes[i % std::size(codes)], std::to_string(i));
        receive("I_ALR000,140," + std::to_string(i % 30 + 1) + ",,,");
        if (i % eventsPerFrame != eventsPerFrame - 1) continue;
        bench.advance(BoardFrame::intervalMs);
        QCoreApplication::processEvents();
    }
    EXPECT_LE(counter.all(), events / eventsPerFrame * frmSimStatus::portCount);
    settle();
    EXPECT_EQ(window.findChildren<QObject*>().size(), objects);
    EXPECT_EQ(part("ucEqualizer")->property("value").toString().toStdString(), console.board.lblLoading.text());
}

TEST_F(BoardWindow, TheBarIsThereWhileTheBoardReads) {
    open();
    auto* bar = part<QProgressBar>("ucCoolProgressBar");
    EXPECT_FALSE(bar->isVisible());
    console.bringUp.showConnectionDialog = scripted;
    bench.connect();
    ASSERT_TRUE(console.refreshes.start({command("R_STS11", "port 1"), command("R_STS12", "port 2")}));
    bench.advance(320);
    EXPECT_TRUE(bar->isVisible());
    EXPECT_GT(bar->value(), 0);
    EXPECT_THAT(part<QLabel>("ucCoolProgressBar_text")->text().toStdString(), HasSubstr("port 2"));
    part<QPushButton>("cmdCancelRefresh")->click();
    settle();
    EXPECT_FALSE(bar->isVisible());
}

TEST_F(BoardWindow, ColoursAreChosenAndSaved) {
    open();
    const auto before = console.board.colours();
    part<QPushButton>("cmdColors")->click();
    part<QPushButton>("lblColor_3")->click();
    part<QColorDialog>({})->setCurrentColor(QColor(0x12, 0x34, 0x56));
    QTest::keyClick(part<QColorDialog>({}), Qt::Key_Return);
    EXPECT_EQ(console.board.colours().values, before.values);  // not before they are saved
    part<QPushButton>("cmdSave")->click();
    EXPECT_EQ(console.board.colours()[BoardColours::PORT_PROBLEM], 0x563412u);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    part<QPushButton>("cmdColors")->click();
    part<QPushButton>("cmdDefault")->click();
    part<QPushButton>("cmdCancel")->click();
    EXPECT_EQ(console.board.colours()[BoardColours::PORT_PROBLEM], 0x563412u);
}

}  // namespace
}  // namespace trunvex
