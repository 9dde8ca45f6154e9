#include "screens/kit/table_view.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QVBoxLayout>
#include <set>

#include "screens/kit/field_binding.h"
#include "screens/kit/labels.h"
#include "screens/kit/table_delegate.h"
#include "screens/kit/theme.h"
#include "text/text_table.h"

namespace trunvex {

namespace {

constexpr int rowPixels = 22;
constexpr int columnPixels = 144;

Table::Cell cellOf(const QModelIndex& index) {
    return {static_cast<std::size_t>(index.row()), static_cast<std::size_t>(index.column())};
}

}  // namespace

TableView::TableView(Table& table, const QString& name) : TableView(new TableModel(table), name) {
    setSelectionBehavior(SelectRows);
    setShowGrid(false);
    verticalHeader()->hide();
}

TableView::TableView(GridField& field, const QString& name) : TableView(new TableModel(field), name) {
    grid_ = &field;
    setObjectName(shown(field.name()));
    horizontalHeader()->setDefaultSectionSize(columnPixels);
    // Figures at the far end of a wide window would be far from what they belong to.
    horizontalHeader()->setStretchLastSection(!field.hasFigures(field.columnCount() - 1));
    setEditTriggers(DoubleClicked | AnyKeyPressed | EditKeyPressed);
    addKeys();
    // A mark may come or go without a change of text.
    follow(this, field, [this] { viewport()->update(); });
}

TableView::TableView(TableModel* tableModel, const QString& name) {
    tableModel->setParent(this);
    setModel(tableModel);
    setItemDelegate(new TableDelegate(this));
    setAccessibleName(name);
    setFont(figureFont());
    setWordWrap(false);
    setTabKeyNavigation(false);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(rowPixels);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    setSortingEnabled(true);
    addKey(tr("&Copy"), QKeySequence::Copy, &TableView::copyOrTell);
    empty_ = roleLabel({}, "muted", viewport());
    empty_->setAlignment(Qt::AlignCenter);
    empty_->setAttribute(Qt::WA_TransparentForMouseEvents);
    auto* over = new QVBoxLayout(viewport());
    over->addWidget(empty_);
}

void TableView::setEmptyText(const QString& text) {
    empty_->setText(text);
    empty_->setVisible(!text.isEmpty());
}

void TableView::addKeys() {
    addKey(tr("&Paste"), QKeySequence::Paste, &TableView::paste);
    addKey(tr("C&lear"), QKeySequence::Delete, &TableView::clear);
    addKey(tr("&Insert row"), Qt::CTRL | Qt::Key_Plus, &TableView::insertRow);
    addKey(tr("&Delete rows"), Qt::CTRL | Qt::Key_Minus, &TableView::removeRows);
    addKey(tr("&Find..."), QKeySequence::Find, &TableView::findAsked);
    auto* undoing = addKey(tr("&Undo"), QKeySequence::Undo, &TableView::undo);
    auto* redoing = addKey(tr("&Redo"), QKeySequence::Redo, &TableView::redo);
    follow(this, *grid_, [this, undoing, redoing] {
        undoing->setEnabled(grid_->canUndo());
        redoing->setEnabled(grid_->canRedo());
    });
}

QAction* TableView::addKey(const QString& text, const QKeySequence& key, void (TableView::*act)()) {
    auto* action = new QAction(text, this);
    action->setShortcut(key);
    action->setShortcutContext(Qt::WidgetShortcut);
    connect(action, &QAction::triggered, this, act);
    addAction(action);
    return action;
}

void TableView::contextMenuEvent(QContextMenuEvent* event) {
    if (!grid_) return;
    QMenu menu;
    menu.addActions(actions());
    menu.exec(event->globalPos());
}

void TableView::copyOrTell() {
    if (!copy()) Q_EMIT copyRefused();
}

bool TableView::copy() {
    std::set<int> rows;
    std::set<int> places;
    auto* header = horizontalHeader();
    for (const auto& range : selectionModel()->selection()) {
        if (range.height() > mostCopied) return false;
        for (int row = range.top(); row <= range.bottom(); ++row) rows.insert(row);
        for (int column = range.left(); column <= range.right(); ++column)
            if (!header->isSectionHidden(column)) places.insert(header->visualIndex(column));
    }
    if (rows.size() > static_cast<std::size_t>(mostCopied)) return false;
    std::vector<TextRow> texts;
    for (const int row : rows) {
        auto& cells = texts.emplace_back();
        for (const int place : places)
            cells.push_back(model()->index(row, header->logicalIndex(place)).data().toString().toStdString());
    }
    if (!texts.empty()) QApplication::clipboard()->setText(shown(writeTextTable(texts, '\t')));
    return true;
}

void TableView::paste() {
    if (!grid_->enabled()) return;
    const auto texts = readTextTable(QApplication::clipboard()->text().toStdString(), '\t');
    if (texts.empty()) return;
    Table::Cell at{grid_->rowCount(), 0};
    for (const auto& index : selectionModel()->selectedIndexes()) at = {std::min(at.row, cellOf(index).row), 0};
    if (currentIndex().isValid()) at.column = cellOf(currentIndex()).column;
    for (const auto& index : selectionModel()->selectedIndexes()) at.column = std::min(at.column, cellOf(index).column);
    if (const auto left = grid_->paste(at, texts); left > 0) Q_EMIT rowsLeftOut(static_cast<int>(left));
}

std::vector<std::size_t> TableView::selectedRows() const {
    std::set<std::size_t> rows;
    for (const auto& index : selectionModel()->selectedIndexes()) rows.insert(cellOf(index).row);
    return {rows.begin(), rows.end()};
}

bool TableView::wholeRows() const {
    const auto& ranges = selectionModel()->selection();
    return std::all_of(ranges.begin(), ranges.end(),
                       [this](const auto& range) { return range.width() == model()->columnCount(); });
}

// Of whole rows the rows go, of cells what they hold.
void TableView::clear() {
    if (!grid_->enabled()) return;
    if (wholeRows() && !grid_->rowsFixed()) {
        removeRows();
        return;
    }
    std::vector<Table::Cell> cells;
    for (const auto& index : selectionModel()->selectedIndexes()) cells.push_back(cellOf(index));
    grid_->clearCells(cells);
}

void TableView::insertRow() {
    if (grid_->enabled()) grid_->insertRow(currentIndex().isValid() ? cellOf(currentIndex()).row : grid_->rowCount());
}

void TableView::removeRows() {
    if (grid_->enabled()) grid_->removeRows(selectedRows());
}

void TableView::undo() { grid_->undoStep(); }

void TableView::redo() { grid_->redoStep(); }

bool TableView::find(const QString& text, bool forward) {
    const auto& table = static_cast<TableModel*>(model())->table();
    const auto from = currentIndex().isValid() ? cellOf(currentIndex()) : Table::Cell{};
    const auto found = table.find(text.toStdString(), from, forward);
    if (!found) return false;
    setCurrentIndex(model()->index(static_cast<int>(found->row), static_cast<int>(found->column)));
    return true;
}

}  // namespace trunvex
