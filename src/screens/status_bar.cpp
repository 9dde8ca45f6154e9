#include "screens/status_bar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

#include "screens/kit/field_binding.h"
#include "screens/kit/labels.h"
#include "screens/kit/theme.h"
#include "shell/main_window.h"

namespace trunvex {

namespace {

constexpr int statusIconPixels = 18;
constexpr int barWidth = 96;

// As wide as its widest text, so that the line does not move when the text changes.
void reserve(QLabel* label, const QString& widest) {
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance(widest) + grid / 2);
}

void addRule(QHBoxLayout* line) {
    auto* rule = new QFrame;
    rule->setProperty("role", "rule");
    rule->setFixedSize(1, 2 * grid);
    line->addWidget(rule);
}

}  // namespace

StatusBar::StatusBar(FrmPRIGroups& model, QWidget* parent) : QStatusBar(parent), model_(model) {
    setObjectName("statusBar");
    setSizeGripEnabled(false);
    auto* room = new QWidget;
    auto* line = new QHBoxLayout(room);
    line->setContentsMargins(grid, grid / 4, grid, grid / 4);
    line->setSpacing(grid);
    addState(line);
    addRule(line);
    addStep(line);
    addRule(line);
    addGateway(line);
    addWidget(room, 1);
}

void StatusBar::addState(QHBoxLayout* line) {
    auto& field = model_.lblSessionState;
    auto* sign = new StateSign;
    auto* word = new QLabel;
    bind(field, word);
    setMark(word, "role", "strong");
    reserve(word, tr("Not connected  "));
    follow(sign, field, [&field, sign] { sign->setPhase(shown(field.tag())); });
    auto* silence = new QLabel;
    bind(model_.lblSilence, silence);
    follow(silence, model_.lblSilence, [this, silence] { silence->setVisible(!model_.lblSilence.text().empty()); });
    auto* faults = new QPushButton;
    faults->setProperty("role", "fault");
    bind(model_.cmdFaults, faults);
    line->addWidget(sign);
    line->addWidget(word);
    line->addWidget(faults);
    line->addWidget(silence);
}

void StatusBar::addStep(QHBoxLayout* line) {
    auto& panel = model_.panel;
    auto* icon = new IconLabel(statusIconPixels);
    bind(panel.imgStatus, icon, tr("Activity"));
    auto* step = new ElidedLabel;
    bind(panel.staStatusConnect, step);
    auto* bar = new QProgressBar;
    bar->setObjectName("staStatus_bar");
    bar->setAccessibleName(tr("Progress"));
    bar->setTextVisible(false);
    bar->setFixedWidth(barWidth);
    auto policy = bar->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    bar->setSizePolicy(policy);
    auto* percent = new QLabel;
    bind(panel.staStatusReady, percent);
    percent->setFont(figureFont());
    percent->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    reserve(percent, "100%");
    follow(bar, panel.staStatusReady, [&panel, bar] {
        bar->setVisible(!panel.staStatusReady.text().empty());
        bar->setValue(panel.percent());
    });
    line->addWidget(icon);
    line->addWidget(step, 1);
    line->addWidget(bar);
    line->addWidget(percent);
}

void StatusBar::addGateway(QHBoxLayout* line) {
    auto& window = model_;
    const auto addFact = [line](const QString& caption, LabelField& field, const QString& name) {
        auto* value = new QLabel;
        bindValue(field, value, name);
        value->setFont(figureFont());
        line->addWidget(roleLabel(caption, "muted"));
        line->addWidget(value);
        return value;
    };
    addFact(tr("ESN"), window.lblESN, tr("Serial number of the gateway"));
    addRule(line);
    addFact(tr("Software"), window.lblVersion, tr("Version of the console"));
    addRule(line);
    auto* clock = addFact(tr("Gateway clock"), model_.panel.staStatusTime, tr("Clock of the gateway"));
    reserve(clock, "00-00-00 00:00:00");
}

}  // namespace trunvex
