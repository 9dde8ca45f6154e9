#pragma once

#include <QWidget>

class QLayout;

namespace trunvex {

class BoardEvents;
class TableView;

// The board's tab with what stands now and all events below.
class EventsPanel : public QWidget {
    Q_OBJECT

public:
    explicit EventsPanel(BoardEvents& events, QWidget* parent = nullptr);

private:
    TableView* buildTable(const char* name, const QString& spoken, const QString& emptyText);
    QLayout* buildFilters();
    QLayout* buildActions();
    std::vector<std::string> chosen() const;

    BoardEvents& events_;
    TableView* standing_;
    TableView* all_;
};

}  // namespace trunvex
