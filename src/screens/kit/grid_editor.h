#pragma once

#include <QWidget>

#include "fields/grid_field.h"

class QLabel;
class QLineEdit;

namespace trunvex {

class TableView;

// A grid as a part of a page: its table, under it how many rows there are and what is wrong with them, and a line to
// find a text by.
class GridEditor : public QWidget {
    Q_OBJECT

public:
    GridEditor(GridField& grid, const QString& name, QWidget* parent = nullptr);
    TableView& table() const { return *table_; }
    // Shown while the table is empty.
    void setEmptyText(const QString& text);

private:
    QWidget* buildFind();
    void showState();
    void openFind();
    void find(bool forward);

    GridField& grid_;
    TableView* table_;
    QLabel* state_;
    QWidget* findBar_ = nullptr;
    QLineEdit* sought_ = nullptr;
    QString emptyText_;
    QString word_;  // on what was just done; until the next change
};

}  // namespace trunvex
