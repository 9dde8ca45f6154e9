#include "console_double.h"
#include "simulator/fields.h"
#include "simulator/gateway.h"

#include <gtest/gtest.h>

#include <set>
#include <utility>

namespace simulator {

namespace {

// Ports 11 to 13 have a module of each kind, with a SIM in use in the second place; 14 is an empty slot.
void furnish(GatewayState& state) {
    state.ports.fill(Port{});
    for (const ModuleKind kind : {ModuleKind::gsm, ModuleKind::gsmSecondScale, ModuleKind::cdma}) {
        Port& port = state.ports[static_cast<std::size_t>(kind)];
        port.module = '1';
        port.kind = kind;
        port.sims[1].state = simReady;
        port.bcch = 7;
    }
}

using Fields = std::vector<std::pair<std::size_t, std::string>>;

struct Record {
    std::string index;  // behind C_ and R_
    std::size_t fields;
    std::size_t answerOffset;  // by how many fields the answer is ahead of the change
    Fields company;            // values that it takes, in one of the first fields and one of the last
};

const Record firstScale{"MOD11", 17, 0, {{4, "99"}, {14, "99"}}};
const Record secondScale{"MOD12", 18, 0, {{4, "99"}, {14, "99"}}};
const Record cdma{"MOD13", 17, 0, {{4, "99"}, {14, "99"}}};
const Record sim{"SIM112", 21, 0, {{2, "4711"}, {19, "32"}}};
const Record isdn{"ISD", 15, 1, {{0, "4"}, {12, "1"}}};

std::string change(const Record& record, const Fields& values) {
    std::vector<std::string> fields(record.fields);
    fields[0] = "C_" + record.index;
    for (const auto& [at, value] : values) fields[at] += value;
    return joinFields(fields);
}

std::string without(std::string text, const std::string& end) {
    EXPECT_TRUE(text.ends_with(end)) << text;
    return text.substr(0, text.size() - end.size());
}

// The command by which a backup brings an answer back.
std::string restoring(const std::string& answer) {
    if (!answer.starts_with("A_MOD")) return "C" + answer.substr(1);
    if (answer[8] == ',') return "C" + answer.substr(1) + ",";
    return "C_MOD" + answer.substr(5, 2) + ",,,," + answer.substr(12) + ",";
}

std::vector<std::string> allRecords(ConsoleDouble& console) {
    std::string bytes;
    for (int slot = 0; slot < portCount; ++slot) {
        const std::string address = PortAddress::ofSlot(slot).text();
        bytes += console.ask("R_MOD" + address) + console.ask("R_SIM" + address);
    }
    return splitFields(without(bytes, "\r"), '\r');
}

}  // namespace

TEST(SettingsRecords, eachFieldHasItsValues) {
    struct Case {
        const Record& record;
        std::vector<std::size_t> fields;  // with the same values
        std::vector<std::string> good;
        std::vector<std::string> bad;
    };
    const std::vector<std::string> switching{"8", "24", "32", "40", "56", "64", "72", "88", "96", "104", "0", "120"};
    const std::vector<Case> cases{
        {firstScale, {4}, {"60", "255", "0"}, {"59", "256", "1", "-1", "x", " 60"}},
        {firstScale, {5}, {"250", "252", "254", "0", "2", "3", "4", "6"}, {"1", "5", "8", "248", "255"}},
        {firstScale, {6}, {"0", "9", "111"}, {"112", "-6"}},
        {secondScale, {5, 6}, {"0", "4"}, {"5", "51", "250"}},
        {cdma, {5, 6}, {}, {"0", "3", "51"}},
        {firstScale, {8}, {"5", "32"}, {"4", "33"}},
        {cdma, {7}, {"2", "7"}, {"1", "8"}},
        {firstScale, {9}, {"1", "200"}, {"0", "201"}},
        {firstScale, {10}, {"1", "0"}, {"2", "OMIT"}},
        {firstScale, {11}, {"0", "250"}, {"251", "5.0"}},
        {firstScale, {12}, switching, {"16", "48", "80", "112", "128", "1"}},
        {firstScale, {13}, {"255", "0"}, {"256"}},
        {firstScale, {14}, {"1", "255"}, {"0", "256"}},
        {firstScale, {15}, {"0a1B2c3D"}, {"1234567", "123456789", "1234567\x01"}},
        {sim, {1}, {"0", "+99955512345", "99955512345678901234"}, {"+", "1+2", "555-1", "999555123456789012345"}},
        {sim, {2}, {"0000", "12345678"}, {"123456789", "12a4"}},
        {sim, {3}, {"0", "*31#"}, {"+", "12345678901234567"}},
        {sim, {4}, {"0", "2"}, {"3"}},
        {sim, {5, 6}, {"0", "59999"}, {"60000", "-1"}},
        {sim, {8}, {"0", "63"}, {"64"}},
        {sim, {9}, {"0", "30", "65535"}, {"29", "65536", "1"}},
        {sim, {10}, {"0", "999999", "00101"}, {"1000000", "9990a"}},
        {sim,
         {11, 13, 15, 17},
         {"00005923", "30001200"},
         {"60000000", "00240000", "00006000", "00000024", "0000592", "23595923", "0000 100"}},
        {sim, {12, 14, 16, 18}, {"0", "127"}, {"128", "x"}},
        {sim, {19}, {"0", "32", "64", "96", "128", "160", "192", "224"}, {"1", "16", "127", "256"}},
        {isdn, {7}, {"0", "123456789"}, {"1234567890", "+1"}},
        {isdn, {8}, {"7", "A"}, {"12", "\x01"}},
        {isdn, {10}, {"6", "9", "12", "14", "15"}, {"5", "7", "8", "10", "11", "13", "16"}},
        {isdn, {14}, {"000", "250"}, {"251", "0.5"}},
    };
    Gateway gateway;
    furnish(gateway.state());
    ConsoleDouble console(gateway);
    const auto check = [&console](const Case& c, std::size_t field) {
        const auto read = [&] { return without(console.ask("R_" + c.record.index), "\r"); };
        for (const std::string& value : c.good) {
            auto expected = splitFields(read());
            expected[field + c.record.answerOffset] = value;
            if (&c.record == &isdn && field != 7)
                expected[8].clear();  // the one record in which an empty number is one
            if (&c.record == &isdn && field != 8) expected[9].clear();
            EXPECT_TRUE(console.ask(change(c.record, {{field, value}})).ends_with(",OK\r")) << value;
            EXPECT_EQ(read(), joinFields(expected));  // the empty fields changed nothing
        }
        const std::string kept = read();
        for (const std::string& value : c.bad) {
            Fields values{{field, value}};
            for (const auto& companion : c.record.company) {
                if (companion.first != field) values.push_back(companion);
            }
            EXPECT_TRUE(console.ask(change(c.record, values)).ends_with(",ERROR\r")) << value;
        }
        EXPECT_EQ(read(), kept);
    };
    for (const Case& c : cases) {
        for (const std::size_t field : c.fields) {
            SCOPED_TRACE(c.record.index + " field " + std::to_string(field));
            check(c, field);
        }
    }
}

TEST(SettingsRecords, answersEachLine) {
    struct Case {
        const char* line;
        const char* reply;
    };
    const std::vector<Case> cases{
        {"R_MOD12", "A_MOD12,2,,,120,0,51,3,16,60,0,50,0,0,30,00000000\r"},
        // An empty slot, and a module that takes no SIM: nothing to read, nothing to set.
        {"R_MOD14", "A_MOD14,,,,,,,,,,,,,,,\r"},
        {"R_SIM132", "A_SIM132,,,,,,,,,,,,,,,,,,,,\r"},
        {"C_MOD14,,,,,,,,,,,,,,,,", "I_ALR140,OK\r"},
        {"C_MOD14,,,,60,,,,,,,,,,,,", "I_ALR140,ERROR\r"},
        {"C_SIM144,,,,,,,,,,,,,,,,,,,,", "I_ALR144,OK\r"},
        {"C_SIM132,,,,1,,,,,,,,,,,,,,,,", "I_ALR132,ERROR\r"},
        // A line is made for CDMA or for GSM.
        {"C_MOD13,1,,,60,,,,,,,,,,,,", "I_ALR130,OK\r"},
        {"C_MOD11,1,,,60,,,,,,,,,,,,", "I_ALR110,ERROR\r"},
        {"C_MOD12,2,,,60,,,,,,,,,,,,", "I_ALR120,ERROR\r"},
        {"C_MOD14,1,,,,,,,,,,,,,,,", "I_ALR140,ERROR\r"},
        // The two limits of a number's length, also when one of them stays as it is.
        {"C_MOD11,,,,,,,7,6,,,,,,,,", "I_ALR110,ERROR\r"},
        {"C_MOD11,,,,,,,6,6,,,,,,,,", "I_ALR110,OK\r"},
        {"C_MOD11,,,,,,,7,,,,,,,,,", "I_ALR110,ERROR\r"},
        {"C_MOD11,,,,,,,,5,,,,,,,,", "I_ALR110,ERROR\r"},
        // Numbers are kept as such; what is known of the module itself is not written.
        {"C_MOD11,,b,c,060,,,005,0008,,,,,,,,,", "I_ALR110,OK\r"},
        {"R_MOD11", "A_MOD11,,,,60,0,51,5,8,60,0,50,0,0,30,00000000\r"},
        {"C_ISD,,,,,,,,A,,,,,,5", "I_ALR000,OK\r"},
        {"R_ISD", "A_ISDISM 3.11,8,4,2,1000,11,0,0,,A,0,1,1,0,0,005,0\r"},  // the number is taken away
        {"R_SIM112", "A_SIM112,,,,0,59999,0,00000,0,0,0,00005923,127,00000000,0,00000000,0,00000000,0,0,1\r"},
        // A fresh line leaves no more than who the SIM is.
        {"C_SIM112,+999,12,9,2,10,7,0,5,60,99901,00010001,1,00010001,2,00010001,3,00010001,4,96,", "I_ALR112,OK\r"},
        {"C_SIM112,,,,,59999,,0,0,0,0,00005923,127,00000000,0,00000000,0,00000000,0,0,", "I_ALR112,OK\r"},
        {"R_SIM112", "A_SIM112,+999,12,9,2,59999,7,00000,0,0,0,00005923,127,00000000,0,00000000,0,00000000,0,0,1\r"},
        // One field too few or too many, and what stands where nothing should.
        {"C_MOD11,,,,,,,,,,,,,,,", "ERROR\r"},
        {"C_MOD11,,,,,,,,,,,,,,,,,,", "ERROR\r"},
        {"C_MOD11,,,,,,,,,,,,,,,,1", "ERROR\r"},
        {"C_SIM112,,,,,,,,,,,,,,,,,,,", "ERROR\r"},
        {"C_SIM112,,,,,,,,,,,,,,,,,,,,,", "ERROR\r"},
        {"C_SIM112,,,,,,,,,,,,,,,,,,,,0", "ERROR\r"},
        {"C_SIM115,,,,,,,,,,,,,,,,,,,,", "ERROR\r"},
        {"C_MOD", "ERROR\r"},
        {"R_MOD91", "ERROR\r"},
        {"R_MOD111", "ERROR\r"},
        {"R_SIM110", "ERROR\r"},
        {"R_SIM1", "ERROR\r"},
    };
    Gateway gateway;
    furnish(gateway.state());
    ConsoleDouble console(gateway);
    for (const Case& c : cases) EXPECT_EQ(console.ask(c.line), c.reply) << c.line;
}

TEST(SettingsRecords, aPortStaysOnTheCellOfItsSim) {
    struct Case {
        const char* sim;
        const char* lock;
        const char* reports;
        const char* kept;
        const char* ofStatus;  // BCCH mode, BCCH
    };
    Gateway gateway;
    furnish(gateway.state());
    ConsoleDouble console(gateway);
    for (const Case& c : {Case{"112", "1024", "I_ALR112,OK\rI_ALR112,15,1024,0,\r", "01024", "0 1024"},
                          Case{"112", "01024", "I_ALR112,OK\r", "01024", "0 1024"},
                          Case{"111", "44", "I_ALR111,OK\r", "00044", "0 1024"},  // not in use
                          Case{"112", "1025", "I_ALR112,ERROR\r", "01024", "0 1024"},
                          Case{"112", "0", "I_ALR112,OK\rI_ALR112,15,1024,1,\r", "00000", "1 1024"}}) {
        Record record = sim;
        record.index = std::string("SIM") + c.sim;
        EXPECT_EQ(console.ask(change(record, {{7, c.lock}})), c.reports) << c.lock;
        const auto status = splitFields(without(console.ask("R_STS11"), "\r"));
        EXPECT_EQ(status[10] + " " + status[14], c.ofStatus) << c.lock;
        EXPECT_EQ(splitFields(console.ask("R_" + record.index))[7], c.kept) << c.lock;
    }
}

TEST(SettingsRecords, aBackupBringsEverythingBack) {
    std::set<std::string> kinds;
    for (std::uint64_t seed = 1; seed <= 4; ++seed) {
        GatewayOptions options;
        options.seed = seed;
        options.cdmaPorts = 2;
        Gateway gateway(options);
        ConsoleDouble console(gateway);
        const auto original = allRecords(console);
        ASSERT_EQ(original.size(), static_cast<std::size_t>(portCount * (1 + simsPerPort)));
        Gateway same(options);
        ConsoleDouble other(same);
        EXPECT_EQ(allRecords(other), original);

        for (const std::string& record : original) {
            if (record.ends_with(",,")) continue;  // nothing to set there
            const bool ofPort = record.starts_with("A_MOD");
            if (ofPort) kinds.insert(splitFields(record)[1]);
            const char* const values =
                ofPort ? ",,,,255,,,2,32,1,0,1,56,9,1,7654321x,"
                       : ",,,,1,59998,59999,0,63,65534,7,59235923,1,00010001,2,00010001,3,00010001,4,96,";
            console.send("C" + splitFields(record)[0].substr(1) + values);
        }
        console.advance(0);
        console.taken();
        const auto changed = allRecords(console);
        for (std::size_t i = 0; i < original.size(); ++i)
            EXPECT_EQ(changed[i] == original[i], original[i].ends_with(",,")) << changed[i];
        for (const std::string& record : original) {
            const std::string reply = console.ask(restoring(record));
            EXPECT_NE(reply.find(",OK\r"), std::string::npos) << record << reply;
        }
        const auto restored = allRecords(console);
        for (std::size_t i = 0; i < original.size(); ++i) EXPECT_EQ(restored[i], original[i]);
    }
    EXPECT_EQ(kinds, (std::set<std::string>{"", "1", "2"}));
}

}  // namespace simulator
