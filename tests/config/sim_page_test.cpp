#include "config/settings_bench.h"

namespace trunvex::fakes {
namespace {

class SimPageTest : public SettingsBench {
protected:
    std::string field(std::size_t at) { return fieldOf(sim.build(sim.shownKey(), true), at); }
    // A row of the panel: from, to and its day boxes.
    std::string row(std::size_t number) {
        std::string days;
        for (const auto& box : table.chkSIMDayOfWk[number - 1]) days += box.value();
        return table.txtTimeIntFrom[number - 1].text() + " " + table.txtTimeIntTo[number - 1].text() + " " + days;
    }
    void setRow(std::size_t number, const char* from, const char* to) {
        table.txtTimeIntFrom[number - 1].setText(from);
        table.txtTimeIntTo[number - 1].setText(to);
    }
    // SIM 1 of port 1 reports these fields 7 to 19.
    void report(const std::string& fields) { bench.receive("A_SIM111,,,,0,59999,0," + fields + ",1"); }
    TimeTable& table = sim.timeTable;
};

constexpr const char* unused = "00:00 00:00 0000000";
constexpr const char* allWeek = "00:00 23:59 1111111";

TEST_F(SimPageTest, ShowsAFreshSimAndWritesItAsItIs) {
    select("SIM111");
    EXPECT_EQ(sim.lblSimCaption.text(), "Port 1, SIM 1 Setting");
    EXPECT_EQ(row(1) + row(2) + row(4), std::string(allWeek) + unused + unused);
    EXPECT_TRUE(table.chkTimeIntEnable.checked());
    EXPECT_FALSE(table.chkDayOfWkEnable.checked() || sim.optBcchLock.checked() || sim.txtCelLock.enabled());
    EXPECT_EQ(sim.txtMonthlyContract.text(), "59999");
    sim.txtMonthlyContract.setText("");
    sim.txtPhoneNum.setText("5550100");
    arrived();
    press(sim.cmdWriteSIM);
    EXPECT_THAT(arrived(), ElementsAre("C_SIM111,5550100,,,0,59999,0,0,0,0,0,00005923,127,00000000,0,00000000,0,"
                                       "00000000,0,0,"));
    EXPECT_EQ(sim.txtMonthlyContract.text(), "59999");
    EXPECT_FALSE(sim.form.edited());
}

TEST_F(SimPageTest, SaysWhatARowMeans) {
    using Case = std::tuple<const char*, const char*, int, const char*>;
    constexpr const char* noTime = "not a time of day: HH:MM, 00:00 to 23:59";
    select("SIM111");
    table.chkDayOfWkEnable.setChecked(true);
    for (const auto& [from, to, days, meaning] : {Case{"08:00", "20:00", 62, "Mo-Fr 08:00-20:00"},
                                                  {"00:00", "23:59", 65, "Su, Sa, all day"},
                                                  {"22:30", "06:00", 64, "Su 22:30-06:00, over midnight"},
                                                  {"00:00", "23:59", 127, "every day, all day"},
                                                  {"08:00", "20:00", 0, "never: no day is marked"},
                                                  {"24:00", "20:00", 127, noTime},
                                                  {"08:00", "8:00", 127, noTime},
                                                  {"00:00", "00:00", 127, "not in use"},
                                                  {"00:01", "00:01", 123, "Su-We, Fr, Sa 00:01-00:01"},
                                                  {"09:00", "10:00", 97, "Su, Mo, Sa 09:00-10:00"}}) {
        setRow(3, from, to);
        for (std::size_t day = 0; day < daysOfWeek; ++day)
            table.chkSIMDayOfWk[2][day].setChecked((days >> (6 - day) & 1) != 0);
        EXPECT_EQ(table.meaning(2), meaning);
        EXPECT_EQ(table.bar(2).readable, meaning != noTime);
    }
    const auto bar = table.bar(2);
    EXPECT_THAT((std::array{bar.from, bar.to, bar.days}), ElementsAre(540, 600, 97));
    report("00000,0,0,0,30001200,127,00000000,0,00000000,0,00000000,0,0");
    EXPECT_EQ(row(1), "00:30 00:12 1111111") << "the minutes stand first";
}

TEST_F(SimPageTest, ShowsAndWritesDaysAsTheirBits) {
    const auto days = [this] { return field(12) + " " + field(14) + " " + field(16) + " " + field(18); };
    select("SIM111");
    report("00000,0,0,0,00080020,64,00080020,1,00080020,0,00000000,127,0");
    EXPECT_TRUE(table.chkDayOfWkEnable.checked());
    EXPECT_EQ(row(1) + row(2), "08:00 20:00 100000008:00 20:00 0000001");
    EXPECT_EQ(row(3) + row(4), std::string("08:00 20:00 0000000") + unused);
    table.chkSIMDayOfWk[1][0].setChecked(true);
    EXPECT_EQ(days(), "64 65 0 0");
    table.chkDayOfWkEnable.setChecked(false);
    EXPECT_EQ(days(), "127 127 127 0");
    table.chkTimeIntEnable.setChecked(false);
    EXPECT_EQ(row(1) + row(3), std::string(unused) + unused);
    EXPECT_EQ(field(11) + field(15) + days(), "00000000000000000 0 0 0");
    table.chkTimeIntEnable.setChecked(true);
    EXPECT_EQ(row(1) + row(2), std::string(allWeek) + unused);
    sim.form.undo();
    report("00000,0,0,0,00080020,255,00080020,,00080020,1,00000000,0,0");
    EXPECT_EQ(days(), "255  1 0") << "as they are held";
    report("00000,0,0,0,00000000,0,00000000,0,00000000,0,00000000,0,0");
    sim.form.undo();
    EXPECT_FALSE(table.chkTimeIntEnable.checked() || table.txtTimeIntFrom[0].enabled());
}

TEST_F(SimPageTest, RefusesABadTimeAtItsField) {
    using Case = std::tuple<const char*, const char*, bool, bool, const char*>;
    select("SIM111");
    for (const auto& [from, to, atFrom, inAGroupToo, word] :
         {Case{"0800", "25:00", true, true, "from' must to be in the format: HH:MM "},
          {"08:00", "", false, true, "to' must to be in the format: HH:MM "},
          {"a8:00", "0", true, true, "from' must to be Number in the format: HH:MM "},
          {"08:00", "20:0,", false, true, "to' must to be Number in the format: HH:MM "},
          {"24:60", "20:00", true, false, "From' (Line 2) , Hour not correct ."},
          {"08:60", "20:00", true, false, "From' (Line 2) , Minutes not correct . "},
          {"23:59", "25:99", false, false, "To' (Line 2) , Hour not correct ."},
          {"08:00", "20:99", false, false, "To' (Line 2) , Minutes not correct . "}}) {
        const auto text = std::string("ERROR: 'Time table limit ") + word;
        setRow(2, from, to);
        EXPECT_EQ(refusal(sim.cmdWriteSIM), text);
        EXPECT_EQ((atFrom ? table.txtTimeIntFrom : table.txtTimeIntTo)[1].problem(), text);
        EXPECT_EQ((atFrom ? table.txtTimeIntTo : table.txtTimeIntFrom)[1].problem(), "");
        EXPECT_EQ(sim.build("SIM111", false).orTell(boxes).empty() ? told().at(0) : "", inAGroupToo ? text : "");
    }
    setRow(2, "08:00", "25:99");
    EXPECT_THAT(sim.build("SIM111", false).line, HasSubstr(",00089925,127,"));
}

TEST_F(SimPageTest, ChecksItsFields) {
    select("SIM111");
    sim.optBcchLock.setChecked(true);
    sim.txtBcchTimer.setText("60");
    sim.txtCelLock.setText("044");
    EXPECT_EQ(refusal(sim.cmdWriteSIM), "");
    EXPECT_EQ(module("11").sim(1).settings.cellLock + " " + sim.txtCelLock.text(), "00044 44");
    EXPECT_FALSE(sim.form.edited());
    expectChecks(
        sim.form, sim.cmdWriteSIM,
        {{table.txtTimeIntFrom[0], {"24:00"}, "08:00", "ERROR: 'Time table limit From' (Line 1) , Hour not correct ."},
         {table.txtTimeIntTo[3], {"x"}, "20:00", "ERROR: 'Time table limit to' must to be in the format: HH:MM "},
         {sim.txtCelLock, {"1025", ""}, "1", "ERROR: BCCH Lock must be in the ranges: 0-1024"},
         {sim.txtBcchTimer, {"29", "65536", "0", ""}, "60", "ERROR: BCCH Timer must to be in the ranges: 30-65535 ."},
         {sim.txtBcchNetID, {"1000000", "-1"}, "1", "ERROR: BCCH Operator ID must to be in the ranges: 0-999999 ."},
         {sim.txtPhoneNum,
          {"+", "999555123456789012345"},
          "1",
          "ERROR: Phone number have to be up to 20 digits, with or without '+' in front"},
         {sim.txtPIN, {"123456789", "12a4"}, "1", "ERROR: PIN have to be 1 to 8 digits"},
         {sim.txtMonthlyContract,
          {"60000", "-1"},
          "1",
          "ERROR: Monthly budget have to be in the ranges: 0-59999 minutes"},
         {sim.txtCallMinutes, {"60000", "-1"}, "1", "ERROR: Call minutes have to be in the ranges: 0-59999"}});
    sim.txtCelLock.setText("0");
    EXPECT_EQ(refusal(sim.cmdWriteSIM), "");
    EXPECT_FALSE(sim.optBcchLock.checked()) << "a lock on cell 0 is none";
}

TEST_F(SimPageTest, SendsWhatBelongsToALockAsTheGatewayHoldsItWhileItIsOff) {
    select("SIM111");
    report("00044,9,60,1,00005923,127,00000000,0,00000000,0,00000000,0,0");
    EXPECT_EQ(field(7) + " " + field(8) + " " + field(9), "44 9 60");
    sim.txtCelLock.setText("77");
    sim.txtBcchTimer.setText("x");
    sim.cmbBcchRssi.setIndex(63);
    sim.optBcchLock.setChecked(false);
    EXPECT_EQ(field(7) + " " + field(8) + " " + field(9), "0 9 60");
}

TEST_F(SimPageTest, KeepsTheDayInTheBundleFlags) {
    select("SIM111");
    report("00000,0,0,0,00005923,127,00000000,0,00000000,0,00000000,0,37");
    EXPECT_EQ(sim.TxtDayRestore.text() + sim.txtBundleLoading[0].text() + sim.txtBundleLoading[1].text(),
              "5Every DayDisabled");
    for (const auto& [mode, sum] :
         {std::pair{"Disabled", "5"}, {"Every Day", "37"}, {"By Refill", "5"}, {"By Addition", "69"}}) {
        sim.txtBundleLoading[0].setText(mode);
        EXPECT_EQ(field(19), sum) << mode;
    }
    sim.txtBundleLoading[1].setText("Enabled");
    EXPECT_EQ(field(19), "197");
    sim.form.undo();
    sim.txtBundleLoading[0].setText("By Refill");
    report("00000,0,0,0,00005923,127,00000000,0,00000000,0,00000000,0,5");
    EXPECT_FALSE(sim.form.edited()) << "the gateway tells it as it tells Disabled";
}

TEST_F(SimPageTest, ReadsAGroupsValuesAtTheAddressItsNumberSpells) {
    for (int made = 0; made < 15; ++made) tree.cmdCreateGroup.press();
    tree.movePort("MOD21", "PRT15");
    select("MOD11");
    arrived();
    for (const auto& [node, asked] :
         {std::pair{"SMM011", "R_SIM111"}, {"SMM023", "R_SIM123"}, {"SMM102", "R_SIM112"}, {"SMM154", "R_SIM214"}}) {
        select(node);
        EXPECT_THAT(arrived(), ElementsAre(asked)) << node;
    }
    EXPECT_EQ(sim.lblSimHint.text(), "The values were read from Port 5 SIM 4.");
    EXPECT_EQ(row(1), allWeek);
    EXPECT_EQ(sim.txtPIN.standing(), InputField::Standing::Free);
    select("SMM091");
    EXPECT_THAT(arrived(), IsEmpty()) << "no such address, and nobody in the group";
}

TEST_F(SimPageTest, WritesToAGroupWhatIsMarked) {
    group({"MOD11", "MOD13", "MOD21"});
    select("MOD13");  // and it is CDMA
    select("SMM012");
    EXPECT_EQ(sim.lblSimCaption.text(), "Groups 1, SIM 2 Ports: 1, 3, 5");
    sim.cmdSimRefresh.press();
    sim.txtPIN.setText("not marked, not looked at");
    sim.chkIncGrpSim[IncPin].setChecked(false);
    settle();
    table.chkTimeIntEnable.setChecked(false);
    table.chkTimeIntEnable.setChecked(true);
    EXPECT_EQ(row(1) + row(4), std::string(allWeek) + allWeek) << "for a group, in all rows";
    setRow(4, "22:00", "25:99");
    EXPECT_EQ(sim.txtPIN.text(), "not marked, not looked at") << "nor by what was read meanwhile";
    sim.txtMonthlyContract.setText("");
    sim.chkIncGrpSim[IncTimeTable].setChecked(false);
    select("SIM211");
    select("SMM012");
    EXPECT_EQ(row(4).substr(0, 11) + sim.txtPIN.text(), "22:00 25:99not marked, not looked at");
    EXPECT_THAT(told(), IsEmpty()) << "a look at a node asks nothing";
    arrived();
    press(sim.cmdWriteSIM);
    EXPECT_THAT(arrived(), ElementsAre("C_SIM112,,,,,59999,,,,,,,,,,,,,,,", "C_SIM212,,,,,59999,,,,,,,,,,,,,,,"));
    EXPECT_EQ(pages.groupWrite.members()[1].name, "Port 5 SIM 2");
    sim.chkIncGrpSim[IncTimeTable].setChecked(true);
    boxes.answers = {Button::Ignore, Button::Cancel};
    press(sim.cmdWriteSIM);
    EXPECT_EQ(pages.groupWrite.summary(), "0 of 2 written") << "the gateway is the judge of an hour 25";
    select("SIM211");
    table.chkTimeIntEnable.setChecked(false);
    table.chkTimeIntEnable.setChecked(true);
    EXPECT_EQ(row(1) + row(4), std::string(allWeek) + unused) << "for one SIM, in the first row";
}

TEST_F(SimPageTest, SendsEachFieldBehindItsOwnBox) {
    group({"MOD11"});
    select("SMM011");
    sim.txtPhoneNum.setText("1");
    sim.txtPIN.setText("2");
    sim.optBcchLock.setChecked(true);
    sim.txtCelLock.setText("44");
    sim.txtBcchTimer.setText("60");
    expectBoxes(
        sim, {"C_SIM111,1,,,,,,,,,,,,,,,,,,,", "C_SIM111,,2,,,,,,,,,,,,,,,,,,", "C_SIM111,,,,0,,,,,,,,,,,,,,,,",
              "C_SIM111,,,,,59999,,,,,,,,,,,,,,,", "C_SIM111,,,,,,0,,,,,,,,,,,,,,", "C_SIM111,,,,,,,44,,,,,,,,,,,,,",
              "C_SIM111,,,,,,,,0,,,,,,,,,,,,", "C_SIM111,,,,,,,,,60,,,,,,,,,,,", "C_SIM111,,,,,,,,,,0,,,,,,,,,,",
              "C_SIM111,,,,,,,,,,,00005923,127,00000000,0,00000000,0,00000000,0,,", "C_SIM111,,,,,,,,,,,,,,,,,,,0,"});
}

}  // namespace
}  // namespace trunvex::fakes
