#include "screens/calls_screen.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QProgressBar>
#include <QPushButton>
#include <QShortcut>
#include <QTableView>
#include <QVBoxLayout>

#include "screens/call_list_model.h"
#include "screens/field_binding.h"
#include "screens/labels.h"
#include "screens/settings_form.h"
#include "screens/theme.h"
#include "shell/console.h"

namespace trunvex {

namespace {

constexpr int sideWidth = 304;
constexpr int captionWidth = 104;
constexpr int rowHeight = 22;
constexpr int widestCopy = 100000;  // rows; a clipboard is no place for more
constexpr const char* section = "CallList";
constexpr const char* headerKey = "Header";
constexpr int columnWidths[] = {44, 40, 72, 84, 136, 144, 176, 156, 156, 156, 72, 84, 96, 60, 56, 96};

QPushButton* button(ActionField& action) {
    auto* made = new QPushButton;
    bind(action, made);
    made->setProperty("role", "small");
    return made;
}

QString minutesAndSeconds(std::int64_t seconds) {
    return QString("%1:%2").arg(seconds / 60).arg(seconds % 60, 2, 10, QChar('0'));
}

}  // namespace

CallsScreen::CallsScreen(Console& console, QWidget* parent)
    : PageFrame("page_call", tr("Call records"), parent), console_(console) {
    auto* columns = new QHBoxLayout;
    columns->setSpacing(2 * grid);
    auto* left = new QVBoxLayout;
    left->addLayout(buildFilters());
    left->addWidget(buildList(), 1);
    left->addLayout(buildFoot());
    columns->addLayout(left, 1);
    columns->addWidget(buildSide());
    content()->addLayout(columns, 1);
    listen(this, console.calls.totalsChanged(), [this] { showTotals(); });
    listen(this, console.bringUp.phaseChanged(), [this] { showTotals(); });
    showTotals();
}

QLayout* CallsScreen::buildFilters() {
    auto& page = console_.calls;
    auto* row = new QHBoxLayout;
    row->setSpacing(grid);
    auto* columnCaption = captionLabel(tr("&Filter by"));
    auto* column = new QComboBox;
    bind(page.cmbCDRColumn, column, columnCaption);
    auto* valueCaption = captionLabel(tr("&is"));
    auto* value = new QComboBox;
    value->setMinimumContentsLength(14);
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
    auto& page = console_.calls;
    table_ = new QTableView;
    table_->setObjectName("lsvCallReport");
    table_->setAccessibleName(tr("Calls"));
    table_->setModel(new CallListModel(page.lsvCallReport, table_));
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setWordWrap(false);
    table_->setShowGrid(false);
    table_->setFont(figureFont());
    table_->setTabKeyNavigation(false);
    table_->verticalHeader()->hide();
    table_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table_->verticalHeader()->setDefaultSectionSize(rowHeight);
    auto* header = table_->horizontalHeader();
    header->setSectionsMovable(true);
    header->setHighlightSections(false);
    header->setSortIndicator(-1, Qt::AscendingOrder);
    table_->setSortingEnabled(true);
    for (int column = 0; column < static_cast<int>(callColumnCount); ++column)
        table_->setColumnWidth(column, columnWidths[column]);
    const auto kept = console_.setting.Read(section, headerKey);
    if (!kept.empty()) header->restoreState(QByteArray::fromBase64(QByteArray::fromStdString(kept)));
    header->setSortIndicator(-1, Qt::AscendingOrder);
    header->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(header, &QWidget::customContextMenuRequested, this, [this](const QPoint& at) { chooseColumns(at); });
    connect(header, &QHeaderView::sectionMoved, this, [this] { keepColumns(); });
    auto* copy = new QShortcut(QKeySequence::Copy, table_, nullptr, nullptr, Qt::WidgetShortcut);
    connect(copy, &QShortcut::activated, this, [this] { copySelected(); });
    empty_ = roleLabel({}, "muted", table_->viewport());
    empty_->setAlignment(Qt::AlignCenter);
    auto* over = new QVBoxLayout(table_->viewport());
    over->addWidget(empty_);
    return table_;
}

QLayout* CallsScreen::buildFoot() {
    auto& page = console_.calls;
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
    return row;
}

QWidget* CallsScreen::buildSide() {
    auto& page = console_.calls;
    auto* side = new QWidget;
    side->setFixedWidth(sideWidth);
    auto* rows = new QVBoxLayout(side);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->addWidget(buildDownload());
    auto* settings = new SettingsForm(tr("Settings"), captionWidth);
    settings->add(page.txtCDRDownLimit, {tr("&Download every"), tr("min, 0 = off"), {}, 64});
    settings->add(page.txtCDRRecordLimit, {tr("&New file after"), tr("calls"), {}, 64});
    settings->add(page.optCDRFormat, {tr("File f&ormat"), {}, {}, 96});
    settings->add(page.txtCDRPath, {tr("Fo&lder"), {}, {}, 144});
    settings->add(page.chkCDRIncludeHeader);
    rows->addWidget(settings);
    auto* save = button(page.cmdCDRExport[8]);
    rows->addWidget(save, 0, Qt::AlignRight);
    rows->addStretch(1);
    return side;
}

QGroupBox* CallsScreen::buildDownload() {
    auto& page = console_.calls;
    auto& download = console_.cdrDownload;
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
    follow(status, download.lblCDRStatus, [status, &download] {
        status->setVisible(!download.lblCDRStatus.text().empty());
    });
    rows->addWidget(status);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    for (const std::size_t index : {7, 6}) buttons->addWidget(button(page.cmdCDRExport[index]));
    rows->addLayout(buttons);
    return group;
}

void CallsScreen::showTotals() {
    const auto& page = console_.calls;
    const auto& totals = page.totals;
    totals_->setText(tr("%1 calls · %2 answered · talk time %3 · ASR %4 % · ACD %5")
                         .arg(totals.calls)
                         .arg(totals.answered)
                         .arg(minutesAndSeconds(totals.talkSeconds))
                         .arg(totals.asr())
                         .arg(minutesAndSeconds(totals.acd())));
    empty_->setVisible(totals.calls == 0);
    if (totals.calls != 0) return;
    if (page.lsvCallReport.held() > 0)
        empty_->setText(tr("No call holds what is searched for."));
    else if (console_.session.gESN.empty())
        empty_->setText(tr("The calls of a gateway are shown once it is connected."));
    else
        empty_->setText(tr("No calls yet. Press Start to fetch them from the gateway."));
}

// As a table: a tab between two columns, a line end behind each row, in the order of the screen.
void CallsScreen::copySelected() {
    const auto rows = table_->selectionModel()->selectedRows();
    if (rows.isEmpty() || rows.size() > widestCopy) return;
    auto sorted = rows;
    std::sort(sorted.begin(), sorted.end());
    const auto* header = table_->horizontalHeader();
    QString text;
    for (const auto& row : sorted) {
        QStringList cells;
        for (int place = 0; place < header->count(); ++place) {
            const int column = header->logicalIndex(place);
            if (!header->isSectionHidden(column)) cells << row.siblingAtColumn(column).data().toString();
        }
        text += cells.join('\t') + '\n';
    }
    QApplication::clipboard()->setText(text);
}

void CallsScreen::chooseColumns(const QPoint& at) {
    auto* header = table_->horizontalHeader();
    QMenu menu;
    for (int column = 0; column < header->count(); ++column) {
        auto* action = menu.addAction(table_->model()->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString());
        action->setCheckable(true);
        action->setChecked(!header->isSectionHidden(column));
        // The last column stays: a table without one could not be brought back.
        const bool last = header->hiddenSectionCount() == header->count() - 1 && action->isChecked();
        action->setEnabled(!last);
        connect(action, &QAction::toggled, this, [this, header, column](bool shown) {
            header->setSectionHidden(column, !shown);
            keepColumns();
        });
    }
    menu.exec(header->mapToGlobal(at));
}

void CallsScreen::keepColumns() {
    console_.setting.Write(section, headerKey, table_->horizontalHeader()->saveState().toBase64().toStdString());
}

}  // namespace trunvex
