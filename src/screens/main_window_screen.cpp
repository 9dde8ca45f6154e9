#include "screens/main_window_screen.h"
#include "screens/pages/calls_screen.h"
#include "screens/pages/isdn_page_screen.h"

#include <QCloseEvent>
#include <QLabel>
#include <QStackedWidget>
#include <QVBoxLayout>
#include <utility>

#include "screens/kit/field_binding.h"
#include "screens/kit/icons.h"
#include "screens/kit/labels.h"
#include "screens/kit/page_frame.h"
#include "screens/kit/read_bar.h"
#include "screens/kit/theme.h"
#include "screens/notice_line.h"
#include "screens/pages/port_tree_screen.h"
#include "screens/pages/start_page.h"
#include "screens/pages/system_page_screen.h"
#include "screens/status_bar.h"
#include "screens/tool_bar.h"
#include "shell/console.h"

namespace trunvex {

namespace {

constexpr QSize firstSize(1280, 720);
constexpr QSize smallestSize(960, 600);
constexpr const char* section = "Window";
constexpr const char* geometryKey = "Geometry";

struct EmptyPage {
    const char* key;
    const char* name;
    const char* title;
    const char* purpose;
};

constexpr EmptyPage emptyPages[] = {
    {"stc", "frmStatics", "Statistics", "Calls, minutes and answer rates of every SIM, to be read here."},
    {"hst", "page_hst", "Handset test", "A test call over one port, to be dialled and heard here."},
    {"dbg", "page_dbg", "Debug console", "The lines that go to and come from the gateway, to be watched here."},
};

// The focus goes with the page: left on a hidden one, it would jump to the first button of the tool bar.
void turnTo(QStackedWidget* stack, QWidget* page) {
    const auto* focus = stack->window()->focusWidget();
    const bool within = focus && stack->isAncestorOf(focus);
    stack->setCurrentWidget(page);
    stack->setFocusProxy(page);
    if (within) page->setFocus(Qt::OtherFocusReason);
}

}  // namespace

MainWindowScreen::MainWindowScreen(Console& console, QWidget* parent)
    : QMainWindow(parent), console_(console), pages_(new QStackedWidget) {
    auto& model = console.mainWindow;
    setObjectName(shown(model.caption.name()));
    setWindowIcon(applicationIcon());
    setMinimumSize(smallestSize);
    follow(this, model.caption, [this, &model] { setWindowTitle(shown(model.caption.text())); });

    addToolBar(new ToolBar(console, this));
    setStatusBar(new StatusBar(console, this));
    auto* centre = new QWidget;
    auto* layout = new QVBoxLayout(centre);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(new NoticeLine(model, centre));
    layout->addWidget(pages_, 1);
    setCentralWidget(centre);
    buildPages();
    readBar_ = new ReadBar(console.reads, centre);

    listen(this, model.pageChanged(), [this] { showPage(); });
    listen(this, model.unload(), [this] { close(); });
    listen(this, model.windowShown(), [this](bool shown) { showWindow(shown); });
    listen(this, console.reads.formEnabledChanged(), [this](bool enabled) { enablePages(enabled); });
    showPage();
    pageOf_.value("main")->setFocus();
    restorePlace();
}

void MainWindowScreen::buildPages() {
    pages_->setObjectName("pages");
    addPage("main", buildMain());
    addPage("groups", new GroupsScreen(console_));
    addPage("tsl", buildRouting());
    addPage("call", new CallsScreen(console_));
    addPage("isdn", new IsdnPageScreen(console_));
    addPage("system", new SystemPageScreen(console_));
    for (const auto& page : emptyPages)
        addPage(page.key, new PlaceholderPage(page.name, tr(page.title), page.key, tr(page.purpose)));
}

void MainWindowScreen::addPage(const QString& key, QWidget* page) {
    pageOf_.insert(key, page);
    pages_->addWidget(page);
}

// Without a session there is nothing to show of a gateway, so the page says how to begin.
QWidget* MainWindowScreen::buildMain() {
    auto* both = new QStackedWidget;
    both->setObjectName("page_main");
    both->addWidget(new StartPage(console_));
    both->addWidget(new PortTreeScreen(console_));
    const auto choose = [this, both] {
        const auto phase = console_.bringUp.phase();
        turnTo(both,
               phase == SessionPhase::LogIn || phase == SessionPhase::Connected ? both->widget(1) : both->widget(0));
    };
    choose();
    listen(both, console_.bringUp.phaseChanged(), choose);
    return both;
}

QWidget* MainWindowScreen::buildRouting() {
    auto* page = new PlaceholderPage("page_tsl", tr("Routing"), "tsl",
                                     tr("Which B-channel and which port carry which calls, to be set here."));
    auto* allocation = new QLabel;
    bindValue(console_.routingPage.lblAllocation, allocation, tr("Allocation"));
    page->addFact(tr("Allocation"), allocation);
    return page;
}

void MainWindowScreen::showPage() {
    if (auto* page = pageOf_.value(shown(console_.mainWindow.page()))) turnTo(pages_, page);
}

void MainWindowScreen::enablePages(bool enabled) {
    if (!enabled && pages_->isEnabled()) {
        auto* focus = focusWidget();
        focusBefore_ = focus && pages_->isAncestorOf(focus) ? focus : nullptr;
        if (focusBefore_) readBar_->setFocus(Qt::OtherFocusReason);
    }
    pages_->setEnabled(enabled);
    if (enabled && focusBefore_ && focusBefore_->isVisible()) focusBefore_->setFocus();
    if (enabled) focusBefore_ = nullptr;
}

void MainWindowScreen::showWindow(bool shown) {
    if (!shown) {
        hide();
        return;
    }
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

void MainWindowScreen::restorePlace() {
    resize(firstSize);
    const auto saved = console_.setting.Read(section, geometryKey);
    if (!saved.empty()) restoreGeometry(QByteArray::fromBase64(QByteArray::fromStdString(saved)));
}

void MainWindowScreen::savePlace() {
    console_.setting.Write(section, geometryKey, saveGeometry().toBase64().toStdString());
}

void MainWindowScreen::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (!agreed_) {
        // The question runs a loop of its own, in which the desktop may ask to close once more.
        if (std::exchange(asking_, true)) return;
        agreed_ = console_.mainWindow.queryUnload();
        asking_ = false;
        if (!agreed_) return;
        savePlace();
    }
    event->accept();
    Q_EMIT closed();
}

}  // namespace trunvex
