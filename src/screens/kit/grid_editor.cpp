#include "screens/kit/grid_editor.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include "screens/kit/field_binding.h"
#include "screens/kit/labels.h"
#include "screens/kit/table_view.h"
#include "screens/kit/theme.h"

namespace trunvex {

GridEditor::GridEditor(GridField& field, const QString& name, QWidget* parent)
    : QWidget(parent), grid_(field), table_(new TableView(field, name)), state_(new ElidedLabel) {
    findBar_ = buildFind();
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(grid / 2);
    rows->addWidget(findBar_);
    rows->addWidget(table_, 1);
    rows->addWidget(state_);
    findBar_->hide();
    connect(table_, &TableView::findAsked, this, [this] { openFind(); });
    connect(table_, &TableView::copyRefused, this, [this] {
        word_ = tr("At most %1 rows are copied.").arg(TableView::mostCopied);
        showState();
    });
    connect(table_, &TableView::rowsLeftOut, this, [this](int count) {
        word_ = tr("Rows that did not fit: %1. The table holds %2.").arg(count).arg(grid_.mostRows());
        showState();
    });
    listen(this, field.valueChanged(), [this] { word_.clear(); });
    follow(this, field, [this] { showState(); });
}

void GridEditor::setEmptyText(const QString& text) {
    emptyText_ = text;
    showState();
}

QWidget* GridEditor::buildFind() {
    auto* bar = new QWidget;
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    auto* caption = captionLabel(tr("Fin&d"));
    sought_ = new QLineEdit;
    sought_->setClearButtonEnabled(true);
    sought_->setAccessibleName(tr("Find in the table"));
    caption->setBuddy(sought_);
    row->addWidget(caption);
    row->addWidget(sought_, 1);
    const auto addButton = [&](const QString& text, bool forward) {
        auto* button = new QPushButton(text);
        button->setProperty("role", "small");
        connect(button, &QPushButton::clicked, this, [this, forward] { find(forward); });
        row->addWidget(button);
    };
    addButton(tr("&Next"), true);
    addButton(tr("Pre&vious"), false);
    connect(sought_, &QLineEdit::returnPressed, this, [this] { find(true); });
    const auto key = [this](const QKeySequence& sequence, auto act) {
        auto* made = new QShortcut(sequence, this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
        connect(made, &QShortcut::activated, this, act);
    };
    key(QKeySequence::FindNext, [this] { find(true); });
    key(QKeySequence::FindPrevious, [this] { find(false); });
    auto* close = new QShortcut(Qt::Key_Escape, bar, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    connect(close, &QShortcut::activated, this, [this] {
        findBar_->hide();
        table_->setFocus(Qt::OtherFocusReason);
    });
    return bar;
}

void GridEditor::openFind() {
    findBar_->show();
    sought_->setFocus(Qt::ShortcutFocusReason);
    sought_->selectAll();
}

void GridEditor::find(bool forward) {
    if (sought_->text().isEmpty()) {
        openFind();
        return;
    }
    word_ = table_->find(sought_->text(), forward) ? QString() : tr("\"%1\" is not in the table.").arg(sought_->text());
    showState();
}

void GridEditor::showState() {
    table_->setEmptyText(grid_.rowCount() == 0 ? emptyText_ : QString());
    const auto wrong = grid_.firstProblem();
    QStringList words{tr("%1 of %2 rows").arg(grid_.rowCount()).arg(grid_.mostRows())};
    if (!word_.isEmpty()) words.prepend(word_);
    if (wrong) words << tr("row %1: %2").arg(wrong->row + 1).arg(shown(grid_.problemOf(*wrong)));
    state_->setText(words.join(" · "));
    setMark(state_, "role", wrong || !word_.isEmpty() ? "error" : "small");
}

}  // namespace trunvex
