#include "screens/pages/system_page_screen.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QPushButton>
#include <QVBoxLayout>

#include "config/system_page.h"
#include "screens/kit/field_binding.h"
#include "screens/kit/labels.h"
#include "screens/kit/settings_form.h"
#include "screens/kit/theme.h"

namespace trunvex {

namespace {

constexpr int captionWidth = 136;
constexpr int buttonWidth = 120;
constexpr int dateWidth = 120;
constexpr int timeWidth = 72;

}  // namespace

SystemPageScreen::SystemPageScreen(SystemPage& page, LabelField& now, LabelField& update, QWidget* parent)
    : PageFrame("page_system", tr("System"), parent), page_(page) {
    auto* columns = new QGridLayout;
    columns->setHorizontalSpacing(2 * grid);
    columns->setVerticalSpacing(grid);
    columns->addWidget(buildClock(now), 0, 0);
    columns->addWidget(buildVersion(update), 1, 0);
    columns->addWidget(buildConnection(), 0, 1, 2, 1);
    columns->setColumnStretch(0, 1);
    columns->setColumnStretch(1, 1);
    content()->addLayout(columns);
    content()->addStretch(1);
    content()->addLayout(buttonRow({&page.cmdUndoClock, &page.cmdClkRefresh, &page.cmdSetTime_}, page.form));
}

QWidget* SystemPageScreen::buildClock(LabelField& now) {
    auto& page = page_;
    auto* form = new SettingsForm(tr("Gateway clock"), captionWidth);
    form->addValue(tr("Now"), now);
    form->addValue(tr("Date reported"), page.lblDate);
    form->add(page.dtpDate, {tr("&Date (dd/mm/yy):"), {}, "dd/mm/yyyy", dateWidth});
    form->add(page.dtpClock, {tr("&Time (hh : mm) :"), {}, "hh:mm", timeWidth, nullptr, &page.cmdComputerTime});
    form->add(page.cmbDay, {tr("Day of &week"), {}, {}, dateWidth});
    form->add(page.cmbDateFormat, {tr("Date &format"), tr("of this console"), {}, dateWidth});
    return form;
}

QWidget* SystemPageScreen::buildVersion(LabelField& update) {
    auto* form = new SettingsForm(tr("Firmware"), captionWidth);
    form->addText(tr("Version"), page_.TxtSystemVer);
    form->addValue(tr("Update"), update);
    return form;
}

QGroupBox* SystemPageScreen::buildConnection() {
    auto& page = page_;
    auto* group = new QGroupBox(tr("How the gateway connects"));
    auto* form = new QGridLayout(group);
    form->setHorizontalSpacing(2 * grid);
    form->setVerticalSpacing(grid);
    form->setColumnStretch(1, 1);
    const std::pair<ActionField*, QString> rows[] = {
        {&page.cmdConSwitch_0, tr("Switch the gateway to its serial line. The present link falls.")},
        {&page.cmdConSwitch_1, tr("Switch the gateway to TCP. The present link falls.")},
        {&page.cmdConSwitch_2, tr("Switch the gateway to its modem and restart it. The present link falls.")},
        {&page.cmdConSwitch_3, tr("Change the gateway's passwords. The link stays.")},
        {&page.cmdConSwitch_4, tr("Restart the gateway. Calls in progress end and the link falls.")},
    };
    int row = 0;
    for (const auto& [field, explanation] : rows) {
        auto* button = new QPushButton;
        button->setFixedWidth(buttonWidth);
        bind(*field, button);
        button->setAccessibleDescription(explanation);
        auto* text = captionLabel(explanation);
        text->setWordWrap(true);
        form->addWidget(button, row, 0);
        form->addWidget(text, row++, 1);
    }
    form->setRowStretch(row, 1);
    return group;
}

}  // namespace trunvex
