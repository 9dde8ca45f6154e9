#include "screens/board/cell_panel.h"

#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

#include "monitor/cell_view.h"
#include "screens/kit/column_choice.h"
#include "screens/kit/field_binding.h"
#include "screens/kit/labels.h"
#include "screens/kit/table_view.h"
#include "screens/kit/theme.h"

namespace trunvex {

namespace {

constexpr int cellWidth = 72;
constexpr int rowHeight = 26;
constexpr int listColumn = 112;

QPushButton* button(ActionField& action, const QString& spoken = {}) {
    auto* made = new QPushButton;
    bind(action, made, spoken);
    return made;
}

}  // namespace

CellPanel::CellPanel(CellView& view, QWidget* board) : OverlayCard(shown(view.picBStat.name()), board), view_(view) {
    rows()->addWidget(buildCells());
    rows()->addLayout(buildState());
    auto* actions = new QHBoxLayout;
    actions->setSpacing(grid);
    actions->addStretch(1);
    auto* automatic = button(view.cmdAutoCell);
    automatic->setToolTip(tr("Lets the module choose its cell again"));
    actions->addWidget(automatic);
    actions->addWidget(button(view.cmdCloseCell));
    rows()->addLayout(actions);
    follow(this, view.picBStat, [this] {
        setTitle(shown(view_.picBStat.text()));
        setOpen(view_.picBStat.visible());
    });
    connect(this, &OverlayCard::closeAsked, this, [this] { view_.cmdCloseCell.press(); });
}

QWidget* CellPanel::buildCells() {
    auto* area = new QWidget;
    auto* cells = new QGridLayout(area);
    cells->setContentsMargins(0, 0, 0, 0);
    cells->setHorizontalSpacing(grid);
    cells->setVerticalSpacing(2);
    for (std::size_t column = 0; column < CellView::columns; ++column) {
        const auto at = static_cast<int>(column);
        auto* heading = roleLabel(tr(CellView::headings[column]), "muted");
        cells->addWidget(heading, 0, at, Qt::AlignRight);
        cells->setColumnMinimumWidth(at, cellWidth);
        for (std::size_t row = 0; row < CellView::rows; ++row) {
            auto* value = new QLabel;
            bind(view_.cells[column][row], value, tr("%1 of cell %2").arg(CellView::headings[column]).arg(row + 1));
            value->setFont(figureFont());
            value->setTextFormat(Qt::PlainText);
            value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
            cells->addWidget(value, static_cast<int>(row) + 1, at);
        }
    }
    for (std::size_t row = 0; row < CellView::rows; ++row) {
        auto* select = button(view_.lblCellSelect[row], tr("Lock to cell %1").arg(row + 1));
        select->setProperty("role", "small");
        select->setToolTip(tr("Locks the module to this cell"));
        cells->addWidget(select, static_cast<int>(row) + 1, static_cast<int>(CellView::columns));
        cells->setRowMinimumHeight(static_cast<int>(row) + 1, rowHeight);
    }
    cells->setColumnMinimumWidth(static_cast<int>(CellView::columns), cellWidth);
    return area;
}

QLayout* CellPanel::buildState() {
    auto* row = new QHBoxLayout;
    auto* state = roleLabel({}, "muted");
    bind(view_.lblCellState, state);
    auto* bar = new QProgressBar;
    bar->setObjectName(shown(view_.bar.name()));
    bar->setTextVisible(false);
    bar->setRange(0, 100);
    follow(bar, view_.bar, [this, bar] {
        bar->setValue(view_.bar.visible() ? view_.bar.percent() : 0);
        bar->setEnabled(view_.bar.visible());
    });
    row->addWidget(state, 1);
    row->addWidget(bar, 1);
    return row;
}

CellReport::CellReport(CellView& view, QWidget* parent) : QWidget(parent) {
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, grid, 0, 0);
    rows->setSpacing(grid);
    auto* table = new TableView(view.lsvBCCH, tr("Channels of all ports"));
    table->setObjectName("lsvBCCH");
    for (int column = 0; column < static_cast<int>(view.lsvBCCH.columnCount()); ++column)
        table->setColumnWidth(column, listColumn);
    table->horizontalHeader()->setStretchLastSection(true);
    for (const auto column : CellView::columnsNotTold) table->setColumnHidden(static_cast<int>(column), true);
    offerColumns(table->horizontalHeader());
    const auto tellEmpty = [table, &view] {
        table->setEmptyText(view.lsvBCCH.rowCount() > 0 ? QString()
                                                        : tr("Nothing was read yet. Press Get BCCH report."));
    };
    tellEmpty();
    listen(table, view.lsvBCCH.replaced(), tellEmpty);
    rows->addWidget(table, 1);
    rows->addWidget(button(view.cmdGetBcch), 0, Qt::AlignRight);
}

}  // namespace trunvex
