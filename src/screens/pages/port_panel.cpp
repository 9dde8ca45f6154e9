#include "screens/pages/port_panel.h"

#include <QGridLayout>

#include "config/main_page.h"
#include "screens/kit/labels.h"
#include "screens/kit/settings_form.h"
#include "screens/kit/theme.h"

namespace trunvex {

namespace {

constexpr int captionWidth = 128;
constexpr int choiceWidth = 176;

}  // namespace

PortPanel::PortPanel(MainPage& main, QWidget* parent) : NodePanel(main, main.portPage, parent) {
    auto* boxes = new QGridLayout;
    boxes->setHorizontalSpacing(2 * grid);
    boxes->addWidget(buildDialling(), 0, 0);
    boxes->addWidget(buildSwitching(), 0, 1);
    boxes->addWidget(buildLevels(), 1, 0);
    boxes->addWidget(groupWriteList("lstGroupWriteMod"), 1, 1);
    boxes->setColumnStretch(0, 1);
    boxes->setColumnStretch(1, 1);
    setBoxes(boxes);
}

SettingsForm* PortPanel::buildDialling() {
    auto& page = main_.portPage;
    auto* form = new SettingsForm(tr("Dialling"), captionWidth);
    form->add(page.TxtMinDigits, {tr("M&inimum digits"), {}, "2-7", 64, &page.chkIncGrpMod[IncMinDigits]});
    form->add(page.TxtMaxDigits, {tr("M&aximum digits"), {}, "5-32", 64, &page.chkIncGrpMod[IncMaxDigits]});
    form->add(page.TxtIntDigPause,
              {tr("&Pause between digits"), tr("x 50 ms"), "1-200", 64, &page.chkIncGrpMod[IncIntDigPause]});
    form->add(page.CmbSendComplete, {tr("&End of dialling"),
                                     {},
                                     tr("What is dialled behind the last digit"),
                                     96,
                                     &page.chkIncGrpMod[IncSendComplete]});
    form->add(page.cmbRelaxTime, {tr("Rela&x time"), tr("s"), "0-5", 96, &page.chkIncGrpMod[IncRelaxTime]});
    form->addValue(tr("Module"), page.lblModuleInfo);
    return form;
}

SettingsForm* PortPanel::buildSwitching() {
    auto& page = main_.portPage;
    auto* form = new SettingsForm(tr("SIM switching"), captionWidth);
    form->add(page.cmbSimSwitching, {tr("S&witch by"), {}, {}, choiceWidth, &page.chkIncGrpMod[IncSimSwitching]});
    form->add(page.txtSimSwap, {tr("&Swap every"), tr("min"), "1-255", 64});
    form->add(page.cmbCallReject, {tr("Incoming &calls"), {}, {}, 96});
    form->add(page.txtNoRegTimer,
              {tr("&No registration"), tr("0 = off"), "60-255", 64, &page.chkIncGrpMod[IncNoRegTimer]});
    return form;
}

SettingsForm* PortPanel::buildLevels() {
    auto& page = main_.portPage;
    auto* form = new SettingsForm(tr("Levels"), captionWidth);
    form->setObjectName(shown(page.framRX_TX.name()));
    const QStringList second{"0", "1", "2", "3", "4"};
    form->add(page.SldTXvol, {"-3", "-2", "-1", "0", "+1", "+2", "+3"},
              {tr("&Transmit"), {}, {}, 0, &page.chkIncGrpMod[IncLevels]});
    form->add(page.SldRXvol, {"-6", "-4", "-2", "0", "+2", "+4", "+6"}, {tr("&Receive"), {}, {}, 0});
    form->add(page.SldTX_SE, second, {tr("Transmit, second scale"), {}, {}, 0});
    form->add(page.SldRX_SE, second, {tr("Receive, second scale"), {}, {}, 0});
    form->addValue(tr("Scale of"), page.lblModuleType);
    follow(form, page.framRX_TX, [form, &page, visible = true]() mutable {
        if (std::exchange(visible, page.framRX_TX.visible()) != visible) form->setVisible(visible);
    });
    return form;
}

}  // namespace trunvex
