#include <fstream>

#include "config/routing/routing_texts.h"
#include "config/routing/routing_trial.h"
#include "config/settings_bench.h"
#include "config/table_csv.h"

namespace trunvex::fakes {
namespace {

class Routing : public SettingsBench {
protected:
    void readAll() {
        page.cmdTslGetData.press();
        bench.advance(40000);
    }
    // Presses and waits until every block is answered, but not for the link's end behind a restart.
    std::vector<std::string> sentBy(ActionField& button) {
        arrived();
        button.press();
        bench.advance(20000);
        return arrived();
    }
    static std::vector<TextRow> numbered(std::size_t count, std::size_t cells) {
        std::vector<TextRow> rows;
        for (std::size_t i = 0; i < count; ++i) {
            auto& row = rows.emplace_back(TextRow{std::to_string(10000 + i)});
            for (std::size_t cell = 1; cell < cells; ++cell) row.push_back(std::to_string((i + cell) % 2));
        }
        return rows;
    }
    std::string fileWith(const std::string& text) {
        const auto path = (bench.folder.path() / "table.csv").string();
        std::ofstream(path, std::ios::binary) << text;
        boxes.file = path;
        return path;
    }

    RoutingPage& page = pages.routing;
    PortRouting& side = page.portSide;
    ChannelRouting& channels = page.channelSide;
    simulator::RoutingSettings& kept = gateway.state().routing;
};

TEST_F(Routing, ReadsInItsOrderAndShowsWhatCame) {
    kept.mode = "6";
    kept.waitTenths = "25";
    kept.ports[4].channel = 31;
    for (int time = 0; time < 2; ++time) {
        console.mainWindow.openPage("tsl");
        bench.advance(40000);
    }
    const auto lines = arrived();
    ASSERT_EQ(lines.size(), 73U);
    std::string order;
    for (const auto& line : lines) {
        const auto letters = line.substr(0, 5);
        if (!order.ends_with(letters)) order += " " + letters;
    }
    EXPECT_EQ(order, " R_EDN R_SEL R_WTP R_PRT R_CCC R_BCH R_PRF R_ICL R_IIL R_DAC R_DST");
    EXPECT_EQ(lines[3] + lines[34] + lines[67], "R_PRT11R_PRT84R_BCH32");
    EXPECT_TRUE(side.chkTSLByPrefix.checked());
    EXPECT_EQ(side.optTSLMode.text() + side.txtTSLWait.text() + side.pairs.lblTSLStock[4].text(), "Random2.5RESERVED1");
    EXPECT_EQ(side.pairs.lblTSLBch[0].text() + side.pairs.lblTSLBch[30].text(), "Port #1Port #5, #31");
    EXPECT_EQ(channels.ucTslClearCause.cell(4, 1) + channels.txtBCHOutNum[1].text(), "345550032");
    EXPECT_EQ(page.prefixes.ucTslPrefixes.rowCount() + page.directLines.ucDela.rowCount(), 24U + 9U);
    EXPECT_FALSE(console.mainWindow.lblNotice.visible() && !notice().empty());
    bench.receive("A_SEL3,9,1");
    bench.receive("A_CCC16,17");
    EXPECT_EQ(side.optTSLMode.text(), "Random") << "there is no such mode";
    EXPECT_EQ(channels.ucTslClearCause.cell(0, 1), "16") << "without the separator in front, too";
}

TEST_F(Routing, WritesThePortSideInItsOrderOnlyWhereItChanged) {
    kept.mode = "1";
    readAll();
    EXPECT_EQ(refusal(side.write), noChangeText);
    side.chkTSLByPrefix.setChecked(true);
    side.txtTSLWait.setText("2,5");
    side.txtPRFDigits.setText("16");
    side.txtTSLPRF[11].setText("007");
    side.chkTSLPort[0].setChecked(false);
    EXPECT_THAT(sentBy(side.write), ElementsAre("C_SEL5,16,0", "C_WTP25", "C_PRT11,0,01,1", "C_PRT34,0,12,7",
                                                "C_EDN00,0", "C_EDN01,00,+", "C_EDN02,0,+999"));
    EXPECT_FALSE(side.records.edited());
    EXPECT_THAT(side.records.word(), testing::StartsWith("Ports and modes written "));
    EXPECT_EQ(kept.mode + kept.waitTenths + std::to_string(kept.ports[11].group), "5257");
    side.optTSLMode.setIndex(0);
    EXPECT_EQ(side.records.word(), "") << "it was of the write before";
    EXPECT_THAT(sentBy(side.write), testing::Contains("C_SEL0,16,0")) << "static goes by no prefix";
    for (const auto* wait : {"25.1", "-1", "x", "1.25", ""}) {
        side.txtTSLWait.setText(wait);
        EXPECT_EQ(refusal(side.write), "'Waiting time for free port' value mast be between 0 and 25 .") << wait;
    }
    side.txtTSLWait.setText("25");
    for (const auto* digits : {"0", "17", ""}) {
        side.txtPRFDigits.setText(digits);
        EXPECT_EQ(refusal(side.write), "'Maximum prefix length' value mast be between 1 and 16 .") << digits;
    }
    side.records.undo();
    side.txtTSLPRF[3].setText("256");
    EXPECT_EQ(refusal(side.write), "- The Prefix group number must be between 0 and 255 .");
    side.txtTSLPRF[3].setText("1000");
    EXPECT_EQ(refusal(side.write), "- Max number of Prefix group is 3 digit .");
}

TEST_F(Routing, RestartsBehindALongWriteAndOnlyWhenAllWasAccepted) {
    readAll();
    side.cmbTSLGRP.setIndex(9);
    side.txtTSLGRPCol.setText("1-11");
    side.txtTSLGRPSet.press();
    EXPECT_EQ(side.lblTslPortRestart.text(), "");
    EXPECT_EQ(sentBy(side.write).size(), PortRouting::mostWithoutRestart);
    side.cmbTSLGRP.setIndex(8);
    side.txtTSLGRPCol.setText("1,3-14");
    side.txtTSLGRPSet.press();
    EXPECT_THAT(side.lblTslPortRestart.text(), HasSubstr("restarts"));
    side.txtTSLGRPCol.setText("3-1");
    side.txtTSLGRPSet.press();
    EXPECT_NE(side.txtTSLGRPCol.problem(), "");
    gateway.faults().perMnemonic["C_WTP"].refuse = simulator::Refusal::alarm;
    boxes.answers = {Button::Ignore};
    auto lines = sentBy(side.write);
    EXPECT_EQ(lines.size(), 2U + 13U + 3U) << "a gateway that took a part does not restart";
    EXPECT_THAT(side.records.word(), HasSubstr("Waiting time of free port (refused), Reset request (not sent)"));
    EXPECT_EQ(console.session.writes.running(), false);
    gateway.faults().perMnemonic.clear();
    channels.chkTSLChannel[2].setChecked(false);
    gateway.faults().perMnemonic["C_RBT"].refuse = simulator::Refusal::alarm;
    boxes.answers = {Button::Cancel};
    sentBy(channels.write);
    EXPECT_THAT(channels.records.word(), HasSubstr("Reset request (refused)"));
    gateway.faults().perMnemonic.clear();
    channels.chkTSLChannel[3].setChecked(false);
    told();
    lines = sentBy(channels.write);
    ASSERT_EQ(lines.size(), 34U);
    EXPECT_EQ(lines[2] + " " + lines[30] + " " + lines[31], "C_BCH03,0,5550003 C_BCH31,1,5550031 C_BCH32,1,5550032");
    EXPECT_THAT(lines[32], testing::StartsWith("C_CCC,27,27,"));
    EXPECT_EQ(lines[33], "C_RBT");
    EXPECT_FALSE(gateway.state().channels[2]);
    EXPECT_THAT(told(), IsEmpty());
    EXPECT_THAT(console.notices.lblLink.text(), HasSubstr("restarts, as asked"));
    EXPECT_EQ(notice(), "");
}

TEST_F(Routing, NeverWritesWhatWasNeverRead) {
    for (const auto* line : {"A_SEL7", "A_ICL000,1", "A_ICL001,12,1"}) bench.receive(line);
    bench.advance(1000);
    page.txtTryNumber.setText("05");
    EXPECT_THAT(page.lblTry.text(), HasSubstr("mode was not read")) << "one that there is not";
    bench.receive("A_SEL1");
    side.txtPRFDigits.setText("9");
    EXPECT_THAT(refusal(side.write), HasSubstr(nothingReadText)) << "a record that was cut short";
    side.records.undo();
    side.chkTSLPort[4].setChecked(true);
    EXPECT_THAT(refusal(side.write), HasSubstr(nothingReadText));
    side.records.undo();
    bench.receive("A_PRT21,1,05,3");
    side.txtTSLPRF[4].setText("4");
    EXPECT_THAT(sentBy(side.write), ElementsAre("C_PRT21,1,05,4")) << "by record";
    channels.txtTSLNumber[0].setText("1");
    EXPECT_THAT(refusal(channels.write), HasSubstr("B-CH 1"));
    page.prefixes.ucTslPrefixes.setCell({0, 0}, "050");
    EXPECT_THAT(refusal(page.prefixes.write), HasSubstr(nothingReadText));
    page.access.ucTslAccessE1.setCell({0, 0}, "050");
    EXPECT_THAT(refusal(page.access.cmdTslWriteAccGSM), HasSubstr(nothingReadText));
    page.directLines.ucDela.setCell({0, 1}, "050");
    EXPECT_THAT(refusal(page.directLines.write), HasSubstr(nothingReadText));
}

TEST_F(Routing, PairsByClicksAndKeepsEditsFromReports) {
    kept.mode = "0";
    readAll();
    auto& pairs = side.pairs;
    pairs.clickPort(1);
    pairs.clickLine(31);
    EXPECT_EQ(pairs.lblTSLStock[0].text() + pairs.lblTSLBch[30].text(), "RESERVED1Port #1");
    EXPECT_EQ(pairs.lblTSLStock[30].text() + pairs.lblTSLBch[0].text(), "") << "both old pairs are parted";
    pairs.clickLine(2);
    pairs.clickPort(2);
    EXPECT_EQ(pairs.lblTSLStock[1].text(), "");
    bench.receive("A_PRT11,0,07,2");
    EXPECT_EQ(pairs.lblTSLStock[0].text() + side.txtTSLPRF[0].text(), "RESERVED12");
    EXPECT_THAT(sentBy(side.write), testing::IsSupersetOf({"C_PRT11,0,31,2", "C_PRT12,1,00,1", "C_PRT83,0,00,4"}));
    side.optTSLMode.setIndex(1);
    pairs.clickPort(3);
    EXPECT_FALSE(pairs.pickedPort());
}

TEST_F(Routing, WhatIsWrittenReadsBackWholeAtEverySize) {
    auto& prefixes = page.prefixes;
    auto& access = page.access;
    prefixes.chkPrfEraseFirst.setChecked(true);
    readAll();
    for (const std::size_t count : {1U, 8U, 9U, 10U, 18U, 891U}) {
        prefixes.ucTslPrefixes.replaceAll(numbered(count, 4));
        const auto lines = sentBy(prefixes.write);
        EXPECT_EQ(lines.size(), 1 + (count + 8) / 9);
        ASSERT_EQ(kept.prefixes, numbered(count, 4)) << count;
    }
    for (const std::size_t count : {20U, 8991U}) {
        for (const int list : {1, 0}) {
            access.cmbTslAccessE1.setIndex(list);
            access.cmbAccessMode.setIndex(1);
            access.ucTslAccessE1.replaceAll(numbered(count, 2));
            (list == 0 ? access.cmdTslWriteAccGSM : access.write).press();
            bench.advance(60000);
        }
        ASSERT_EQ(kept.fromGsm.rows, numbered(count, 2));
        ASSERT_EQ(kept.fromIsdn.rows, numbered(count, 2));
    }
    EXPECT_EQ(kept.fromGsm.mode + kept.fromIsdn.mode, "11");
    ConsoleBench other;
    other.logIn(gateway);
    other.console.mainWindow.openPage("tsl");
    auto& copy = other.console.pages.routing;
    other.advance(90000);
    EXPECT_EQ(copy.prefixes.ucTslPrefixes.value(), GridField::valueOf(numbered(891, 4)));
    EXPECT_EQ(copy.access.ucTslAccessE1.value(), GridField::valueOf(numbered(8991, 2)));
    kept.prefixes.clear();
    copy.cmdTslGetData.press();
    other.advance(90000);
    EXPECT_EQ(copy.prefixes.ucTslPrefixes.rowCount(), 0U);
    EXPECT_TRUE(other.console.routing.prefixes.whole());
}

TEST_F(Routing, NamesTheRowsThatStillStandInTheGateway) {
    readAll();
    auto& grid = page.prefixes.ucTslPrefixes;
    grid.removeRows({20, 21, 22, 23});
    grid.setCell({0, 2}, "");
    grid.setCell({0, 3}, "007");
    grid.insertRow(5);
    EXPECT_THAT(page.prefixes.lblPrfDoubled.text(), HasSubstr("Empty rows are not written: 1"));
    const auto lines = sentBy(page.prefixes.write);
    ASSERT_EQ(lines.size(), 4U) << "and read back";
    EXPECT_THAT(lines[0], testing::MatchesRegex("C_PRF01,0500,.,0,7,.*"));
    EXPECT_EQ(lines[3], "R_PRF");
    EXPECT_THAT(page.prefixes.records.word(), HasSubstr("row 21 to 24"));
    EXPECT_TRUE(page.prefixes.records.edited()) << "it is not what the gateway holds";
    side.ucTslNumModif.removeRows({1});
    sentBy(side.write);
    EXPECT_THAT(side.records.word(), HasSubstr("row 2"));
    kept.modifications.pop_back();  // by someone else
    auto& slow = gateway.faults().perMnemonic["R_EDN"];
    slow.latencyMin = slow.latencyMax = std::chrono::milliseconds(600);
    side.txtTSLWait.setText("1");
    EXPECT_EQ(sentBy(side.write).back(), "R_EDN");
    EXPECT_THAT(side.records.word(), testing::Not(HasSubstr("still")));
    grid.replaceAll({});
    EXPECT_THAT(refusal(page.prefixes.write), HasSubstr("Press Erase all"));
    boxes.answers = {Button::No, Button::Yes};
    EXPECT_THAT(sentBy(page.prefixes.cmdTslPrfEraseAll), IsEmpty());
    EXPECT_THAT(sentBy(page.prefixes.cmdTslPrfEraseAll), ElementsAre("C_PRF00"));
    EXPECT_EQ(grid.rowCount() + kept.prefixes.size(), 0U);
    EXPECT_FALSE(page.prefixes.records.edited());
    side.ucTslNumModif.removeRows({0});
    gateway.faults().perMnemonic["R_EDN"].silent = true;
    sentBy(side.write);
    bench.platform.peer.closes();
    EXPECT_EQ(side.records.word(), "");
    gateway.faults() = {};
    bench.logIn(gateway);
    readAll();
    EXPECT_EQ(side.records.word(), "") << "it was about another session's write";
}

TEST_F(Routing, ATableWithAGapIsIncompleteAndNotWritten) {
    readAll();
    const auto incomplete = [&] {
        bench.advance(1000);
        page.prefixes.ucTslPrefixes.setCell({0, 0}, "1");
        return refusal(page.prefixes.write);
    };
    bench.receive("A_PRF01,1,1,1,1");
    bench.receive("A_PRF04,4,1,1,1");
    EXPECT_THAT(incomplete(), HasSubstr("block 2, 3 is missing"));
    for (const auto* line : {"A_PRF01,1,1,1,1,2,1", "A_PRF01,1,,,,2,,,,3,,,,4,,,,5,,,,6,,,,7,,,,8,,,,9,,,,10,,,"}) {
        bench.receive(line);
        EXPECT_THAT(incomplete(), HasSubstr("came incomplete.")) << line;
    }
    for (const auto* line : {"A_PRF01,1,1,1,1", "A_PRF01,7,1,1,1,8,1,1,1", "A_PRF02,9,1,1,1,"}) bench.receive(line);
    bench.advance(1000);
    bench.receive("A_PRF03,10,1,1,1");  // only late
    page.prefixes.records.undo();
    bench.advance(1000);
    EXPECT_EQ(console.routing.prefixes.rows().size(), 4U);
    EXPECT_EQ(page.prefixes.ucTslPrefixes.cell(0, 0) + page.prefixes.ucTslPrefixes.cell(3, 0), "710");
    for (const auto* line : {"A_PRFxx,1", "A_PRF", "A_ICL1000,1,1", "A_EDN100,1,1", "C_DUC000,1,1,1"})
        bench.receive(line);
    bench.receive("A_DAC001,12,3,");
    bench.advance(1000);
    bench.receive("A_DST1,1,1");
    page.directLines.ucDela.setCell({0, 1}, "1");
    EXPECT_THAT(refusal(page.directLines.write), HasSubstr("came incomplete"));
    // Written while they are being read.
    for (const auto* line : {"A_DAC001,12,3,", "A_DAC002,13,4,", "C_DUC002,1,14,5", "A_PRF01,1,1,1,1", "C_PRF01,2,,,"})
        bench.receive(line);
    bench.advance(1000);
    EXPECT_EQ(console.routing.directLines.table.rows(), (std::vector<TextRow>{{"12", "3", ""}, {"14", "5", ""}}));
    EXPECT_EQ(console.routing.prefixes.rows(), (std::vector<TextRow>{{"2", "1", "1", "1"}}));
}

TEST_F(Routing, JudgesAWriteByTheRowsThatWereSent) {
    readAll();
    auto& access = page.access;
    auto& slow = gateway.faults().replies;
    slow.latencyMin = slow.latencyMax = std::chrono::milliseconds(800);
    access.ucTslAccessE1.removeRows({11});
    arrived();
    access.cmdTslWriteAccGSM.press();
    bench.advance(1500);
    access.cmbTslAccessE1.setIndex(1);
    access.ucTslAccessE1.removeRows({0});
    access.write.press();
    EXPECT_THAT(notice(), HasSubstr("still being written"));
    bench.advance(20000);
    EXPECT_EQ(arrived().back(), "R_ICL");
    EXPECT_THAT(access.records.word(), HasSubstr("row 12"));
    side.txtTSLWait.setText("3");
    side.write.press();
    bench.advance(1500);
    side.ucTslNumModif.setCell({0, 1}, "77");
    bench.advance(20000);
    EXPECT_THAT(arrived(), testing::Not(testing::Contains("R_EDN"))) << "typed since, and not sent";
    side.write.press();
    bench.platform.peer.closes();
    EXPECT_EQ(side.records.word(), "");
}

TEST_F(Routing, ChecksCellsAndSendsNoSecondCommand) {
    readAll();
    struct Case {
        RoutingSide& side;
        GridField& grid;
        std::size_t column;
        std::vector<const char*> bad;
        const char* word;
    };
    for (const auto& one : std::vector<Case>{
             {page.prefixes,
              page.prefixes.ucTslPrefixes,
              0,
              {"012345678901234"},
              "- Max length of number is 14 digit ."},
             {page.prefixes,
              page.prefixes.ucTslPrefixes,
              1,
              {"256"},
              "- The Prefix group number must be between 0 and 255 ."},
             {page.prefixes, page.prefixes.ucTslPrefixes, 2, {"0001"}, "- Max number of Prefix group is 3 digit ."},
             {page.prefixes,
              page.prefixes.ucTslPrefixes,
              3,
              {"999"},
              "- The 'MNP routing code' is a number between 0-255 ."},
             {page.access,
              page.access.ucTslAccessE1,
              1,
              {"2", "", "x"},
              "- Value of 'Access to E1' must to be 0 or 1 (disable /enable) ."},
             {channels, channels.ucTslClearCause, 1, {"256"}, "-Max number of cause is 255."}}) {
        auto& button = &one.side == &page.access ? page.access.cmdTslWriteAccGSM : one.side.write;
        for (const auto* bad : one.bad) {
            one.grid.setCell({1, one.column}, bad);
            EXPECT_THAT(refusal(button), HasSubstr(std::string("Row 2: ") + one.word)) << bad;
        }
        for (const auto* bad : {"1,2", "1\r", "\"1\"", "1\nC_RBT"}) {
            one.grid.setCell({1, one.column}, bad);
            EXPECT_NE(refusal(button), "") << bad;
        }
        one.side.records.undo();
    }
    channels.txtTSLNumber[0].setText("1,C_RBT");
    EXPECT_NE(refusal(channels.write), "");
    channels.txtTSLNumber[0].setText("");
    EXPECT_THAT(refusal(channels.write), HasSubstr("leaves the old one"));
    page.prefixes.ucTslPrefixes.setCell({1, 0}, "0500");
    EXPECT_THAT(page.prefixes.lblPrfDoubled.text(), HasSubstr("0500 (rows 1 and 2)"));
}

TEST_F(Routing, KeepsTheEditsOfEachAccessListAndSaysWhatTheGatewayLacks) {
    readAll();
    auto& access = page.access;
    access.ucTslAccessE1.setCell({0, 1}, "0");
    access.cmbTslAccessE1.setIndex(1);
    EXPECT_EQ(access.ucTslAccessE1.heading(0), "Incoming ISDN Call(CLIP)");
    EXPECT_FALSE(access.cmdTslWriteAccGSM.enabled());
    access.chkNumList.setChecked(false);
    gateway.faults().perMnemonic["C_IIL"].refuse = simulator::Refusal::alarm;
    boxes.answers = {Button::Ignore, Button::Abort};
    EXPECT_THAT(sentBy(access.write), ElementsAre("C_IIL000,0,0", testing::StartsWith("C_IIL001,")));
    EXPECT_THAT(access.records.word(),
                HasSubstr("block: 1, rows 1 to 9 (refused), Access to GSM block: 2, rows 10 to 12 (not sent)"));
    EXPECT_EQ(kept.fromIsdn.unlisted, "1");
    EXPECT_FALSE(access.chkNumList.checked());
    access.cmbTslAccessE1.setIndex(0);
    EXPECT_EQ(access.ucTslAccessE1.cell(0, 1), "0");
    access.cmdTslWriteAccGSM.press();
    access.cmbTslAccessE1.setIndex(1);
    bench.advance(20000);
    EXPECT_EQ(kept.fromGsm.rows[0][1], "0");
    EXPECT_THAT(page.unwritten(Page::Edits::All), ElementsAre("Routing: Incoming ISDN Call(CLIP)"));
}

TEST_F(Routing, WritesDirectLinesEntryByEntryAndNeverErasesByAccident) {
    readAll();
    auto& lines = page.directLines;
    lines.ucDela.setCell({0, 2}, "299");
    lines.ucDela.setCell({2, 3}, "");  // no limit any more
    lines.ucDela.removeRows({4});
    lines.ucDela.setCell({8, 1}, "77");
    lines.ucDela.setCell({8, 2}, "88");
    lines.ucDela.setCell({8, 3}, "5");
    const auto held = kept.directLines;
    EXPECT_THAT(sentBy(lines.write), ElementsAre("C_DUC001,1," + held.at(1).number + ",299",
                                                 "C_DUC003,1," + held.at(3).number + ",203", "C_DLC005,1,77,88,5"));
    EXPECT_FALSE(lines.records.edited());
    EXPECT_EQ(kept.directLines.size(), 9U);
    lines.ucDela.setCell({1, 2}, "1");
    lines.ucDela.setCell({2, 2}, "2");
    lines.setRow(2);
    EXPECT_THAT(sentBy(lines.cmdDelaWrite), ElementsAre("C_DUC003,1," + held.at(3).number + ",2"));
    EXPECT_TRUE(lines.ucDela.edited({1, 2}));
    boxes.answers = {Button::Yes, Button::No, Button::Yes};
    EXPECT_THAT(sentBy(lines.cmdDelaDelete), ElementsAre("C_DUC003,0"));
    EXPECT_EQ(lines.ucDela.rowCount(), 8U);
    EXPECT_THAT(sentBy(lines.cmdDelaErase), IsEmpty());
    EXPECT_EQ(boxes.shown.back().text, "Are you sure you want to clear the DELA table?");
    EXPECT_THAT(sentBy(lines.cmdDelaErase), ElementsAre("C_DLC"));
    for (const auto& [entry, line] : kept.directLines) EXPECT_EQ(line.calls, "") << entry;
    EXPECT_EQ(lines.ucDela.rowCount(), kept.directLines.size()) << "one of them edited still";
    for (const auto& row : console.routing.directLines.table.rows()) EXPECT_EQ(row[2], "");
    lines.records.undo();
    EXPECT_THAT(sentBy(lines.cmdDELA), ElementsAre("R_DAC", "R_DST", "R_ICL"));
    std::vector<TextRow> rows{{"", "44", "4", ""}};
    for (const auto& [entry, line] : kept.directLines) rows.push_back({"", line.number, line.extension, line.calls});
    lines.ucDela.replaceAll(rows);
    gateway.faults().perMnemonic["C_DUC"].refuse = simulator::Refusal::alarm;
    sentBy(lines.write);
    EXPECT_THAT(lines.records.word(), HasSubstr("Add unlimited DELA call 3 (refused)"));
    gateway.faults().perMnemonic.clear();
    EXPECT_THAT(sentBy(lines.write), ElementsAre("C_DUC003,1,44,4")) << "those that were there keep their places";
}

TEST_F(Routing, AnImportAsksFirstAndSendsNothing) {
    readAll();
    auto& grid = page.prefixes.ucTslPrefixes;
    grid.replaceAll({{"050", "1", "2", "0"}, {"051", "1", "2", "0"}, {"052", "1", "2", "0"}});
    fileWith("\xEF\xBB\xBF\"050\";1;2;0\r\n051;3;2;0\r\n\r\n\"05\r\n3\";1;2;0\r\nPrefix;High;Low\r\n054;4");
    boxes.answers = {Button::No, Button::Yes};
    told();
    page.prefixes.csv.importing.press();
    const auto question = told().at(0);
    for (const auto* part : {"added: 1", "changed: 1", "dropped: 1", "left out: 2", "line 4: ", "line 6: "})
        EXPECT_THAT(question, HasSubstr(part));
    EXPECT_EQ(grid.rowCount(), 3U);
    arrived();
    page.prefixes.csv.importing.press();
    EXPECT_EQ(grid.value(), GridField::valueOf({{"050", "1", "2", "0"}, {"051", "3", "2", "0"}, {"054", "4", "", ""}}));
    EXPECT_THAT(arrived(), IsEmpty());
    grid.undoStep();
    EXPECT_EQ(grid.cell(2, 0), "052");
    fileWith(std::string("05\0,1", 5));
    told();
    page.prefixes.csv.importing.press();
    EXPECT_EQ(told().at(0), "Error Import file !");
    std::string million;
    for (int i = 0; i < 1000000; ++i) million += "1,1,1,1\n";
    EXPECT_EQ(readImport(million, grid, 0).unfitting, 1000000U - 891U);
    const auto path = bench.folder.path() / "out.csv";
    boxes.file = path.string();
    page.prefixes.csv.exporting.press();
    EXPECT_EQ(contentOf(path), "050,1,2,0\r\n051,1,2,0\r\n052,1,2,0\r\n");
    boxes.answers = {Button::No};
    page.prefixes.csv.exporting.press();
    EXPECT_EQ(boxes.shown.back().text, path.string() + "  already exists.\r\nDo you want to replace it?");
}

TEST_F(Routing, EditsOfALostSessionComeBackWithTheirGateway) {
    readAll();
    side.txtTSLPRF[6].setText("9");
    page.prefixes.ucTslPrefixes.setCell({0, 1}, "7");
    bench.platform.peer.closes();
    EXPECT_EQ(side.txtTSLPRF[6].text() + side.lblAllocation.text(), "");
    EXPECT_THAT(page.unwritten(Page::Edits::All),
                ElementsAre(HasSubstr("Port 7 of gateway"), HasSubstr("Prefixes of")));
    kept.prefixes.insert(kept.prefixes.begin(), {"04", "1", "1", "0"});
    bench.logIn(gateway);
    readAll();
    EXPECT_THAT(page.prefixes.records.word(), HasSubstr("something else by now"));
    EXPECT_EQ(side.records.word(), "");
    EXPECT_EQ(side.txtTSLPRF[6].text() + page.prefixes.ucTslPrefixes.cell(0, 1), "97");
    EXPECT_THAT(page.unwritten(Page::Edits::OfThisSession), ElementsAre("Routing: Port 7", "Routing: Prefixes"));
}

TEST(RoutingTrial, FollowsTheTables) {
    RoutingPicture picture;
    picture.mode = 1;
    picture.byPrefix = true;
    picture.prefixDigits = 4;
    picture.modifies = true;
    for (auto& port : picture.ports) port = {true, true, 0, "1"};
    picture.ports[6].group = "2";
    picture.ports[7] = {true, false, 0, "3"};
    picture.ports[8] = {true, true, 31, "2"};
    picture.prefixes = {{{"05", "1", "2", "0"},
                         {"050", "2", "9", "0"},
                         {"06", "3", "", ""},
                         {"07", "8", "", ""},
                         {"050", "8", "", ""}}};
    picture.modifications = {{{"0", "+999"}, {"050", "1"}}};
    picture.fromIsdn = {true, false, {{"77", "1"}, {"78", "0"}}};
    picture.causes.assign(16, "21");
    picture.channels.fill(true);
    picture.channels[1] = false;
    struct Case {
        const char* dialled;
        const char* caller;
        int line;
        std::vector<const char*> parts;
    };
    const auto check = [&picture](const std::vector<Case>& cases) {
        for (const auto& one : cases) {
            std::string all;
            for (const auto& step : tryNumber(picture, one.dialled, one.caller, one.line)) all += step + "\n";
            for (const auto* part : one.parts) EXPECT_THAT(all, HasSubstr(part)) << one.dialled;
        }
    };
    check({{"05012",
            "77",
            0,
            {"Row 2 takes it: prefix 050", "group 2, cyclic over ports 7.", "group 9, no port", "dials 112."}},
           {"0512", "77", 0, {"Row 1", "dials +999512."}},
           {"06", "77", 0, {"Disabled Port", "Prefix Group is without Ports, cause 21."}},
           {"09", "77", 0, {"No prefix", "Prefix is not defined, cause 21."}},
           {"05", "78", 0, {"row 2 of the access list, disabled", "CLI not in list"}},
           {"05", "", 0, {"without a number is not in", "CLI not in list"}},
           {"05", "77", 2, {"Disabled B-channel"}}});
    picture.fromIsdn.reset();
    picture.byPrefix = false;
    check({{"05", "", 0, {"was not read", "Cyclic allocation over all ports: 1, 2, 3,"}}});
    picture.mode = 0;
    picture.ports[4].line = 3;
    picture.ports[5] = {false, true, 4, ""};
    check({{"05", "", 0, {"Say which channel"}},
           {"05", "", 3, {"bound to port 5"}},
           {"05", "", 4, {"Port is not present"}},
           {"05", "", 9, {"no port is bound", "No Free Ports"}}});
}

}  // namespace
}  // namespace trunvex::fakes
