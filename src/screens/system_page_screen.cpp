#include "screens/system_page_screen.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "screens/field_binding.h"
#include "screens/labels.h"
#include "screens/theme.h"
#include "shell/console.h"

namespace trunvex {

namespace {

constexpr int captionWidth = 136;
constexpr int versionWidth = 280;
constexpr int buttonWidth = 120;

QLabel* figureLabel() {
    auto* label = new QLabel;
    label->setTextFormat(Qt::PlainText);
    label->setFont(figureFont());
    return label;
}

QFormLayout* formOf(QGroupBox* group) {
    auto* form = new QFormLayout(group);
    form->setHorizontalSpacing(2 * grid);
    form->setVerticalSpacing(grid);
    return form;
}

QLabel* formCaption(const QString& text) {
    auto* caption = roleLabel(text, "muted");
    caption->setMinimumWidth(captionWidth);
    return caption;
}

}  // namespace

SystemPageScreen::SystemPageScreen(Console& console, QWidget* parent)
    : PageFrame("page_system", tr("System"), parent), console_(console) {
    auto* columns = new QGridLayout;
    columns->setHorizontalSpacing(2 * grid);
    columns->setVerticalSpacing(grid);
    columns->addWidget(buildClock(), 0, 0);
    columns->addWidget(buildVersion(), 1, 0);
    columns->addWidget(buildConnection(), 0, 1, 2, 1);
    columns->setColumnStretch(0, 2);
    columns->setColumnStretch(1, 3);
    content()->addLayout(columns);
    content()->addStretch(1);
}

QGroupBox* SystemPageScreen::buildClock() {
    auto& page = console_.systemPage;
    auto* group = new QGroupBox(tr("Gateway clock"));
    auto* form = formOf(group);

    // A date and weekday without a time are from a session that is over, and say nothing any more.
    const auto addRead = [&](const QString& caption, auto& field) {
        auto* value = figureLabel();
        value->setObjectName(shown(field.name()));
        const auto refresh = [&field, &page, value] {
            showValue(value, page.lblHoure.text().empty() ? QString() : shown(field.text()));
        };
        follow(value, field, refresh);
        follow(value, page.lblHoure, refresh);
        form->addRow(formCaption(caption), value);
        value->setAccessibleName(caption);
    };
    addRead(tr("Date"), page.dtpDate);
    addRead(tr("Weekday"), page.cmbDay);

    auto* time = new QWidget;
    auto* timeRow = new QHBoxLayout(time);
    timeRow->setContentsMargins(0, 0, 0, 0);
    timeRow->setSpacing(grid / 4);
    auto* hour = figureLabel();
    auto* minute = figureLabel();
    bindValue(page.lblHoure, hour, tr("Hour"));
    bindValue(page.lblMinute, minute, tr("Minute"));
    timeRow->addWidget(hour);
    timeRow->addWidget(new QLabel(":"));
    timeRow->addWidget(minute);
    timeRow->addStretch(1);
    form->addRow(formCaption(tr("Time of the report")), time);

    auto* running = figureLabel();
    bindValue(console_.mainWindow.lblTimePanel, running, tr("Running clock"));
    form->addRow(formCaption(tr("Now")), running);
    return group;
}

QGroupBox* SystemPageScreen::buildVersion() {
    auto* group = new QGroupBox(tr("Firmware"));
    auto* form = formOf(group);
    auto* caption = formCaption(tr("&Version"));
    auto* version = new QLineEdit;
    version->setReadOnly(true);  // a line edit and not a label, so that the text can be copied by keyboard
    version->setFrame(false);
    version->setTextMargins(-2, 0, 0, 0);
    version->setPlaceholderText(QString(QChar(0x2013)));
    version->setMaximumWidth(versionWidth);
    bind(console_.systemPage.TxtSystemVer, version, caption);
    form->addRow(caption, version);
    auto* update = new ElidedLabel;
    bindValue(console_.mainWindow.lblUpdateStatus, update, tr("Update"));
    form->addRow(formCaption(tr("Update")), update);
    return group;
}

QGroupBox* SystemPageScreen::buildConnection() {
    auto& page = console_.systemPage;
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
