#include "screens/pages/group_write_list.h"

#include <QLabel>
#include <QListWidget>
#include <QVBoxLayout>

#include "config/group_write.h"
#include "screens/kit/field_binding.h"
#include "screens/kit/icons.h"
#include "screens/kit/labels.h"
#include "screens/kit/theme.h"

namespace trunvex {

namespace {

constexpr int listHeight = 136;

const QColor& colourOf(GroupWrite::Outcome outcome) {
    const auto& roles = colours();
    switch (outcome) {
        case GroupWrite::Outcome::Written:
            return roles.ok;
        case GroupWrite::Outcome::Refused:
        case GroupWrite::Outcome::NoAnswer:
            return roles.danger;
        default:
            return roles.muted;
    }
}

}  // namespace

GroupWriteList::GroupWriteList(const QString& name, GroupWrite& groupWrite, Field& page,
                               std::function<std::string()> shownGroup, QWidget* parent)
    : QFrame(parent), groupWrite_(groupWrite), shownGroup_(std::move(shownGroup)), summary_(roleLabel({}, "strong")),
      members_(new QListWidget) {
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(grid / 2);
    rows->addWidget(summary_);
    rows->addWidget(members_);
    members_->setObjectName(name);
    members_->setAccessibleName(tr("What became of the group write"));
    members_->setMaximumHeight(listHeight);
    setVisible(false);
    listen(this, groupWrite_.changed(), [this] { refresh(); });
    listen(this, page.changed(), [this] { refresh(); });
}

void GroupWriteList::refresh() {
    const auto shownKey = shownGroup_();
    const bool mine = !shownKey.empty() && shownKey == groupWrite_.groupKey();
    setVisible(mine);
    if (!mine) return;
    summary_->setText(shown(groupWrite_.summary()));
    members_->clear();
    for (const auto& member : groupWrite_.members()) {
        auto* item =
            new QListWidgetItem(shown(member.name) + "  " + QChar(0x2013) + "  " + GroupWrite::word(member.outcome));
        item->setForeground(colourOf(member.outcome));
        members_->addItem(item);
    }
}

}  // namespace trunvex
