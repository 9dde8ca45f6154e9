#include "screens/board/line_panel.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>

#include "monitor/isdn_counters.h"
#include "monitor/slave_versions.h"
#include "screens/kit/field_binding.h"
#include "screens/kit/labels.h"
#include "screens/kit/table_view.h"
#include "screens/kit/theme.h"

namespace trunvex {

namespace {

constexpr int counterWidth = 88;
constexpr int portWidth = 96;

QHBoxLayout* buttons(std::initializer_list<ActionField*> actions) {
    auto* row = new QHBoxLayout;
    row->setSpacing(grid);
    row->addStretch(1);
    for (auto* action : actions) {
        auto* button = new QPushButton;
        bind(*action, button);
        row->addWidget(button);
    }
    return row;
}

}  // namespace

LinePanel::LinePanel(IsdnCounters& counters, SlaveVersions& versions, QWidget* parent) : QWidget(parent) {
    auto* columns = new QHBoxLayout(this);
    columns->setContentsMargins(grid, grid, grid, grid);
    columns->setSpacing(2 * grid);
    auto* left = new QVBoxLayout;
    left->addWidget(buildCounters(counters));
    left->addStretch(1);
    columns->addLayout(left, 1);
    columns->addWidget(buildVersions(versions), 1);
    columns->addStretch(1);
}

QGroupBox* LinePanel::buildCounters(IsdnCounters& counters) {
    auto* group = new QGroupBox(tr("  ISDN Statistic"));
    auto* rows = new QGridLayout(group);
    rows->setColumnStretch(0, 1);
    for (std::size_t i = 0; i < counters.lblIsdnStatus.size(); ++i) {
        const auto caption = tr(IsdnCounters::captions[i]);
        auto* value = new QLabel;
        bindValue(counters.lblIsdnStatus[i], value, caption);
        value->setFont(figureFont());
        value->setAlignment(Qt::AlignRight);
        value->setMinimumWidth(counterWidth);
        rows->addWidget(captionLabel(caption), static_cast<int>(i), 0);
        rows->addWidget(value, static_cast<int>(i), 1);
    }
    rows->addLayout(buttons({&counters.cmdIsdnRefresh, &counters.cmdResetIsdn}), rows->rowCount(), 0, 1, 2);
    return group;
}

QGroupBox* LinePanel::buildVersions(SlaveVersions& versions) {
    auto* group = new QGroupBox(tr("Ports version"));
    auto* rows = new QVBoxLayout(group);
    auto* table = new TableView(versions.lstSID, tr("Versions of the ports"));
    table->setObjectName("lstSID");
    table->setColumnWidth(0, portWidth);
    table->horizontalHeader()->setStretchLastSection(true);
    const auto tellEmpty = [table, &versions] {
        table->setEmptyText(versions.lstSID.rowCount() > 0 ? QString() : tr("Press Get Ports version to read them."));
    };
    tellEmpty();
    listen(table, versions.lstSID.replaced(), tellEmpty);
    rows->addWidget(table);
    rows->addLayout(buttons({&versions.cmdGeSID}));
    return group;
}

}  // namespace trunvex
