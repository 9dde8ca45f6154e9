#include "screens/pages/sim_panel.h"

#include <QGridLayout>
#include <QVBoxLayout>

#include "config/main_page.h"
#include "screens/kit/labels.h"
#include "screens/kit/settings_form.h"
#include "screens/kit/theme.h"
#include "screens/pages/time_table_view.h"

namespace trunvex {

namespace {

constexpr int captionWidth = 96;
constexpr int choiceWidth = 120;
constexpr int numberWidth = 144;

}  // namespace

SimPanel::SimPanel(MainPage& main, QWidget* parent) : NodePanel(main, main.simPage, parent) {
    auto& page = main.simPage;
    auto* columns = new QHBoxLayout;
    columns->setSpacing(2 * grid);
    auto* left = new QVBoxLayout;
    left->addWidget(buildIdentity());
    left->addWidget(buildBudget());
    left->addStretch(1);
    auto* right = new QVBoxLayout;
    right->addWidget(new TimeTableView(page.timeTable, page.chkIncGrpSim[IncTimeTable]));
    right->addWidget(buildCellLock());
    right->addWidget(groupWriteList("lstGroupWriteSim"));
    right->addStretch(1);
    columns->addLayout(left);
    columns->addLayout(right, 1);
    setBoxes(columns);
}

SettingsForm* SimPanel::buildIdentity() {
    auto& page = main_.simPage;
    auto* form = new SettingsForm(tr("SIM"), captionWidth);
    form->add(page.txtPhoneNum, {tr("&Number"), {}, {}, numberWidth, &page.chkIncGrpSim[IncPhoneNumber]});
    form->add(page.txtPIN, {tr("P&IN"), {}, tr("1-8 digits"), 96, &page.chkIncGrpSim[IncPin]});
    form->add(page.CmbCallID, {tr("&Caller ID"), {}, {}, choiceWidth, &page.chkIncGrpSim[IncCallerId]});
    form->addValue(tr("Predial"), page.lblPredial);
    return form;
}

SettingsForm* SimPanel::buildBudget() {
    auto& page = main_.simPage;
    auto* form = new SettingsForm(tr("Budget"), captionWidth);
    form->add(page.txtMonthlyContract,
              {tr("&Monthly"), tr("min, 59999 = no limit"), "0-59999", 72, &page.chkIncGrpSim[IncContract]});
    form->add(page.txtCallMinutes, {tr("Call min&utes"), tr("min"), "0-59999", 72, &page.chkIncGrpSim[IncCallMinutes]});
    form->add(page.txtBundleLoading[0], {tr("&Bundle"), {}, {}, choiceWidth, &page.chkIncGrpSim[IncBundle]});
    form->add(page.txtBundleLoading[1], {tr("Bundle s&witch"), {}, {}, choiceWidth});
    form->addValue(tr("Restore day"), page.TxtDayRestore);
    return form;
}

SettingsForm* SimPanel::buildCellLock() {
    auto& page = main_.simPage;
    auto* form = new SettingsForm(tr("Cell lock"), captionWidth);
    form->add(page.optBcchLock);
    form->add(page.txtCelLock, {tr("BCC&H"), {}, "0-1024", 72, &page.chkIncGrpSim[IncCellLock]});
    form->add(page.cmbBcchRssi, {tr("&Least signal"), {}, {}, choiceWidth + 2 * grid, &page.chkIncGrpSim[IncRssi]});
    form->nextColumn();
    form->add(page.txtBcchTimer, {tr("&Timer"), tr("s"), "30-65535", 72, &page.chkIncGrpSim[IncBcchTimer]});
    form->add(page.txtBcchNetID, {tr("&Operator ID"), {}, "0-999999", 72, &page.chkIncGrpSim[IncNetId]});
    return form;
}

}  // namespace trunvex
