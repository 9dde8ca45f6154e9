#pragma once

#include <QGroupBox>
#include <functional>

#include "fields/form_group.h"
#include "fields/record_form.h"
#include "screens/kit/field_binding.h"

class QGridLayout;
class QHBoxLayout;
class QVBoxLayout;
class QLabel;

namespace trunvex {

class FieldFrame;

// How a field of a record is laid out.
struct FieldRow {
    QString caption;                // with its mnemonic
    QString unit;                   // behind the field
    QString limits;                 // in the tip, and in the field while it is empty
    int width = 96;                 // pixels
    CheckField* include = nullptr;  // marks the field for a group write
    ActionField* action = nullptr;  // a button that fills the field
};

// A group box of a settings page: caption, field, unit, and under the field the reason why it can't be written. A bar
// at a field's left marks what is edited and not written.
class SettingsForm : public QGroupBox {
    Q_OBJECT

public:
    explicit SettingsForm(const QString& title, int captionWidth);

    // What is added from here on stands in a further column of rows.
    void nextColumn();
    void add(TextField& field, const FieldRow& row);
    void add(HistoryField& field, const FieldRow& row);
    void add(ChoiceField& field, const FieldRow& row);
    void add(SliderField& field, const QStringList& marks, const FieldRow& row);
    // A box with its own caption, in the fields' column.
    void add(CheckField& field);
    // What can't be edited.
    void addValue(const QString& caption, LabelField& field);
    // The same as addValue() for a text that an operator may want to copy.
    void addText(const QString& caption, TextField& field);

private:
    void endRow(int height);
    QLabel* addCaption(const FieldRow& row);
    void place(InputField& field, QWidget* editor, QLabel* caption, const FieldRow& row);

    QGridLayout* rows_;
    int captionWidth_;
    int row_ = 0;
    int column_ = 0;
};

// Shows beside a frame how its field stands, and in `reason` what is wrong with it.
void followStanding(InputField& field, FieldFrame* frame, QLabel* reason);

// A panel of settings: its caption, words on it, and its boxes, which scroll where the window is too small for them.
QVBoxLayout* panelLayout(LabelField& caption, std::initializer_list<LabelField*> hints, QLayout* boxes);

// The buttons of a page, at its bottom right, and beside them what was edited there and is not written: `names` tells
// the records by their keys, and may be empty where a page has one record.
QHBoxLayout* buttonRow(std::initializer_list<ActionField*> actions, RecordForm& form,
                       std::function<QString(const std::string& key)> names = {});

// The same for records that are written together, which tell their names themselves: the words, which may be many,
// stand above the buttons.
QVBoxLayout* buttonRows(std::initializer_list<ActionField*> actions, FormGroup& records);

// A field of a record with its bar and its red frame, for a page that lays its fields out by itself. The accessible
// name says what the caption beside it does; the reason why a value can't be written is in the tip.
QWidget* framed(TextField& field, const QString& accessibleName, int width);
QWidget* framed(CheckField& field);

}  // namespace trunvex
