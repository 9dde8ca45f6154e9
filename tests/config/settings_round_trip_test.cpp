#include <map>

#include "config/settings_bench.h"

// Every column of every settings record, over all its values or their edges: what the gateway holds is read, shown,
// written back over something else, and read again.
namespace trunvex::fakes {
namespace {

using Values = std::vector<std::string>;

struct Case {
    Values values;
    std::map<std::size_t, std::string> with = {};  // other fields, so that the value means something
    // How it comes back; `other` is what the gateway held when it was written. Unchanged without.
    std::string (*as)(const std::string& value, const std::string& other) = nullptr;
};
using Cases = std::multimap<std::size_t, Case>;  // by the column's number

struct Record {
    std::string key;  // as in R_ and A_
    Cases cases;
    std::function<void(const Values& fields)> set;  // at the gateway, unseen by the console
    RecordForm& form;
    ActionField& read;
    ActionField& write;
    // Holds two answers, which differ in one field, against the table of the columns.
    std::function<void(std::size_t at, const Values& from, const Values& to)> compare = {};
};

Values range(int first, int last, int digits = 1) {
    Values values;
    for (int value = first; value <= last; ++value) values.push_back(simulator::padded(value, digits));
    return values;
}

// All hours and all minutes at both ends of a row, minutes first.
Values times() {
    Values values{"00005923"};
    for (int minute = 0; minute < 60; ++minute)
        values.push_back(simulator::padded(minute, 2) + simulator::padded(minute % 24, 2) +
                         simulator::padded(59 - minute, 2) + simulator::padded(23 - minute % 24, 2));
    return values;
}

// An empty field leaves it to the gateway.
std::string kept(const std::string&, const std::string& other) { return other; }

std::string zeroed(const std::string&, const std::string&) { return "0"; }

// A code within a band of the receive levels is written as the band's own.
std::string ofBand(const std::string& code, const std::string&) {
    constexpr std::array bands{"9", "19", "35", "51", "67", "83", "99"};
    return bands.at(std::stoul(code) / 16);
}

std::string joined(const Values& fields, std::size_t first, std::size_t last) {
    std::string text;
    for (auto i = first; i <= last; ++i) text += (i == first ? "" : ",") + fields.at(i);
    return text;
}

template <class Rec>
auto comparison(Columns<Rec> columns, void (*store)(Rec&, const Fields&, bool), const Cases& cases) {
    for (const auto& column : columns)
        EXPECT_EQ(cases.contains(column.at), column.writer == Writer::Console) << column.name;
    return [columns, store](std::size_t at, const Values& from, const Values& to) {
        Rec before, after;
        store(before, splitString(joined(from, 0, from.size() - 1), ','), false);
        store(after, splitString(joined(to, 0, to.size() - 1), ','), false);
        auto spelled = spelledFields(after, columns);
        if (columns.front().at > 0) spelled.front() = to.front();  // the address
        EXPECT_EQ(spelled, to);
        Values names;
        for (const auto& one : differences(before, after, columns)) names.emplace_back(one.name);
        EXPECT_EQ(names, from[at] == to[at] ? Values() : Values{columns[at - columns.front().at].name});
    };
}

class RoundTrip : public SettingsBench {
protected:
    Values readNow(const Record& record) {
        heard.clear();
        press(record.read);
        const auto answer = std::find_if(heard.begin(), heard.end(),
                                         [&](const std::string& line) { return line.starts_with("A_" + record.key); });
        return answer == heard.end() ? Values() : simulator::splitFields(answer->substr(5));
    }

    void expectAll(const Record& record) {
        const auto base = readNow(record);
        for (const auto& [at, one] : record.cases)
            for (std::size_t i = 0; i < one.values.size() && !HasFailure(); ++i)
                expectOne(record, at, one, base, one.values[i], one.values[(i + 1) % one.values.size()]);
    }

    void expectOne(const Record& record, std::size_t at, const Case& rules, const Values& base,
                   const std::string& value, const std::string& other) {
        SCOPED_TRACE(record.key + " " + std::to_string(at) + " " + value);
        auto fields = base;
        for (const auto& [company, text] : rules.with) fields.at(company) = text;
        fields.at(at) = value;
        record.set(fields);
        auto expected = readNow(record);
        ASSERT_EQ(expected.at(at), value) << "not taken by the gateway";
        EXPECT_FALSE(record.form.edited());
        fields.at(at) = other;
        record.set(fields);
        press(record.write);
        EXPECT_FALSE(record.form.edited());
        if (rules.as) expected.at(at) = rules.as(value, other);
        const auto read = readNow(record);
        EXPECT_EQ(read, expected);
        EXPECT_TRUE(record.form.known() && !record.form.edited());
        EXPECT_THAT(told(), IsEmpty());
        expected.at(at) = other;
        if (record.compare && rules.as != ofBand) record.compare(at, expected, read);
    }

    void expectPort(const std::string& node, const Case& tx, const Case& rx) {
        const auto address = node.substr(3);
        module(address).settings.moduleInfo = "Rev 4.1";
        using namespace port_at;
        const Cases cases{{NoRegTimer, {range(60, 255)}},
                          {TxLevel, tx},
                          {RxLevel, rx},
                          {MinDigits, {range(2, 7)}},
                          {MaxDigits, {range(5, 32)}},
                          {IntDigPause, {range(1, 200)}},
                          {SendComplete, {{"0", "1"}}},
                          {port_at::RelaxTime, {range(0, 250)}},
                          {SwitchFlags, {{"0", "8", "24", "32", "40", "56", "64", "72", "88", "96", "104", "120"}}},
                          {Reserved20, {{"0", "255"}, {}, zeroed}},
                          {SimSwap, {range(1, 255)}},
                          {ReservedText, {{"0a1B2c3D", "--------"}, {}, kept}}};
        const auto set = [&](const Values& fields) {
            elsewhere("C_MOD" + address + ",,,," + fields.at(NoRegTimer) + "," +
                      (tx.values.empty() ? "," : joined(fields, TxLevel, RxLevel)) + "," +
                      joined(fields, MinDigits, ReservedText) + ",,");
        };
        select(node);
        expectAll({"MOD" + address, cases, set, port.form, port.cmdModRefresh, port.cmdWritePort,
                   comparison<PortRec>(portColumns, storePort, cases)});
        EXPECT_EQ(port.lblModuleInfo.text(), "Rev 4.1");
    }
};

TEST_F(RoundTrip, OfAPortOfEachKind) {
    expectPort("MOD11", {{"250", "252", "254", "0", "2", "4", "6"}}, {range(0, 111), {}, ofBand});
    expectPort("MOD12", {range(0, 4)}, {range(0, 4)});
    select("MOD13");  // the console takes it for GSM until its record tells
    expectPort("CDM13", {}, {});
}

TEST_F(RoundTrip, OfASim) {
    using namespace sim_at;
    Cases cases{{PhoneNumber, {{"5550100", "+99955512345678901234", "0"}}},
                {sim_at::Pin, {{"0000", "12345678", "1"}}},
                {Predial, {{"*31#", "0"}, {}, kept}},
                {CallerId, {range(0, 2)}},
                {MonthlyContract, {{"0", "1", "59998", "59999"}}},
                {CallMinutes, {{"0", "1", "59999"}}},
                {CellLock, {{"00000", "00001", "01023", "01024"}, {{BcchTimer, "60"}}}},
                {BcchRssi, {range(0, 63)}},
                {BcchTimer, {{"0", "30", "31", "65534", "65535"}}},
                {BcchNetId, {{"0", "1", "00101", "99901", "999999"}}},
                {timeOf(0), {{"00000000", "00005923"}, {{daysOf(0), "0"}}}},
                {BundleFlags, {{"0", "32", "64", "96", "128", "160", "192", "224"}}}};
    for (std::size_t row = 0; row < timeRowCount; ++row) {
        cases.insert({timeOf(row), {times()}});
        cases.insert({daysOf(row), {range(0, 127), {{timeOf(row), "00080020"}}}});
    }
    select("SIM111");
    const auto set = [this](const Values& fields) { elsewhere("C_SIM111," + joined(fields, 1, 19) + ","); };
    expectAll({"SIM111", cases, set, sim.form, sim.cmdSimRefresh, sim.cmdWriteSIM,
               comparison<SimRec>(simColumns, storeSim, cases)});
}

TEST_F(RoundTrip, OfTheIsdnRecord) {
    using namespace isdn_at;
    const Cases cases{{NetworkAccess, {{"8", "4"}}},
                      {Synchronization, {{"4", "1"}}},
                      {IncomingCalls, {{"2", "130"}}},
                      {CountryCode, {{"1", "49", "1000", "33", "61", "81", "82", "852"}}},
                      {IsdnVersion, {{"11", "3", "4", "16", "8", "20", "23", "24", "9", "10", "17", "25"}}},
                      {Reserved13, {{"0", "7"}, {}, zeroed}},
                      {Reserved14, {{"0", "7"}, {}, zeroed}},
                      {LocalNumber, {{"", "1", "000000000", "123456789"}}},
                      {LocalSubAddress, {{"", "7", "A"}}},
                      {TypeOfNumber, {range(0, 7)}},
                      {NumberIdentification, {{"0", "1", "2", "3", "4", "6", "9", "12", "14", "15"}}},
                      {CrcMode, {{"1", "2"}}},
                      {CableMode, {{"0", "1"}}},
                      {InCallMode, {{"0", "1"}}},
                      {AlertTimer, {range(0, 250, 3)}}};
    const auto set = [this](const Values& fields) { elsewhere("C_ISD" + joined(fields, 1, 16)); };
    expectAll({"ISD", cases, set, isdn.form, isdn.cmdIsdnRefresh_, isdn.CmdWriteISDN_,
               comparison<IsdnRec>(isdnColumns, storeIsdn, cases)});
    EXPECT_EQ(isdn.TxtISM_VER.text(), "ISM 3.11");
}

TEST_F(RoundTrip, OfTheClock) {
    const Cases cases{{0, {range(1, 31, 2), {{1, "01"}}}},
                      {1, {range(1, 12, 2), {{0, "28"}}}},
                      {2, {range(0, 99, 2), {{0, "28"}}}},
                      {3, {range(1, 7)}},
                      {4, {range(0, 23, 2)}},
                      {5, {range(0, 59, 2)}}};
    const auto set = [this](const Values& fields) { gateway.state().clock.set(joined(fields, 0, 5), gateway.now()); };
    expectAll({"CLK", cases, set, system.form, system.cmdClkRefresh, system.cmdSetTime_});
}

TEST(Differences, AreToldInWords) {
    const auto told = []<class Rec>(Columns<Rec> columns, void (*store)(Rec&, const Fields&, bool), const char* from,
                                    const char* changes) {
        Rec before;
        store(before, splitString(from, ','), false);
        auto after = before;
        store(after, splitString(changes, ','), true);
        std::string text;
        for (const auto& one : differences(before, after, columns))
            text += std::string(one.name) + " " + one.from + " -> " + one.to + ";";
        return text;
    };
    EXPECT_EQ(told.operator()<PortRec>(portColumns, storePort, "11,,,,120,250,51,3,15,60,0,50,0,0,30,00000000",
                                       "11,1,x,,,4,99,,20,,1,75,120,,,,"),
              "TX Level -3 -> +2;RX Level 0 -> -6;Max Digits 15 -> 20;Send Complete OMIT -> HASH;"
              "Relax Time 1 -> 1.5;SIM Switching Time Table, Accept -> Purse with option 4, Reject;");
    EXPECT_EQ(told.operator()<SimRec>(simColumns, storeSim, "111,1,,,0,,,,40,,,00005923,127,,,,,,,0,1",
                                      "111,,,,2,,,,63,,,00080020,62,,,,,,,165,"),
              "Caller ID By network -> CLIR Show;BCCH RSSI -71 db -> -48 db;"
              "Time Table Row 1 00:00-23:59 -> 08:00-20:00;Days Of Row 1 every day -> Mo-Fr;"
              "Bundle Disabled, Disabled -> Every Day, Enabled, restore day 5;");
    EXPECT_EQ(told.operator()<IsdnRec>(isdnColumns, storeIsdn, "v,8,4,2,49,11,0,0,12,A,0,0,1,0,0,050,3",
                                       "4,,,33,,,,,A,5,,2,1,1,5"),
              "Network Access NT -> TE;Country Germany -> France;Local Number 12 -> ;"
              "Type Of Number Unknown -> Reseved;CRC Mode CRC4 -> CRC4 extended;Cable Mode Short -> Long;"
              "Incoming Calls Mode Real Processing -> Imitation Processing;Timer Alerting 050 -> 5;");
}

}  // namespace
}  // namespace trunvex::fakes
