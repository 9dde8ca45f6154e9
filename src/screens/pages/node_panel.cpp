#include "screens/pages/node_panel.h"

#include <QVBoxLayout>

#include "config/main_page.h"
#include "screens/kit/field_binding.h"
#include "screens/kit/settings_form.h"
#include "screens/pages/group_write_list.h"

namespace trunvex {

NodePanel::NodePanel(MainPage& main, NodePage& page, QWidget* parent) : QWidget(parent), main_(main), page_(page) {}

QWidget* NodePanel::groupWriteList(const char* name) {
    return new GroupWriteList(name, main_.groupWrite, page_.frame.caption,
                              [&page = page_] { return page.showsGroup() ? page.shownKey() : std::string(); });
}

void NodePanel::setBoxes(QLayout* boxes) {
    const auto& frame = page_.frame;
    const auto caption = [&tree = main_.tree](const std::string& key) { return shown(tree.captionOf(key)); };
    auto* rows = panelLayout(frame.caption, {&frame.hint, &frame.remark}, boxes);
    rows->addLayout(buttonRow({&frame.undo, &frame.read, &frame.write}, page_.form, caption));
    setLayout(rows);
}

}  // namespace trunvex
