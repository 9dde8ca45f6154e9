#include "screens/kit/table_delegate.h"

#include <QLineEdit>
#include <QPainter>
#include <QValidator>

#include "screens/kit/field_binding.h"
#include "screens/kit/table_model.h"
#include "screens/kit/theme.h"

namespace trunvex {

namespace {

constexpr int barWidth = 3;
constexpr int frameWidth = 2;

class CharactersOf : public QValidator {
public:
    CharactersOf(QString allowed, QObject* parent) : QValidator(parent), allowed_(std::move(allowed)) {}
    State validate(QString& text, int&) const override {
        const bool all = std::all_of(text.begin(), text.end(), [this](QChar c) { return allowed_.contains(c); });
        return all ? Acceptable : Invalid;
    }

private:
    QString allowed_;
};

}  // namespace

// Figures stand at the right of their column, and the text of the next one begins at its left: a little room between.
void TableDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    constexpr QChar room(0x2003);
    if ((option->displayAlignment & Qt::AlignRight) != 0) option->text += room;
}

void TableDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QStyledItemDelegate::paint(painter, option, index);
    if (index.data(TableModel::EditedRole).toBool()) {
        const bool chosen = option.state.testFlag(QStyle::State_Selected);
        painter->fillRect(QRect(option.rect.topLeft(), QSize(barWidth, option.rect.height())),
                          chosen ? colours().onAccent : colours().accent);
    }
    if (index.data(TableModel::ProblemRole).toString().isEmpty()) return;
    painter->save();
    painter->setPen(QPen(colours().danger, frameWidth));
    painter->drawRect(QRectF(option.rect).adjusted(1, 1, -1, -1));
    painter->restore();
}

QWidget* TableDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex& index) const {
    const auto* model = dynamic_cast<const TableModel*>(index.model());
    if (!model || !model->grid()) return nullptr;
    const auto& column = model->grid()->column(static_cast<std::size_t>(index.column()));
    auto* edit = new QLineEdit(parent);
    edit->setAccessibleName(shown(column.heading));
    edit->setFrame(false);
    const auto text = index.data(Qt::EditRole).toString();
    const auto allowed = shown(column.allowed);
    // What stands there already and is too long, or has other characters, is not cut by being looked at.
    if (column.greatestLength > 0)
        edit->setMaxLength(std::max(static_cast<int>(column.greatestLength), static_cast<int>(text.size())));
    const bool fits = std::all_of(text.begin(), text.end(), [&](QChar c) { return allowed.contains(c); });
    if (!allowed.isEmpty() && fits) edit->setValidator(new CharactersOf(allowed, edit));
    return edit;
}

}  // namespace trunvex
