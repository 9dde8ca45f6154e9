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
        gateway.state().ports.fill(simulator::Port{});
        fit("11", simulator::ModuleKind::gsm);
        fit("12", simulator::ModuleKind::gsmSecondScale);
        fit("13", simulator::ModuleKind::cdma);
        fit("21", simulator::ModuleKind::gsm);
        fit("22", simulator::ModuleKind::gsm);
        console.dispatcher.debugDisplay.connect([this](std::string_view line) { heard.emplace_back(line); });
        console.mainWindow.openPage("groups");  // a page that reads nothing by itself
        bench.logIn(gateway);
        gateway.forgetLinesReceived();
    }

    simulator::Port& module(const std::string& at) {
        return gateway.state().port(*simulator::PortAddress::parse(at));
    }
    void fit(const std::string& address, simulator::ModuleKind kind) {
        auto& fitted = module(address);
        fitted.module = '1';
        fitted.kind = kind;
        if (kind == simulator::ModuleKind::gsmSecondScale) fitted.settings.rxLevel = "2";
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
    // What arrived at the gateway since it was last asked for.
    std::vector<std::string> arrived() {
        auto lines = gateway.linesReceived();
        gateway.forgetLinesReceived();
        return lines;
    }
    // The last answer that begins so, empty without one.
    std::string answer(const std::string& start) const {
        const auto found = std::find_if(heard.rbegin(), heard.rend(),
                                        [&](const std::string& line) { return line.starts_with(start); });
        return found == heard.rend() ? std::string() : *found;
    }
    // Texts of the boxes since they were last asked for.
    std::vector<std::string> told() {
        auto texts = boxes.texts();
        boxes.shown.clear();
        return texts;
    }
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
        for (const auto& limit : limits) {
            SCOPED_TRACE(limit.field.name() + " = " + limit.value);
            limit.field.setValue(limit.value);
            EXPECT_EQ(refusal(write), limit.word);
            EXPECT_EQ(limit.field.problem(), limit.word);
            form.undo();
            EXPECT_EQ(limit.field.problem(), "");
        }
    }
    // All faults at once: each is named when those before it are mended, and at last the record is written.
    struct Fault {
        InputField& field;
        std::string bad;
        std::string good;
        std::string word;
    };
    void expectOrder(ActionField& write, const std::vector<Fault>& faults) {
        for (const auto& fault : faults) fault.field.setValue(fault.bad);
        for (const auto& fault : faults) {
            EXPECT_EQ(refusal(write), fault.word);
            EXPECT_EQ(fault.field.problem(), fault.word) << fault.field.name();
            fault.field.setValue(fault.good);
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
    const std::string& notice() const { return console.mainWindow.lblNotice.text(); }

    simulator::Gateway gateway{seeded(3)};
    ConsoleBench bench;
    Console& console = bench.console;
    SettingsPages& pages = console.pages;
    PortTree& tree = console.portTree;
    PortPage& port = pages.port;
    SimPage& sim = pages.sim;
    IsdnPage& isdn = pages.isdn;
    ScriptedDialogs& boxes = bench.platform.boxes;
    std::vector<std::string> heard;
};

}  // namespace trunvex::fakes
