// The status board's window, fed with lines as the gateway sends them.
#include <QColorDialog>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QMenu>
#include <QProgressBar>
#include <QToolTip>

#include "board_window.h"
#include "screens/kit/theme.h"

namespace trunvex {
namespace {

TEST_F(BoardWindow, EachFieldIsAPropertyOfItsCell) {
    receive("A_PPR" + std::string(32, '1'));
    report(19, "40");
    report(19, "2", "0501234567");
    // What a property shows is the model's, field by field and under its name.
    console.board.cell(19).forEachField(
        [this](Field& field) { property(cell(19), QString::fromStdString(field.name()).remove("_19").toLatin1()); });
    EXPECT_EQ(property(cell(19), "lblMsgNumber") + property(cell(19), "imgStatusSim"), "0501234567imgLedGreen");
    receive("A_MON" + std::string(31, '1') + "0" + "10" + std::string(28, '1'));
    EXPECT_EQ(property(cell(32), "chkSTPEnable") + property(cell(31), "chkSTPEnable"), "falsetrue");
    receive("I_ALR000,110,2,16,,");
    EXPECT_EQ(property(part("bchRow_2"), "chkSTBEnable") + property(part("bchRow_2"), "lblSTBCause"), "false16");
}

TEST_F(BoardWindow, ManyChangesInAFrameArePaintedOnce) {
    open();
    PaintCounter counter;
    for (int index = 1; index <= portCount; ++index) counter.watch(cell(index));
    const int idle = bench.platform.loop.runningTimers();
    for (int i = 0; i < 10; ++i) {
        report(1, "2", std::to_string(i));
        bench.advance(1);
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(bench.platform.loop.runningTimers() * 100 + counter.all(), (idle + 1) * 100)
        << "the frame is not over yet";
    settle();
    EXPECT_EQ(counter.of(cell(1)) * 100 + counter.all(), 101) << "and the cells beside it rest";
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
         {"Port 6, MCU 2, module 2", "Enable flag not read yet", "Call connected", "MS CONNECTED", "0501234567",
          "SIM #1", "sim status:SIM ready (OK)", "Network status: REGISTERED (OK)", "Roaming", "Count:00001:00"})
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

// Across the room, on a bad screen or to an eye that sees no colours, a state is still told by its shape.
TEST_F(BoardWindow, StatesAndLampsAreToldApartWithoutColour) {
    receive("A_PPR" + std::string(32, '1'));
    auto grey = console.board.colours();
    grey.values.fill(0x808080);
    console.board.takeColours(grey);
    open();
    auto& model = console.board.cell(1);
    model.lblMsg.setText("the same for all");
    const auto expectNew = [this](std::vector<QImage>& seen, const std::string& what) {
        settle();
        auto picture = pictureOf(cell(1)).convertToFormat(QImage::Format_Mono, Qt::ThresholdDither);
        for (const auto& other : seen) EXPECT_NE(picture, other) << what;
        seen.push_back(std::move(picture));
    };
    std::vector<QImage> states;
    for (std::size_t which = 0; which < BoardColours::count; ++which) {
        model.status.state = static_cast<BoardColours::Which>(which);
        console.board.show(model);
        expectNew(states, BoardColours::entries[which].key);
        EXPECT_THAT(spoken(cell(1)), HasSubstr(std::string("State: ") + BoardColours::entries[which].meaning));
    }
    std::vector<QImage> lamps;
    for (const char* lamp : {"", "imgLedRed", "imgLedYellow", "imgLedGreen"}) {
        model.imgStatusNet.setPicture(lamp);
        expectNew(lamps, lamp);
    }
    std::vector<QImage> signs;
    for (const char* bars : {"imgAnt_0", "imgAnt_1", "imgAnt_2", "imgAnt_3", "imgAnt_4", "imgREG2"}) {
        model.imgAntenna.setPicture(bars);
        expectNew(signs, bars);
    }
    model.chkSTPEnable.setChecked(true);
    expectNew(signs, "enabled");
    model.imgStatus.setPicture("imgConnected");
    expectNew(signs, "in a call");
    model.imgSMS.setPicture("imgSMSPic");
    expectNew(signs, "a new message");
}

TEST_F(BoardWindow, TheTipTellsWhatAScreenReaderHears) {
    report(6, "40");
    report(6, "21", "<b>Q & A");
    report(6, "2", "0501234567");
    open();
    QHelpEvent asked(QEvent::ToolTip, QPoint(5, 5), cell(6)->mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(cell(6), &asked);
    const auto tip = QToolTip::text().toStdString();
    EXPECT_THAT(tip, HasSubstr("&lt;b&gt;Q &amp; A")) << "the gateway writes no marks of ours";
    for (const auto& line : cell(6)->stateLines()) EXPECT_THAT(tip, HasSubstr(line.toHtmlEscaped().toStdString()));
    QToolTip::hideText();
}

TEST_F(BoardWindow, ACdmaCellShowsNothingOfASim) {
    console.tables.port({1, 1}).Kind = "CDM";
    report(1, "4", "00012:33");
    console.portState.UpdateCDMA();
    open();
    const auto before = pictureOf(cell(1));
    for (const char* word : {"SIM #", "Sim status", "Count:"}) EXPECT_THAT(spoken(cell(1)), Not(HasSubstr(word)));
    EXPECT_THAT(spoken(cell(1)), HasSubstr("CDMA"));
    report(1, "18", "99999:59");
    report(1, "4", "88888:58");
    console.board.cell(1).LblSIM_num.setText("SIM #4");
    console.board.cell(1).imgStatusSim.setPicture("imgLedRed");
    settle();
    EXPECT_EQ(pictureOf(cell(1)), before);
}

TEST_F(BoardWindow, AllOfItStandsInTheWindowAtEverySize) {
    report(1, "6", "a reason that is far too long for a cell of this size, whatever is done about it");
    receive("A_SEL5,0,0");
    receive("A_CLK03,11,24,1,02,15,09");
    for (const auto& size : {QSize(1280, 720), QSize(960, 600), QSize(2560, 1440)}) {
        open();
        window.resize(size);
        settle();
        ASSERT_EQ(window.size(), size);
        const auto place = [this](QWidget* widget) { return QRect(widget->mapTo(&window, QPoint()), widget->size()); };
        QRect before;
        for (int index = 1; index <= portCount; ++index) {
            EXPECT_TRUE(window.rect().contains(place(cell(index)))) << index;
            EXPECT_FALSE(place(cell(index)).intersects(before));
            const auto unlike = cell(index)->size() - cell(1)->size();
            EXPECT_LE(std::abs(unlike.width()) + std::abs(unlike.height()), 2) << index;
            before = place(cell(index));
        }
        EXPECT_GE(cell(1)->width(), size.width() / 10);
        EXPECT_GE(cell(1)->height(), size.height() / 5);
        for (const char* name : {"bchRow_1", "bchRow_30", "cmdColors", "lblMinute", "imgSystemStatus_0"})
            EXPECT_TRUE(window.rect().contains(place(part(name)))) << name;
    }
}

TEST_F(BoardWindow, TheMenuIsAskedForAtTheCellUnderTheMouse) {
    open();
    std::vector<int> pressed;
    for (int index = 1; index <= portCount; ++index)
        console.board.cell(index).cmdResetLimit.pressed().connect([&pressed, index] { pressed.push_back(index); });
    QContextMenuEvent asked(QContextMenuEvent::Mouse, QPoint(9, 9), cell(14)->mapToGlobal(QPoint(9, 9)));
    QCoreApplication::sendEvent(cell(14), &asked);
    EXPECT_EQ(pressed, std::vector{14});
    receive("A_ESN4711");
    report(14, "2", "0501&2");
    for (const char* first : {"0501&&2 ", "--------"}) {
        QCoreApplication::sendEvent(cell(14), &asked);
        auto* menu = window.findChildren<QMenu*>("mnuLastDial").back();
        const auto* top = menu->actions().front();
        EXPECT_TRUE(top->text().startsWith(first)) << top->text().toStdString();
        menu->actions().back()->trigger();
    }
}

TEST_F(BoardWindow, TheButtonsInACellDoWhatTheyShow) {
    report(14, "40");
    open();
    auto* shown = cell(14);
    auto& boxes = bench.platform.boxes;
    const auto line = [shown](double number) { return shown->height() * (0.485 + 0.515 * (number + 0.5) / 4); };
    const auto click = [this, shown](double x, double y, Qt::KeyboardModifiers keys = {}) {
        bench.platform.boxes.shown.clear();
        QTest::mouseClick(shown, Qt::LeftButton, keys, QPointF(x, y).toPoint());
        settle();
    };
    const auto menus = [this] { return window.findChildren<QMenu*>("mnuSims").size(); };
    click(shown->width() / 2.0, line(0));
    EXPECT_TRUE(boxes.shown.empty() && menus() == 0) << "nothing stands there";
    click(11, shown->height() * 0.075);
    EXPECT_EQ(boxes.shown.size(), 1u) << "no link";
    EXPECT_TRUE(console.board.cell(14).chkSTPEnable.checked());
    shown->setFocus();
    settle();
    click(shown->width() - 16, line(2));
    EXPECT_EQ(boxes.shown.size(), 1u) << "RESET, and no link";
    click(shown->width() - 14, line(3));
    ASSERT_EQ(menus(), 1);
    EXPECT_EQ(console.monitor.menu.port(), 14);
    window.findChild<QMenu*>("mnuSims")->close();
    click(shown->width() - 14, line(3), Qt::ControlModifier);
    QTest::keyClick(cell(15), Qt::Key_Space, Qt::ControlModifier);
    EXPECT_EQ(console.monitor.menu.marked, (std::set{14, 15}));
    QTest::keyClick(cell(15), Qt::Key_Return);
    EXPECT_EQ(console.monitor.menu.mnuResetPort.caption(), "Reset Ports 2");
    QTest::mouseClick(part("imgSystemStatus_2"), Qt::LeftButton);
    EXPECT_TRUE(part("lsvStanding")->isVisible());
}

TEST_F(BoardWindow, TheClockShowsWhatTheGatewayTellsAndNothingElse) {
    open();
    const std::pair<const char*, const char*> records[] = {{"", "\u2013"},
                                                           {"A_CLK03,11,24,1,02,15", "03/11/2402:15"},
                                                           {"A_CLK03,11,24,1,02,15,09", "03/11/2402:15:09"},
                                                           {"A_CLK04,11,24,1,02,16", "04/11/2402:16"}};
    for (const auto& [record, shown] : records) {
        receive(record);
        settle();
        QString text = part<QLabel>("lblDate")->text();
        for (auto* label : part("lblHoure")->parentWidget()->findChildren<QLabel*>())
            if (label->isVisible() && label->objectName() != "lblDate") text += label->text();
        EXPECT_EQ(text, shown) << record;
    }
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
    for (int index = 1; index <= portCount; ++index) stops += cell(index)->focusPolicy() & Qt::TabFocus ? 1 : 0;
    EXPECT_EQ(stops, 1);
}

TEST_F(BoardWindow, TheBarIsThereWhileTheBoardReads) {
    open();
    auto* bar = part<QProgressBar>("ucCoolProgressBar");
    EXPECT_FALSE(bar->isVisible());
    bench.connect();
    console.session.bringUp.sessionStands();
    ASSERT_TRUE(console.session.refreshes.start({command("R_STS11", "port 1"), command("R_STS12", "port 2")}));
    bench.advance(320);
    EXPECT_TRUE(bar->isVisible());
    EXPECT_GT(bar->value(), 0);
    EXPECT_EQ(part<QLabel>("ucCoolProgressBar_text")->text() + part<QLabel>("ucCoolProgressBar_percent")->text(),
              QString("Loading port 2%1%").arg(bar->value()));
    const auto* card = part("ucCoolProgressBarCard");
    window.resize(1500, 900);
    settle();
    EXPECT_LE((card->geometry().center() - window.rect().center()).manhattanLength(), 2) << "it stays in the middle";
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
    report(7, "35");
    part<QPushButton>("cmdSave")->click();
    EXPECT_EQ(console.board.colours()[BoardColours::PORT_PROBLEM], 0x563412u);
    settle();
    EXPECT_EQ(bandOf(cell(7)), QColor(0x12, 0x34, 0x56)) << "what is shown takes the new colour too";
}

// Where a picture has this colour.
QRect placeOf(const QImage& image, QColor colour) {
    QRect place;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixelColor(x, y) == colour) place |= QRect(x, y, 1, 1);
    return place;
}

TEST_F(BoardWindow, TheChartPaintsTheWindowsOfASimInItsColourAndLane) {
    const std::pair<const char*, const char*> sims[] = {{"111", "00080020"}, {"112", "00000006"}};
    for (const auto& [sim, times] : sims)
        receive(std::string("A_SIM") + sim + ",,,,1,59999,0,00000,0,0,0," + times +
                ",127,00000000,0,00000000,0,00000000,0,0,1,");
    open();
    part<QTabWidget>("boardTabs")->setCurrentIndex(2);
    settle();
    auto* chart = part("picDraw");
    const auto image = pictureOf(chart);
    const auto first = placeOf(image, QColor(0xFF, 0, 0));
    const auto second = placeOf(image, QColor(0, 0xFF, 0));
    EXPECT_NEAR(first.width(), 2 * second.width(), 2) << "twelve hours and six";
    EXPECT_NEAR(first.left() - second.left(), first.width() * 8 / 12, 2) << "from eight on and from midnight on";
    EXPECT_LT(first.bottom(), second.top());
    EXPECT_GE(first.height(), 2);
    EXPECT_LT(second.bottom(), image.height() / portCount * 2) << "in the row of port 1";
    QHelpEvent asked(QEvent::ToolTip, first.center(), chart->mapToGlobal(first.center()));
    QCoreApplication::sendEvent(chart, &asked);
    EXPECT_THAT(QToolTip::text().toStdString(),
                testing::AllOf(HasSubstr("Port 1 at 1"), HasSubstr("SIM 1: 08:00 to 20:00"), HasSubstr("SIM 2")));
    const QPoint below(first.center().x(), chart->height() - 5);
    QHelpEvent another(QEvent::ToolTip, below, chart->mapToGlobal(below));
    QCoreApplication::sendEvent(chart, &another);
    EXPECT_THAT(QToolTip::text().toStdString(), HasSubstr("No SIM is active on this day."));
    QToolTip::hideText();

    auto& rehearsal = console.monitor.rehearsal;
    rehearsal.follow({{},
                      [] { return std::size_t{1}; },
                      [](std::size_t) {
                          return Rehearsal::Call{"32", "1", "11-22-26 12:00:00 Su", false, ""};
                      }});
    rehearsal.chkRehearse.press();
    auto sign = placeOf(pictureOf(chart), colours().danger);
    EXPECT_NEAR(sign.center().x() - first.left(), first.width() * 4 / 12, 3) << "a call at noon finds none";
    EXPECT_GT(sign.top(), chart->height() * 9 / 10);
    rehearsal.chkRehearse.press();
    receive("A_CLK03,11,26,1,22,00,00");
    sign = placeOf(pictureOf(chart), colours().danger);
    EXPECT_NEAR(sign.center().x() - first.left(), first.width() * 14 / 12, 3) << "where now is";
}

TEST_F(BoardWindow, PanelsOverTheBoardOpenForTheirPortAndCloseByEscape) {
    bench.logIn(gateway);
    open();
    auto& monitor = console.monitor;
    for (const auto& [panel, item] :
         {std::pair("picBStat", &monitor.menu.mnuGetCell), std::pair("framMSG", &monitor.menu.mnuReadSim[0])}) {
        console.board.cell(1).cmdResetLimit.press();
        item->press();
        bench.advance(1000);
        EXPECT_TRUE(part(panel)->isVisible()) << panel;
        QTest::keyClick(part(panel), Qt::Key_Escape);
        EXPECT_FALSE(part(panel)->isVisible()) << panel;
        EXPECT_FALSE(monitor.cells.picBStat.visible() || monitor.statistics.framMSG.visible());
    }
    console.tables.port({1, 1}).Kind = "CDM";
    console.portState.UpdateCDMA();
    console.board.cell(1).cmdResetLimit.press();
    auto* menu = window.findChildren<QMenu*>("mnuSims").back();
    const std::pair<const char*, bool> items[] = {
        {"mnuGetCell", false}, {"mnuReadSt", false}, {"mnuRestSt", false}, {"mnuResetPort", true}};
    for (const auto& [item, visible] : items) EXPECT_EQ(find<QAction>(menu, item)->isVisible(), visible) << item;
}

TEST_F(BoardWindow, TheChartIsSavedAsAPictureOrTheOperatorIsTold) {
    auto& boxes = bench.platform.boxes;
    boxes.file = (bench.folder.path() / "chart.png").string();
    part<QPushButton>("cmdSaveChart")->click();
    EXPECT_EQ(QImage(QString::fromStdString(boxes.file)).size(), QSize(3200, 2000));
    EXPECT_TRUE(boxes.shown.empty());
    boxes.file = (bench.folder.path() / "nowhere" / "chart.png").string();
    part<QPushButton>("cmdSaveChart")->click();
    EXPECT_THAT(boxes.texts(), testing::Contains(testing::HasSubstr("chart.png was not written")));
}

TEST_F(BoardWindow, TheListOfEventsOpensFromTheToolBarAndFromALamp) {
    bench.logIn(gateway);
    open();
    auto* tabs = part<QTabWidget>("boardTabs");
    console.monitor.events.raise(BoardEvent::Kind::Lamp, "Network: fault", true, -2);
    bench.advance(BoardEvents::showDelayMs);
    const std::function<void()> ways[] = {[this] { named<QAction>("cmdEvents")->trigger(); },
                                          [this] { QTest::mouseClick(part("imgSystemStatus_1"), Qt::LeftButton); },
                                          [this] { QTest::keyClick(part("imgSystemStatus_2"), Qt::Key_Space); }};
    for (const auto& way : ways) {
        tabs->setCurrentIndex(0);
        way();
        EXPECT_EQ(tabs->tabText(tabs->currentIndex()) + named<QAction>("cmdEvents")->text(), "Events (1)Events (1)");
    }
    auto* standing = part<QTableView>("lsvStanding");
    standing->selectRow(0);
    part<QPushButton>("cmdAcknowledge")->click();
    EXPECT_EQ(console.monitor.events.lsvStanding.text(0, 7), "Stands, acknowledged");
    EXPECT_EQ(standing->selectionModel()->selectedRows().size(), 1) << "what was chosen stays chosen";
    part<QPushButton>("cmdSetAside")->click();
    EXPECT_EQ(tabs->tabText(tabs->currentIndex()), "Events");
}

TEST_F(BoardWindow, ColumnsAreHiddenByTheMenuOfTheHeadings) {
    auto* report = part<QTableView>("lsvBCCH");
    for (int column = 0; column < 6; ++column)
        EXPECT_EQ(report->isColumnHidden(column), column == 3 || column == 4) << "what the gateway does not tell";
    auto* table = part<QTableView>("lstASR");
    QTimer::singleShot(0, [] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        menu->actions().at(6)->trigger();
        menu->close();
    });
    Q_EMIT table->horizontalHeader()->customContextMenuRequested({});
    EXPECT_TRUE(table->isColumnHidden(6));
    EXPECT_EQ(console.files.setting.Read("STAColumns", "COL6"), "0");
    console.mainWindow.openPage("stc");
    EXPECT_TRUE(named<QTableView>("lstASR")->isColumnHidden(6)) << "on the page that is made then, too";
}

}  // namespace
}  // namespace trunvex
