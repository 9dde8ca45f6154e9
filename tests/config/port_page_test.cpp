#include "config/settings_bench.h"

namespace trunvex {
namespace {

using Outcome = GroupWrite::Outcome;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class PortPageTest : public fakes::SettingsBench {
protected:
    std::string field(std::size_t at) { return simulator::splitFields(port.WriteMod(port.shownKey(), false)).at(at); }
    // The gateway reports port 1 with these levels.
    void report(const std::string& tx, const std::string& rx) {
        bench.receive("A_MOD11,,,,60," + tx + "," + rx + ",3,16,60,0,50,0,0,30,00000000");
    }
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
        press(port.cmdModRefresh_);
        port.chkIncGrpMod[IncMinDigits].setChecked(true);
        port.TxtMinDigits.setText("7");
        port.cmdWritePort.press();
    }
};

TEST_F(PortPageTest, WritesItsLineAndShowsWhatTheGatewayTook) {
    select("MOD11");
    EXPECT_EQ(port.WriteMod("MOD11", false), "C_MOD11,,,,120,0,51,3,16,60,0,50,0,0,30,,,");
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
    EXPECT_EQ(module("11").settings.switchFlags, "120");
}

TEST_F(PortPageTest, TurnsLevelsIntoCodesAndBack) {
    select("MOD11");
    const std::vector<std::array<std::string, 3>> codes{{"", "3", "51"},  {"0", "250", "99"}, {"1", "252", "83"},
                                                        {"2", "254", "67"}, {"3", "0", "51"},   {"4", "2", "35"},
                                                        {"5", "4", "19"},   {"6", "6", "9"}};
    for (const auto& [position, tx, rx] : codes) {
        port.SldTXvol.setValue(position);
        port.SldRXvol.setValue(position);
        EXPECT_EQ(field(5) + " " + field(6), tx + " " + rx) << position;
        if (position.empty()) continue;
        report("0", "51");
        port.form.undo();
        report(tx, std::to_string(16 * (6 - std::stoi(position))));
        EXPECT_EQ(port.SldTXvol.value() + port.SldRXvol.value(), position + position);
        report("3", "112");  // on no scale: the levers stay
        EXPECT_EQ(port.SldTXvol.value() + port.SldRXvol.value(), position + position);
        report("", std::to_string(16 * (6 - std::stoi(position)) + 15));
        EXPECT_EQ(port.SldTXvol.value() + port.SldRXvol.value(), position + position);
    }
    EXPECT_EQ(port.lblModuleType.text(), "WaveCom");
    select("MOD12");
    EXPECT_EQ(port.lblModuleType.text(), "Siemens");
    EXPECT_TRUE(port.SldTX_SE.visible() && !port.SldTXvol.visible());
    EXPECT_EQ(port.SldTX_SE.value() + port.SldRX_SE.value(), "42");
    port.SldTX_SE.setPosition(0);
    EXPECT_EQ(field(5) + field(6), "42");
}

constexpr const char* noReg = "ERROR: 'No REG Timer' have to be number between (60-255) or 0 for disable";
constexpr const char* maxBelowMin = "ERROR: Max Digit have to be bigger then Min Digit";
constexpr const char* relax = "ERROR: Relax Time have to be less than 5 seconds";
constexpr const char* swapping = "ERROR: 'SIM Swapping' have to be number between (1-255)";

TEST_F(PortPageTest, RefusesWhatIsBeyondALimit) {
    select("MOD11");
    port.cmbSimSwitching.setIndex(1);  // the way for which the swapping time counts
    EXPECT_EQ(refusal(port.cmdWritePort), "");
    expectLimits(port.form, port.cmdWritePort,
                 {{port.txtNoRegTimer, "59", noReg},          {port.txtNoRegTimer, "60", ""},
                  {port.txtNoRegTimer, "256", noReg},         {port.txtNoRegTimer, "255", ""},
                  {port.txtNoRegTimer, "1", noReg},           {port.txtNoRegTimer, "0", ""},
                  {port.TxtMaxDigits, "2", maxBelowMin},      {port.TxtMaxDigits, "4", "ERROR: Max Digit"},
                  {port.TxtMaxDigits, "5", ""},               {port.TxtMaxDigits, "33", "ERROR: Max Digit"},
                  {port.TxtMaxDigits, "32", ""},              {port.TxtMaxDigits, "", maxBelowMin},
                  {port.TxtMinDigits, "1", "ERROR: Min Digit"}, {port.TxtMinDigits, "2", ""},
                  {port.TxtMinDigits, "8", "ERROR: Min Digit"}, {port.TxtMinDigits, "7", ""},
                  {port.TxtMinDigits, "", "ERROR: Min Digit"},
                  {port.TxtIntDigPause, "0", "ERROR: Int Dig Pause"}, {port.TxtIntDigPause, "1", ""},
                  {port.TxtIntDigPause, "201", "ERROR: Int Dig Pause"}, {port.TxtIntDigPause, "200", ""},
                  {port.TxtIntDigPause, "", "ERROR: Int Dig Pause"},
                  {port.cmbRelaxTime, "5.02", relax},         {port.cmbRelaxTime, "5", ""},
                  {port.cmbRelaxTime, "-1", relax},           {port.cmbRelaxTime, "0", ""},
                  {port.cmbRelaxTime, "5.0000000001", relax}, {port.cmbRelaxTime, "1e0", relax},
                  {port.txtSimSwap, "0", swapping},           {port.txtSimSwap, "1", ""},
                  {port.txtSimSwap, "256", swapping},         {port.txtSimSwap, "255", ""}});
    EXPECT_EQ(module("11").settings.relaxTime, "0");
    expectNoBreakingOut(port.form, port.cmdWritePort,
                        {&port.TxtMinDigits, &port.TxtMaxDigits, &port.TxtIntDigPause, &port.cmbRelaxTime,
                         &port.txtNoRegTimer, &port.txtSimSwap});
}

TEST_F(PortPageTest, NamesTheFirstOfManyFaults) {
    select("MOD11");
    port.cmbSimSwitching.setIndex(1);
    port.TxtMinDigits.setText("8");
    expectOrder(port.cmdWritePort, {{port.txtNoRegTimer, "x", "0", noReg},
                                    {port.TxtMaxDigits, "7", "33", maxBelowMin},
                                    {port.TxtMinDigits, "8", "7", "ERROR: Min Digit"},
                                    {port.TxtMaxDigits, "7", "32", "ERROR: Max Digit"},
                                    {port.TxtIntDigPause, "x", "9", "ERROR: Int Dig Pause"},
                                    {port.cmbRelaxTime, "6", "5", relax},
                                    {port.txtSimSwap, "x", "9", swapping}});
    port.TxtMinDigits.setText("7");
    port.TxtMaxDigits.setText("6");
    EXPECT_EQ(refusal(port.cmdWritePort), maxBelowMin);
    port.TxtMinDigits.setText("6");
    EXPECT_EQ(refusal(port.cmdWritePort), "");
    EXPECT_EQ(port.TxtMaxDigits.problem(), "") << "the fault has gone with the other field";
}

TEST_F(PortPageTest, SendsAGreyedSwappingTimeAsTheGatewayHoldsIt) {
    select("MOD11");
    EXPECT_FALSE(port.txtSimSwap.enabled());
    port.cmbSimSwitching.setText("SIM Swapping");
    port.txtSimSwap.setText("99");
    EXPECT_EQ(field(12) + " " + field(14), "32 99");
    port.cmbSimSwitching.setText("Purse with option 2");
    EXPECT_EQ(field(12) + " " + field(14), "40 30");
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
    select("ERR14");
    EXPECT_EQ(port.lblPortCaption.text(), "Port 4: Port not found");
    EXPECT_FALSE(port.cmdWritePort.enabled() || port.framRX_TX.visible());
}

TEST_F(PortPageTest, RefusesToWriteWhatWasNeverRead) {
    simulator::switchOn(gateway.faults(), "silent");
    console.mainWindow.openPage("main");
    tree.tvGroups[0].select("MOD21");
    arrived();
    port.cmdWritePort.press();
    EXPECT_THAT(notice(), HasSubstr("has not been read yet"));
    EXPECT_THAT(arrived(), IsEmpty());
}

TEST_F(PortPageTest, WritesToAGroupWhatIsMarkedToEachMemberInItsWay) {
    for (const auto* member : {"MOD11", "MOD12", "MOD13"}) select(member);
    group({"MOD11", "MOD12", "CDM13"});
    select("MDD01");
    EXPECT_EQ(port.lblPortCaption.text(), "Groups 1 Ports: 1, 2, 3");
    EXPECT_EQ(port.TxtMinDigits.standing(), InputField::Standing::Free);
    arrived();
    press(port.cmdWritePort);
    EXPECT_THAT(notice(), HasSubstr("Nothing is marked"));
    port.chkIncGrpMod[IncLevels].setChecked(true);
    port.chkIncGrpMod[IncRelaxTime].setChecked(true);
    port.SldTXvol.setPosition(6);
    port.SldRXvol.setPosition(0);
    port.SldTX_SE.setPosition(1);
    port.SldRX_SE.setPosition(4);
    port.cmbRelaxTime.setText("0.5");
    port.TxtMinDigits.setText("not marked, not looked at");
    press(port.cmdWritePort);
    EXPECT_THAT(arrived(), ElementsAre("C_MOD11,,,,,6,99,,,,,25,,0,,,,", "C_MOD12,,,,,3,0,,,,,25,,0,,,,",
                                       "C_MOD13,1,,,,,,,,,,25,,0,,,,"));
    EXPECT_EQ(pages.groupWrite.summary(), "3 of 3 written");
    EXPECT_EQ(console.tables.port(1, 1).MinDigits, "3");
    port.chkIncGrpMod[IncMinDigits].setChecked(true);
    EXPECT_EQ(refusal(port.cmdWritePort), "ERROR: Min Digit") << "once, not for each member";
    port.TxtMinDigits.setText("3");
    press(port.cmdModRefresh_);
    EXPECT_THAT(arrived(), IsEmpty()) << "the edits stay, unless the operator lets them go";
    boxes.answers = {Button::Yes};
    press(port.cmdModRefresh_);
    EXPECT_THAT(arrived(), ElementsAre("R_MOD11", "R_MOD12", "R_MOD13"));
}

TEST_F(PortPageTest, SendsEachFieldBehindItsOwnBox) {
    select("MOD11");
    group({"MOD11"});
    select("MDD01");
    const std::vector<std::string> lines{"C_MOD11,,,,,,,3,,,,,,0,,,,", "C_MOD11,,,,,,,,16,,,,,0,,,,",
                                         "C_MOD11,,,,,,,,,60,,,,0,,,,", "C_MOD11,,,,,,,,,,0,,,0,,,,",
                                         "C_MOD11,,,,,,,,,,,50,,0,,,,", "C_MOD11,,,,,0,51,,,,,,,0,,,,",
                                         "C_MOD11,,,,120,,,,,,,,,0,,,,", "C_MOD11,,,,,,,,,,,,0,0,30,,,"};
    for (std::size_t box = 0; box < includedPortFields; ++box) {
        port.chkIncGrpMod[box].setChecked(true);
        EXPECT_EQ(port.WriteMod("MOD11", false), lines.at(box));
        port.chkIncGrpMod[box].setChecked(false);
    }
    EXPECT_EQ(port.WriteMod("MDD01", false), "C_MOD01,,,,,,,,,,,,,0,,,,");
}

TEST_F(PortPageTest, TellsWhichMembersGotAGroupWrite) {
    boxes.answers = {Button::Ignore};
    writeSevenDigits();
    settle();
    EXPECT_THAT(outcomes(), ElementsAre(Outcome::Written, Outcome::Refused, Outcome::Written));
    EXPECT_EQ(pages.groupWrite.members()[1].name, "Port 2");
    EXPECT_THAT(told(), ElementsAre("Error: can't write : \r\nPort 2\r\nplease check your data.",
                                    "Write data not complete seccesful : \r\nPort 2\r\n"));
    EXPECT_EQ(module("12").settings.minDigits + console.tables.port(1, 2).MinDigits, "33");
    EXPECT_EQ(module("21").settings.minDigits, "7");
    select("MOD12");
    select("MDD01");
    EXPECT_EQ(pages.groupWrite.groupKey(), "MDD01") << "it can be looked at again";
}

TEST_F(PortPageTest, StopsAGroupWriteWhereTheOperatorAborts) {
    boxes.answers = {Button::Abort};
    writeSevenDigits();
    settle();
    EXPECT_THAT(outcomes(), ElementsAre(Outcome::Written, Outcome::Refused, Outcome::NotSent));
    EXPECT_EQ(pages.groupWrite.summary(), "1 of 3 written");
    EXPECT_EQ(module("21").settings.minDigits, "3");
}

TEST_F(PortPageTest, KnowsWhatALostLinkLeavesOpen) {
    simulator::switchOn(gateway.faults(), "C_MOD:latency=300-300");
    writeSevenDigits();
    bench.advance(350);
    EXPECT_THAT(outcomes(), ElementsAre(Outcome::Written, Outcome::Waiting, Outcome::Waiting));
    bench.platform.socket->peerCloses();
    EXPECT_THAT(outcomes(), ElementsAre(Outcome::Written, Outcome::NoAnswer, Outcome::NotSent));
    EXPECT_THAT(notice(), HasSubstr("Not written: Port 2 and 1 more"));
    EXPECT_FALSE(port.cmdWritePort.enabled());
}

TEST_F(PortPageTest, FindsNobodyInAnEmptyGroup) {
    group({});
    select("PRT01");
    port.chkIncGrpMod[IncLevels].setChecked(true);
    EXPECT_EQ(refusal(port.cmdWritePort), "There is no ports in this group!!");
    EXPECT_THAT(outcomes(), IsEmpty());
}

}  // namespace
}  // namespace trunvex
