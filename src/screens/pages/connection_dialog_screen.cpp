#include "screens/pages/connection_dialog_screen.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

#include "screens/kit/field_binding.h"
#include "screens/kit/field_frame.h"
#include "screens/kit/labels.h"
#include "screens/kit/theme.h"

namespace trunvex {

namespace {

enum Column { CaptionColumn, FieldColumn, RestColumn };

constexpr int captionWidth = 144;
constexpr int fieldWidth = 320;
constexpr int numberWidth = 96;

QGridLayout* formGrid(QWidget* parent) {
    auto* form = new QGridLayout(parent);
    form->setColumnMinimumWidth(CaptionColumn, captionWidth);
    form->setColumnStretch(RestColumn, 1);
    form->setContentsMargins(grid, grid, grid, grid);
    form->setHorizontalSpacing(2 * grid);
    form->setVerticalSpacing(grid / 2);
    return form;
}

QComboBox* comboBox(int width) {
    auto* combo = new QComboBox;
    combo->setFixedWidth(width);
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    return combo;
}

void addRow(QGridLayout* form, int row, QLabel* caption, QWidget* field) {
    form->addWidget(caption, row, CaptionColumn, Qt::AlignVCenter);
    form->addWidget(field, row, FieldColumn, Qt::AlignLeft);
}

// The caption of a field that is a field of its own; it shows and hides with the one it stands before.
QLabel* captionOf(const LabelField& field) {
    auto* caption = captionLabel("&" + shown(field.text()));
    caption->setObjectName(shown(field.name()));
    return caption;
}

// Rows that come and go with the kind leave their room, so that nothing else moves.
void keepRoom(QWidget* widget) {
    auto policy = widget->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget->setSizePolicy(policy);
}

}  // namespace

ConnectionDialogScreen::ConnectionDialogScreen(frmConnectionSelect& model, QWidget* parent)
    : QDialog(parent), model_(model), frames_(new QStackedWidget) {
    setObjectName("frmConnectionSelect");
    setWindowTitle(tr("Connect to the gateway"));
    model_.cmbConSelect.setDetails({"Serial line", "TCP network", "Modem"});

    frames_->addWidget(buildSerial());
    frames_->addWidget(buildNet());
    follow(frames_, model_.framNET, [this] { frames_->setCurrentIndex(model_.framNET.visible() ? 1 : 0); });

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(2 * grid, 2 * grid, 2 * grid, 2 * grid);
    layout->setSpacing(grid);
    layout->addWidget(buildKind());
    layout->addWidget(frames_);
    layout->addWidget(buildCommon());
    layout->addSpacing(grid);
    layout->addWidget(buildButtons());
    layout->setSizeConstraint(QLayout::SetFixedSize);
    orderTabs();
}

QWidget* ConnectionDialogScreen::buildKind() {
    auto* box = new QWidget;
    auto* form = formGrid(box);
    form->setContentsMargins(2 * grid + 1, 0, 2 * grid + 1, 0);
    auto* caption = captionLabel(tr("&Connect by"));
    auto* kind = comboBox(fieldWidth);
    bind(model_.cmbConSelect, kind, caption);
    addRow(form, 0, caption, new FieldFrame(kind));
    return box;
}

QWidget* ConnectionDialogScreen::buildSerial() {
    auto* frame = new QGroupBox(tr("Serial line"));
    frame->setObjectName(shown(model_.framCOM.name()));
    follow(frame, model_.cmbConSelect,
           [this, frame] { frame->setTitle(model_.isModem() ? tr("Modem") : tr("Serial line")); });
    auto* form = formGrid(frame);
    int row = 0;
    const auto addSwapped = [&](ChoiceField& serial, ChoiceField& modem, const QString& text, int width) {
        for (auto* field : {&serial, &modem}) {
            auto* caption = captionLabel(text);
            auto* combo = comboBox(width);
            bind(*field, combo, caption);
            addRow(form, row, caption, new FieldFrame(combo));
        }
        ++row;
    };
    addSwapped(model_.cmbComNum, model_.cmbMComNum, tr("&Port"), fieldWidth);
    addSwapped(model_.cmbRate, model_.cmbMRate, tr("&Rate"), numberWidth + 2 * grid);

    auto* phoneCaption = captionOf(model_.lblPhone);
    auto* phone = new QLineEdit;
    phone->setFixedWidth(fieldWidth);
    bind(model_.txtPhone, phone, phoneCaption);
    keepRoom(phone);
    addRow(form, row++, phoneCaption, new FieldFrame(phone));

    auto* optionsCaption = captionOf(model_.lblOptionslMdm);
    auto* options = comboBox(fieldWidth);
    bind(model_.txtOptionalMdn, options, optionsCaption);
    options->lineEdit()->setPlaceholderText(tr("parts joined by +"));
    keepRoom(options);
    addRow(form, row++, optionsCaption, new FieldFrame(options));
    form->setRowStretch(row, 1);
    return frame;
}

QWidget* ConnectionDialogScreen::buildNet() {
    auto* frame = new QGroupBox(tr("TCP network"));
    frame->setObjectName(shown(model_.framNET.name()));
    auto* form = formGrid(frame);

    auto* hostCaption = captionLabel(tr("&Host"));
    auto* host = comboBox(fieldWidth);
    bind(model_.txtIP, host, hostCaption);
    auto* hostFrame = new FieldFrame(host);
    addRow(form, 0, hostCaption, hostFrame);
    addErrorLine(form, 1, model_.lblHostError, hostFrame, tr("name or address of the gateway"));

    auto* portCaption = captionLabel(tr("&Port"));
    auto* port = new QLineEdit;
    port->setFixedWidth(numberWidth);
    port->setMaxLength(9);
    bind(model_.txtPort, port, portCaption);
    auto* portFrame = new FieldFrame(port);
    addRow(form, 2, portCaption, portFrame);
    addErrorLine(form, 3, model_.lblPortError, portFrame, tr("(default port: 4001)"));

    auto* server = new QCheckBox;
    bind(model_.chkSERVER, server, 'S');
    server->setToolTip(tr("This console listens on the port, and the gateway connects to it"));
    form->addWidget(server, 4, FieldColumn);
    auto* master = new QCheckBox;
    bind(model_.chkMasterLog, master, 'L');
    master->setToolTip(tr("A master PC stands between this console and the gateway"));
    form->addWidget(master, 5, FieldColumn);

    auto* unitCaption = captionLabel(tr("&Unit ID"));
    auto* unit = new QLineEdit;
    unit->setFixedWidth(numberWidth);
    bind(model_.txtUnitID, unit, unitCaption);
    unit->setToolTip(tr("The unit that the master PC is to reach"));
    addRow(form, 6, unitCaption, new FieldFrame(unit));
    form->setRowStretch(7, 1);
    return frame;
}

// Under a field stands its hint, or in the same room what is wrong with the entry.
void ConnectionDialogScreen::addErrorLine(QGridLayout* form, int row, LabelField& error, FieldFrame* fieldFrame,
                                          const QString& hint) {
    auto* hintLabel = roleLabel(hint, "small");
    auto* errorLabel = roleLabel({}, "error");
    bind(error, errorLabel);
    for (auto* label : {hintLabel, errorLabel}) {
        label->setContentsMargins(grid / 2, 0, 0, grid);
        form->addWidget(label, row, FieldColumn);
    }
    follow(errorLabel, error, [&error, hintLabel, fieldFrame] {
        hintLabel->setVisible(error.text().empty());
        fieldFrame->setWrong(!error.text().empty());
    });
}

QWidget* ConnectionDialogScreen::buildCommon() {
    auto* box = new QWidget;
    auto* form = formGrid(box);
    form->setContentsMargins(2 * grid + 1, grid, 2 * grid + 1, 0);
    auto* caption = captionLabel(tr("Pass&word"));
    auto* password = new QLineEdit;
    password->setEchoMode(QLineEdit::Password);
    password->setFixedWidth(fieldWidth);
    bind(model_.txtPass, password, caption);
    addRow(form, 0, caption, new FieldFrame(password));
    auto* monitor = new QCheckBox;
    bind(model_.chkReceivingMode, monitor, 'm');
    monitor->setToolTip(tr("The session reads the status board only"));
    form->addWidget(monitor, 1, FieldColumn);
    return box;
}

QWidget* ConnectionDialogScreen::buildButtons() {
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    auto* ok = buttons->button(QDialogButtonBox::Ok);
    ok->setObjectName("cmdOk");
    ok->setDefault(true);
    buttons->button(QDialogButtonBox::Cancel)->setObjectName("cmdCancel");
    connect(buttons, &QDialogButtonBox::accepted, this, &ConnectionDialogScreen::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &ConnectionDialogScreen::reject);
    return buttons;
}

void ConnectionDialogScreen::orderTabs() {
    const char* const order[] = {"cmbConSelect", "cmbComNum",        "cmbMComNum",     "cmbRate",
                                 "cmbMRate",     "txtPhone",         "txtOptionalMdn", "txtIP",
                                 "txtPort",      "chkSERVER",        "chkMasterLog",   "txtUnitID",
                                 "txtPass",      "chkReceivingMode", "cmdOk",          "cmdCancel"};
    QWidget* before = nullptr;
    for (const auto* name : order) {
        auto* widget = findChild<QWidget*>(name);
        if (before) setTabOrder(before, widget);
        before = widget;
    }
    findChild<QWidget*>("cmbConSelect")->setFocus();
}

void ConnectionDialogScreen::toFirstError() {
    auto* wrong = findChild<QWidget*>(model_.lblHostError.text().empty() ? "txtPort" : "txtIP");
    wrong->setFocus(Qt::OtherFocusReason);
}

void ConnectionDialogScreen::accept() {
    if (model_.accept())
        QDialog::accept();
    else
        toFirstError();
}

void ConnectionDialogScreen::reject() {
    model_.cancel();
    QDialog::reject();
}

}  // namespace trunvex
