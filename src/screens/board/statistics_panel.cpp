#include "screens/board/statistics_panel.h"

#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include "monitor/sim_statistics.h"
#include "screens/board/statistics_delegate.h"
#include "screens/kit/column_choice.h"
#include "screens/kit/field_binding.h"
#include "screens/kit/field_frame.h"
#include "screens/kit/labels.h"
#include "screens/kit/settings_form.h"
#include "screens/kit/table_view.h"
#include "screens/kit/theme.h"

namespace trunvex {

namespace {

constexpr const char* section = "STAColumns";
constexpr const char* hidden = "0";
constexpr int widths[] = {40, 80, 40, 88, 64, 64, 64, 164, 136, 132, 72, 60, 100, 96};
constexpr int balanceWidth = 96;

std::string columnKey(int column) { return "COL" + std::to_string(column); }

QPushButton* button(ActionField& action) {
    auto* made = new QPushButton;
    bind(action, made);
    return made;
}

}  // namespace

StatisticsPanel::StatisticsPanel(SimStatistics& statistics, const ScreenTools& tools, Resets resets, QWidget* parent)
    : QWidget(parent), statistics_(statistics), tools_(tools) {
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, grid, 0, 0);
    rows->setSpacing(grid);
    rows->addLayout(buildSearch());
    buildTable();
    rows->addWidget(table_, 1);
    auto* sums = new ElidedLabel;
    bind(statistics.lblASRSums, sums);
    rows->addWidget(sums);
    rows->addLayout(buildBalance());
    rows->addLayout(buildButtons(resets));
}

QLayout* StatisticsPanel::buildSearch() {
    auto* row = new QHBoxLayout;
    row->setSpacing(grid);
    auto* caption = captionLabel(tr("&Search"));
    auto* search = new QLineEdit;
    search->setClearButtonEnabled(true);
    search->setPlaceholderText(tr("in all columns"));
    bind(statistics_.txtASRSearch, search, caption);
    row->addWidget(caption);
    row->addWidget(search, 1);
    auto* find = new QShortcut(QKeySequence::Find, this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    connect(find, &QShortcut::activated, search, [search] {
        search->setFocus(Qt::ShortcutFocusReason);
        search->selectAll();
    });
    return row;
}

void StatisticsPanel::buildTable() {
    table_ = new TableView(statistics_.lstASR, tr("Statistics of the SIMs"));
    table_->setObjectName("lstASR");
    table_->setItemDelegate(new StatisticsDelegate(statistics_, table_));
    table_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    auto* header = table_->horizontalHeader();
    header->setSectionsMovable(true);
    for (int column = 0; column < static_cast<int>(std::size(widths)); ++column) {
        table_->setColumnWidth(column, widths[column]);
        header->setSectionHidden(column, tools_.setting.Read(section, columnKey(column)) == hidden);
    }
    header->setStretchLastSection(true);
    offerColumns(header, [this](int column, bool isShown) {
        tools_.setting.Write(section, columnKey(column), isShown ? "1" : hidden);
    });
    connect(table_, &QAbstractItemView::clicked, this,
            [this](const QModelIndex& index) { openAt(index.row(), index.column()); });
    connect(table_, &QAbstractItemView::activated, this,
            [this](const QModelIndex& index) { openAt(index.row(), SimStatistics::Word); });
    connect(table_->selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this](const QModelIndex& now) {
        statistics_.choose(now.isValid() ? std::optional(static_cast<std::size_t>(now.row())) : std::nullopt);
    });
    listen(this, statistics_.lstASR.replaced(), [this] { showEmpty(); });
    follow(this, statistics_.txtASRSearch, [this] { showEmpty(); });
}

void StatisticsPanel::showEmpty() {
    const auto& sims = statistics_.lstASR;
    table_->setEmptyText(sims.rowCount() > 0   ? QString()
                         : !sims.all().empty() ? tr("No SIM holds what is searched for.")
                                               : tr("Nothing was read yet. Press Get Data."));
}

// From the remark it is one click to the calls of its SIM.
void StatisticsPanel::openAt(int row, int column) {
    const auto at = static_cast<std::size_t>(row);
    if (column == SimStatistics::Word && !statistics_.lstASR.text(at, SimStatistics::Word).empty())
        statistics_.askForCalls(at);
}

QLayout* StatisticsPanel::buildBalance() {
    auto* row = new QHBoxLayout;
    row->setSpacing(grid);
    auto* caption = captionLabel({});
    bind(statistics_.lblBalanceOf, caption);
    auto* balance = new QLineEdit;
    balance->setFixedWidth(balanceWidth);
    balance->setFont(figureFont());
    bind(statistics_.txtBalance, balance, nullptr);
    balance->setAccessibleName(tr("Balance"));
    caption->setBuddy(balance);
    auto* frame = new FieldFrame(balance);
    auto* reason = roleLabel({}, "error");
    followStanding(statistics_.txtBalance, frame, reason);
    row->addWidget(caption);
    row->addWidget(frame);
    row->addWidget(button(statistics_.cmdUpdateBalance));
    row->addWidget(reason);
    row->addWidget(roleLabel(tr(SimStatistics::balanceHint), "muted"));
    row->addStretch(1);
    return row;
}

QLayout* StatisticsPanel::buildButtons(Resets resets) {
    auto* row = new QHBoxLayout;
    row->setSpacing(grid);
    row->addStretch(1);
    row->addWidget(button(statistics_.cmdExportCsv));
    if (resets == Resets::Yes) row->addWidget(button(statistics_.cmdResetAllASR));
    row->addWidget(button(statistics_.cmdGetAllSTR));
    return row;
}

}  // namespace trunvex
