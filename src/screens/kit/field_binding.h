#pragma once

#include <sigc++/sigc++.h>

#include <QObject>
#include <QString>
#include <functional>

#include "fields/fields.h"

class QAction;
class QAbstractButton;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QToolButton;
class QWidget;

namespace trunvex {

class IconLabel;

// Ends a signal's connection when its parent dies, so that a window may die before the view model it shows.
class SignalGuard : public QObject {
public:
    SignalGuard(QObject* parent, sigc::connection connection) : QObject(parent), connection_(std::move(connection)) {}
    ~SignalGuard() override { connection_.disconnect(); }

private:
    sigc::connection connection_;
};

// Calls `slot` at every emission for as long as `owner` lives.
template <class Signal, class Slot>
void listen(QObject* owner, Signal& signal, Slot slot) {
    new SignalGuard(owner, signal.connect(std::move(slot)));
}

// Shows a field: calls `refresh` now and at every change, for as long as `owner` lives.
void follow(QObject* owner, Field& field, std::function<void()> refresh);

// The bindings below give the widget the field's name, let it follow the field's content, enabling,
// visibility and tip, and hand what the operator enters back to the field. The caption is the label before
// the widget: it becomes its buddy, gives it the accessible name and is hidden with it. A field must outlive
// what it is bound to, unless nothing is entered there any more.
void bind(TextField& field, QLineEdit* edit, QLabel* caption);
void bind(HistoryField& field, QComboBox* combo, QLabel* caption);
void bind(ChoiceField& field, QComboBox* combo, QLabel* caption);
// The mnemonic is the letter of the caption to be underlined.
void bind(CheckField& field, QCheckBox* box, QChar mnemonic = {});
// A button that stays down while the field is checked.
void bind(CheckField& field, QToolButton* button);
void bind(LabelField& field, QLabel* label, const QString& accessibleName = {});
void bind(PictureField& field, IconLabel* label, const QString& accessibleName);
void bind(ActionField& field, QAction* action);
void bind(ActionField& field, QAbstractButton* button, const QString& accessibleName = {});

// For reading only; a greyed dash stands for what has not been read yet.
void bindValue(LabelField& field, QLabel* label, const QString& accessibleName);
void showValue(QLabel* label, const QString& text);

// Text of the core, which is UTF-8, as Qt's.
QString shown(const std::string& text);
// A tip that shows the text as it is, whatever characters are in it.
QString plainTip(const QString& text);

}  // namespace trunvex
