#pragma once

#include <QFrame>
#include <functional>

class QLabel;
class QListWidget;

namespace trunvex {

class Field;
class GroupWrite;

// What became of a group write, member by member; hidden while the group that is shown has had none.
class GroupWriteList : public QFrame {
    Q_OBJECT

public:
    // `shownGroup` tells the key of the group on the page, or nothing; it is asked again whenever `page` changes.
    GroupWriteList(const QString& name, GroupWrite& groupWrite, Field& page, std::function<std::string()> shownGroup,
                   QWidget* parent = nullptr);

private:
    void refresh();

    GroupWrite& groupWrite_;
    std::function<std::string()> shownGroup_;
    QLabel* summary_;
    QListWidget* members_;
};

}  // namespace trunvex
