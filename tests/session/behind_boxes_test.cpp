// A box runs a nested loop. What its answer was for may be gone when it comes, and the answer is then worth as much as
// a refusal: gateways, calls, files, groups and edits are the same after both.
#include <fstream>

#include "config/settings_bench.h"

namespace trunvex::fakes {
namespace {

enum Spoiler { Nothing = 0, OtherGateway = 1, LinkLost = 2, SameGatewayAgain = 4, OtherNode = 8 };
constexpr int otherSession = OtherGateway | SameGatewayAgain;

class Scene : public SettingsBench {
public:
    void TestBody() override {}

    Scene() {
        boxes.file = (bench.folder.path() / "out.grp").string();
        group({"MOD11"});
        addCall("1", "mine");
        select("MOD11");
        port.TxtMinDigits.setText("7");
        arrived();
        told();
    }

    void addCall(const char* id, const char* number) {
        CDRSlot call;
        call.RecordID = id;
        call.port = "5";
        call.Dialed_CLI = number;
        console.callStore.take(1, call);
        console.callStore.add(1);
    }
    void loseLink() { bench.platform.peer.closes(); }
    // Of two items the first is not answered; its time and its tries run out.
    void failToWrite() {
        simulator::switchOn(gateway.faults(), "silent");
        WriteBatch batch;
        batch.items = {command("C_MOD12,,1,", "Port 2"), command("C_MOD21,,1,", "Port 5")};
        console.session.writes.start(std::move(batch));
        bench.advance(60000);
    }
    void failToRead() {
        simulator::switchOn(gateway.faults(), "silent");
        console.session.reads.start({command("R_MOD12", "Port 2"), command("R_MOD21", "Port 5")}, 1000);
        bench.advance(60000);
    }
    void failToConnect(bool refused) {
        loseLink();
        console.mainWindow.openPage("connect");
        if (refused) bench.platform.peer.fails("refused");
        bench.advance(100000);
    }
    void receiveNothing() {
        console.session.state.gGotESN = false;
        console.session.panel.StartProgress("receive");
        simulator::switchOn(gateway.faults(), "silent");
        bench.advance(120000);
    }

    void happen(Spoiler spoiler) {
        if (spoiler == Nothing) return;
        if (spoiler == OtherNode) {
            tree.tvGroups[0].select("MOD22");
            bench.advance(1500);
            port.TxtMinDigits.setText("9");
            return;
        }
        gateway.faults() = {};
        if (console.session.objSpool.isConnected()) loseLink();
        if (spoiler == LinkLost) return;
        if (console.session.state.sessionFlag) console.mainWindow.openPage("connect");  // ends the attempt
        bench.logIn(spoiler == OtherGateway ? other : gateway);
        if (spoiler == OtherGateway) addCall("2", "other");
        group({"MOD22"});
    }

    // All that an answer may change.
    std::string state() {
        std::string all;
        for (auto* each : {&gateway, &other})
            for (const auto& line : each->linesReceived()) all += line + "\n";
        for (const auto& item : console.tables.gTreeItems) all += item.Key + " ";
        for (const char* esn : {"4711", "4712"}) {
            const auto file = bench.folder.path() / "data" / ("CDR" + std::string(esn) + ".mdb");
            if (!std::filesystem::exists(file)) continue;
            const auto table = bench.platform.databaseFiles.open(file);
            const auto count = table->query("SELECT COUNT(*) FROM CDR");
            count->next();
            all += "\n" + std::string(esn) + ": " + std::string(count->text(0));
        }
        for (const char* file : {"out.grp", "out.csv"}) all += "\n" + contentOf(bench.folder.path() / file);
        all += "\n" + routing.prefixes.ucTslPrefixes.value();
        return all + "\n" + port.TxtMinDigits.text() + console.session.connectButton.caption() +
               std::to_string(static_cast<int>(console.session.state.phase));
    }

    using SettingsBench::bench, SettingsBench::boxes, SettingsBench::console, SettingsBench::gateway,
        SettingsBench::group, SettingsBench::port, SettingsBench::select, SettingsBench::settle, SettingsBench::system,
        SettingsBench::tree;
    simulator::Gateway other{seeded(5, "4712")};
    RoutingPage& routing = console.pages.routing;
};

struct Question {
    const char* words;  // of the box
    std::function<void(Scene&)> ask;
    Button yes;
    Button no;
    int spoilers;
    std::function<void(Scene&)> prepare = [](Scene&) {};
};

// The file dialogs answer with a path for Yes and with none for No.
const std::vector<Question>& questions() {
    using enum Button;
    const auto saveGroups = [](Scene& s) { s.tree.cmdSaveGroups.press(); };
    const auto exportCalls = [](Scene& s) {
        s.boxes.file = s.boxes.file.empty() ? "" : (s.bench.folder.path() / "out.csv").string();
        s.console.calls.cmdCDRExport[1].press();
    };
    const auto importRows = [](Scene& s) { s.routing.prefixes.csv.importing.press(); };
    const auto rowsToImport = [](Scene& s) { std::ofstream(s.boxes.file) << "050,1,2,0"; };
    static const std::vector<Question> all{
        {"clear all the calls", [](Scene& s) { s.console.calls.cmdCDRExport[5].press(); }, Yes, No, OtherGateway},
        {"Export", exportCalls, Yes, No, OtherGateway},
        {"already exists", exportCalls, Yes, No, OtherGateway,
         [](Scene& s) { std::ofstream(s.bench.folder.path() / "out.csv") << "old"; }},
        {"Read again and lose", [](Scene& s) { s.port.cmdModRefresh.press(); }, Yes, No, OtherNode | OtherGateway},
        {"Export groups", [](Scene& s) { s.tree.cmdExportGroups.press(); }, Yes, No, OtherGateway},
        {"Import groups", [](Scene& s) { s.tree.cmdImportGroups.press(); }, Yes, No, OtherGateway,
         [](Scene& s) {
             s.tree.cmdExportGroups.press();
             s.group({"MOD21"});
         }},
        {"remove all the groups", [](Scene& s) { s.tree.cmdResetTree.press(); }, Ok, Cancel, OtherGateway},
        {"delete this Item", [](Scene& s) { s.tree.cmdDeleteGroup.press(); }, Yes, No, OtherGateway,
         [](Scene& s) { s.tree.tvGroups[0].select("GRP01"); }},
        {"export the groups to external", saveGroups, Yes, No, OtherGateway, [](Scene& s) { s.loseLink(); }},
        {"get the right ESN", saveGroups, Yes, No, otherSession | LinkLost,
         [](Scene& s) { s.console.session.state.gESN.clear(); }},
        {"your connection to the gateway will lose", [](Scene& s) { s.system.cmdConSwitch_0.press(); }, Yes, No,
         otherSession | LinkLost},
        {"Reset the Gateway", [](Scene& s) { s.system.cmdConSwitch_4.press(); }, Yes, No, otherSession | LinkLost},
        {"reset the sim statistics", [](Scene& s) { s.console.monitor.menu.mnuResetSim[0].press(); }, Yes, No,
         otherSession | LinkLost},
        {"End the session and lose", [](Scene& s) { s.console.mainWindow.openPage("connect"); }, Yes, No,
         otherSession | LinkLost},
        {"All prefixes of the gateway", [](Scene& s) { s.routing.prefixes.cmdTslPrfEraseAll.press(); }, Yes, No,
         otherSession | LinkLost},
        {"clear the DELA table", [](Scene& s) { s.routing.directLines.cmdDelaErase.press(); }, Yes, No,
         otherSession | LinkLost},
        {"is deleted in the gateway", [](Scene& s) { s.routing.directLines.cmdDelaDelete.press(); }, Yes, No,
         otherSession | LinkLost,
         [](Scene& s) {
             s.bench.receive("A_DAC001,12,3,");
             s.settle();
             s.routing.directLines.setRow(0);
         }},
        {"Read again and lose", [](Scene& s) { s.routing.cmdTslGetData.press(); }, Yes, No, otherSession | LinkLost,
         [](Scene& s) { s.routing.portSide.txtTSLWait.setText("3"); }},
        {"Import", importRows, Yes, No, otherSession | LinkLost, rowsToImport},
        {"becomes what stands in", importRows, Yes, No, otherSession | LinkLost, rowsToImport},
        {"", [](Scene& s) { s.failToWrite(); }, Ignore, Abort, otherSession | LinkLost},
        {"", [](Scene& s) { s.failToRead(); }, Yes, No, otherSession | LinkLost},
        {"can't connect", [](Scene& s) { s.failToConnect(true); }, Retry, Cancel, otherSession},
        {"Time out", [](Scene& s) { s.failToConnect(false); }, Retry, Cancel, otherSession},
        {"unable to receive", [](Scene& s) { s.receiveNothing(); }, Retry, Abort, otherSession | LinkLost},
    };
    return all;
}

// What there is in the end; `asked` tells that there was such a box.
std::string outcome(const Question& question, Spoiler spoiler, bool agree, bool& asked) {
    Scene scene;
    question.prepare(scene);
    scene.boxes.answers.assign(20, agree ? question.yes : question.no);
    std::function<void(const MessageBox&)> behind = [&](const MessageBox& box) {
        asked = contains(box.text, question.words);
        if (asked)
            scene.happen(spoiler);
        else
            scene.boxes.behind = behind;
    };
    scene.boxes.behind = behind;
    const bool asksBehindAFile = contains(question.words, "already") || contains(question.words, "becomes");
    if (!agree && !asksBehindAFile) scene.boxes.file.clear();
    question.ask(scene);
    scene.settle();
    return scene.state();
}

TEST(BehindABox, AnAnswerIsForWhatWasAskedAndNothingElse) {
    for (const auto& question : questions())
        for (const auto spoiler : {Nothing, OtherGateway, LinkLost, SameGatewayAgain, OtherNode}) {
            if (spoiler != Nothing && (question.spoilers & spoiler) == 0) continue;
            bool asked = false;
            const auto agreed = outcome(question, spoiler, true, asked);
            ASSERT_TRUE(asked) << question.words;
            const auto refused = outcome(question, spoiler, false, asked);
            if (spoiler == Nothing)
                EXPECT_NE(agreed, refused) << question.words;
            else
                EXPECT_EQ(agreed, refused) << question.words << ", with " << spoiler << " behind it";
        }
}

// What is edited while a write to a group runs was not in it, and neither was what was empty.
TEST(BehindAGroupWrite, WhatItDidNotCarryStaysAnEdit) {
    using Edits = std::vector<std::string>;
    struct Case {
        std::function<void(Scene&)> before;
        std::function<void(Scene&)> behind;
        Edits unwritten;
    };
    const auto leave = [](const char* key) { return [key](Scene& s) { s.tree.tvGroups[0].select(key); }; };
    const auto nothing = [](Scene&) {};
    const std::vector<Case> cases{
        {nothing, [](Scene& s) { s.happen(OtherNode); }, Edits{"MOD22"}},
        {nothing, leave("GRP01"), {}},
        {nothing, [](Scene& s) { s.port.TxtMaxDigits.setText("13"); }, Edits{"MDD01"}},
        {nothing,
         [&](Scene& s) {
             s.port.TxtIntDigPause.setText("77");
             leave("MOD22")(s);
         },
         Edits{"MDD01"}},
        {[](Scene& s) { s.port.txtNoRegTimer.setText(""); }, leave("MOD22"), Edits{"MDD01"}},
    };
    for (const auto& one : cases) {
        Scene scene;
        scene.port.form.undo();
        scene.select("MOD22");
        scene.select("MDD01");
        scene.port.TxtMaxDigits.setText("12");
        one.before(scene);
        scene.port.frame.write.press();
        one.behind(scene);
        scene.settle();
        EXPECT_EQ(scene.gateway.state().port(*simulator::PortAddress::parse("11")).settings.maxDigits, "12");
        EXPECT_EQ(scene.port.form.unwritten(), one.unwritten) << &one - cases.data();
    }
}

}  // namespace
}  // namespace trunvex::fakes
