#pragma once

#include "fakes/console_test.h"
#include "simulator/fields.h"
#include "simulator/gateway_state.h"

namespace trunvex::fakes {

// A console that is logged in to a simulated gateway with five modules: ports 11, 21 and 22 of the first scale, 12 of
// the second, 13 CDMA. All else is empty slots.
class SettingsBench : public testing::Test {
protected:
    SettingsBench() {
        using enum simulator::ModuleKind;
        gateway.state().ports.fill(simulator::Port{});
        for (const auto& [at, kind] :
             {std::pair{"11", gsm}, {"12", gsmSecondScale}, {"13", cdma}, {"21", gsm}, {"22", gsm}}) {
            module(at).module = '1';
            module(at).kind = kind;
        }
        module("12").settings.rxLevel = "2";
        console.session.dispatcher.debugDisplay.connect([this](std::string_view line) { heard.emplace_back(line); });
        console.mainWindow.openPage("groups");  // a page that reads nothing by itself
        bench.logIn(gateway);
        gateway.forgetLinesReceived();
    }

    simulator::Port& module(const std::string& at) { return gateway.state().port(*simulator::PortAddress::parse(at)); }
    // Selects a node on the main page and lets what it lacks be read.
    void select(const std::string& key) {
        if (console.mainWindow.page() != "main") console.mainWindow.openPage("main");
        const bool already = tree.tvGroups[0].selected() == key;
        tree.tvGroups[0].select(key);
        if (already) pages.main.select();
        settle();
    }
    // A group 1 of these ports.
    void group(std::initializer_list<const char*> members) {
        tree.cmdCreateGroup.press();
        for (const auto* member : members) tree.movePort(member, "PRT01");
    }
    void settle() { bench.advance(2500); }
    void press(ActionField& button) {
        button.press();
        settle();
    }
    // Someone else changes the gateway's settings: the console sees no more than the acknowledgement.
    void elsewhere(const std::string& line) {
        gateway.receiveLine(line);
        bench.runStation();
        bench.advance(10);
    }
    // What arrived at the gateway, and the texts of the boxes, since they were last asked for.
    std::vector<std::string> arrived() {
        auto lines = gateway.linesReceived();
        gateway.forgetLinesReceived();
        return lines;
    }
    std::vector<std::string> told() {
        auto texts = boxes.texts();
        boxes.shown.clear();
        return texts;
    }
    static std::string fieldOf(const BuiltLine& built, std::size_t at) {
        return simulator::splitFields(built.line).at(at);
    }
    const std::string& notice() const { return console.mainWindow.lblNotice.text(); }
    // The word with which a button's press is refused, and nothing sent; empty when it is carried out.
    std::string refusal(ActionField& button) {
        arrived();
        told();
        press(button);
        const auto lines = arrived();
        const auto texts = told();
        if (texts.empty()) return lines.empty() ? "nothing happened" : "";
        EXPECT_THAT(lines, IsEmpty()) << texts[0];
        return texts[0];
    }

    struct Check {
        InputField& field;
        std::vector<std::string> bad;
        std::string good;
        std::string word;  // of the refusal
    };
    // The checks of a page, in their order. Each bad value in a record that is in order but for it; what would break a
    // line, or make another of it; then all faults at once, of which the first that is not mended yet is named.
    void expectChecks(RecordForm& form, ActionField& write, const std::vector<Check>& checks) {
        const auto expectRefused = [&](InputField& field, const std::string& value, const auto& word) {
            field.setValue(value);
            EXPECT_THAT(refusal(write), word) << field.name() << " = " << value;
            EXPECT_THAT(field.problem(), word) << field.name() << " = " << value;
        };
        for (const auto& check : checks) {
            for (const auto& value : check.bad) {
                expectRefused(check.field, value, testing::Eq(check.word));
                form.undo();
            }
            for (const char* value : {",", "1,2", "3\rC_RST", "5\n", "\"5\"", "'", "\xC3\xBC", "7;\x01"}) {
                expectRefused(check.field, value, testing::Ne(""));
                form.undo();
            }
        }
        for (auto check = checks.rbegin(); check != checks.rend(); ++check) check->field.setValue(check->bad.front());
        for (const auto& check : checks) {
            expectRefused(check.field, check.bad.front(), testing::Eq(check.word));
            check.field.setValue(check.good);
        }
        EXPECT_EQ(refusal(write), "");
    }
    // Each include box by itself sends its own fields to the one member of the group, and nothing else.
    void expectBoxes(NodePage& page, const std::vector<std::string>& lines) {
        EXPECT_EQ(page.frame.include.size(), lines.size());
        for (auto& box : page.frame.include) box.setChecked(false);
        for (std::size_t i = 0; i < lines.size(); ++i) {
            arrived();
            page.frame.include[i].setChecked(true);
            press(page.frame.write);
            EXPECT_THAT(arrived(), ElementsAre(lines[i])) << i;
            page.frame.include[i].setChecked(false);
        }
    }

    simulator::Gateway gateway{seeded(3)};
    ConsoleBench bench;
    Console& console = bench.console;
    SettingsPages& pages = console.pages;
    PortTree& tree = console.portTree;
    PortPage& port = pages.port;
    SimPage& sim = pages.sim;
    IsdnPage& isdn = pages.isdn;
    SystemPage& system = pages.system;
    ScriptedDialogs& boxes = bench.platform.boxes;
    std::vector<std::string> heard;
};

}  // namespace trunvex::fakes
