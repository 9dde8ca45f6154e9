#include <map>

#include "config/settings_bench.h"

// Every field of every settings record, over all its values or their edges: what the gateway holds is read, shown,
// written back over something else, and read again.
namespace trunvex::fakes {
namespace {

using Values = std::vector<std::string>;

struct Column {
    std::size_t at;  // position in the answer
    const char* name;
    Values values;                                 // none for the gateway's own word, which nobody writes
    std::map<std::size_t, std::string> with = {};  // other fields, so that the value means something
    // How it comes back; `other` is what the gateway held when it was written. Unchanged without.
    std::string (*as)(const std::string& value, const std::string& other) = nullptr;
};

struct Record {
    std::string key;    // as in R_ and A_
    std::size_t first;  // number of the first value behind it
    std::vector<Column> columns;
    std::function<void(const Values& fields)> set;  // at the gateway, unseen by the console
    RecordForm& form;
    ActionField& read;
    ActionField& write;
};

Values range(int first, int last, int digits = 1) {
    Values values;
    for (int value = first; value <= last; ++value) values.push_back(simulator::padded(value, digits));
    return values;
}

// All hours and all minutes at both ends of a row, minutes first.
Values times() {
    Values values{"00005923"};
    for (int hour = 0; hour < 24; ++hour)
        values.push_back("30" + simulator::padded(hour, 2) + "59" + simulator::padded(23 - hour, 2));
    for (int minute = 0; minute < 60; ++minute)
        values.push_back(simulator::padded(minute, 2) + "00" + simulator::padded(59 - minute, 2) + "22");
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
        std::set<std::size_t> covered;
        for (const auto& column : record.columns) {
            covered.insert(column.at);
            for (std::size_t i = 0; i < column.values.size() && !HasFailure(); ++i)
                expectOne(record, column, base, column.values[i], column.values[(i + 1) % column.values.size()]);
        }
        for (auto at = record.first; at < base.size(); ++at)
            EXPECT_TRUE(covered.count(at)) << record.key << ": field " << at << " is not in the list";
    }

    void expectOne(const Record& record, const Column& column, const Values& base, const std::string& value,
                   const std::string& other) {
        SCOPED_TRACE(record.key + " " + column.name + " " + value);
        auto fields = base;
        for (const auto& [at, company] : column.with) fields.at(at) = company;
        fields.at(column.at) = value;
        record.set(fields);
        auto expected = readNow(record);
        ASSERT_EQ(expected.at(column.at), value) << "not taken by the gateway";
        EXPECT_FALSE(record.form.edited());
        fields.at(column.at) = other;
        record.set(fields);
        press(record.write);
        EXPECT_FALSE(record.form.edited());
        if (column.as) expected.at(column.at) = column.as(value, other);
        EXPECT_EQ(readNow(record), expected);
        EXPECT_TRUE(record.form.known() && !record.form.edited());
        EXPECT_THAT(told(), IsEmpty());
    }

    void expectPort(const std::string& node, const std::vector<Column>& levels) {
        const auto address = node.substr(3);
        module(address).settings.moduleInfo = "Rev 4.1";
        std::vector<Column> columns{
            {1, "kind", {}},
            {2, "information", {}},
            {3, "more information", {}},
            {4, "no registration timer", range(60, 255)},
            {7, "least digits", range(2, 7)},
            {8, "most digits", range(5, 32)},
            {9, "pause between digits", range(1, 200)},
            {10, "end of dialling", {"0", "1"}},
            {11, "relax time", range(0, 250)},
            {12, "switching", {"0", "8", "24", "32", "40", "56", "64", "72", "88", "96", "104", "120"}},
            {13, "reserved", {"0", "255"}, {}, zeroed},
            {14, "swapping time", range(1, 255)},
            {15, "reserved text", {"0a1B2c3D", "--------"}, {}, kept}};
        columns.insert(columns.end(), levels.begin(), levels.end());
        const auto set = [&](const Values& fields) {
            const auto ofLevels = levels.front().values.empty() ? "," : joined(fields, 5, 6);
            elsewhere("C_MOD" + address + ",,,," + fields.at(4) + "," + ofLevels + "," + joined(fields, 7, 15) + ",,");
        };
        select(node);
        expectAll({"MOD" + address, 1, columns, set, port.form, port.cmdModRefresh, port.cmdWritePort});
        EXPECT_EQ(port.lblModuleInfo.text(), "Rev 4.1");
    }
};

TEST_F(RoundTrip, OfAPortOfEachKind) {
    expectPort("MOD11", {{5, "transmit level", {"250", "252", "254", "0", "2", "4", "6"}},
                         {6, "receive level", range(0, 111), {}, ofBand}});
    expectPort("MOD12", {{5, "transmit level", range(0, 4)}, {6, "receive level", range(0, 4)}});
    select("MOD13");  // the console takes it for GSM until its record tells
    expectPort("CDM13", {{5, "transmit level", {}}, {6, "receive level", {}}});
}

TEST_F(RoundTrip, OfASim) {
    std::vector<Column> columns{{1, "phone number", {"5550100", "+99955512345678901234", "0"}},
                                {2, "PIN", {"0000", "12345678", "1"}},
                                {3, "predial", {"*31#", "0"}, {}, kept},
                                {4, "caller ID", range(0, 2)},
                                {5, "budget", {"0", "1", "59998", "59999"}},
                                {6, "call minutes", {"0", "1", "59999"}},
                                {7, "cell lock", {"00000", "00001", "01023", "01024"}, {{9, "60"}}},
                                {8, "least signal", range(0, 63)},
                                {9, "BCCH timer", {"0", "30", "31", "65534", "65535"}},
                                {10, "operator", {"0", "1", "00101", "99901", "999999"}},
                                {11, "first row off", {"00000000", "00005923"}, {{12, "0"}}},
                                {19, "bundle", {"0", "32", "64", "96", "128", "160", "192", "224"}},
                                {20, "mark", {}}};
    for (const std::size_t row : {11, 13, 15, 17}) {
        columns.push_back({row, "times", times()});
        columns.push_back({row + 1, "days", range(0, 127), {{row, "00080020"}}});
    }
    select("SIM111");
    const auto set = [this](const Values& fields) { elsewhere("C_SIM111," + joined(fields, 1, 19) + ","); };
    expectAll({"SIM111", 1, columns, set, sim.form, sim.cmdSimRefresh, sim.cmdWriteSIM});
}

TEST_F(RoundTrip, OfTheIsdnRecord) {
    const std::vector<Column> columns{
        {0, "version", {}},
        {1, "network access", {"8", "4"}},
        {2, "synchronization", {"4", "1"}},
        {3, "incoming calls", {"2", "130"}},
        {4, "country", {"1", "49", "1000", "33", "61", "81", "82", "852"}},
        {5, "ISDN version", {"11", "3", "4", "16", "8", "20", "23", "24", "9", "10", "17", "25"}},
        {6, "reserved", {"0", "7"}, {}, zeroed},
        {7, "reserved", {"0", "7"}, {}, zeroed},
        {8, "local number", {"", "1", "000000000", "123456789"}},
        {9, "sub-address", {"", "7", "A"}},
        {10, "type of number", range(0, 7)},
        {11, "identification", {"0", "1", "2", "3", "4", "6", "9", "12", "14", "15"}},
        {12, "CRC", {"1", "2"}},
        {13, "cable", {"0", "1"}},
        {14, "way of taking calls", {"0", "1"}},
        {15, "timer", range(0, 250, 3)},
        {16, "tail", {"0", "12345"}, {}, kept}};
    const auto set = [this](const Values& fields) { elsewhere("C_ISD" + joined(fields, 1, 16)); };
    expectAll({"ISD", 0, columns, set, isdn.form, isdn.cmdIsdnRefresh_, isdn.CmdWriteISDN_});
    EXPECT_EQ(isdn.TxtISM_VER.text(), "ISM 3.11");
}

TEST_F(RoundTrip, OfTheClock) {
    const std::vector<Column> columns{{0, "day", range(1, 31, 2), {{1, "01"}}},
                                      {1, "month", range(1, 12, 2), {{0, "28"}}},
                                      {2, "year", range(0, 99, 2), {{0, "28"}}},
                                      {3, "weekday", range(1, 7)},
                                      {4, "hour", range(0, 23, 2)},
                                      {5, "minute", range(0, 59, 2)}};
    const auto set = [this](const Values& fields) { gateway.state().clock.set(joined(fields, 0, 5), gateway.now()); };
    expectAll({"CLK", 0, columns, set, system.form, system.cmdClkRefresh, system.cmdSetTime_});
}

}  // namespace
}  // namespace trunvex::fakes
