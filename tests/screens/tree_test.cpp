// The tree pages as real widgets without a screen.
#include <QDropEvent>
#include <QMimeData>

#include "screens/kit/board_frame.h"
#include "screens/pages/select_group_screen.h"
#include "screens/pages/tree_view.h"
#include "screens/screens_bench.h"

namespace trunvex {
namespace {

class TreePages : public ScreensBench {
protected:
    TreePages() {
        answerByScript();
        screens.startWithoutSplash();
        console.session.dispatcher.AnalyzeCmd("A_PPR1111" + std::string(28, '0'), true);
        tool("groups")->trigger();
    }
    TreeView* view(const char* name) { return window().findChild<TreeView*>(name); }
    QTreeWidgetItem* item(const QString& text) {
        const auto found = view("tvGroups_1")->findItems(text, Qt::MatchExactly | Qt::MatchRecursive);
        return found.isEmpty() ? nullptr : found.front();
    }
    // A drag of `from` is let go over a point of the tree, after `meanwhile`; true when the tree offered to take it.
    bool drop(QTreeWidgetItem* from, const QPoint& to, const std::function<void()>& meanwhile = {}) {
        auto* tree = view("tvGroups_1");
        const std::unique_ptr<QMimeData> carried(tree->model()->mimeData({tree->indexFromItem(from)}));
        QDragEnterEvent enter(to, Qt::MoveAction, carried.get(), Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(tree->viewport(), &enter);
        if (meanwhile) meanwhile();
        QDragMoveEvent move(to, Qt::MoveAction, carried.get(), Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(tree->viewport(), &move);
        QDropEvent dropped(to, Qt::MoveAction, carried.get(), Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(tree->viewport(), &dropped);
        EXPECT_NE(dropped.dropAction(), Qt::MoveAction) << "the widget itself would take the node out of the tree";
        return move.isAccepted();
    }
    bool drop(const QString& from, const QString& to) {
        view("tvGroups_1")->scrollToItem(item(to));
        return drop(item(from), view("tvGroups_1")->visualItemRect(item(to)).center());
    }
    std::string parentOf(const char* key) { return console.portTree.tvGroups[1].find(key)->parent; }
    void press(const char* name) {
        window().findChild<QWidget*>("page_groups")->findChild<QPushButton*>(name)->click();
    }
};

TEST_F(TreePages, MoveMarkedPorts) {
    press("cmdCreateGroup");
    console.portTree.rename("MOD12", " Port two");
    item(" Port two")->setCheckState(0, Qt::Checked);
    EXPECT_TRUE(console.portTree.tvGroups[1].find("MOD12")->checked);
    EXPECT_EQ(console.portTree.tvGroups[1].find("MOD12")->text, " Port two") << "a mark is no new name";
    console.portTree.showSelectGroup = [](frmSelectGroup& model) { SelectGroupScreen(model, nullptr).accept(); };
    press("cmdMoveToGroup");
    EXPECT_EQ(parentOf("MOD12"), "PRT01");
    ASSERT_NE(item("Ports(1)"), nullptr);
    EXPECT_EQ(item("Ports(1)")->childCount(), 1);
}

TEST_F(TreePages, TakeAPortThatIsDraggedOntoAGroup) {
    press("cmdCreateGroup");
    press("cmdCreateGroup");
    press("cmdRefreshTree");
    EXPECT_TRUE(drop("Port 1", "Group 1"));
    EXPECT_TRUE(drop("Port 2", "Ports(1)")) << "the group's list takes it too";
    EXPECT_TRUE(drop("Port 5", "Port 1")) << "and so does a port of the group, whatever the module is";
    ASSERT_NE(item("Ports(3)"), nullptr);
    EXPECT_EQ(item("Ports(3)")->childCount(), 3);
    EXPECT_TRUE(drop("Port 1", "Group 2")) << "from one group to another";
    EXPECT_EQ(parentOf("MOD11") + parentOf("MOD12") + parentOf("ERR21"), "PRT02PRT01PRT01");
}

TEST_F(TreePages, RefuseADragThatMeansNothing) {
    press("cmdCreateGroup");
    press("cmdRefreshTree");
    ASSERT_TRUE(drop("Port 1", "Group 1"));
    const std::pair<const char*, const char*> drags[] = {
        {"Port 3", "Port 3"}, {"Port 3", "Port 4"},   {"Port 1", "Port 1"},   {"Port 1", "Group 1"},
        {"SIM 1", "Group 1"}, {"Group 1", "Group 1"}, {"Ports(1)", "Group 1"}};
    for (const auto& [from, to] : drags) EXPECT_FALSE(drop(from, to)) << from << " on " << to;
    EXPECT_FALSE(drop(item("Port 3"), QPoint(5, -5))) << "beside the tree";
    EXPECT_EQ(parentOf("MOD13"), "");
    EXPECT_EQ(console.portTree.children("PRT01"), std::vector<std::string>{"MOD11"});
    EXPECT_FALSE(item("SIM 1")->flags() & Qt::ItemIsDragEnabled);
    QMimeData text;
    text.setText("MOD13");
    QDragEnterEvent foreign(QPoint(5, 5), Qt::MoveAction, &text, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(view("tvGroups_1")->viewport(), &foreign);
    EXPECT_FALSE(foreign.isAccepted());
}

// The gateway may tell other modules while the operator holds the mouse: what he took is moved, or nothing.
TEST_F(TreePages, DropWhatWasTakenThoughTheTreeIsBuiltAnew) {
    press("cmdCreateGroup");
    press("cmdRefreshTree");
    const auto group = [this] { return view("tvGroups_1")->visualItemRect(item("Group 1")).center(); };
    const auto modules = [this](const char* digits) {
        return [this, digits] { console.session.dispatcher.AnalyzeCmd(digits + std::string(28, '0'), true); };
    };
    view("tvGroups_1")->setCurrentItem(item("Port 1"));
    EXPECT_TRUE(drop(item("Port 2"), group(), modules("A_PPR1100")));
    EXPECT_EQ(parentOf("MOD12"), "PRT01");
    EXPECT_EQ(parentOf("MOD11"), "");
    EXPECT_FALSE(drop(item("Port 1"), group(), modules("A_PPR0100")));
    EXPECT_EQ(parentOf("ERR11"), "");
}

TEST_F(TreePages, RenameInPlaceAndRefuseAnEmptyName) {
    press("cmdCreateGroup");
    auto* group = item("Group 1");
    group->setText(0, "Night");
    EXPECT_EQ(console.portTree.tvGroups[0].find("GRP01")->text, "Night");
    group->setText(0, "  ");
    EXPECT_EQ(group->text(0), "Night");
    view("tvGroups_1")->setCurrentItem(group);
    press("cmdRenameGroup");
    EXPECT_NE(view("tvGroups_1")->findChild<QLineEdit*>(), nullptr) << "the name is open for editing";
}

TEST_F(TreePages, KeepTheirPlaceWhenOnlyStatesChange) {
    auto* port = item("Port 3");
    port->setExpanded(true);
    view("tvGroups_1")->setCurrentItem(port);
    console.portTree.cmdRefreshTree.press();
    EXPECT_EQ(item("Port 3"), port) << "the same nodes are not made anew";
    EXPECT_TRUE(port->isExpanded());
    EXPECT_EQ(view("tvGroups_1")->currentItem(), port);
}

TEST_F(TreePages, TellTheSelectedPortLive) {
    bench.connect();
    bench.advance(1200);
    bench.receive("A_PPR1111" + std::string(28, '0'));
    tool("main")->trigger();
    console.portTree.tvGroups[0].select("MOD14");
    const auto told = [this](const QString& text) {
        for (auto* label : window().findChild<QWidget*>("page_ports")->findChildren<QLabel*>())
            if (label->text() == text) return true;
        return false;
    };
    EXPECT_TRUE(told("MCU 1, module 4"));
    bench.receive("I_ALR141,2,0501234567,,");
    bench.receive("I_ALR131,16,,,");
    bench.advance(3 * BoardFrame::intervalMs);
    EXPECT_TRUE(told("DIAL ISDN"));
    EXPECT_TRUE(told("0501234567"));
    console.portTree.tvGroups[0].select("SIM131");
    EXPECT_TRUE(told("ALERTING"));
    tool("groups")->trigger();
    bench.receive("I_ALR131,3,,,");
    tool("main")->trigger();
    EXPECT_TRUE(told("CONNECTING")) << "what was missed while the page was away";
}

}  // namespace
}  // namespace trunvex
