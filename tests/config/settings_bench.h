#pragma once

#include <gmock/gmock.h>

#include "fakes/console_bench.h"
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
        console.dispatcher.debugDisplay.connect([this](std::string_view line) { heard.emplace_back(line); });
        console.mainWindow.openPage("groups");  // a page that reads nothing by itself
        bench.logIn(gateway);
        gateway.forgetLinesReceived();
    }

    simulator::Port& module(const std::string& at) {
        return gateway.state().port(*simulator::PortAddress::parse(at));
    }
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
    const std::string& notice() const { return console.mainWindow.lblNotice.text(); }
    // The word with which a button's press is refused, and nothing sent; empty when it is carried out.
    std::string refusal(ActionField& button) {
        arrived();
        told();
        press(button);
        const auto lines = arrived();
        const auto texts = told();
        if (texts.empty()) return lines.empty() ? "nothing happened" : "";
        EXPECT_THAT(lines, testing::IsEmpty()) << texts[0];
        return texts[0];
    }

    struct Limit {
        InputField& field;
        std::string value;
        std::string word;  // of the refusal; empty: written
    };
    // Each value in its turn, in a record that is in order but for it.
    void expectLimits(RecordForm& form, ActionField& write, const std::vector<Limit>& limits) {
        for (const auto& [field, value, word] : limits) {
            SCOPED_TRACE(field.name() + " = " + value);
            field.setValue(value);
            EXPECT_EQ(refusal(write), word);
            EXPECT_EQ(field.problem(), word);
            form.undo();
        }
    }
    struct Fault {
        InputField& field;
        std::string bad;
        std::string good;
        std::string word;
    };
    // All faults at once: each is named when those before it are mended, and at last the record is written.
    void expectOrder(ActionField& write, const std::vector<Fault>& faults) {
        for (const auto& fault : faults) fault.field.setValue(fault.bad);
        for (const auto& [field, bad, good, word] : faults) {
            EXPECT_EQ(refusal(write), word);
            EXPECT_EQ(field.problem(), word) << field.name();
            field.setValue(good);
        }
        EXPECT_EQ(refusal(write), "");
    }
    // What would break a line, or make another of it, is refused at its field.
    void expectNoBreakingOut(RecordForm& form, ActionField& write, const std::vector<InputField*>& fields) {
        for (auto* field : fields)
            for (const char* text : {",", "1,2", "3\rC_RST", "5\n", "\"5\"", "'", "\xC3\xBC", "7;\x01"}) {
                field->setValue(text);
                EXPECT_NE(refusal(write), "") << field->name() << " " << text;
                EXPECT_NE(field->problem(), "") << field->name();
                form.undo();
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
