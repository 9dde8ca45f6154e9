#include "config/settings_bench.h"

namespace trunvex::fakes {
namespace {

using Outcome = GroupWrite::Outcome;

class PortPageTest : public SettingsBench {
protected:
    std::string field(std::size_t at) { return fieldOf(port.WriteMod(port.shownKey(), false), at); }
    std::vector<Outcome> outcomes() {
        std::vector<Outcome> all;
        for (const auto& member : pages.groupWrite.members()) all.push_back(member.outcome);
        return all;
    }
    // A group of three that are to have at least seven digits, of which the second allows six at most.
    void writeSevenDigits() {
        elsewhere("C_MOD12,,,,,,,,6,,,,,,,,");
        group({"MOD11", "MOD12", "MOD21"});
        select("MDD01");
        EXPECT_THAT(port.lblPortHint.text(), HasSubstr("Not read yet: port "));
        port.cmdModRefresh.press();
        port.chkIncGrpMod[IncMinDigits].setChecked(true);
        port.TxtMinDigits.setText("7");  // and what is read then leaves it alone
        settle();
        EXPECT_EQ(port.lblPortHint.text() + port.TxtMinDigits.text(), "7");
        port.cmdWritePort.press();
        EXPECT_FALSE(port.cmdWritePort.enabled()) << "a second press is most often the same one";
    }
};

TEST_F(PortPageTest, WritesItsLineAndShowsWhatTheGatewayTook) {
    select("MOD11");
    EXPECT_EQ(port.WriteMod("MOD11", false).line, "C_MOD11,,,,120,0,51,3,16,60,0,50,0,0,30,,,");
    port.TxtMaxDigits.setText("017");
    port.txtNoRegTimer.setText(" 60 ");
    port.cmbRelaxTime.setText("1.509");
    port.cmbSimSwitching.setText("Purse with option 4");
    port.cmbCallReject.setText("Reject");
    port.SldTXvol.setPosition(0);
    EXPECT_EQ(port.TxtMaxDigits.standing(), InputField::Standing::Edited);
    arrived();
    press(port.cmdWritePort);
    EXPECT_THAT(arrived(), ElementsAre("C_MOD11,,,,60,250,51,3,017,60,0,75,120,0,30,,,"));
    EXPECT_FALSE(port.form.edited()) << "017 and 1.509 are written, whatever the spelling";
    EXPECT_EQ(port.TxtMaxDigits.text() + " " + port.cmbRelaxTime.text(), "17 1.5");
    EXPECT_THAT(port.form.word(), testing::MatchesRegex("Port 1 written [0-9:]+"));
    port.txtNoRegTimer.setText("");
    EXPECT_EQ(port.lblPortRemark.text() + port.form.word(),
              "Empty, so the gateway keeps what it has: No registration timer.");
    port.txtNoRegTimer.setText("61");
    simulator::switchOn(gateway.faults(), "C_MOD:refuse=error");
    boxes.answers = {Button::Cancel};
    press(port.cmdWritePort);
    EXPECT_THAT(port.form.word(), HasSubstr("Port 1 not written, the gateway refused it, "));
    EXPECT_TRUE(port.form.edited());
}

TEST_F(PortPageTest, TurnsLevelsIntoCodesAndBack) {
    select("MOD11");
    EXPECT_EQ(port.lblModuleType.text(), "WaveCom");
    for (const auto& [position, codes] : {std::pair{"", "3 51"}, {"6", "6 9"}}) {  // "": no position
        port.SldTXvol.setValue(position);
        port.SldRXvol.setValue(position);
        EXPECT_EQ(field(5) + " " + field(6), codes);
    }
    for (const auto& [tx, rx] : {std::pair{"6", "9"}, {"3", "112"}, {"", ""}}) {  // on no scale: the levers stay
        bench.receive(std::string("A_MOD11,,,,60,") + tx + "," + rx + ",3,16,60,0,50,0,0,30,00000000");
        port.form.undo();
        EXPECT_EQ(port.SldTXvol.value() + port.SldRXvol.value(), "66");
    }
    select("MOD12");
    EXPECT_EQ(port.lblModuleType.text(), "Siemens");
    EXPECT_TRUE(port.SldTX_SE.visible() && !port.SldTXvol.visible());
    EXPECT_EQ(port.SldTX_SE.value() + port.SldRX_SE.value(), "42");
    port.SldTX_SE.setPosition(1);
    EXPECT_EQ(field(5) + field(6), "32");
}

TEST_F(PortPageTest, ChecksItsFields) {
    constexpr const char* maxBelowMin = "ERROR: Max Digit have to be bigger then Min Digit";
    select("MOD11");
    port.cmbSimSwitching.setIndex(1);  // the way for which the swapping time counts
    EXPECT_EQ(refusal(port.cmdWritePort), "");
    expectChecks(
        port.form, port.cmdWritePort,
        {{port.txtNoRegTimer,
          {"59", "256", "1"},
          "0",
          "ERROR: 'No REG Timer' have to be number between (60-255) or 0 for disable"},
         {port.TxtMaxDigits, {"2", ""}, "33", maxBelowMin},
         {port.TxtMinDigits, {"8", "1", ""}, "7", "ERROR: Min Digit"},
         {port.TxtMaxDigits, {"33", "4"}, "32", "ERROR: Max Digit"},
         {port.TxtIntDigPause, {"0", "201", ""}, "9", "ERROR: Int Dig Pause"},
         {port.cmbRelaxTime, {"5.02", "-1", "5.0000000001"}, "5", "ERROR: Relax Time have to be less than 5 seconds"},
         {port.txtSimSwap, {"0", "256"}, "9", "ERROR: 'SIM Swapping' have to be number between (1-255)"}});
    EXPECT_EQ(module("11").settings.relaxTime + module("11").settings.noRegTimer, "2500");
    port.TxtMaxDigits.setText("6");
    EXPECT_EQ(refusal(port.cmdWritePort), maxBelowMin);
    port.TxtMinDigits.setText("6");
    EXPECT_EQ(refusal(port.cmdWritePort), "");
    EXPECT_EQ(port.TxtMaxDigits.problem(), "") << "the fault has gone with the other field";
    port.txtSimSwap.setText("99");
    port.cmbSimSwitching.setText("Purse with option 2");
    EXPECT_EQ(field(12) + " " + field(14), "40 9") << "greyed, it is what the gateway holds";
}

// What the gateway holds is no fault of the operator's, whatever it is.
TEST_F(PortPageTest, WritesOneFieldBesideAnythingThatIsHeld) {
    select("MOD11");
    bench.receive("A_MOD11,,,,7,3,112,9,4,900,5,9999,16,0,999,00000000");
    port.TxtIntDigPause.setText("5");
    port.cmbCallReject.setIndex(1);
    EXPECT_EQ(port.WriteMod("MOD11", false).line, "C_MOD11,,,,7,3,112,9,4,5,5,,80,0,999,,,");
    port.TxtMinDigits.setText("3");
    EXPECT_EQ(port.WriteMod("MOD11", false).word, "") << "4 stays not less than 3";
    select("SIM111");
    bench.receive("A_SIM111,+x\"y,999999999,,9,99999,70000,00000,99,5,9999999,99995923,127,,,,,,,200,1");
    sim.txtPhoneNum.setText("1");
    EXPECT_EQ(sim.build("SIM111", true).line,
              "C_SIM111,1,999999999,,9,99999,70000,0,99,5,9999999,99995923,127,00000000,0,00000000,0,00000000,0,200,");
    bench.receive("A_ISDISM 4,5,9,7,999,99,0,0,12345678901,ABC,9,99,7,7,1,999,3");
    isdn.cmbISD[1].setIndex(1);
    EXPECT_EQ(isdn.buildLine(false), "C_ISD5,9,7,999,99,0,0,12345678901,ABC,9,99,7,1,1,999");
    EXPECT_THAT(told(), IsEmpty());
    console.session.dispatcher.AnalyzeCmd("C_MOD22,,,,61,,,,,,,,,,,,,", true);
    EXPECT_FALSE(console.tables.port({2, 2}).loaded()) << "written to is not read";
}

TEST_F(PortPageTest, GivesACdmaPortNoLevels) {
    select("MOD13");
    EXPECT_EQ(port.shownKey(), "CDM13") << "its record told what it is";
    EXPECT_EQ(port.lblPortCaption.text(), "Port 3 Setting");
    EXPECT_FALSE(port.framRX_TX.visible());
    arrived();
    press(port.cmdWritePort);
    EXPECT_THAT(arrived(), ElementsAre("C_MOD13,1,,,120,,,3,16,60,0,50,0,0,30,,,"));
    EXPECT_THAT(told(), IsEmpty());
    sim.show("SIM132");
    EXPECT_EQ(sim.lblSimCaption.text(), "Port 3: Port not found") << "nor a SIM";
    EXPECT_FALSE(sim.cmdWriteSIM.enabled());
    for (const auto* key : {"MOD11", "ERR14"}) select(key);
    EXPECT_EQ(port.lblPortCaption.text(), "Port 4: Port not found");
    EXPECT_FALSE(port.cmdWritePort.enabled() || port.framRX_TX.visible());
}

TEST_F(PortPageTest, WritesToAGroupWhatIsMarkedToEachMemberInItsWay) {
    group({});
    select("PRT01");
    EXPECT_EQ(port.lblPortHint.text(), "This group has no ports.");
    port.chkIncGrpMod[IncLevels].setChecked(true);
    EXPECT_EQ(refusal(port.cmdWritePort), "There is no ports in this group!!");
    for (const auto* member : {"MOD11", "MOD12", "MOD13"}) select(member);
    for (const auto* member : {"MOD11", "MOD12", "CDM13"}) tree.movePort(member, "PRT01");
    select("MDD01");
    EXPECT_EQ(port.lblPortCaption.text(), "Groups 1 Ports: 1, 2, 3");
    EXPECT_EQ(port.TxtMinDigits.standing(), InputField::Standing::Free);
    EXPECT_EQ(port.SldTXvol.value() + port.SldTX_SE.value() + port.SldRX_SE.value(), "342");
    EXPECT_TRUE(port.chkIncGrpMod[IncLevels].checked()) << "as it was left at the group's other node";
    port.chkIncGrpMod[IncLevels].setChecked(false);
    arrived();
    press(port.cmdWritePort);
    EXPECT_THAT(notice(), HasSubstr("Nothing is marked"));
    port.SldTXvol.setPosition(6);
    port.SldRXvol.setPosition(0);
    port.SldTX_SE.setPosition(1);
    port.SldRX_SE.setPosition(4);
    port.cmbRelaxTime.setText("0.5");
    port.TxtMinDigits.setText("not looked at");
    EXPECT_TRUE(port.chkIncGrpMod[IncMinDigits].checked() && port.chkIncGrpMod[IncRelaxTime].checked());
    port.chkIncGrpMod[IncMinDigits].setChecked(false);
    port.chkIncGrpMod[IncNoRegTimer].setChecked(true);
    port.txtNoRegTimer.setText("");
    select("MOD11");
    select("GRP01");  // and what was typed and marked is there still
    EXPECT_EQ(port.lblPortRemark.text(),
              "Changed, but not marked to be written: Minimum digits. "
              "Empty, so the gateway keeps what it has: No registration timer.");
    arrived();
    press(port.cmdWritePort);
    EXPECT_THAT(arrived(), ElementsAre("C_MOD11,,,,,6,99,,,,,25,,0,,,,", "C_MOD12,,,,,3,0,,,,,25,,0,,,,",
                                       "C_MOD13,1,,,,,,,,,,25,,0,,,,"));
    EXPECT_EQ(pages.groupWrite.summary(), "3 of 3 written");
    EXPECT_TRUE(port.form.edited(port.TxtMinDigits) && port.form.edited(port.txtNoRegTimer));
    EXPECT_FALSE(port.form.edited(port.cmbRelaxTime) || port.form.edited(port.SldTX_SE));
    EXPECT_THAT(port.form.word(), testing::MatchesRegex("3 of 3 written [0-9:]+"));
    port.SldTX_SE.setValue("");
    port.chkIncGrpMod[IncLevels].setChecked(true);
    EXPECT_THAT(port.lblPortRemark.text(), testing::Not(HasSubstr("Levels"))) << "those of the first scale are sent";
    for (auto& box : port.chkIncGrpMod) box.setChecked(&box == &port.chkIncGrpMod[IncNoRegTimer]);
    console.session.tell("");
    press(port.cmdWritePort);
    EXPECT_THAT(notice(), HasSubstr("what is marked is empty"));
    EXPECT_THAT(arrived(), IsEmpty());
    port.TxtMinDigits.setText("8");
    EXPECT_EQ(refusal(port.cmdWritePort), "ERROR: Min Digit") << "once, not for each member";
    boxes.answers = {Button::Yes};
    press(port.cmdModRefresh);
    EXPECT_THAT(arrived(), ElementsAre("R_MOD11", "R_MOD12", "R_MOD13"));
    tree.movePort("MOD21", "PRT01");
    EXPECT_EQ(port.lblPortCaption.text(), "Groups 1 Ports: 1, 2, 3, 5");
    tree.movePort("ERR14", "PRT01");
    EXPECT_THAT(port.lblPortHint.text(), HasSubstr("No module, so left out: port 4."));
    boxes.answers = {Button::Yes};
    arrived();
    press(port.cmdModRefresh);
    EXPECT_THAT(arrived(), ElementsAre("R_MOD11", "R_MOD12", "R_MOD13", "R_MOD21"));
}

TEST_F(PortPageTest, SendsEachFieldBehindItsOwnBox) {
    select("MOD11");
    group({"MOD11"});
    select("MDD01");
    expectBoxes(port, {"C_MOD11,,,,,,,3,,,,,,0,,,,", "C_MOD11,,,,,,,,16,,,,,0,,,,", "C_MOD11,,,,,,,,,60,,,,0,,,,",
                       "C_MOD11,,,,,,,,,,0,,,0,,,,", "C_MOD11,,,,,,,,,,,50,,0,,,,", "C_MOD11,,,,,0,51,,,,,,,0,,,,",
                       "C_MOD11,,,,120,,,,,,,,,0,,,,", "C_MOD11,,,,,,,,,,,,0,0,30,,,"});
}

TEST_F(PortPageTest, TellsWhichMembersGotAGroupWrite) {
    boxes.answers = {Button::Ignore};
    writeSevenDigits();
    settle();
    EXPECT_THAT(outcomes(), ElementsAre(Outcome::Written, Outcome::Refused, Outcome::Written));
    EXPECT_EQ(pages.groupWrite.members()[1].name, "Port 2");
    EXPECT_THAT(told(), ElementsAre("Error: can't write : \r\nPort 2\r\nplease check your data.",
                                    "Write data not complete seccesful : \r\nPort 2\r\n"));
    EXPECT_EQ(bench.panelText(), "Connected        ");
    EXPECT_EQ(module("12").settings.minDigits + console.tables.port({1, 2}).MinDigits, "33");
    EXPECT_EQ(module("21").settings.minDigits + console.tables.port({2, 1}).MinDigits, "77");
    boxes.answers = {Button::Abort};
    press(port.cmdWritePort);
    EXPECT_THAT(outcomes(), ElementsAre(Outcome::Written, Outcome::Refused, Outcome::NotSent));
    EXPECT_EQ(pages.groupWrite.summary(), "1 of 3 written");
}

TEST_F(PortPageTest, KnowsWhatALostLinkLeavesOpen) {
    simulator::switchOn(gateway.faults(), "C_MOD:latency=300-300");
    writeSevenDigits();
    bench.advance(350);
    EXPECT_THAT(outcomes(), ElementsAre(Outcome::Written, Outcome::Waiting, Outcome::Waiting));
    bench.platform.peer.closes();
    EXPECT_THAT(outcomes(), ElementsAre(Outcome::Written, Outcome::NoAnswer, Outcome::NotSent));
    EXPECT_THAT(notice(), HasSubstr("Not written: Port 2 and 1 more"));
    EXPECT_FALSE(port.cmdWritePort.enabled());
}

}  // namespace
}  // namespace trunvex::fakes
