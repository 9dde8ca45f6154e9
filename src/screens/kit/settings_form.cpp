#include "screens/kit/settings_form.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QSlider>
#include <QVBoxLayout>

#include "screens/kit/field_frame.h"
#include "screens/kit/labels.h"
#include "screens/kit/level_slider.h"
#include "screens/kit/theme.h"

namespace trunvex {

namespace {

constexpr QChar dash(0x2013);

enum Column { Include, Caption, Editor, columns };

constexpr int editorInset = 6;  // what a frame keeps free for its bar

// Puts what has no frame in line with what has one.
QLayout* inset(QWidget* widget) {
    auto* row = new QHBoxLayout;
    row->setContentsMargins(editorInset, grid / 2, 0, grid / 2);
    row->addWidget(widget);
    return row;
}

}  // namespace

SettingsForm::SettingsForm(const QString& title, int captionWidth)
    : QGroupBox(title), rows_(new QGridLayout(this)), captionWidth_(captionWidth) {
    rows_->setHorizontalSpacing(grid);
    rows_->setVerticalSpacing(grid / 4);
    rows_->setContentsMargins(grid / 2, 0, grid / 2, 0);
    rows_->setColumnStretch(Editor, 1);
}

void SettingsForm::nextColumn() {
    row_ = 0;
    column_ += columns;
    rows_->setColumnStretch(column_ + Editor, 1);
}

// The room that is left over goes under the last row.
void SettingsForm::endRow(int height) {
    rows_->setRowStretch(row_, 0);
    row_ += height;
    rows_->setRowStretch(row_, 1);
}

QLabel* SettingsForm::addCaption(const FieldRow& row) {
    auto* caption = captionLabel(row.caption);
    caption->setMinimumWidth(captionWidth_);
    if (row.include) {
        auto* box = new QCheckBox;
        bind(*row.include, box);
        box->setText({});  // the caption beside it says the same
        box->setToolTip(tr("Include to write group"));
        box->setAccessibleName(tr("Write %1 to the group").arg(shown(row.include->caption())));
        box->setVisible(row.include->visible());
        rows_->addWidget(box, row_, column_ + Include);
    }
    return caption;
}

void followStanding(InputField& field, FieldFrame* frame, QLabel* reason) {
    follow(frame, field, [&field, frame, reason] {
        frame->setEdited(field.standing() == InputField::Standing::Edited);
        const bool wrong = !field.problem().empty();
        if (wrong && !frame->wrong()) frame->focusField();
        frame->setWrong(wrong);
        if (reason) {
            reason->setText(shown(field.problem()));
            reason->setVisible(!field.problem().empty());
        }
    });
}

void SettingsForm::place(InputField& field, QWidget* editor, QLabel* caption, const FieldRow& row) {
    QPushButton* beside = nullptr;
    if (row.action) {
        beside = new QPushButton;
        bind(*row.action, beside);
        beside->setProperty("role", "small");
    }
    if (!row.limits.isEmpty()) editor->setToolTip(row.limits);
    auto* frame = new FieldFrame(editor);
    auto* reason = roleLabel({}, "error", this);
    reason->setWordWrap(true);
    auto* unit = roleLabel(row.unit, "muted");
    rows_->addWidget(caption, row_, column_ + Caption);
    auto* cell = new QHBoxLayout;
    cell->setSpacing(grid / 2);
    cell->addWidget(frame);
    if (beside) cell->addWidget(beside);
    cell->addWidget(unit);
    cell->addStretch(1);
    rows_->addLayout(cell, row_, column_ + Editor);
    rows_->addWidget(reason, row_ + 1, column_ + Editor);
    endRow(2);
    followStanding(field, frame, reason);
    const auto describe = [&field, editor, limits = row.limits] {
        using enum InputField::Standing;
        const auto standing = field.standing();
        QStringList words;
        if (standing == Edited) words << tr("edited, not written");
        if (standing == Unread) words << tr("not read yet");
        if (!field.problem().empty()) words << shown(field.problem());
        if (!limits.isEmpty()) words << limits;
        editor->setAccessibleDescription(words.join(". "));
    };
    follow(frame, field, describe);
    // A field that is hidden takes its whole row with it.
    follow(frame, field, [&field, frame, unit, caption, visible = true]() mutable {
        if (std::exchange(visible, field.visible()) == visible) return;
        for (QWidget* part :
             {static_cast<QWidget*>(frame), static_cast<QWidget*>(unit), static_cast<QWidget*>(caption)})
            part->setVisible(visible);
    });
}

void SettingsForm::add(TextField& field, const FieldRow& row) {
    auto* caption = addCaption(row);
    auto* edit = new QLineEdit;
    edit->setFixedWidth(row.width);
    bind(field, edit, caption);
    follow(edit, field, [&field, edit, limits = row.limits] {
        edit->setPlaceholderText(field.standing() == InputField::Standing::Unread ? QString(dash) : limits);
    });
    place(field, edit, caption, row);
}

void SettingsForm::add(HistoryField& field, const FieldRow& row) {
    auto* caption = addCaption(row);
    auto* combo = new QComboBox;
    combo->setFixedWidth(row.width);
    bind(field, combo, caption);
    follow(combo, field, [&field, combo] {
        combo->lineEdit()->setPlaceholderText(field.standing() == InputField::Standing::Unread ? QString(dash) : "");
    });
    place(field, combo, caption, row);
}

void SettingsForm::add(ChoiceField& field, const FieldRow& row) {
    auto* caption = addCaption(row);
    auto* combo = new QComboBox;
    combo->setFixedWidth(row.width);
    combo->setPlaceholderText(QString(dash));
    bind(field, combo, caption);
    place(field, combo, caption, row);
}

void SettingsForm::add(SliderField& field, const QStringList& marks, const FieldRow& row) {
    auto* caption = addCaption(row);
    auto* lever = new LevelSlider(field, marks);
    lever->slider()->setObjectName(shown(field.name()));
    caption->setBuddy(lever->slider());
    lever->slider()->setAccessibleName(row.caption);
    place(field, lever, caption, row);
    rows_->setAlignment(caption, Qt::AlignTop);  // beside the lever, not beside its scale
    if (auto* box = rows_->itemAtPosition(row_ - 2, column_ + Include)) box->setAlignment(Qt::AlignTop);
}

void SettingsForm::add(CheckField& field) {
    auto* box = new QCheckBox;
    bind(field, box);
    auto* frame = new FieldFrame(box);
    rows_->addWidget(frame, row_, column_ + Editor, Qt::AlignLeft);
    endRow(2);  // as high as the others, so that columns stay level
    followStanding(field, frame, nullptr);
}

void SettingsForm::addValue(const QString& caption, LabelField& field) {
    auto* label = roleLabel(caption, "muted");
    label->setMinimumWidth(captionWidth_);
    auto* value = new ElidedLabel;
    bindValue(field, value, caption);
    rows_->addWidget(label, row_, column_ + Caption);
    rows_->addLayout(inset(value), row_, column_ + Editor);
    endRow(1);
}

void SettingsForm::addText(const QString& caption, TextField& field) {
    auto* label = roleLabel(caption, "muted");
    label->setMinimumWidth(captionWidth_);
    auto* text = new QLineEdit;
    text->setReadOnly(true);  // a line edit and not a label, so that the text can be copied by keyboard
    text->setFrame(false);
    text->setPlaceholderText(QString(dash));
    bind(field, text, label);
    rows_->addWidget(label, row_, column_ + Caption);
    rows_->addLayout(inset(text), row_, column_ + Editor);
    endRow(1);
}

QVBoxLayout* panelLayout(LabelField& caption, std::initializer_list<LabelField*> hints, QLayout* boxes) {
    auto* rows = new QVBoxLayout;
    rows->setContentsMargins(0, 0, 0, 0);
    auto* title = new ElidedLabel;
    title->setProperty("role", "strong");
    bind(caption, title);
    rows->addWidget(title);
    for (auto* hint : hints) {
        auto* word = roleLabel({}, "muted");
        word->setWordWrap(true);
        bind(*hint, word);
        follow(word, *hint, [word, hint] { word->setVisible(!hint->text().empty()); });
        rows->addWidget(word);
    }
    auto* area = new QScrollArea;
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setFocusPolicy(Qt::NoFocus);
    auto* content = new QWidget;
    auto* within = new QVBoxLayout(content);
    within->setContentsMargins(0, 0, 0, 0);
    within->addLayout(boxes);
    within->addStretch(1);
    area->setWidget(content);
    rows->addWidget(area, 1);
    return rows;
}

namespace {

constexpr const char* wordsName = "lblUnwritten";

QHBoxLayout* rowOf(QWidget* first, std::initializer_list<ActionField*> actions) {
    auto* row = new QHBoxLayout;
    row->setSpacing(grid);
    row->addWidget(first, 1);
    for (auto* action : actions) {
        auto* button = new QPushButton;
        bind(*action, button);
        row->addWidget(button);
    }
    return row;
}

}  // namespace

QHBoxLayout* buttonRow(std::initializer_list<ActionField*> actions, RecordForm& form,
                       std::function<QString(const std::string& key)> names) {
    auto* unwritten = new ElidedLabel;
    unwritten->setObjectName(wordsName);
    const auto tell = [&form, unwritten, names = std::move(names)] {
        QStringList records;
        for (const auto& key : form.unwritten()) records << (names ? names(key) : QString());
        QStringList words;
        if (!form.word().empty()) words << shown(form.word());
        if (!records.isEmpty())
            words << (names ? QObject::tr("Edited, not written: %1").arg(records.join(", "))
                            : QObject::tr("Edited, not written"));
        unwritten->setText(words.join(". "));
    };
    tell();
    listen(unwritten, form.changed(), tell);
    return rowOf(unwritten, actions);
}

QVBoxLayout* buttonRows(std::initializer_list<ActionField*> actions, FormGroup& records) {
    auto* words = new QLabel;
    words->setObjectName(wordsName);
    words->setWordWrap(true);
    words->setTextInteractionFlags(Qt::TextSelectableByMouse);
    const auto tell = [&records, words] {
        QStringList names;
        for (const auto& name : records.unwritten(false)) names << shown(name);
        QStringList parts;
        if (!records.word().empty()) parts << shown(records.word());
        if (!names.isEmpty()) parts << QObject::tr("Edited, not written: %1").arg(names.join(", "));
        words->setText(parts.join(". "));
    };
    tell();
    listen(words, records.changed(), tell);
    auto* rows = new QVBoxLayout;
    rows->setSpacing(grid / 2);
    rows->addWidget(words);
    rows->addLayout(rowOf(new QWidget, actions));
    return rows;
}

QWidget* framed(TextField& field, const QString& accessibleName, int width) {
    auto* edit = new QLineEdit;
    edit->setFixedWidth(width);
    bind(field, edit, nullptr);
    edit->setAccessibleName(accessibleName);
    follow(edit, field, [&field, edit] {
        edit->setPlaceholderText(field.standing() == InputField::Standing::Unread ? QString(dash) : QString());
        edit->setToolTip(plainTip(shown(field.problem())));
    });
    auto* frame = new FieldFrame(edit);
    followStanding(field, frame, nullptr);
    return frame;
}

QWidget* framed(CheckField& field) {
    auto* box = new QCheckBox;
    bind(field, box);
    auto* frame = new FieldFrame(box);
    followStanding(field, frame, nullptr);
    return frame;
}

}  // namespace trunvex
