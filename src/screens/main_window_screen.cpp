#include "screens/main_window_screen.h"

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
#include "screens/status_bar.h"
#include "screens/tool_bar.h"
#include "shell/main_window.h"

namespace trunvex {

namespace {

constexpr QSize firstSize(1280, 720);
constexpr QSize smallestSize(1024, 600);  // all of the tool bar
constexpr const char* section = "Window";
constexpr const char* geometryKey = "Geometry";

}  // namespace

MainWindowScreen::MainWindowScreen(FrmPRIGroups& model, const ScreenTools& tools, QHash<QString, MakePage> pages)
    : model_(model), tools_(tools), pages_(new QStackedWidget), makePage_(std::move(pages)) {
    setObjectName(shown(model.caption.name()));
    setWindowIcon(applicationIcon());
    setMinimumSize(smallestSize);
    follow(this, model.caption, [this, &model] { setWindowTitle(shown(model.caption.text())); });

    addToolBar(new ToolBar(model, this));
    setStatusBar(new StatusBar(model, this));
    auto* centre = new QWidget;
    auto* layout = new QVBoxLayout(centre);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(new NoticeLine(model.notices, centre));
    layout->addWidget(pages_, 1);
    setCentralWidget(centre);
    pages_->setObjectName("pages");
    readBar_ = new ReadBar(model.reads, centre);

    listen(this, model.pageChanged(), [this] { showPage(); });
    listen(this, model.unload(), [this] { close(); });
    listen(this, model.windowShown(), [this](bool shown) { showWindow(shown); });
    listen(this, model.reads.formEnabledChanged(), [this](bool enabled) { enablePages(enabled); });
    showPage();
    pages_->currentWidget()->setFocus();
    restorePlace();
}

void MainWindowScreen::showPage() {
    const auto key = shown(model_.page());
    auto*& page = pageOf_[key];
    if (!page) {
        page = makePage_.value(key)();
        pages_->addWidget(page);
    }
    turnTo(pages_, page);
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
    const auto saved = tools_.setting.Read(section, geometryKey);
    if (!saved.empty()) restoreGeometry(QByteArray::fromBase64(QByteArray::fromStdString(saved)));
}

void MainWindowScreen::savePlace() {
    tools_.setting.Write(section, geometryKey, saveGeometry().toBase64().toStdString());
}

void MainWindowScreen::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (!agreed_) {
        // The question runs a loop of its own, in which the desktop may ask to close once more.
        if (std::exchange(asking_, true)) return;
        agreed_ = model_.queryUnload();
        asking_ = false;
        if (!agreed_) return;
        savePlace();
    }
    event->accept();
    Q_EMIT closed();
}

}  // namespace trunvex
