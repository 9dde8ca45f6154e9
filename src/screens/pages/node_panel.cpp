#include "screens/pages/node_panel.h"

#include <QVBoxLayout>

#include "screens/kit/field_binding.h"
#include "screens/kit/settings_form.h"
#include "screens/pages/group_write_list.h"
#include "shell/console.h"

namespace trunvex {

NodePanel::NodePanel(Console& console, NodePage& page, QWidget* parent)
    : QWidget(parent), console_(console), page_(page) {}

QWidget* NodePanel::groupWriteList(const char* name) {
    return new GroupWriteList(name, console_.pages.groupWrite, page_.frame.caption,
                              [&page = page_] { return page.showsGroup() ? page.shownKey() : std::string(); });
}

void NodePanel::setBoxes(QLayout* boxes) {
    const auto& frame = page_.frame;
    const auto caption = [&tree = console_.portTree](const std::string& key) { return shown(tree.captionOf(key)); };
    auto* rows = panelLayout(frame.caption, frame.hint, boxes);
    rows->addLayout(buttonRow({&frame.undo, &frame.read, &frame.write}, page_.form, caption));
    setLayout(rows);
}

}  // namespace trunvex
