// Drives the window through a log-in as an operator would, by the names of its widgets, and saves a picture of every
// page: trunvex-tour HOST PORT FOLDER [--dark] [--small].
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTimer>
#include <cstdio>

#include "platform/qt/qt_platform.h"
#include "screens/kit/theme.h"
#include "screens/main_window_screen.h"
#include "screens/screens.h"
#include "shell/application_folder.h"
#include "shell/console.h"

namespace {

constexpr int patienceMs = 30000;
constexpr int lifeMs = 6000;

class Tour {
public:
    Tour(trunvex::Console& console, trunvex::Screens& screens, QString folder, QSize size)
        : console_(console), screens_(screens), folder_(std::move(folder)), size_(size) {}

    // False, with a word on stderr, when the gateway can't be reached or a picture can't be saved.
    bool go(const QString& host, const QString& port) {
        auto& window = screens_.mainWindow();
        window.resize(size_);
        screens_.startWithoutSplash();
        settle();
        save(&window, "00-start");
        beforeARead();
        QTimer::singleShot(0, [&] { fillDialog(host, port); });
        window.findChild<QAction*>("tool_connect")->trigger();
        if (!waitFor([&] { return console_.session.state.phase == trunvex::SessionPhase::Connected; })) {
            std::fprintf(stderr, "The log-in did not come to its end: %s\n",
                         console_.session.panel.getPanelText().c_str());
            return false;
        }
        groupSomePorts();
        int number = 2;
        for (const auto* page : console_.mainWindow.pages()) {
            const auto key = QString::fromStdString(page->traits.key);
            window.findChild<QAction*>("tool_" + key)->trigger();
            waitFor([&] { return console_.session.reads.formEnabled(); });
            if (key == "call") {
                console_.cdrDownload.start();
                waitFor([&] { return !console_.cdrDownload.gCDRDownloading; });
            }
            QWidget* shown = key == "sim" ? board() : &window;
            settle();
            save(shown, QString("%1-%2").arg(number++, 2, 10, QChar('0')).arg(key));
        }
        boardMenu();
        boardTabs();
        settingsAtWork();
        routing();
        afterALoss();
        return saved_;
    }

private:
    // The pages of a console that has not been told anything.
    void beforeARead() {
        for (const auto* page : console_.mainWindow.pages()) {
            const auto key = QString::fromStdString(page->traits.key);
            screens_.mainWindow().findChild<QAction*>("tool_" + key)->trigger();
            settle();
            save(key == "sim" ? boardWindow() : &screens_.mainWindow(), "00-unread-" + key);
        }
    }

    // Each tab of the routing page, with edits, a fault and a tried number.
    void routing() {
        auto& window = screens_.mainWindow();
        auto& page = console_.pages.routing;
        window.findChild<QAction*>("tool_tsl")->trigger();
        page.cmdTslGetData.press();
        waitFor([&] { return console_.session.reads.running(); });
        waitFor([&] { return !console_.session.reads.running() && console_.routing.directLines.table.whole(); });
        page.portSide.optTSLMode.setIndex(0);
        page.portSide.pairs.clickPort(3);
        page.portSide.pairs.clickLine(20);
        page.portSide.pairs.clickPort(7);
        page.portSide.txtTSLPRF[4].setText("300");
        page.channelSide.chkTSLChannel[3].setChecked(false);
        page.prefixes.ucTslPrefixes.setCell({3, 1}, "256");
        page.prefixes.ucTslPrefixes.setCell({5, 0}, "0500");
        page.directLines.ucDela.setCell({2, 2}, "299");
        page.txtTryNumber.setText("0500123456");
        page.txtTryCaller.setText("5550100");
        auto* tabs = window.findChild<QTabWidget*>("tabTsl");
        for (int tab = 0; tab < tabs->count(); ++tab) {
            tabs->setCurrentIndex(tab);
            settle();
            save(&window, QString("27-tsl-%1").arg(tab + 1));
        }
        for (auto* undo : {&page.portSide.undo, &page.channelSide.undo, &page.prefixes.undo, &page.directLines.undo})
            undo->press();
    }

    // What the button of a port brings.
    void boardMenu() {
        console_.board.cell(1).cmdResetLimit.press();
        auto* menu = boardWindow()->findChild<QMenu*>("mnuSims");
        settle();
        save(menu, "19-board-menu");
        menu->close();
    }

    // The board's tabs with what they read, and the panels over the cells.
    void boardTabs() {
        auto* window = boardWindow();
        auto* tabs = window->findChild<QTabWidget*>("boardTabs");
        auto& monitor = console_.monitor;
        const auto open = [&](const char* name, trunvex::ActionField& read) {
            read.press();
            waitFor([&] { return !console_.session.reads.running() && !console_.session.refreshes.running(); });
            for (int tab = 0; tab < tabs->count(); ++tab)
                if (tabs->tabText(tab) == name) tabs->setCurrentIndex(tab);
            settle();
            save(window,
                 QString("1%1-board-%2").arg(tabs->currentIndex() + 2).arg(QString(name).toLower().replace(' ', '-')));
        };
        open("SIM statistics", monitor.statistics.cmdGetAllSTR);
        open("Time chart", monitor.chart.cmdGetASRSimData);
        open("BCCH report", monitor.cells.cmdGetBcch);
        monitor.counters.cmdIsdnRefresh.press();
        open("ISDN and versions", monitor.versions.cmdGeSID);
        open("Events", console_.board.cmdSTSRefresh);
        tabs->setCurrentIndex(0);
        monitor.menu.open(1);
        monitor.menu.mnuGetCell.press();
        waitFor([&] { return monitor.cells.lblCellSelect[1].visible(); });
        settle();
        save(window, "18-board-cells");
        monitor.cells.cmdCloseCell.press();
        monitor.menu.mnuReadSim[0].press();
        waitFor([&] { return monitor.statistics.framMSG.visible(); });
        settle();
        save(window, "18-board-sim");
        monitor.statistics.cmdMSG_BOX.press();
    }

    // The gateway restarts while something is edited: what is shown is of before, and the edits are still there.
    void afterALoss() {
        auto& window = screens_.mainWindow();
        window.findChild<QAction*>("tool_main")->trigger();
        console_.portTree.tvGroups[0].select("MOD11");
        waitFor([&] { return console_.pages.port.cmdWritePort.enabled(); });
        settle();
        window.findChild<QLineEdit*>("txtNoRegTimer")->setText("120");
        console_.pages.port.cmdWritePort.press();
        waitFor([&] { return !console_.session.writes.running(); });
        settle();
        save(&window, "30-port-written");
        window.findChild<QLineEdit*>("txtNoRegTimer")->setText("60");
        saveBox("tool_connect", "31-disconnect");
        console_.session.objSpool.SendCommand("C_RSM");
        waitFor([&] { return !console_.session.state.sessionFlag; });
        settle();
        save(&window, "32-link-lost");
        save(boardWindow(), "33-board-lost");
        saveBox("tool_exit", "34-exit");
    }

    // The box that a press of the tool brings, which is closed again.
    void saveBox(const char* tool, const QString& name) {
        QTimer::singleShot(300, [this, name] {
            auto* box = QApplication::activeModalWidget();
            save(box, name);
            box->close();
        });
        screens_.mainWindow().findChild<QAction*>(tool)->trigger();
    }

    // The panels beside the tree: a SIM with its time table, edits and faults, a write to a group.
    void settingsAtWork() {
        auto& window = screens_.mainWindow();
        auto& tree = console_.portTree.tvGroups[0];
        const auto show = [&](const char* key, const QString& name) {
            tree.select(key);
            waitFor([&] { return console_.session.reads.formEnabled(); });
            settle();
            if (!name.isEmpty()) save(&window, name);
        };
        window.findChild<QAction*>("tool_main")->trigger();
        tree.setExpanded("MOD11", true);
        show("SIM111", "20-sim");
        window.findChild<QLineEdit*>("txtTimeIntFrom_2")->setText("22:30");
        window.findChild<QLineEdit*>("txtTimeIntTo_2")->setText("06:00");
        window.findChild<QLineEdit*>("txtPIN")->setText("123456789");
        QTimer::singleShot(300, [] { QApplication::activeModalWidget()->close(); });
        console_.pages.sim.cmdWriteSIM.press();
        settle();
        save(&window, "21-sim-faults");
        show("SIM112", {});
        show("SIM111", "22-sim-edited");
        show("MDD01", "23-group");
        console_.pages.port.chkIncGrpMod[trunvex::IncNoRegTimer].setChecked(true);
        window.findChild<QLineEdit*>("txtNoRegTimer")->setText("90");
        console_.pages.port.cmdWritePort.press();
        waitFor([&] { return !console_.session.writes.running(); });
        settle();
        save(&window, "24-group-written");
        write("isdn", "TxtLocalNumber", "5550199", "CmdWriteISDN", "25-isdn-written");
        write("system", "dtpDate", "29/02/2028", "cmdSetTime", "26-clock-written");
    }

    // A field of a page is changed, written, and shown as the gateway has it then.
    void write(const char* page, const char* field, const char* text, const char* button, const QString& name) {
        auto& window = screens_.mainWindow();
        window.findChild<QAction*>(QString("tool_") + page)->trigger();
        waitFor([&] { return console_.session.reads.formEnabled(); });
        window.findChild<QLineEdit*>(field)->setText(text);
        window.findChild<QPushButton*>(button)->click();
        waitFor([&] { return !console_.session.writes.running(); });
        settle();
        save(&window, name);
    }

    void fillDialog(const QString& host, const QString& port) {
        auto* dialog = QApplication::activeModalWidget();
        dialog->findChild<QComboBox*>("cmbConSelect")->setCurrentIndex(1);
        dialog->findChild<QComboBox*>("txtIP")->setEditText(host);
        dialog->findChild<QLineEdit*>("txtPort")->setText(port);
        QTimer::singleShot(300, dialog, [this, dialog] {
            save(dialog, "01-connect");
            dialog->findChild<QPushButton*>("cmdOk")->click();
        });
    }

    // Two groups, so that the tree has something to show.
    void groupSomePorts() {
        auto& tree = console_.portTree;
        tree.cmdCreateGroup.press();
        tree.cmdCreateGroup.press();
        tree.rename("GRP01", "Office hours");
        tree.rename("GRP02", "Night");
        int moved = 0;
        for (const auto& item : std::vector(console_.tables.gTreeItems))
            if (item.Kind == "GSM" && moved < 7) tree.movePort(item.Key, moved++ < 4 ? "PRT01" : "PRT02");
        for (const char* key : {"GRP01", "PRT01", "GRP02", "PRT02"})
            for (auto& view : tree.tvGroups) view.setExpanded(key, true);
        for (auto& view : tree.tvGroups) view.select("MOD11");
    }

    static QWidget* boardWindow() {
        for (auto* widget : QApplication::topLevelWidgets())
            if (widget->objectName() == "frmSimStatus") return widget;
        return nullptr;
    }

    // The board's window, with the state of every port read and a while of the gateway's life.
    QWidget* board() {
        auto* found = boardWindow();
        found->resize(size_);
        console_.board.cmdSTSRefresh.press();
        waitFor([&] { return !console_.session.refreshes.bar.running(); });
        QElapsedTimer since;
        since.start();
        waitFor([&] { return since.elapsed() > lifeMs; });
        return found;
    }

    void save(QWidget* window, const QString& name) {
        const auto path = folder_ + "/" + name + ".png";
        if (window->grab().save(path)) {
            std::printf("%s\n", qPrintable(path));
        } else {
            std::fprintf(stderr, "Can't save %s\n", qPrintable(path));
            saved_ = false;
        }
    }

    static bool waitFor(const std::function<bool()>& condition) {
        QElapsedTimer since;
        since.start();
        while (!condition()) {
            if (since.elapsed() > patienceMs) return false;
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        }
        return true;
    }

    // Lets what has changed be laid out and painted.
    static void settle() {
        QElapsedTimer since;
        since.start();
        waitFor([&] { return since.elapsed() > 300; });
    }

    trunvex::Console& console_;
    trunvex::Screens& screens_;
    QString folder_;
    QSize size_;
    bool saved_ = true;
};

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const auto arguments = QCoreApplication::arguments();
    if (arguments.size() < 4) {
        std::fprintf(stderr, "usage: trunvex-tour HOST PORT FOLDER [--dark] [--small]\n");
        return 2;
    }
    if (!QDir().mkpath(arguments[3])) {
        std::fprintf(stderr, "Can't make the folder %s\n", qPrintable(arguments[3]));
        return 1;
    }
    const QTemporaryDir settings;  // a console of its own: the operator's settings stay as they are
    trunvex::provideCallTemplate(QCoreApplication::applicationDirPath().toStdString(), settings.path().toStdString());
    trunvex::QtPlatform platform;
    trunvex::Console console(platform, settings.path().toStdString());
    trunvex::Screens screens(console);
    if (arguments.contains("--dark")) trunvex::applyTheme(application, trunvex::Theme::Dark);
    const QSize size = arguments.contains("--small") ? QSize(960, 600) : QSize(1280, 720);
    return Tour(console, screens, arguments[3], size).go(arguments[1], arguments[2]) ? 0 : 1;
}
