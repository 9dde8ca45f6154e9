#include "screens/pages/isdn_page_screen.h"

#include <QGridLayout>
#include <QVBoxLayout>

#include "config/system_page.h"
#include "screens/kit/settings_form.h"
#include "screens/kit/theme.h"

namespace trunvex {

namespace {

constexpr int captionWidth = 136;
constexpr int choiceWidth = 176;
constexpr int planWidth = 264;

}  // namespace

IsdnPageScreen::IsdnPageScreen(IsdnPage& page, SystemPage& system, QWidget* parent)
    : PageFrame("page_isdn", tr("ISDN"), parent), page_(page) {
    auto* boxes = new QGridLayout;
    boxes->setHorizontalSpacing(2 * grid);
    boxes->addWidget(buildLine(), 0, 0);
    boxes->addWidget(buildCalls(), 0, 1);
    boxes->addWidget(buildNumber(), 1, 0);
    boxes->addWidget(buildVersions(system), 1, 1);
    boxes->setColumnStretch(0, 1);
    boxes->setColumnStretch(1, 1);
    content()->addLayout(boxes);
    content()->addStretch(1);
    content()->addLayout(buttonRow({&page.cmdUndoIsdn, &page.cmdIsdnRefresh_, &page.CmdWriteISDN_}, page.form));
}

SettingsForm* IsdnPageScreen::buildLine() {
    auto& page = page_;
    auto* form = new SettingsForm(tr("E1 line"), captionWidth);
    form->add(page.CmbNetworkAccess, {tr("Network &access"), tr("which side the gateway plays"), {}, 96});
    form->add(page.CmbSynchronization, {tr("S&ynchronization"), tr("of the line's clock"), {}, 96});
    form->add(page.cmbISD[0], {tr("C&RC"), {}, {}, choiceWidth});
    form->add(page.cmbISD[1], {tr("Cab&le"), {}, {}, 96});
    return form;
}

SettingsForm* IsdnPageScreen::buildCalls() {
    auto& page = page_;
    auto* form = new SettingsForm(tr("Calls"), captionWidth);
    form->add(page.CmbCountryCode, {tr("&Country"), {}, {}, choiceWidth});
    form->add(page.CmbISDNVersion, {tr("ISDN &version"), {}, {}, choiceWidth});
    form->add(page.CmbIncomingCalls, {tr("&Incoming calls"), {}, {}, 96});
    form->add(page.CmbIncomingCallsMode, {tr("Taken b&y"), {}, {}, choiceWidth});
    form->add(page.txtInCallMode, {tr("Timer '&Alerting'"), tr("x 0.1 s"), "0-250", 64});
    return form;
}

SettingsForm* IsdnPageScreen::buildNumber() {
    auto& page = page_;
    auto* form = new SettingsForm(tr("System number"), captionWidth);
    form->add(page.TxtLocalNumber, {tr("&Number"), {}, tr("up to 9 digits"), 120});
    form->add(page.TxtLocalSubAddress, {tr("Su&baddress"), {}, tr("1 digit"), 64});
    form->add(page.cmbTypeOfNumber, {tr("&Type of number"), {}, {}, planWidth});
    form->add(page.cmbNumIdentif, {tr("Numbering &plan"), {}, {}, planWidth});
    return form;
}

SettingsForm* IsdnPageScreen::buildVersions(SystemPage& system) {
    auto* form = new SettingsForm(tr("Versions"), captionWidth);
    form->addText(tr("ISM version"), page_.TxtISM_VER);
    form->addText(tr("Firmware"), system.TxtSystemVer);
    return form;
}

}  // namespace trunvex
