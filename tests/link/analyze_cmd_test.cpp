#include "fakes/console_test.h"

namespace trunvex {
namespace {

class AnalyzeCmd : public testing::Test {
protected:
    void receive(const std::string& line) { bench.console.session.dispatcher.AnalyzeCmd(line, true); }
    // A batch of the page's kind in flight on a link that is up.
    void write(std::vector<QueueItem> items, std::string word = "write") {
        bench.connect();
        WriteBatch batch;
        batch.items = std::move(items);
        batch.word = std::move(word);
        console.session.writes.begin(std::move(batch));
    }

    ConsoleBench bench;
    Console& console = bench.console;
    SessionState& session = bench.console.session.state;
};

TEST_F(AnalyzeCmd, EndsABadRecordWithoutAWord) {
    const std::string tooMany = "A_CLK" + std::string(60, ',');
    for (const std::string& line : {std::string(),
                                    std::string("A"),
                                    std::string("A_CLK"),
                                    std::string("A_CLK1,2"),
                                    tooMany,
                                    std::string("I_ALR"),
                                    std::string("I_ALR1x0,3,,"),
                                    std::string("I_ALR110"),
                                    std::string("I_ALR,,,,"),
                                    std::string("I_ALR000,90"),
                                    std::string("SRV:ID"),
                                    std::string("SRV1:IDD"),
                                    std::string("SRV:"),
                                    std::string("\xFF\xFE\0\x80", 4),
                                    std::string(1 << 20, 'A'),
                                    std::string("A_PPR"),
                                    std::string("A_CLK1,2,3,2147483648,9223372036854775807,-5"),
                                    std::string("A_BCH-9223372036854775808,1,1"),
                                    std::string("OK"),
                                    std::string("ERROR")})
        receive(line);
    EXPECT_EQ(bench.platform.loop.runningTimers(), 0) << "a word that comes late wakes nothing";
    EXPECT_EQ(console.session.writes.walk().reply(), Walk::Reply::None);
    bench.console.mainWindow.tmrEnableCmd(2, true);
    bench.advance(3000);
    EXPECT_THAT(bench.platform.boxes.shown, IsEmpty());
    receive("A_ESN" + std::string(300, '7'));
    EXPECT_EQ(session.gESN, std::string(255, '7')) << "what is longer is cut";
}

TEST_F(AnalyzeCmd, DoesNothingBeyondDisplayWhileAnalysingIsOff) {
    std::vector<std::string> relayed;
    std::vector<std::string> displayed;
    const auto fail = [](std::string_view) { throw std::runtime_error("a listener"); };
    console.session.dispatcher.relay.connect([&](std::string_view line) { relayed.emplace_back(line); });
    console.session.dispatcher.relay.connect(fail);
    console.session.dispatcher.debugDisplay.connect([&](std::string_view line) { displayed.emplace_back(line); });
    console.session.dispatcher.debugDisplay.connect(fail);
    console.session.dispatcher.analyzeEnabled = [] { return false; };
    receive("A_ESN1");
    receive("A_CPW7");
    receive("C_CPW seen");
    console.session.dispatcher.AnalyzeCmd("C_CPWsecret", false);
    EXPECT_EQ(session.gESN, "");
    EXPECT_THAT(relayed, ElementsAre("A_ESN1", "A_CPW7", "C_CPW seen"));
    EXPECT_THAT(displayed, ElementsAre("A_ESN1", "C_CPW seen")) << "an answer to a password is never displayed";
    console.session.dispatcher.analyzeEnabled = {};
    receive("A_ESN00123,x");
    EXPECT_EQ(session.gESN, "00123") << "a listener that fails loses no line";
}

TEST_F(AnalyzeCmd, TellsTheRecordsOfAPortByIndexAndCode) {
    std::vector<std::string> events;
    console.session.realTimeUpdate.on("ALR", [&](const Fields& fields) {
        std::string event;
        for (std::size_t i = 0; i < fields.size(); ++i) event += std::string(fields.at(i)) + "|";
        events.push_back(event);
    });
    int sims = 0;
    console.session.records.simAlarm.connect([&](const Fields&) { ++sims; });
    receive("I_ALR843,25,40,,");
    receive("I_ALR000,010");
    receive("I_ALR000,90,,Loading flash,");
    EXPECT_THAT(events, ElementsAre("8|4|3|25|40|||", "0|0|0|010||||"));
    EXPECT_EQ(sims, 1);
    EXPECT_EQ(console.mainWindow.lblUpdateStatus.text(), "Loading flash");
}

TEST_F(AnalyzeCmd, CreditsAnAnswerOnlyToTheCommandItAnswers) {
    using enum Walk::Reply;
    using Word = std::tuple<const char*, const char*, Walk::Reply>;
    const Word words[] = {{"R_ESN", "A_ESN1", Accepted},
                          {"R_CLK", "A_ESN1", None},
                          {"C_CLK1", "C_CLK1,2,3,4,5,6", Accepted},
                          {"C_MOD11", "OK", Accepted},
                          {"C_MOD11", "OKAY", None},
                          {"C_MOD11", "ERROR 5", Refused},
                          {"C_STP11", "I_ALR110,OK", Accepted},
                          {"C_STP11", "I_ALR110,ERROR", Refused},
                          {"C_SIM123,1", "I_ALR123,OK", Accepted},
                          {"C_SIM123,1", "I_ALR124,OK", None},
                          {"C_MOD12,1", "I_ALR121,OK", Accepted},
                          {"C_ISD3,1", "I_ALR110,OK", None},
                          {"C_ISD3,1", "I_ALR000,OK", Accepted},
                          {"C_SMS", "OK#", Accepted},
                          {"C_SMS", "ERROR#", Refused},
                          {"C_CDR11", "OK#11", None},
                          {"C_MOD11", "B_OK", None},
                          {"R_PPR", "A_PPR1", Accepted},
                          // A port that was switched on the board answers beside a batch that writes others.
                          {"C_MOD12,1", "I_ALR110,OK", None},
                          {"C_MOD12,1", "I_ALR110,ERROR", None}};
    for (const auto& [key, line, reply] : words) {
        auto item = command(key, "item");
        item.terms.hashWord = key == std::string("C_SMS");
        write({item});
        receive(line);
        EXPECT_EQ(console.session.writes.walk().reply(), reply) << key << " " << line;
        console.session.bringUp.dropSession();
    }
}

TEST_F(AnalyzeCmd, MatchesByTheTextThatTheCommandExpects) {
    auto item = command("R_MOD11", "Port 1");
    item.terms.contains = "A_MOD11";
    write({item}, "backup");
    std::string written;
    console.session.writes.answerTaken().connect([&](const QueueItem&, std::string_view line) { written = line; });
    receive("A_MOD12,x");
    EXPECT_EQ(console.session.writes.walk().reply(), Walk::Reply::None);
    receive("A_MOD11,x");
    EXPECT_EQ(console.session.writes.walk().reply(), Walk::Reply::Accepted);
    EXPECT_EQ(written, "A_MOD11,x");
}

TEST_F(AnalyzeCmd, HearsTheModemOnlyOnAModemLink) {
    std::vector<std::string> heard;
    console.session.dispatcher.modemConnected.connect([&] { heard.emplace_back("up"); });
    console.session.dispatcher.modemFailed.connect([&](std::string_view line) { heard.emplace_back(line); });
    receive("A_ESN DISCONNECTED");
    session.gConnType = "MDM";
    receive("CONNECT 9600");
    receive("NO CARRIER");
    EXPECT_THAT(heard, ElementsAre("up", "NO CARRIER"));
}

// What the console wrote itself comes back as a record: it may hold any word that the wire knows.
TEST_F(AnalyzeCmd, TakesALineFedBackAsARecordAndNothingElse) {
    std::vector<std::string> shown;
    console.session.dispatcher.relay.connect([&](std::string_view line) { shown.emplace_back(line); });
    console.session.dispatcher.debugDisplay.connect([&](std::string_view line) { shown.emplace_back(line); });
    write({command("C_EMLSRV1:PSW Master Updating OK# R_ISD ISD", "e-mail"), command("C_MOD11,1", "Port 1")});
    session.phase = SessionPhase::Connected;
    console.session.reads.start({command("R_ISD", "ISDN")});
    const auto before = bench.sent();
    bench.receive("OK");
    shown.clear();
    bench.advance(1);
    EXPECT_EQ(console.session.reads.walk().reply(), Walk::Reply::None);
    EXPECT_EQ(bench.sent().back(), "C_MOD11,1");
    EXPECT_EQ(bench.sent().size(), before.size() + 1);
    EXPECT_THAT(shown, IsEmpty());
    receive("A_ISD1,2");
    EXPECT_EQ(console.session.reads.walk().reply(), Walk::Reply::Accepted);
}

}  // namespace
}  // namespace trunvex
