#include "platform/qt/qt_dialogs.h"

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>
#include <vector>

namespace trunvex {

namespace {

struct Choice {
    Button answer;
    QMessageBox::StandardButton button;
};

// In the order of the set's name; the default button is counted in it.
std::vector<Choice> choices(ButtonSet set) {
    switch (set) {
        case ButtonSet::OkCancel:
            return {{Button::Ok, QMessageBox::Ok}, {Button::Cancel, QMessageBox::Cancel}};
        case ButtonSet::YesNo:
            return {{Button::Yes, QMessageBox::Yes}, {Button::No, QMessageBox::No}};
        case ButtonSet::RetryCancel:
            return {{Button::Retry, QMessageBox::Retry}, {Button::Cancel, QMessageBox::Cancel}};
        case ButtonSet::AbortRetryIgnore:
            return {{Button::Abort, QMessageBox::Abort},
                    {Button::Retry, QMessageBox::Retry},
                    {Button::Ignore, QMessageBox::Ignore}};
        case ButtonSet::Ok:
            break;
    }
    return {{Button::Ok, QMessageBox::Ok}};
}

// What closing the box by Escape or its frame means.
Button refusal(ButtonSet set) {
    switch (set) {
        case ButtonSet::YesNo:
            return Button::No;
        case ButtonSet::AbortRetryIgnore:
            return Button::Abort;
        case ButtonSet::Ok:
            return Button::Ok;
        default:
            return Button::Cancel;
    }
}

QMessageBox::Icon icon(BoxIcon icon) {
    switch (icon) {
        case BoxIcon::Information:
            return QMessageBox::Information;
        case BoxIcon::Question:
            return QMessageBox::Question;
        case BoxIcon::Warning:
            return QMessageBox::Warning;
        case BoxIcon::Critical:
            return QMessageBox::Critical;
        case BoxIcon::None:
            break;
    }
    return QMessageBox::NoIcon;
}

// "Groups Data (*.grp)|*.grp" holds the name and the pattern; Qt takes the pattern from the name.
QString qtFilter(const std::string& filter) { return QString::fromStdString(filter).section('|', 0, 0); }

}  // namespace

Button QtDialogs::message(const MessageBox& box) {
    QMessageBox shown(QApplication::activeWindow());
    shown.setObjectName("messageBox");
    shown.setIcon(icon(box.icon));
    shown.setWindowTitle(QString::fromStdString(box.title));
    shown.setTextFormat(Qt::PlainText);
    shown.setText(QString::fromStdString(box.text).replace("\r\n", "\n").replace('\r', '\n'));
    const auto offered = choices(box.buttons);
    int position = 0;
    for (const auto& choice : offered) {
        auto* button = shown.addButton(choice.button);
        if (++position == box.defaultButton) shown.setDefaultButton(button);
        if (choice.answer == refusal(box.buttons)) shown.setEscapeButton(button);
    }
    const auto pressed = static_cast<QMessageBox::StandardButton>(shown.exec());
    for (const auto& choice : offered)
        if (choice.button == pressed) return choice.answer;
    return refusal(box.buttons);
}

std::string QtDialogs::openFilePath(const std::string& title, const std::string& filter) {
    return QFileDialog::getOpenFileName(QApplication::activeWindow(), QString::fromStdString(title), {},
                                        qtFilter(filter))
        .toStdString();
}

std::string QtDialogs::saveFilePath(const std::string& title, const std::string& filter, const std::string& name,
                                    AskReplace ask) {
    QFileDialog dialog(QApplication::activeWindow(), QString::fromStdString(title), {}, qtFilter(filter));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, ask == AskReplace::Caller);
    // Given to the dialog, so that it asks about the name under which the file is really written.
    dialog.setDefaultSuffix(QString::fromStdString(filter).section("*.", -1));
    dialog.selectFile(QString::fromStdString(name));
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0).toStdString() : std::string();
}

}  // namespace trunvex
