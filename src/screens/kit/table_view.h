#pragma once

#include <QTableView>

#include "screens/kit/table_model.h"

class QLabel;

namespace trunvex {

// The view of every table: sorted by its headings, copied as spreadsheets want it. A table that can be edited takes
// typing, pasted rows, clearing, inserting and deleting of rows, and undo, by keys and by its menu.
class TableView : public QTableView {
    Q_OBJECT

public:
    TableView(Table& table, const QString& name);
    explicit TableView(GridField& grid, const QString& name);

    // Over the view while it is empty.
    void setEmptyText(const QString& text);
    // The cells of the selection as text, in the order of the screen. False when they are too many.
    bool copy();
    // Goes to the next cell that holds the text, or the one before; false when there is none.
    bool find(const QString& text, bool forward);

    static constexpr int mostCopied = 20000;  // rows; more would hold the window up

Q_SIGNALS:
    void copyRefused();
    // Of pasted rows so many did not fit.
    void rowsLeftOut(int count);
    void findAsked();

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    TableView(TableModel* model, const QString& name);
    void addKeys();
    QAction* addKey(const QString& text, const QKeySequence& key, void (TableView::*act)());
    void copyOrTell();
    void paste();
    void clear();
    void insertRow();
    void removeRows();
    void undo();
    void redo();
    std::vector<std::size_t> selectedRows() const;
    bool wholeRows() const;

    GridField* grid_ = nullptr;
    QLabel* empty_;
};

}  // namespace trunvex
