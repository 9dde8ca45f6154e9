#include "screens/board/events_panel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include "monitor/board_events.h"
#include "screens/kit/field_binding.h"
#include "screens/kit/labels.h"
#include "screens/kit/table_view.h"
#include "screens/kit/theme.h"

namespace trunvex {

namespace {

constexpr const char* chosenMark = "chosenKeys";
constexpr int refreshMs = 1000;
constexpr int widths[] = {136, 72, 48, 80, 320, 64, 88, 144};

}  // namespace

EventsPanel::EventsPanel(BoardEvents& events, QWidget* parent) : QWidget(parent), events_(events) {
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, grid, 0, 0);
    rows->setSpacing(grid / 2);
    rows->addWidget(roleLabel(tr("Stands now"), "strong"));
    standing_ = buildTable("lsvStanding", tr("What stands now"), tr("Nothing stands that has to be looked after."));
    rows->addWidget(standing_, 2);
    rows->addLayout(buildFilters());
    all_ = buildTable("lsvEvents", tr("All events"), tr("No event."));
    rows->addWidget(all_, 3);
    rows->addLayout(buildActions());
    // A choice in one list is the only one.
    for (auto [one, other] : {std::pair(standing_, all_), std::pair(all_, standing_)})
        connect(one, &QAbstractItemView::pressed, other, [other = other] { other->clearSelection(); });
    auto* second = new QTimer(this);
    connect(second, &QTimer::timeout, this, [this] {
        if (isVisible()) events_.refresh();
    });
    second->start(refreshMs);
}

TableView* EventsPanel::buildTable(const char* name, const QString& spoken, const QString& emptyText) {
    auto& list = std::string(name) == "lsvEvents" ? events_.lsvEvents : events_.lsvStanding;
    auto* table = new TableView(list, spoken);
    table->setObjectName(name);
    for (int column = 0; column < static_cast<int>(std::size(widths)); ++column)
        table->setColumnWidth(column, widths[column]);
    table->horizontalHeader()->setStretchLastSection(true);
    const auto tellEmpty = [table, emptyText, &list] {
        table->setEmptyText(list.rowCount() > 0 ? QString() : emptyText);
    };
    tellEmpty();
    // The rows are laid out anew with every event; what the operator has chosen stays chosen.
    connect(table->selectionModel(), &QItemSelectionModel::selectionChanged, table, [table, &list] {
        QStringList keys;
        for (const auto& index : table->selectionModel()->selectedRows())
            keys << shown(list.row(static_cast<std::size_t>(index.row())).key);
        table->setProperty(chosenMark, keys);
    });
    listen(table, list.replaced(), [table, tellEmpty, &list] {
        tellEmpty();
        const auto keys = table->property(chosenMark).toStringList();
        QItemSelection rows;
        for (std::size_t row = 0; row < list.rowCount() && !keys.isEmpty(); ++row)
            if (keys.contains(shown(list.row(row).key))) {
                const auto first = table->model()->index(static_cast<int>(row), 0);
                rows.select(first, first.siblingAtColumn(static_cast<int>(list.columnCount()) - 1));
            }
        table->selectionModel()->select(rows, QItemSelectionModel::ClearAndSelect);
    });
    return table;
}

QLayout* EventsPanel::buildFilters() {
    auto* row = new QHBoxLayout;
    row->setSpacing(grid);
    row->addWidget(roleLabel(tr("All events"), "strong"));
    row->addStretch(1);
    const std::pair<ChoiceField&, QString> choices[] = {{events_.cmbEventKind, tr("&Kind")},
                                                        {events_.cmbEventPort, tr("&Port")}};
    for (const auto& [field, text] : choices) {
        auto* caption = captionLabel(text);
        auto* combo = new QComboBox;
        bind(field, combo, caption);
        row->addWidget(caption);
        row->addWidget(combo);
    }
    auto* caption = captionLabel(tr("&Search"));
    auto* search = new QLineEdit;
    search->setClearButtonEnabled(true);
    search->setPlaceholderText(tr("in all columns"));
    bind(events_.txtEventSearch, search, caption);
    row->addWidget(caption);
    row->addWidget(search);
    return row;
}

QLayout* EventsPanel::buildActions() {
    auto* row = new QHBoxLayout;
    row->setSpacing(grid);
    for (auto* field : {&events_.chkEventSound, &events_.chkEventTray}) {
        auto* box = new QCheckBox;
        bind(*field, box);
        row->addWidget(box);
    }
    row->addStretch(1);
    auto* acknowledge = new QPushButton(tr("&Acknowledge"));
    acknowledge->setObjectName("cmdAcknowledge");
    connect(acknowledge, &QPushButton::clicked, this, [this] { events_.acknowledge(chosen()); });
    auto* aside = new QPushButton(tr("Set asi&de for"));
    aside->setObjectName("cmdSetAside");
    connect(aside, &QPushButton::clicked, this, [this] { events_.setAside(chosen()); });
    auto* time = new QComboBox;
    bind(events_.cmbAside, time, nullptr);
    time->setAccessibleName(tr("How long it is set aside"));
    auto* file = new QPushButton;
    bind(events_.cmdExportEvents, file);
    for (auto* widget : std::initializer_list<QWidget*>{acknowledge, aside, time, file}) row->addWidget(widget);
    return row;
}

std::vector<std::string> EventsPanel::chosen() const {
    std::vector<std::string> keys;
    for (const auto* table : {standing_, all_}) {
        const auto& list = table == standing_ ? events_.lsvStanding : events_.lsvEvents;
        for (const auto& index : table->selectionModel()->selectedRows())
            if (const auto row = static_cast<std::size_t>(index.row()); row < list.rowCount())
                keys.push_back(list.row(row).key);
    }
    return keys;
}

}  // namespace trunvex
