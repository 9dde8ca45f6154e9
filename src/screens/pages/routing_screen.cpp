#include "screens/pages/routing_screen.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QTabWidget>
#include <QVBoxLayout>

#include "screens/kit/grid_editor.h"
#include "screens/kit/labels.h"
#include "screens/kit/settings_form.h"
#include "screens/kit/table_view.h"
#include "screens/kit/theme.h"
#include "screens/pages/pairs_view.h"

namespace trunvex {

namespace {

constexpr int captionWidth = 104;
constexpr int numberWidth = 128;
constexpr int groupWidth = 48;
constexpr int causeWidth = 72;
constexpr int callerWidth = 208;

QWidget* scrolled(QWidget* content) {
    auto* area = new QScrollArea;
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidget(content);
    return area;
}

// A tab's content over its row of buttons.
QWidget* tab(std::initializer_list<QWidget*> parts, QLayout* buttons) {
    auto* page = new QWidget;
    auto* rows = new QVBoxLayout(page);
    rows->setSpacing(grid);
    for (auto* part : parts) rows->addWidget(part, part == *parts.begin() ? 1 : 0);
    if (buttons) rows->addLayout(buttons);
    return page;
}

// A word that takes room only while there is one.
QLabel* passing(LabelField& field, const char* role) {
    auto* label = roleLabel({}, role);
    label->setWordWrap(true);
    bind(field, label);
    follow(label, field, [label, &field] { label->setVisible(!field.text().empty()); });
    return label;
}

QPushButton* smallButton(ActionField& action) {
    auto* button = new QPushButton;
    bind(action, button);
    button->setProperty("role", "small");
    return button;
}

// The label of one end of a pair, which is pressed to pick it.
QPushButton* pairButton(ChannelPairs& pairs, LabelField& label, const QString& name,
                        const std::function<bool()>& picked, const std::function<void()>& click) {
    auto* button = new QPushButton;
    button->setObjectName(shown(label.name()));
    button->setProperty("role", "pair");
    follow(button, label, [button, &label, name] {
        const auto text = shown(label.text());
        button->setText(text.isEmpty() ? QString(QChar(0x2013)) : text);
        button->setAccessibleName(name + ": " + (text.isEmpty() ? QObject::tr("not bound") : text));
    });
    button->setCheckable(true);  // down while it is picked
    listen(button, pairs.changed(), [button, picked] { button->setChecked(picked()); });
    QObject::connect(button, &QPushButton::clicked, button, [button, picked, click] {
        click();
        button->setChecked(picked());
    });
    return button;
}

GridEditor* gridEditor(GridField& field, const QString& name) {
    auto* editor = new GridEditor(field, name);
    editor->setEmptyText(
        QObject::tr("Nothing was read, or nothing stands here.\nPress Read, or type into the first row."));
    return editor;
}

}  // namespace

RoutingScreen::RoutingScreen(RoutingPage& page, QWidget* parent)
    : PageFrame("page_tsl", tr("Routing"), parent), page_(page) {
    auto* tabs = new QTabWidget;
    tabs->setObjectName("tabTsl");
    tabs->setDocumentMode(true);
    tabs->addTab(buildPorts(), tr("&Ports"));
    tabs->addTab(buildPairs(), tr("Pa&irs"));
    tabs->addTab(buildModifications(), tr("N&umbers"));
    tabs->addTab(buildChannels(), tr("&Channels"));
    tabs->addTab(buildPrefixes(), tr("Pre&fixes"));
    tabs->addTab(buildAccess(), tr("&Access"));
    tabs->addTab(buildDirectLines(), tr("&Direct lines"));
    tabs->addTab(buildTrial(), tr("&Try a number"));
    content()->addWidget(tabs, 1);
}

// What a click on a pair's end does now.
QWidget* RoutingScreen::pickWord() {
    auto* word = roleLabel({}, "muted");
    bind(page_.portSide.pairs.lblTSLPick, word);
    return word;
}

QVBoxLayout* RoutingScreen::portButtons() {
    auto& side = page_.portSide;
    return buttonRows({&side.undo, &page_.cmdTslGetData, &side.write}, side.records);
}

QWidget* RoutingScreen::buildPorts() {
    auto& side = page_.portSide;
    auto* mode = new SettingsForm(tr("Allocation"), captionWidth);
    mode->add(side.optTSLMode, {tr("&Mode"), {}, {}, 96});
    mode->add(side.chkTSLByPrefix);
    mode->add(side.txtPRFDigits, {tr("Longest pre&fix"), tr("digits"), "1-16", 48});
    mode->add(side.chkTSLMNP);
    mode->add(side.txtTSLWait, {tr("&Wait for a port"), tr("s"), "0-25", 48});
    auto* group = new SettingsForm(tr("Prefix group of many ports"), captionWidth);
    group->add(side.txtTSLGRPCol, {tr("P&orts"), {}, "1,3-5", 96});
    group->add(side.cmbTSLGRP, {tr("&Group"), {}, {}, 72, nullptr, &side.txtTSLGRPSet});
    auto* left = new QVBoxLayout;
    left->addWidget(mode);
    left->addWidget(group);
    left->addStretch(1);
    auto* content = new QWidget;
    auto* columns = new QHBoxLayout(content);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->setSpacing(2 * grid);
    columns->addLayout(left);
    columns->addWidget(buildPortRows(), 1);
    return tab({scrolled(content), pickWord(), passing(side.lblTslPortRestart, "error")}, portButtons());
}

QWidget* RoutingScreen::buildPortRows() {
    auto& side = page_.portSide;
    auto& pairs = side.pairs;
    auto* box = new QGroupBox(tr("Ports: in use, bound line, prefix group"));
    auto* rows = new QGridLayout(box);
    rows->setContentsMargins(grid / 2, 0, grid / 2, 0);
    rows->setHorizontalSpacing(grid / 2);
    rows->setVerticalSpacing(0);
    rows->addWidget(framed(side.chkTSLAllPort), 0, 0, 1, 3);
    constexpr int inColumn = portCount / 2;
    constexpr int wide = 4;
    for (int i = 0; i < portCount; ++i) {
        const auto slot = static_cast<std::size_t>(i);
        const int row = 1 + i % inColumn;
        const int column = i / inColumn * wide;
        rows->addWidget(framed(side.chkTSLPort[slot]), row, column);
        rows->addWidget(
            pairButton(
                pairs, pairs.lblTSLStock[slot], tr("Line of port %1").arg(i + 1),
                [&pairs, i] { return pairs.pickedPort() == i + 1; }, [&pairs, i] { pairs.clickPort(i + 1); }),
            row, column + 1);
        rows->addWidget(framed(side.txtTSLPRF[slot], tr("Prefix group of port %1").arg(i + 1), groupWidth), row,
                        column + 2);
    }
    rows->setColumnStretch(wide - 1, 1);
    rows->setColumnStretch(2 * wide - 1, 1);
    rows->setRowStretch(inColumn + 1, 1);
    return box;
}

QWidget* RoutingScreen::buildPairs() {
    auto* legend = roleLabel(tr("Grey: as the gateway has it. Blue: edited, not written. Red: two ports on one line. "
                                "A number that is struck out is a disabled port."),
                             "muted");
    legend->setWordWrap(true);
    return tab({new PairsView(page_.portSide), pickWord(), legend}, portButtons());
}

QWidget* RoutingScreen::buildModifications() {
    auto& side = page_.portSide;
    auto* mode = new SettingsForm(tr("Number modification"), captionWidth);
    mode->add(side.txtEDNMode, {tr("&Mode"), tr("0 = off"), "0-9", 48});
    return tab({gridEditor(side.ucTslNumModif, tr("Number modification lines")), mode}, portButtons());
}

QWidget* RoutingScreen::buildChannels() {
    auto& side = page_.channelSide;
    auto* causes = new QGroupBox(tr("Clearing causes"));
    auto* within = new QVBoxLayout(causes);
    within->setContentsMargins(grid / 2, 0, grid / 2, grid / 2);
    auto* editor = new GridEditor(side.ucTslClearCause, tr("Clearing causes"));
    editor->setEmptyText(tr("Not read yet. Press Read."));
    auto* header = editor->table().horizontalHeader();
    header->setSectionResizeMode(0, QHeaderView::Stretch);
    header->resizeSection(1, causeWidth);
    within->addWidget(editor);
    auto* content = new QWidget;
    auto* columns = new QHBoxLayout(content);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->setSpacing(2 * grid);
    columns->addWidget(buildChannelRows());
    columns->addWidget(causes, 1);
    auto* word =
        roleLabel(tr("The gateway restarts behind each write of the channels, and calls that are up end."), "muted");
    word->setWordWrap(true);
    return tab({scrolled(content), pickWord(), word},
               buttonRows({&side.undo, &page_.cmdTslGetData, &side.write}, side.records));
}

QWidget* RoutingScreen::buildChannelRows() {
    auto& side = page_.channelSide;
    auto& pairs = page_.portSide.pairs;
    auto* box = new QGroupBox(tr("B-channels: in use, bound port, number"));
    auto* rows = new QGridLayout(box);
    rows->setContentsMargins(grid / 2, 0, grid / 2, 0);
    rows->setHorizontalSpacing(grid / 2);
    rows->setVerticalSpacing(0);
    rows->addWidget(framed(side.chkTSLAllChannel), 0, 0, 1, 3);
    constexpr int inColumn = 16;
    constexpr int wide = 4;
    const auto add = [&](int i, QWidget* head, TextField& number, const QString& name) {
        const int row = 1 + i % inColumn;
        const int column = i / inColumn * wide;
        rows->addWidget(head, row, column);
        rows->addWidget(
            pairButton(
                pairs, pairs.lblTSLBch[static_cast<std::size_t>(i)], name,
                [&pairs, i] { return pairs.pickedLine() == i + 1; }, [&pairs, i] { pairs.clickLine(i + 1); }),
            row, column + 1);
        rows->addWidget(framed(number, tr("Number of %1").arg(name), numberWidth), row, column + 2);
    };
    for (int i = 0; i < ChannelRouting::channels; ++i) {
        const auto at = static_cast<std::size_t>(i);
        add(i, framed(side.chkTSLChannel[at]), side.txtTSLNumber[at], tr("B-channel %1").arg(i + 1));
    }
    for (std::size_t i = 0; i < side.txtBCHOutNum.size(); ++i) {
        auto* head = roleLabel(tr("Reserved %1").arg(i + 1), "muted");
        add(ChannelRouting::channels + static_cast<int>(i), head, side.txtBCHOutNum[i],
            tr("Reserved line %1").arg(i + 1));
    }
    rows->setColumnMinimumWidth(wide - 1, 2 * grid);
    rows->setRowStretch(inColumn + 1, 1);
    return box;
}

QWidget* RoutingScreen::buildPrefixes() {
    auto& side = page_.prefixes;
    auto* erase = new QCheckBox;
    bind(side.chkPrfEraseFirst, erase);
    auto* cost = roleLabel({}, "muted");
    cost->setWordWrap(true);
    bind(side.lblPrfEraseFirst, cost);
    auto* choice = new QWidget;
    auto* row = new QHBoxLayout(choice);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(erase);
    row->addWidget(cost, 1);
    return tab({gridEditor(side.ucTslPrefixes, tr("Prefixes")), passing(side.lblPrfDoubled, "error"), choice},
               buttonRows({&side.csv.importing, &side.csv.exporting, &side.cmdTslPrfEraseAll, &side.undo,
                           &page_.cmdTslGetData, &side.write},
                          side.records));
}

QWidget* RoutingScreen::buildAccess() {
    auto& side = page_.access;
    auto* form = new SettingsForm(tr("Access list"), captionWidth);
    form->add(side.cmbTslAccessE1, {tr("&List"), {}, {}, 208});
    form->nextColumn();
    form->add(side.cmbAccessMode, {tr("&Mode"), {}, {}, 72});
    form->nextColumn();
    form->add(side.chkNumList);
    auto* editor = gridEditor(side.ucTslAccessE1, tr("Access list"));
    editor->table().horizontalHeader()->resizeSection(0, callerWidth);
    return tab({editor, passing(side.lblAccessEmpty, "error"), form},
               buttonRows({&side.csv.importing, &side.csv.exporting, &side.undo, &page_.cmdTslGetData, &side.write,
                           &side.cmdTslWriteAccGSM},
                          side.records));
}

QWidget* RoutingScreen::buildDirectLines() {
    auto& side = page_.directLines;
    auto* editor = gridEditor(side.ucDela, tr("Direct lines"));
    auto* table = &editor->table();
    const auto tellRow = [&side, table] {
        const auto current = table->currentIndex();
        side.setRow(current.isValid() ? static_cast<std::size_t>(current.row()) : side.ucDela.mostRows());
    };
    connect(table->selectionModel(), &QItemSelectionModel::currentChanged, this, tellRow);
    connect(table->model(), &QAbstractItemModel::modelReset, this, tellRow);
    // The current cell moves with rows that come and go above it, and stays current.
    connect(table->model(), &QAbstractItemModel::rowsInserted, this, tellRow);
    connect(table->model(), &QAbstractItemModel::rowsRemoved, this, tellRow);
    tellRow();
    auto* erasing = new QWidget;
    auto* row = new QHBoxLayout(erasing);
    row->setContentsMargins(0, 0, 0, 0);
    auto* mode = roleLabel({}, "muted");
    bind(side.lblDelaMode, mode);
    row->addWidget(mode, 1);
    auto* caption = captionLabel(tr("&Erase in the gateway"));
    auto* what = new QComboBox;
    bind(side.cmbDelaErase, what, caption);
    row->addWidget(caption);
    row->addWidget(what);
    row->addWidget(smallButton(side.cmdDelaErase));
    return tab({editor, erasing}, buttonRows({&side.csv.importing, &side.csv.exporting, &side.cmdDelaDelete,
                                              &side.cmdDelaWrite, &side.undo, &side.cmdDELA, &side.write},
                                             side.records));
}

QWidget* RoutingScreen::buildTrial() {
    auto* form = new SettingsForm(tr("A call from the E1 line"), captionWidth);
    form->add(page_.txtTryNumber, {tr("&Dialled"), {}, {}, numberWidth});
    form->add(page_.txtTryCaller, {tr("&Caller"), tr("empty = without a number"), {}, numberWidth});
    form->add(page_.cmbTryChannel, {tr("&B-channel"), {}, {}, 72});
    auto* result = new QGroupBox(tr("What would become of it, by the tables as they stand on this page"));
    auto* within = new QVBoxLayout(result);
    auto* steps = captionLabel({});
    steps->setWordWrap(true);
    steps->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    bind(page_.lblTry, steps);
    within->addWidget(steps);
    auto* note =
        roleLabel(tr("The longest prefix that fits counts, and the longest run of ignored digits. Which of its "
                     "ports is free at that moment the gateway alone knows."),
                  "muted");
    note->setWordWrap(true);
    auto* page = new QWidget;
    auto* rows = new QVBoxLayout(page);
    rows->setSpacing(2 * grid);
    rows->addWidget(form);
    rows->addWidget(result);
    rows->addWidget(note);
    rows->addStretch(1);
    return page;
}

}  // namespace trunvex
