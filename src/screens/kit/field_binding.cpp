#include "screens/kit/field_binding.h"

#include <QAbstractListModel>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QToolButton>

#include "screens/kit/icons.h"
#include "screens/kit/labels.h"
#include "screens/kit/theme.h"

namespace trunvex {

namespace {

constexpr QChar dash(0x2013);

QString withoutMarks(QString caption) { return caption.remove('&').remove(':').trimmed(); }

QString withMnemonic(QString caption, QChar mnemonic) {
    caption.replace("&", "&&");
    const auto at = mnemonic.isNull() ? -1 : caption.indexOf(mnemonic);
    return at < 0 ? caption : caption.insert(at, '&');
}

// What every bound widget has in common. Visibility is only touched when the field's changes: a widget that
// has no parent yet would become a window by being shown.
void bindCommon(Field& field, QWidget* widget, QLabel* caption) {
    widget->setObjectName(shown(field.name()));
    if (caption) {
        caption->setBuddy(widget);
        widget->setAccessibleName(withoutMarks(caption->text()));
    }
    follow(widget, field, [&field, widget, caption, visible = true]() mutable {
        widget->setEnabled(field.enabled());
        if (!field.tip().empty()) widget->setToolTip(plainTip(shown(field.tip())));
        if (field.visible() == visible) return;
        visible = field.visible();
        widget->setVisible(visible);
        if (caption) caption->setVisible(visible);
    });
}

// The entries of a choice. A text is made when it is looked at: the list may be as long as the table of calls.
class ChoiceModel : public QAbstractListModel {
public:
    ChoiceModel(const ChoiceField& field, QObject* parent) : QAbstractListModel(parent), field_(field) {}

    void refresh() {
        if (edition_ == field_.edition()) return;
        beginResetModel();
        edition_ = field_.edition();
        rows_ = static_cast<int>(field_.items().size());
        endResetModel();
    }
    int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : rows_; }
    QVariant data(const QModelIndex& index, int role) const override {
        const auto row = static_cast<std::size_t>(index.row());
        if (role != Qt::DisplayRole || !index.isValid() || row >= field_.items().size()) return {};
        auto text = shown(field_.items()[row]);
        if (row < field_.details().size() && !field_.details()[row].empty())
            text += "   " + shown(field_.details()[row]);
        return text;
    }

private:
    const ChoiceField& field_;
    int edition_ = -1;
    int rows_ = 0;
};

QStringList textsOf(const QComboBox* combo) {
    QStringList texts;
    for (int i = 0; i < combo->count(); ++i) texts << combo->itemText(i);
    return texts;
}

void setItems(QComboBox* combo, const QStringList& texts) {
    if (textsOf(combo) == texts) return;
    combo->clear();
    combo->addItems(texts);
}

void showLabel(const LabelField& field, QLabel* label) {
    label->setText(shown(field.text()));
    setMark(label, "strong", field.bold() ? "true" : "false");
    if (field.colour() == colourBlack) {
        if (label->testAttribute(Qt::WA_SetPalette)) label->setPalette(QPalette());
        return;
    }
    const auto byte = [&field](int shift) { return static_cast<int>(field.colour() >> shift & 0xFF); };
    const QColor colour(byte(0), byte(8), byte(16));
    auto palette = label->palette();
    palette.setColor(QPalette::WindowText, readableOn(colours().surface, colour));
    label->setPalette(palette);
}

}  // namespace

QString shown(const std::string& text) { return QString::fromStdString(text); }

QString plainTip(const QString& text) { return "<span>" + text.toHtmlEscaped() + "</span>"; }

void follow(QObject* owner, Field& field, std::function<void()> refresh) {
    refresh();
    listen(owner, field.changed(), std::move(refresh));
}

void bind(TextField& field, QLineEdit* edit, QLabel* caption) {
    bindCommon(field, edit, caption);
    // Setting equal text would move the cursor.
    follow(edit, field, [&field, edit] {
        if (edit->text() != shown(field.text())) edit->setText(shown(field.text()));
    });
    QObject::connect(edit, &QLineEdit::textChanged, edit,
                     [&field](const QString& text) { field.setText(text.toStdString()); });
}

void bind(HistoryField& field, QComboBox* combo, QLabel* caption) {
    combo->setEditable(true);
    combo->setInsertPolicy(QComboBox::NoInsert);
    combo->setCompleter(nullptr);  // completing "10.0.0.1" to "10.0.0.15" would call the wrong gateway
    bindCommon(field, combo, caption);
    combo->lineEdit()->setAccessibleName(combo->accessibleName());
    follow(combo, field, [&field, combo] {
        const QSignalBlocker quiet(combo);
        QStringList entries;
        for (const auto& entry : field.entries()) entries << shown(entry);
        setItems(combo, entries);
        if (combo->currentText() != shown(field.text())) combo->setEditText(shown(field.text()));
    });
    QObject::connect(combo, &QComboBox::editTextChanged, combo,
                     [&field](const QString& text) { field.setText(text.toStdString()); });
}

void bind(ChoiceField& field, QComboBox* combo, QLabel* caption) {
    bindCommon(field, combo, caption);
    auto* model = new ChoiceModel(field, combo);
    combo->setModel(model);
    follow(combo, field, [&field, combo, model] {
        const QSignalBlocker quiet(combo);
        model->refresh();
        combo->setCurrentIndex(field.index());
    });
    QObject::connect(combo, &QComboBox::currentIndexChanged, combo, [&field](int index) { field.setIndex(index); });
}

void bind(CheckField& field, QCheckBox* box, QChar mnemonic) {
    bindCommon(field, box, nullptr);
    const auto caption = shown(field.caption()).trimmed();
    box->setText(withMnemonic(caption, mnemonic));
    box->setAccessibleName(caption);
    follow(box, field, [&field, box] { box->setChecked(field.checked()); });
    // Whatever turns the widget over and not the field is the operator's hand.
    QObject::connect(box, &QCheckBox::toggled, box, [&field](bool checked) {
        if (checked != field.checked()) field.press();
    });
}

void bind(CheckField& field, QToolButton* button) {
    bindCommon(field, button, nullptr);
    button->setText(shown(field.caption()));
    button->setFocusPolicy(Qt::StrongFocus);
    follow(button, field, [&field, button] { button->setChecked(field.checked()); });
    QObject::connect(button, &QToolButton::toggled, button, [&field](bool checked) {
        if (checked != field.checked()) field.press();
    });
}

void bind(LabelField& field, QLabel* label, const QString& accessibleName) {
    label->setTextFormat(Qt::PlainText);
    bindCommon(field, label, nullptr);
    // A label without a name of its own is read out as its text.
    label->setAccessibleName(accessibleName);
    follow(label, field, [&field, label] { showLabel(field, label); });
}

void bind(PictureField& field, IconLabel* label, const QString& accessibleName) {
    bindCommon(field, label, nullptr);
    label->setAccessibleName(accessibleName);
    follow(label, field, [&field, label] {
        label->setIcon(lineIcon(shown(field.picture())));
        label->setAccessibleDescription(shown(field.picture()));
    });
}

void bind(ActionField& field, QAction* action) {
    action->setObjectName(shown(field.name()));
    follow(action, field, [&field, action] {
        action->setText(withMnemonic(shown(field.caption()), {}));
        action->setEnabled(field.enabled());
        action->setVisible(field.visible());
        if (action->isCheckable()) action->setChecked(field.marked());
    });
    QObject::connect(action, &QAction::triggered, action, [&field, action] {
        // A press turns the check over by itself; what counts is whether the field is marked.
        if (action->isCheckable()) action->setChecked(field.marked());
        field.press();
    });
}

void bind(ActionField& field, QAbstractButton* button, const QString& accessibleName) {
    bindCommon(field, button, nullptr);
    follow(button, field, [&field, button, accessibleName] {
        if (button->icon().isNull() || !button->text().isEmpty())
            button->setText(withMnemonic(shown(field.caption()), {}));
        button->setAccessibleName(accessibleName.isEmpty() ? shown(field.caption()) : accessibleName);
    });
    QObject::connect(button, &QAbstractButton::clicked, button, [&field] { field.press(); });
}

void showValue(QLabel* label, const QString& text) {
    setMark(label, "unread", text.isEmpty() ? "true" : "false");
    label->setText(text.isEmpty() ? QString(dash) : text);
    label->setAccessibleDescription(text.isEmpty() ? QObject::tr("not read yet") : QString());
}

void bindValue(LabelField& field, QLabel* label, const QString& accessibleName) {
    label->setTextFormat(Qt::PlainText);
    bindCommon(field, label, nullptr);
    follow(label, field, [&field, label, accessibleName] {
        showValue(label, shown(field.text()));
        label->setAccessibleName(accessibleName + ": " + label->text());
    });
}

}  // namespace trunvex
