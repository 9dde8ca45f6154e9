#include "config/port_tree.h"

#include <fstream>

#include "config/group_file.h"
#include "fakes/console_test.h"
#include "model/node_key.h"

namespace trunvex {
namespace {

class Tree : public testing::Test {
protected:
    // Ports 1 and 2 and 32 are GSM, port 3 is CDMA, the rest is in error.
    void detect() {
        console.session.dispatcher.AnalyzeCmd("A_PPR11" + std::string(29, '0') + "1", true);
        console.tables.port({1, 3}).Kind = "CDM";
        tree.build(PortTree::Both, false);
    }
    void logIn() {
        bench.connect();
        bench.receive("A_ESN4711");
        detect();
    }
    void group(int count = 1) {
        for (int i = 0; i < count; ++i) tree.cmdCreateGroup.press();
    }
    const TreeField& view() { return tree.tvGroups[1]; }
    std::string text(const std::string& key) { return view().find(key) ? view().find(key)->text : "(none)"; }
    std::string parent(const std::string& key) { return view().find(key) ? view().find(key)->parent : "(none)"; }
    std::ptrdiff_t items(const std::string& kind) {
        const auto& list = console.tables.gTreeItems;
        return std::count_if(list.begin(), list.end(), [&](const TreeItem& item) { return item.Kind == kind; });
    }
    std::string lastBox() { return bench.platform.boxes.texts().back(); }
    std::filesystem::path ownFile() { return bench.folder.path() / "data" / "groups4711.dat"; }

    ConsoleBench bench;
    Console& console = bench.console;
    PortTree& tree = bench.console.portTree;
    std::deque<Button>& answers = bench.platform.boxes.answers;
};

TEST_F(Tree, FillsItselfFromWhatTheGatewayReports) {
    logIn();
    EXPECT_EQ(text("MOD11"), "Port 1");
    EXPECT_EQ(parent("SIM114"), "MOD11");
    EXPECT_EQ(text("CDM13"), "Port 3");
    EXPECT_EQ(text("ERR14"), "Port 4");
    EXPECT_EQ(text("SIM131"), "(none)") << "a CDMA port has no SIM of ours";
    EXPECT_EQ(view().nodes().size(), 32u + 3 * 4);
    EXPECT_EQ(items("SIM"), 12);
    EXPECT_EQ(view().selected(), "MOD11");
    tree.cmdRefreshTree.press();
    EXPECT_EQ(items("SIM"), 12) << "only what is missing is added";
}

TEST_F(Tree, ChecksExpandsAndSelects) {
    logIn();
    tree.ucLinkSelectPorts[2].press();
    EXPECT_TRUE(view().find("MOD11")->checked && view().find("MOD84")->checked);
    EXPECT_FALSE(view().find("CDM13")->checked || view().find("SIM111")->checked);
    EXPECT_FALSE(tree.tvGroups[0].find("MOD11")->checked);
    tree.cmdExpand.press();
    tree.cmdRefreshTree.press();
    EXPECT_TRUE(view().find("MOD11")->expanded) << "a rebuild folds nothing up";
    tree.ucLinkSelectPorts[3].press();
    EXPECT_FALSE(view().find("MOD11")->checked);
    tree.cmbGRPSelectPort.setIndex(2);
    EXPECT_EQ(view().selected(), "CDM13");
}

TEST_F(Tree, MakesGroupsWithTheLowestFreeNumber) {
    logIn();
    group(5);
    EXPECT_EQ(text("GRP03"), "Group 3");
    EXPECT_EQ(text("SMM034"), "Group Sim 4");
    EXPECT_EQ(text("PRT03"), "Group Port ");
    tree.cmdRefreshTree.press();
    EXPECT_EQ(text("PRT03"), "Ports(0)");
    tree.tvGroups[1].select("GRP03");
    answers = {Button::Yes};
    tree.cmdDeleteGroup.press();
    EXPECT_EQ(lastBox(), "are you sure that you want to delete this Item:Group 3");
    EXPECT_EQ(text("GRP03"), "(none)");
    group();
    EXPECT_EQ(text("GRP03"), "Group 3");
    group(28);
    EXPECT_EQ(lastBox(), "you can create only 32 groups!!");
    EXPECT_EQ(items("GRP"), 32);
}

TEST_F(Tree, MovesPortsByDialogAndByDragging) {
    logIn();
    group(2);
    tree.tvGroups[1].setChecked("MOD11", true);
    tree.tvGroups[1].setChecked("MOD84", true);
    tree.tvGroups[1].setChecked("CDM13", true);
    tree.showSelectGroup = [](frmSelectGroup& window) {
        EXPECT_EQ(window.tvGroups.nodes().size(), 2u);
        window.tvGroups.select("GRP02");
        window.accept();
    };
    tree.cmdMoveToGroup.press();
    EXPECT_EQ(parent("MOD11"), "PRT02");
    EXPECT_EQ(parent("CDM13"), "") << "only GSM ports are moved by their marks";
    EXPECT_EQ(parent("SIM841"), "MOD84");
    EXPECT_EQ(text("PRT02"), "Ports(2)");
    EXPECT_TRUE(tree.movePort("CDM13", "GRP01"));
    EXPECT_TRUE(tree.movePort("MOD11", "PRT01"));
    EXPECT_EQ(text("PRT01") + text("PRT02"), "Ports(2)Ports(1)");
    for (const auto& [port, target] : {std::pair{"MOD11", "PRT01"},
                                       {"MOD11", "PRT09"},
                                       {"SIM111", "PRT01"},
                                       {"MOD11", "SMM011"},
                                       {"MOD99", "PRT01"},
                                       {"GRP01", "PRT02"}})
        EXPECT_FALSE(tree.movePort(port, target)) << port << target;
    // A module that turns CDMA keeps its SIM items out of sight, not out of the list.
    console.tables.port({1, 1}).Kind = "CDM";
    tree.cmdRefreshTree.press();
    EXPECT_EQ(parent("CDM11"), "PRT01");
    EXPECT_EQ(text("SIM111"), "(none)");
    EXPECT_EQ(items("SIM"), 12);
    tree.tvGroups[1].select("GRP01");
    answers = {Button::Yes};
    tree.cmdDeleteGroup.press();
    EXPECT_EQ(parent("CDM11"), "");
}

TEST_F(Tree, RenamesOnlyGroupsAndOnlyToSomething) {
    logIn();
    group();
    std::string edited;
    tree.editName.connect([&](const std::string& key) { edited = key; });
    tree.tvGroups[1].select("MOD11");
    tree.cmdRenameGroup.press();
    EXPECT_EQ(lastBox(), "you can only rename groups node!!");
    tree.tvGroups[1].select("SMM011");
    tree.cmdDeleteGroup.press();
    EXPECT_EQ(lastBox(), "you can only delete groups or port items!");
    tree.tvGroups[1].select("GRP01");
    tree.cmdRenameGroup.press();
    EXPECT_EQ(edited, "GRP01");
    EXPECT_FALSE(tree.rename("GRP01", ""));
    EXPECT_FALSE(tree.rename("GRP02", "x"));
    EXPECT_TRUE(tree.rename("GRP01", "Night shift of the week"));
    EXPECT_EQ(text("GRP01"), "Night shift of the week");
}

TEST_F(Tree, SpreadsAGroupWriteOverItsMembers) {
    logIn();
    group();
    for (const char* port : {"MOD11", "MOD12", "CDM13"}) tree.movePort(port, "PRT01");
    for (auto& item : console.tables.gTreeItems)
        if (item.Key == "SIM844") item.Parent = "PRT01";  // of a group file that is wrong: no port of the group
    EXPECT_EQ(PortTree::listed(tree.ports("MDD01")), "1, 2, 3");
    const auto line = [](const std::string& key) { return key == "MOD12" ? std::string() : "C_" + key; };
    std::vector<std::string> lines;
    for (const auto& item : tree.groupWrite("MDD01", line)) lines.push_back(item.Key + "=" + item.Caption);
    EXPECT_THAT(lines, ElementsAre("C_MOD11=Port 1", "C_MOD13=Port 3"));
    lines.clear();
    for (const auto& item : tree.groupWrite("SMM013", line)) lines.push_back(item.Key);
    EXPECT_THAT(lines, ElementsAre("C_SIM113", "C_SIM123"));
    EXPECT_THAT(tree.groupWrite("GRP02", line), IsEmpty());
}

TEST_F(Tree, SavesTheGroupsOfEachGatewayByteForByte) {
    logIn();
    group();
    tree.rename("GRP01", "Z\xC3\xBCrich and more than that");
    tree.movePort("MOD84", "PRT01");
    tree.cmdSaveGroups.press();
    const auto bytes = contentOf(ownFile());
    EXPECT_EQ(bytes.size() % group_file::recordBytes, 0u);
    EXPECT_THAT(bytes, HasSubstr("GSM   MOD84   Port 32        PRT01   "));
    EXPECT_THAT(bytes, HasSubstr("GRP 01GRP01   Z\xFCrich and more        "));
    console.mainWindow.openPage("connect");
    bench.connect();
    bench.receive("A_ESN0815");
    detect();
    EXPECT_EQ(text("GRP01"), "(none)") << "another gateway, other groups";
    for (const bool late : {false, true}) {  // the order of the answers after a log-in is not the console's to choose
        console.mainWindow.openPage("connect");
        bench.connect();
        bench.advance(1200);  // the tables are reset as the log-in begins
        if (late) detect();
        EXPECT_NE(parent("MOD84"), "PRT01");
        bench.receive("A_ESN4711");
        if (!late) detect();
        EXPECT_EQ(text("GRP01") + parent("MOD84"), "Z\xC3\xBCrich and morePRT01");
    }
}

TEST_F(Tree, KeepsWhatWasGroupedBeforeAGatewayIsKnown) {
    group();
    bench.connect();
    bench.advance(1200);  // the tables are reset as the log-in begins
    bench.receive("A_ESN4711");
    detect();
    EXPECT_TRUE(tree.movePort("MOD11", "PRT01"));
    EXPECT_THAT(tree.unsaved(false), ElementsAre("Groups")) << "still to be saved, now for this gateway";
}

TEST_F(Tree, AsksWhereToWhenItCantSaveForAGateway) {
    detect();
    group();
    bench.platform.boxes.file = (bench.folder.path() / "mine").string();
    answers = {Button::Yes};
    tree.cmdSaveGroups.press();
    EXPECT_THAT(lastBox(), HasSubstr("You must connecting to the gateway"));
    EXPECT_TRUE(std::filesystem::exists(bench.folder.path() / "mine"));
    bench.connect();
    console.tables.gTreeItems.clear();
    tree.cmdImportGroups.press();
    EXPECT_EQ(text("GRP01"), "Group 1");
    answers = {Button::Yes};
    bench.platform.peer.sent.clear();
    tree.cmdSaveGroups.press();
    EXPECT_THAT(lastBox(), HasSubstr("Error gateway ESN number"));
    EXPECT_THAT(bench.sent(), ElementsAre("R_ESN"));
    bench.receive("A_ESN4711");
    EXPECT_EQ(text("GRP01"), "Group 1") << "what was made before the gateway was known stays";
    EXPECT_TRUE(std::filesystem::exists(ownFile())) << "and is saved as it was asked for";
    console.mainWindow.openPage("connect");
    bench.connect();
    bench.advance(1200);  // the log-in begins, and nothing is known of the gateway
    detect();
    group(2);
    answers = {Button::Yes};
    tree.cmdSaveGroups.press();
    bench.receive("A_ESN4711");
    EXPECT_EQ(items("GRP"), 2) << "the file of before does not take their place";
    EXPECT_THAT(console.mainWindow.lblNotice.text(), HasSubstr("were not loaded"));
    answers = {Button::Cancel, Button::Ok};
    tree.cmdResetTree.press();
    EXPECT_EQ(text("GRP01"), "Group 1");
    tree.cmdResetTree.press();
    EXPECT_EQ(text("GRP01"), "(none)");
}

TEST_F(Tree, LosesNothingToABadFile) {
    logIn();
    group();
    const auto bad = bench.folder.path() / "bad.grp";
    bench.platform.boxes.file = bad.string();
    for (const auto& bytes : {std::string(), std::string("no groups at all"), std::string(37 * 40, '\xFF'),
                              std::string((1u << 20) + 1, ' ')}) {
        std::ofstream(bad, std::ios::binary) << bytes;
        console.session.tell("");
        tree.cmdImportGroups.press();
        EXPECT_EQ(text("GRP01"), "Group 1");
        EXPECT_THAT(console.mainWindow.lblNotice.text(), HasSubstr("bad.grp"));
    }
    std::filesystem::create_directory(ownFile());
    tree.cmdSaveGroups.press();
    EXPECT_THAT(console.mainWindow.lblNotice.text(), HasSubstr("can't be saved"));
    EXPECT_EQ(text("GRP01"), "Group 1");
}

// Whatever a file holds, the tree is a tree: every node's parent stands before it, every port once.
TEST_F(Tree, BuildsATreeFromAnyList) {
    logIn();
    const auto item = [](const char* kind, const char* number, const char* key, const char* parent) {
        TreeItem made;
        std::tie(made.Kind, made.Number, made.Key, made.Caption, made.Parent) =
            std::tie(kind, number, key, key, parent);
        return made;
    };
    console.tables.gTreeItems = {
        item("SIM", "", "SIM111", "MOD11"), item("GSM", "", "MOD11", "MOD12"),   item("GSM", "", "MOD12", "MOD11"),
        item("GSM", "", "MOD84", "PRT07"),  item("GRP", "07", "GRP07", "GRP07"), item("GSM", "", "MOD21", "PRT09"),
        item("GSM", "", "MOD84", "PRT07"),  item("XXX", "", "MOD99", "PRT07"),   item("SIM", "", "SIM999", "MOD99"),
        item("GRP", "", "MOD13", ""),       item("GRP", " 1", "GRP 1", ""),      item("SIM", "", "SIM121", "GRP07")};
    auto bytes = group_file::encode(console.tables.gTreeItems);
    for (std::size_t length = bytes.size(); length > 0; length -= std::min<std::size_t>(length, 13)) {
        console.tables.gTreeItems = group_file::decode(std::string_view(bytes).substr(0, length));
        tree.build(PortTree::Both, false);
        std::set<std::string> seen;
        for (const auto& node : view().nodes()) {
            EXPECT_TRUE(node.parent.empty() || seen.count(node.parent)) << node.key;
            EXPECT_TRUE(seen.insert(node.key).second) << node.key;
        }
        const auto ports = std::count_if(view().nodes().begin(), view().nodes().end(),
                                         [](const auto& node) { return node_key::isPort(node.key); });
        EXPECT_EQ(ports, 32) << length;
    }
}

TEST(GroupFile, BringsAModuleInErrorBackAsGsm) {
    const auto items = group_file::decode("ERR   MOD11   Port 1                 ");
    ASSERT_EQ(items.size(), 1u);
    EXPECT_EQ(items[0].Kind, "GSM");
    EXPECT_EQ(items[0].Caption, "Port 1");
    EXPECT_EQ(group_file::decode(std::string(18, 'x')).size(), 0u);
}

}  // namespace
}  // namespace trunvex
