#include "config/settings_bench.h"

namespace trunvex {
namespace {

using Outcome = GroupWrite::Outcome;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* noReg = "ERROR: 'No REG Timer' have to be number between (60-255) or 0 for disable";
constexpr const char* maxBelowMin = "ERROR: Max Digit have to be bigger then Min Digit";
constexpr const char* minDigits = "ERROR: Min Digit";
constexpr const char* maxDigits = "ERROR: Max Digit";
constexpr const char* pause = "ERROR: Int Dig Pause";
constexpr const char* relax = "ERROR: Relax Time have to be less than 5 seconds";
constexpr const char* swapping = "ERROR: 'SIM Swapping' have to be number between (1-255)";

class PortPageTest : public fakes::SettingsBench {
protected:
    std::string field(std::size_t at) { return simulator::splitFields(port.WriteMod(port.shownKey(), false)).at(at); }
    // Port 1 reports these levels; the page has them then, whatever was edited.
    void report(const std::string& tx, const std::string& rx) {
        bench.receive("A_MOD11,,,,60," + tx + "," + rx + ",3,16,60,0,50,0,0,30,00000000");
        port.form.undo();
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
}

TEST_F(PortPageTest, TurnsLevelsIntoCodesAndBack) {
    select("MOD11");
    EXPECT_EQ(port.lblModuleType.text(), "WaveCom");
    const std::vector<std::array<std::string, 3>> codes{{"", "3", "51"},    {"0", "250", "99"}, {"1", "252", "83"},
                                                        {"2", "254", "67"}, {"3", "0", "51"},   {"4", "2", "35"},
                                                        {"5", "4", "19"},   {"6", "6", "9"}};
    for (const auto& [position, tx, rx] : codes) {
        port.SldTXvol.setValue(position);
        port.SldRXvol.setValue(position);
        EXPECT_EQ(field(5) + " " + field(6), tx + " " + rx) << position;
        if (position.empty()) continue;
        const auto band = 16 * (6 - std::stoi(position));
        report(tx, std::to_string(band));
        EXPECT_EQ(port.SldTXvol.value() + port.SldRXvol.value(), position + position);
        report("3", "112");  // on no scale: the levers stay
        report("", std::to_string(band + 15));
        EXPECT_EQ(port.SldTXvol.value() + port.SldRXvol.value(), position + position);
    }
    select("MOD12");
    EXPECT_EQ(port.lblModuleType.text(), "Siemens");
    EXPECT_TRUE(port.SldTX_SE.visible() && !port.SldTXvol.visible());
    EXPECT_EQ(port.SldTX_SE.value() + port.SldRX_SE.value(), "42");
    port.SldTX_SE.setPosition(1);
    EXPECT_EQ(field(5) + field(6), "32");
}

TEST_F(PortPageTest, RefusesWhatIsBeyondALimit) {
    select("MOD11");
    port.cmbSimSwitching.setIndex(1);  // the way for which the swapping time counts
    EXPECT_EQ(refusal(port.cmdWritePort), "");
    expectLimits(port.form, port.cmdWritePort,
                 {{port.txtNoRegTimer, "59", noReg},     {port.txtNoRegTimer, "60", ""},
                  {port.txtNoRegTimer, "256", noReg},    {port.txtNoRegTimer, "255", ""},
                  {port.txtNoRegTimer, "1", noReg},      {port.txtNoRegTimer, "0", ""},
                  {port.TxtMaxDigits, "2", maxBelowMin}, {port.TxtMaxDigits, "4", maxDigits},
                  {port.TxtMaxDigits, "5", ""},          {port.TxtMaxDigits, "33", maxDigits},
                  {port.TxtMaxDigits, "32", ""},         {port.TxtMaxDigits, "", maxBelowMin},
                  {port.TxtMinDigits, "1", minDigits},   {port.TxtMinDigits, "2", ""},
                  {port.TxtMinDigits, "8", minDigits},   {port.TxtMinDigits, "7", ""},
                  {port.TxtMinDigits, "", minDigits},    {port.TxtIntDigPause, "", pause},
                  {port.TxtIntDigPause, "0", pause},     {port.TxtIntDigPause, "1", ""},
                  {port.TxtIntDigPause, "201", pause},   {port.TxtIntDigPause, "200", ""},
                  {port.cmbRelaxTime, "5.02", relax},    {port.cmbRelaxTime, "5", ""},
                  {port.cmbRelaxTime, "-1", relax},      {port.cmbRelaxTime, "5.0000000001", relax},
                  {port.txtSimSwap, "0", swapping},      {port.txtSimSwap, "1", ""},
                  {port.txtSimSwap, "256", swapping},    {port.txtSimSwap, "255", ""}});
    EXPECT_EQ(module("11").settings.relaxTime + module("11").settings.noRegTimer, "2500");
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
                                    {port.TxtMinDigits, "8", "7", minDigits},
                                    {port.TxtMaxDigits, "7", "32", maxDigits},
                                    {port.TxtIntDigPause, "x", "9", pause},
                                    {port.cmbRelaxTime, "6", "5", relax},
                                    {port.txtSimSwap, "x", "9", swapping}});
    port.TxtMaxDigits.setText("6");
    EXPECT_EQ(refusal(port.cmdWritePort), maxBelowMin);
    port.TxtMinDigits.setText("6");
    EXPECT_EQ(refusal(port.cmdWritePort), "");
    EXPECT_EQ(port.TxtMaxDigits.problem(), "") << "the fault has gone with the other field";
    port.txtSimSwap.setText("99");
    port.cmbSimSwitching.setText("Purse with option 2");
    EXPECT_EQ(field(12) + " " + field(14), "40 9") << "greyed, it is what the gateway holds";
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
    for (const auto* key : {"MOD11", "ERR14"}) select(key);
    EXPECT_EQ(port.lblPortCaption.text(), "Port 4: Port not found");
    EXPECT_FALSE(port.cmdWritePort.enabled() || port.framRX_TX.visible());
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
    EXPECT_FALSE(port.form.edited());
    port.chkIncGrpMod[IncMinDigits].setChecked(true);
    port.TxtMinDigits.setText("8");
    EXPECT_EQ(refusal(port.cmdWritePort), minDigits) << "once, not for each member";
    boxes.answers = {Button::No, Button::Yes};
    press(port.cmdModRefresh_);
    EXPECT_THAT(arrived(), IsEmpty());
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
    port.chkIncGrpMod[IncLevels].setChecked(true);
    EXPECT_EQ(port.WriteMod("MDD01", false), "C_MOD01,,,,,,,,,,,,,0,,,,") << "a group's own line has no levels";
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
    EXPECT_EQ(module("21").settings.minDigits + console.tables.port(2, 1).MinDigits, "77");
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
