#include "screens/pages/calls_screen.h"

#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollArea>
#include <QShortcut>
#include <QTabWidget>
#include <QVBoxLayout>

#include "cdr/calls_page.h"
#include "screens/kit/bar_chart.h"
#include "screens/kit/column_choice.h"
#include "screens/kit/field_binding.h"
#include "screens/kit/labels.h"
#include "screens/kit/settings_form.h"
#include "screens/kit/table_view.h"
#include "screens/kit/theme.h"
#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr int sideWidth = 304;
constexpr int captionWidth = 104;
constexpr const char* section = "CallList";
constexpr const char* headerKey = "Header";
constexpr int columnWidths[] = {52, 48, 80, 92, 144, 152, 184, 164, 164, 164, 80, 92, 108, 68, 64, 104};

constexpr int valuesBatch = 10000;  // entries laid out at once, some ms
constexpr int pauseMs = 200;

struct ChartGroup {
    const char* title;
    CallSums::By by;
};
constexpr std::array<ChartGroup, 4> chartGroups{{{QT_TRANSLATE_NOOP("CallsScreen", "port"), CallSums::By::Port},
                                                 {QT_TRANSLATE_NOOP("CallsScreen", "SIM"), CallSums::By::Sim},
                                                 {QT_TRANSLATE_NOOP("CallsScreen", "operator"), CallSums::By::Operator},
                                                 {QT_TRANSLATE_NOOP("CallsScreen", "hour"), CallSums::By::Hour}}};

QPushButton* button(ActionField& action) {
    auto* made = new QPushButton;
    bind(action, made);
    made->setProperty("role", "small");
    return made;
}

QString minutesAndSeconds(std::int64_t seconds) {
    return QString("%1:%2").arg(seconds / 60).arg(seconds % 60, 2, 10, QChar('0'));
}

// What nothing can be said of is no zero.
QString asrText(const CallTotals& totals) { return totals.calls == 0 ? "–" : QString("%1 %").arg(totals.asr()); }
QString acdText(const CallTotals& totals) { return totals.answered == 0 ? "–" : minutesAndSeconds(totals.acd()); }

// In words, for the line under the list and the tip of a bar.
QString inWords(const CallTotals& totals) {
    return CallsScreen::tr("%1 · %2 answered · talk time %3 · ASR %4 · ACD %5")
        .arg(totals.calls == 1 ? CallsScreen::tr("1 call") : CallsScreen::tr("%1 calls").arg(totals.calls))
        .arg(totals.answered)
        .arg(minutesAndSeconds(totals.talkSeconds), asrText(totals), acdText(totals));
}

// By the entries of cmbCDRMeasure.
Bar barOf(const CallSums::Group& group, int measure) {
    const auto& totals = group.totals;
    Bar bar{shown(escaped(group.name)), 0, {}, {}};
    bar.tip = bar.label + ": " + inWords(totals);
    switch (measure) {
        case 1:
            bar.value = static_cast<double>(totals.talkSeconds);
            bar.valueText = minutesAndSeconds(totals.talkSeconds);
            break;
        case 2:
            bar.value = totals.asr();
            bar.valueText = asrText(totals);
            break;
        case 3:
            bar.value = totals.acd();
            bar.valueText = acdText(totals);
            break;
        default:
            bar.value = static_cast<double>(totals.calls);
            bar.valueText = QString::number(totals.calls);
    }
    return bar;
}

}  // namespace

CallsScreen::CallsScreen(CallsPage& page, const ScreenTools& tools, QWidget* parent)
    : PageFrame("page_call", tr("Call records"), parent), page_(page), tools_(tools) {
    auto* columns = new QHBoxLayout;
    columns->setSpacing(2 * grid);
    auto* left = new QVBoxLayout;
    left->addLayout(buildFilters());
    left->addWidget(buildList(), 1);
    left->addLayout(buildFoot());
    columns->addLayout(left, 1);
    columns->addWidget(buildSide());
    content()->addLayout(columns, 1);
    pause_ = tools.platform.makeTimer([this] {
        pause_->stop();
        if (changedSince_) showSums();
    });
    listen(this, page.shownChanged(), [this] {
        changedSince_ = true;
        if (!pause_->isActive()) showSums();
    });
    listen(this, page.lsvCallReport.workChanged(), [this] { showOrder(); });
    listen(this, page.phaseChanged(), [this] { showTotals(); });
    showSums();
}

QLayout* CallsScreen::buildFilters() {
    auto& page = page_;
    auto* row = new QHBoxLayout;
    row->setSpacing(grid);
    auto* columnCaption = captionLabel(tr("&Filter by"));
    auto* column = new QComboBox;
    bind(page.cmbCDRColumn, column, columnCaption);
    auto* valueCaption = captionLabel(tr("&is"));
    auto* value = new QComboBox;
    // As many values as there are numbers in the table: none is measured, and the list that opens is a short one.
    value->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    value->setMinimumContentsLength(16);
    auto* values = new QListView;
    values->setUniformItemSizes(true);
    values->setLayoutMode(QListView::Batched);
    values->setBatchSize(valuesBatch);
    value->setStyleSheet("QComboBox { combobox-popup: 0; }");
    value->setView(values);
    values->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    bind(page.cmbCDRValue, value, valueCaption);
    auto* searchCaption = captionLabel(tr("&Search"));
    auto* search = new QLineEdit;
    search->setClearButtonEnabled(true);
    search->setPlaceholderText(tr("in all columns"));
    bind(page.txtCDRSearch, search, searchCaption);
    for (QWidget* widget : std::initializer_list<QWidget*>{columnCaption, column, valueCaption, value, searchCaption})
        row->addWidget(widget);
    row->addWidget(search, 1);
    auto* find = new QShortcut(QKeySequence::Find, this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    connect(find, &QShortcut::activated, search, [search] {
        search->setFocus(Qt::ShortcutFocusReason);
        search->selectAll();
    });
    return row;
}

QWidget* CallsScreen::buildList() {
    auto& page = page_;
    table_ = new TableView(page.callTable, tr("Calls"));
    table_->setObjectName("lsvCallReport");
    connect(table_, &TableView::copyRefused, this, [this] {
        page_.tell(tr("At most %1 calls are copied; CSV writes all of them.").arg(TableView::mostCopied).toStdString());
    });
    auto* header = table_->horizontalHeader();
    header->setSectionsMovable(true);
    for (int column = 0; column < static_cast<int>(callColumnCount); ++column)
        table_->setColumnWidth(column, columnWidths[column]);
    const auto kept = tools_.setting.Read(section, headerKey);
    if (!kept.empty()) header->restoreState(QByteArray::fromBase64(QByteArray::fromStdString(kept)));
    header->setSortIndicator(-1, Qt::AscendingOrder);
    offerColumns(header, [this](int, bool) { keepColumns(); });
    connect(header, &QHeaderView::sectionMoved, this, [this] { keepColumns(); });
    return table_;
}

QLayout* CallsScreen::buildFoot() {
    auto& page = page_;
    auto* row = new QHBoxLayout;
    row->setSpacing(grid);
    totals_ = new ElidedLabel;
    totals_->setObjectName("lblCDRTotals");
    row->addWidget(totals_, 1);
    auto* work = new QLabel;
    bind(page.lblCDRWork, work);
    row->addWidget(work);
    auto* cancel = button(page.cmdCDRCancel);
    follow(cancel, page.cmdCDRCancel, [cancel, &page] { cancel->setVisible(page.cmdCDRCancel.enabled()); });
    row->addWidget(cancel);
    for (const std::size_t index : {4, 5, 1, 2, 3}) row->addWidget(button(page.cmdCDRExport[index]));
    row->addWidget(button(page.cmdPrint));
    return row;
}

QWidget* CallsScreen::buildSide() {
    auto* side = new QWidget;
    side->setFixedWidth(sideWidth);
    auto* rows = new QVBoxLayout(side);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->addWidget(buildDownload());
    auto* tabs = new QTabWidget;
    tabs->setDocumentMode(true);
    tabs->addTab(buildCharts(), tr("Charts"));
    tabs->addTab(buildSettings(), tr("Settings"));
    rows->addWidget(tabs, 1);
    return side;
}

QWidget* CallsScreen::buildSettings() {
    auto& page = page_;
    auto* sheet = new QWidget;
    auto* rows = new QVBoxLayout(sheet);
    rows->setContentsMargins(0, 0, 0, 0);
    auto* settings = new SettingsForm(tr("Download and files"), captionWidth);
    settings->add(page.txtCDRDownLimit, {tr("&Download every"), tr("min, 0 = off"), {}, 64});
    settings->add(page.txtCDRRecordLimit, {tr("&New file after"), tr("calls"), {}, 64});
    settings->add(page.optCDRFormat, {tr("File f&ormat"), {}, {}, 96});
    settings->add(page.txtCDRPath, {tr("Fo&lder"), {}, {}, 144});
    settings->add(page.chkCDRIncludeHeader);
    rows->addWidget(settings);
    auto* counted = new QHBoxLayout;
    auto* total = new QLabel;
    bind(page.lblCDRTotal, total, tr("Calls that count for a new file"));
    counted->addWidget(captionLabel(tr("Calls that count for a new file:")));
    counted->addWidget(total);
    counted->addStretch(1);
    rows->addLayout(counted);
    auto* save = button(page.cmdCDRExport[8]);
    rows->addWidget(save, 0, Qt::AlignRight);
    rows->addStretch(1);
    return sheet;
}

QWidget* CallsScreen::buildCharts() {
    auto* sheet = new QWidget;
    auto* rows = new QVBoxLayout(sheet);
    rows->setContentsMargins(0, grid, 0, 0);
    auto* choice = new QHBoxLayout;
    auto* caption = captionLabel(tr("Sho&w"));
    auto* measure = new QComboBox;
    bind(page_.cmbCDRMeasure, measure, caption);
    choice->addWidget(caption);
    choice->addWidget(measure);
    choice->addStretch(1);
    rows->addLayout(choice);
    for (const auto& group : chartGroups) {
        auto* chart = new BarChart;
        chart->setObjectName(QString("chart_") + group.title);
        charts_.push_back(chart);
        rows->addWidget(chart, 1);
    }
    follow(sheet, page_.cmbCDRMeasure, [this] { showCharts(); });
    auto* area = new QScrollArea;
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setWidget(sheet);
    return area;
}

void CallsScreen::showSums() {
    changedSince_ = false;
    showTotals();
    showCharts();
    pause_->start(pauseMs);
}

void CallsScreen::showCharts() {
    const auto& page = page_;
    for (std::size_t at = 0; at < charts_.size(); ++at) {
        std::vector<Bar> bars;
        for (const auto& group : page.lsvCallReport.sums().by(chartGroups[at].by))
            bars.push_back(barOf(group, page.cmbCDRMeasure.index()));
        charts_[at]->setBars(tr("%1 by %2").arg(shown(page.cmbCDRMeasure.text()), tr(chartGroups[at].title)),
                             std::move(bars));
    }
}

// The heading tells the order in force again, when a sorting was given up.
void CallsScreen::showOrder() {
    const auto& list = page_.lsvCallReport;
    if (list.working()) return;
    const QSignalBlocker quiet(table_->horizontalHeader());
    const auto& order = list.order();
    table_->horizontalHeader()->setSortIndicator(order ? static_cast<int>(order->column) : -1,
                                                 order && !order->ascending ? Qt::DescendingOrder : Qt::AscendingOrder);
    table_->horizontalHeader()->viewport()->update();
}

QGroupBox* CallsScreen::buildDownload() {
    auto& page = page_;
    auto& download = page_.download();
    auto* group = new QGroupBox(tr("Download"));
    auto* rows = new QVBoxLayout(group);
    auto* text = new ElidedLabel;
    auto* bar = new QProgressBar;
    bar->setObjectName("ucCDRProg");
    bar->setTextVisible(false);
    follow(bar, download.ucCDRProg, [bar, text, &download] {
        text->setText(shown(download.ucCDRProg.text()));
        bar->setValue(download.gCDRDownloading ? download.gCDRPhase == 1 ? download.gCDRPercent : 0 : 0);
    });
    rows->addWidget(text);
    rows->addWidget(bar);
    auto* timer = new ElidedLabel;
    bind(download.lblCDRTimer, timer);
    timer->setProperty("role", "muted");
    rows->addWidget(timer);
    auto* status = roleLabel({}, "error");
    status->setWordWrap(true);
    bind(download.lblCDRStatus, status);
    follow(status, download.lblCDRStatus,
           [status, &download] { status->setVisible(!download.lblCDRStatus.text().empty()); });
    rows->addWidget(status);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    for (const std::size_t index : {7, 6}) buttons->addWidget(button(page.cmdCDRExport[index]));
    rows->addLayout(buttons);
    return group;
}

void CallsScreen::showTotals() {
    const auto& page = page_;
    const auto& totals = page.lsvCallReport.sums().all();
    totals_->setText(inWords(totals));
    if (totals.calls != 0)
        table_->setEmptyText({});
    else if (page.lsvCallReport.held() > 0)
        table_->setEmptyText(tr("No call holds what is searched for."));
    else if (!page_.gatewayIsKnown())
        table_->setEmptyText(tr("The calls of a gateway are shown once it is connected."));
    else
        table_->setEmptyText(tr("No calls yet. Press Start to fetch them from the gateway."));
}

void CallsScreen::keepColumns() {
    tools_.setting.Write(section, headerKey, table_->horizontalHeader()->saveState().toBase64().toStdString());
}

}  // namespace trunvex
