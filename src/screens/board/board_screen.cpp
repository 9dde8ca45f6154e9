#include "screens/board/board_screen.h"

#include <QApplication>
#include <QCloseEvent>
#include <QGraphicsColorizeEffect>
#include <QGridLayout>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "model/port_address.h"
#include "monitor/monitor_tools.h"
#include "monitor/sim_status.h"
#include "screens/board/board_cell.h"
#include "screens/board/board_channels.h"
#include "screens/board/board_header.h"
#include "screens/board/board_legend.h"
#include "screens/board/board_menu.h"
#include "screens/board/cell_panel.h"
#include "screens/board/chart_panel.h"
#include "screens/board/colours_screen.h"
#include "screens/board/events_panel.h"
#include "screens/board/line_panel.h"
#include "screens/board/message_panel.h"
#include "screens/board/port_window_screens.h"
#include "screens/board/statistics_panel.h"
#include "screens/kit/field_binding.h"
#include "screens/kit/labels.h"
#include "screens/kit/read_bar.h"
#include "screens/kit/theme.h"

namespace trunvex {

namespace {

constexpr QSize firstSize(1280, 720);
constexpr QSize smallestSize(960, 600);
constexpr int gap = 6;
constexpr int cellsShare = 9;  // of the width, to the strip's one
constexpr double smallestScale = 0.75;
constexpr double largestScale = 2.5;
constexpr const char* section = "Window";
constexpr const char* geometryKey = "BoardGeometry";

}  // namespace

BoardScreen::BoardScreen(frmSimStatus& board, MonitorTools& monitor, LabelField& allocation, LabelField& notice,
                         const ScreenTools& tools)
    : board_(board), monitor_(monitor), notice_(notice), tools_(tools), frame_(tools.platform) {
    setObjectName("frmSimStatus");
    setMinimumSize(smallestSize);
    follow(this, board.lblESN, [this, &board] {
        setWindowTitle(board.lblESN.text().empty() ? tr("Monitor") : tr("Monitor %1").arg(shown(board.lblESN.text())));
    });
    buildTabs();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(grid, grid, grid, grid);
    layout->setSpacing(grid / 2);
    auto* header = new BoardHeader(board, allocation, monitor.events.lblFaults, frame_);
    for (auto* lamp : header->findChildren<LampSign*>()) {
        pictures_.push_back(lamp);
        connect(lamp, &LampSign::pressed, this, [this] { monitor_.events.asked.emit(); });
    }
    pictures_.push_back(header->findChild<LevelBar*>());
    layout->addWidget(header);
    asOf_ = roleLabel({}, "strong");
    asOf_->setObjectName(shown(board.lblAsOf.name()));
    layout->addWidget(asOf_);
    layout->addWidget(tabs_, 1);
    layout->addLayout(buildFoot());
    const auto inFrames = [this](QObject* owner, Field& bar, std::function<void()> refresh) {
        frame_.follow(owner, {&bar}, std::move(refresh));
    };
    new ReadBar(board.refreshes().bar,
                {"cmdCancelRefresh", tr("Cancel refreshing"), [&board] { board.refreshes().cancel(); }}, inFrames,
                this);

    const auto hardwareChanged = [this] {
        for (auto* cell : cells_) cell->hardwareChanged();
    };
    listen(this, board.hardwareChanged, hardwareChanged);
    listen(this, board.cmdColors.pressed(), [this] { showColours(); });
    follow(this, board.lblAsOf, [this] { showAsOf(); });
    new MessagePanel(monitor.statistics, this);
    new CellPanel(monitor.cells, this);
    listen(this, board.cmdShowBcch.pressed(), [this] { tabs_->setCurrentIndex(tabs_->currentIndex() == 0 ? 1 : 0); });
    followWindows();
    tabs_->setFocus();
    restorePlace();
}

BoardScreen::~BoardScreen() {
    if (isVisible()) savePlace();
}

// A picture of what was is told by a word and by the want of all colour.
void BoardScreen::showAsOf() {
    const bool live = board_.lblAsOf.text().empty();
    asOf_->setText(shown(board_.lblAsOf.text()));
    asOf_->setVisible(!live);
    for (auto* picture : pictures_) {
        auto* grey = live ? nullptr : new QGraphicsColorizeEffect;
        if (grey) grey->setColor(Qt::black);  // any lighter one would be laid over the shades, and the texts fade
        picture->setGraphicsEffect(grey);
    }
}

void BoardScreen::buildTabs() {
    tabs_ = new QTabWidget;
    tabs_->setObjectName("boardTabs");
    tabs_->setDocumentMode(true);
    tabs_->setCornerWidget(buildButtons());
    tabs_->addTab(buildBoard(), tr("Board"));
    auto* statistics = new StatisticsPanel(monitor_.statistics, tools_, StatisticsPanel::Resets::Yes);
    statistics->setObjectName("tabASR");
    new ReadBar(board_.reads(), statistics);
    tabs_->addTab(statistics, tr("SIM statistics"));
    auto* chart = new ChartPanel(monitor_.chart, monitor_.rehearsal, tools_);
    new ReadBar(board_.reads(), chart);
    tabs_->addTab(chart, tr("Time chart"));
    tabs_->addTab(new CellReport(monitor_.cells), tr("BCCH report"));
    tabs_->addTab(new LinePanel(monitor_.counters, monitor_.versions), tr("ISDN and versions"));
    auto* events = new EventsPanel(monitor_.events);
    tabs_->addTab(events, tr("Events"));
    follow(events, monitor_.events.lblFaults, [this, events] {
        const auto count = monitor_.events.lsvStanding.rowCount();
        tabs_->setTabText(tabs_->indexOf(events), count == 0 ? tr("Events") : tr("Events (%1)").arg(count));
    });
    listen(this, monitor_.events.asked, [this, events] { tabs_->setCurrentWidget(events); });
}

// What is told in the main window is told here too, for the operator may be looking at this one only.
QLayout* BoardScreen::buildFoot() {
    auto* row = new QHBoxLayout;
    row->setSpacing(grid);
    row->addWidget(new BoardLegend(board_), 1);
    auto* notice = new ElidedLabel;
    notice->setProperty("role", "strong");
    notice->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    frame_.follow(notice, {&notice_}, [this, notice] {
        notice->setText(shown(notice_.text()));
        notice->setVisible(!notice->text().isEmpty());
    });
    row->addWidget(notice, 1);
    return row;
}

QWidget* BoardScreen::buildButtons() {
    auto* area = new QWidget;
    auto* row = new QHBoxLayout(area);
    row->setContentsMargins(0, 0, 0, 2);
    row->setSpacing(grid / 2);
    for (auto* action : {&board_.cmdSTSRefresh, &board_.cmdShowBcch, &board_.cmdColors}) {
        auto* button = new QPushButton;
        bind(*action, button);
        button->setProperty("role", "small");
        row->addWidget(button);
    }
    return area;
}

QWidget* BoardScreen::buildBoard() {
    auto* page = new QWidget;
    auto* parts = new QHBoxLayout(page);
    parts->setContentsMargins(0, 0, 0, 0);
    parts->setSpacing(grid);
    pictures_ = {buildCells(), new BoardChannels(board_, frame_)};
    parts->addWidget(pictures_[0], cellsShare);
    parts->addWidget(pictures_[1], 1);
    return page;
}

void BoardScreen::followWindows() {
    auto& windows = monitor_.windows;
    for (auto& window : windows.openSMS) new MessageWindow(window, this);
    listen(this, windows.messagesOpened, [this](frmSMS& window) { new MessageWindow(window, this); });
    listen(this, windows.diallerAsked, [this, &windows] { showDialler(windows, this); });
}

// A column a MCU, a row a module.
QWidget* BoardScreen::buildCells() {
    auto* area = new QWidget;
    auto* layout = new QGridLayout(area);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(gap);
    for (int mcu = 1; mcu <= mcuCount; ++mcu) {
        auto* head = roleLabel(tr("MCU %1").arg(mcu), "muted");
        head->setAlignment(Qt::AlignHCenter);
        layout->addWidget(head, 0, mcu - 1);
        layout->setColumnStretch(mcu - 1, 1);
        for (int module = 1; module <= modulesPerMcu; ++module) layout->setRowStretch(module, 1);
    }
    for (const auto port : everyPort) {
        const int index = port.number();
        auto* cell = new BoardCell(board_.cell(index), frame_, area);
        cell->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
        layout->addWidget(cell, port.module(), port.mcu() - 1);
        connect(cell, &BoardCell::walked, this,
                [this, index](int columns, int rows) { moveFocus(index, columns, rows); });
        connect(cell, &BoardCell::focused, this, [this, index] { keepTabStop(index); });
        connect(cell, &BoardCell::markAsked, this, [this, index] { mark(index); });
        listen(this, board_.cell(index).cmdResetLimit.pressed(), [this, index] { showPortMenu(index); });
        cells_.push_back(cell);
    }
    keepTabStop(tabStop_);
    return area;
}

void BoardScreen::showPortMenu(int index) {
    auto* menu = makePortMenu(monitor_, this);
    auto* cell = cells_[static_cast<std::size_t>(index - 1)];
    const auto under = cell->mapFromGlobal(QCursor::pos());
    menu->popup(cell->mapToGlobal(cell->rect().contains(under) ? under : cell->rect().center()));
}

void BoardScreen::mark(int index) {
    auto& marked = monitor_.menu.marked;
    if (!marked.erase(index)) marked.insert(index);
    cells_[static_cast<std::size_t>(index - 1)]->setMarked(marked.contains(index));
}

void BoardScreen::moveFocus(int index, int columns, int rows) {
    const auto from = PortAddress::ofNumber(index);
    const PortAddress to(std::clamp(from.mcu() + columns, 1, mcuCount),
                         std::clamp(from.module() + rows, 1, modulesPerMcu));
    cells_[to.slot()]->setFocus(Qt::TabFocusReason);
}

// Tab reaches the cells once, where the focus was last; the arrow keys go on from there.
void BoardScreen::keepTabStop(int index) {
    cells_[static_cast<std::size_t>(tabStop_ - 1)]->setFocusPolicy(Qt::ClickFocus);
    tabStop_ = index;
    cells_[static_cast<std::size_t>(tabStop_ - 1)]->setFocusPolicy(Qt::StrongFocus);
}

void BoardScreen::bringUp() {
    board_.setShown(true);
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

void BoardScreen::showColours() {
    if (!colours_) colours_ = new ColoursScreen(board_, this);
    colours_->show();
    colours_->raise();
    colours_->activateWindow();
}

void BoardScreen::showEvent(QShowEvent* event) {
    frame_.setAwake(true);
    QWidget::showEvent(event);
}

void BoardScreen::hideEvent(QHideEvent* event) {
    // Minimized, the window counts as visible still, but nothing of it can be seen.
    frame_.setAwake(false);
    QWidget::hideEvent(event);
}

void BoardScreen::closeEvent(QCloseEvent* event) {
    event->ignore();
    savePlace();
    board_.setShown(false);
    hide();
}

// The words around the cells grow with them.
void BoardScreen::resizeEvent(QResizeEvent* event) {
    const auto wide = static_cast<double>(width()) / firstSize.width();
    const auto high = static_cast<double>(height()) / firstSize.height();
    auto scaled = QApplication::font();
    scaled.setPointSizeF(QFontInfo(scaled).pointSizeF() *
                         std::clamp(std::min(wide, high), smallestScale, largestScale));
    if (scaled.pointSizeF() != font().pointSizeF()) {
        setFont(scaled);
        for (auto* widget : findChildren<QWidget*>())
            if (widget->window() == this) BoardHeader::takeWindowFont(widget);
    }
    QWidget::resizeEvent(event);
}

void BoardScreen::restorePlace() {
    resize(firstSize);
    const auto saved = tools_.setting.Read(section, geometryKey);
    if (!saved.empty()) restoreGeometry(QByteArray::fromBase64(QByteArray::fromStdString(saved)));
}

void BoardScreen::savePlace() { tools_.setting.Write(section, geometryKey, saveGeometry().toBase64().toStdString()); }

}  // namespace trunvex
