// The tree pages as real widgets without a screen.
#include <gmock/gmock.h>

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "fakes/console_bench.h"
#include "screens/main_window_screen.h"
#include "screens/screens.h"
#include "screens/select_group_screen.h"
#include "screens/tree_view.h"

namespace trunvex {
namespace {

class TreePages : public testing::Test {
protected:
    TreePages() {
        console.bringUp.showConnectionDialog = scripted;
        screens.startWithoutSplash();
        console.dispatcher.AnalyzeCmd("A_PPR1111" + std::string(28, '0'), true);
        window().findChild<QAction*>("tool_groups")->trigger();
    }
    QWidget& window() { return screens.mainWindow(); }
    TreeView* view(const char* name) { return window().findChild<TreeView*>(name); }
    QTreeWidgetItem* item(const QString& text) {
        const auto found = view("tvGroups_1")->findItems(text, Qt::MatchExactly | Qt::MatchRecursive);
        return found.isEmpty() ? nullptr : found.front();
    }
    void press(const char* name) { window().findChild<QWidget*>("page_groups")->findChild<QPushButton*>(name)->click(); }

    fakes::ConsoleBench bench;
    Console& console = bench.console;
    // The dialog of the bench answers by itself; the window's own would wait for an operator.
    std::function<void(frmConnectionSelect&)> scripted = console.bringUp.showConnectionDialog;
    Screens screens{console};
};

TEST_F(TreePages, ShowWhatTheListHolds) {
    EXPECT_EQ(view("tvGroups_0")->topLevelItemCount(), 32);
    ASSERT_NE(item("Port 1"), nullptr);
    EXPECT_EQ(item("Port 1")->text(1), "GSM");
    EXPECT_EQ(item("Port 5")->text(1), "no module");
    EXPECT_EQ(item("Port 1")->childCount(), 4);
    EXPECT_TRUE(item("Port 1")->flags() & Qt::ItemIsUserCheckable);
    EXPECT_FALSE(item("Port 5")->flags() & Qt::ItemIsUserCheckable);
}

TEST_F(TreePages, MoveMarkedPorts) {
    press("cmdCreateGroup");
    item("Port 2")->setCheckState(0, Qt::Checked);
    EXPECT_TRUE(console.portTree.tvGroups[1].find("MOD12")->checked);
    console.portTree.showSelectGroup = [](frmSelectGroup& model) { SelectGroupScreen(model, nullptr).accept(); };
    press("cmdMoveToGroup");
    EXPECT_EQ(console.portTree.tvGroups[0].find("MOD12")->parent, "PRT01");
    ASSERT_NE(item("Ports(1)"), nullptr);
    EXPECT_EQ(item("Ports(1)")->childCount(), 1);
    EXPECT_TRUE(console.portTree.movePort("MOD13", "PRT01"));
    EXPECT_EQ(item("Ports(2)")->childCount(), 2);
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
    window().findChild<QAction*>("tool_main")->trigger();
    console.portTree.tvGroups[0].select("MOD14");
    EXPECT_EQ(window().findChild<QLabel*>("lblSelectedNode")->text(), "Port 4");
    bench.receive("I_ALR141,2,0501234567,,");
    bool told = false;
    for (auto* label : window().findChildren<QLabel*>()) told = told || label->text() == "DIAL ISDN";
    EXPECT_TRUE(told);
}

}  // namespace
}  // namespace trunvex
