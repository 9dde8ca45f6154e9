#pragma once

#include "screens/page_frame.h"

class QGroupBox;
class QHBoxLayout;
class QLabel;

namespace trunvex {

class Console;
class TreeView;

// The page "main": all ports and SIMs as a tree, and what is known of the selected one at this moment.
class PortTreeScreen : public PageFrame {
    Q_OBJECT

public:
    explicit PortTreeScreen(Console& console, QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* event) override;

private:
    QGroupBox* buildFacts();
    void showFacts();
    void showFact(int row, const QString& text);

    Console& console_;
    QLabel* heading_ = nullptr;
    QList<QLabel*> facts_;
};

// The page "groups": the same tree, to be grouped, saved and loaded.
class GroupsScreen : public PageFrame {
    Q_OBJECT

public:
    explicit GroupsScreen(Console& console, QWidget* parent = nullptr);

private:
    QGroupBox* buildButtons();

    Console& console_;
    TreeView* tree_ = nullptr;
};

}  // namespace trunvex
