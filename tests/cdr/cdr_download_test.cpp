// Runs of the call record download: a whole console against the simulated gateway, and the gateway's bad moods.
#include <fstream>

#include "cdr/calls_bench.h"

namespace trunvex {
namespace {

using fakes::callsIn;
using fakes::fillCalls;

class Download : public testing::Test {
protected:
    void logIn(int records) {
        gateway = std::make_unique<simulator::Gateway>(seeded(3));
        fillCalls(*gateway, records);
        bench.logIn(*gateway);
        gateway->forgetLinesReceived();
    }
    std::size_t left() { return callsIn(*gateway).size(); }
    void run(int seconds) {
        download.start();
        bench.advance(seconds * 1000);
    }

    std::unique_ptr<simulator::Gateway> gateway;
    ConsoleBench bench;
    CallStore& store = bench.console.callStore;
    CdrDownload& download = bench.console.cdrDownload;
};

TEST_F(Download, FetchesEveryRecordOnceAndWaitsForNothingBehindTheLast) {
    for (const int records : {1, 40, 130, 300}) {
        SCOPED_TRACE(records);
        ConsoleBench other;
        simulator::Gateway quick(seeded(5));
        fillCalls(quick, records);
        const auto kept = callsIn(quick);
        other.logIn(quick);
        auto& run = other.console.cdrDownload;
        run.start();
        int ms = 0;
        while (run.gCDRDownloading && ms < 60000) other.advance(1), ++ms;
        EXPECT_LT(ms, 400 + 10 * records);
        EXPECT_EQ(callsIn(quick).size(), 0u);
        EXPECT_EQ(callsIn(other.console.callStore), kept);
        EXPECT_EQ(run.gCDRDone * 1000 + run.gCDRPercent, records * 1000 + 100);
        EXPECT_EQ(run.ucCDRProg.text(), "Done ...");
    }
}

TEST_F(Download, LosesAndDoublesNothingOnABadWire) {
    for (const char* fault : {"C_CDR:lost=0.2", "C_CDR:try=2", "R_CDR:lost=0.2", "R_CDR:doubled=0.3",
                              "C_CDR:doubled=0.3", "C_CDR:late=0.3-1500", "R_CDR:late=0.3-1500"}) {
        SCOPED_TRACE(fault);
        ConsoleBench other;
        simulator::Gateway moody(seeded(5));
        fillCalls(moody, 60);
        const auto kept = callsIn(moody);
        other.logIn(moody);
        ASSERT_EQ(simulator::switchOn(moody.faults(), fault), "");
        auto& console = other.console;
        console.cdrDownload.start();
        for (int second = 0; second < 900 && console.cdrDownload.gCDRDownloading; ++second) other.advance(1000);
        moody.faults() = {};
        console.cdrDownload.start();  // what the first run gave up
        other.advance(120000);
        console.callStore.recover();
        EXPECT_EQ(callsIn(console.callStore), kept);
    }
}

TEST_F(Download, AcknowledgesNothingThatIsNotOnTheDisk) {
    logIn(40);
    const auto journal = bench.folder.path() / "data" / "CDR4711.journal";
    std::filesystem::create_directory(journal);  // the journal can't be opened
    run(30);
    EXPECT_EQ(left(), 40u);
    EXPECT_THAT(gateway->linesReceived(), Not(testing::Contains(HasSubstr("C_CDR"))));
    EXPECT_THAT(download.lblCDRStatus.text(), HasSubstr("waits"));
    const auto sent = gateway->linesReceived().size();
    bench.advance(60000);
    EXPECT_EQ(gateway->linesReceived().size(), sent) << "the run holds still";
    std::filesystem::remove(journal);
    bench.advance(60000);
    EXPECT_EQ(left(), 0u);
    EXPECT_EQ(download.lblCDRStatus.text(), "");
    EXPECT_EQ(callsIn(store).size(), 40u);
}

TEST_F(Download, WaitsForADatabaseThatIsDamaged) {
    logIn(40);
    const auto file = store.gCDRFile();
    std::ofstream(file) << std::string(4096, 'x');
    run(30);
    EXPECT_THAT(download.lblCDRStatus.text(), HasSubstr("damaged"));
    EXPECT_GE(left(), 39u) << "one may have been taken before the table was asked for";
    std::filesystem::rename(file, file.string() + ".bad");
    bench.advance(60000);
    EXPECT_EQ(left(), 0u);
    EXPECT_EQ(callsIn(store).size(), 40u) << "the one that was taken is there too";
}

TEST_F(Download, WaitsForADatabaseThatIsLocked) {
    logIn(40);
    store.CheckCDRFile();
    const auto other = bench.platform.databaseFiles.open(store.gCDRFile());
    other->execute("BEGIN IMMEDIATE");
    run(5);
    EXPECT_THAT(download.lblCDRStatus.text(), HasSubstr("locked"));
    EXPECT_EQ(left(), 39u) << "the first one is in the journal";
    download.pause(true);
    download.pause(false);
    bench.receive("OK#11");  // said twice
    bench.advance(5000);
    EXPECT_EQ(left(), 39u);
    other->execute("COMMIT");
    bench.advance(60000);
    EXPECT_EQ(download.lblCDRStatus.text(), "");
    EXPECT_EQ(left(), 0u);
    EXPECT_EQ(download.gCDRDone, 40);
    EXPECT_EQ(callsIn(store).size(), 40u);
}

TEST_F(Download, TakesNoHarmFromAbsurdLines) {
    logIn(60);
    const auto kept = callsIn(*gateway);
    download.start();
    for (const auto* line :
         {"A_CDR", "A_CDR11", "A_CDR11,", "A_CDR99,1,1,1", "A_CDR11,3,1", "A_CDRxx,2,5", "A_CDR13,2,abc",
          "A_CDR21,2,-7", "A_CDR23,2,99999999999999999999", "A_CDR11,1,7", "A_CDR31,1,1,255", "A_CDR11,1,<end>", "OK#",
          "OK#1", "OK#99", "OK#zz", "OK#11OK#13", "OK"}) {
        bench.advance(7);
        bench.receive(line);
    }
    bench.advance(120000);
    EXPECT_FALSE(download.gCDRDownloading);
    run(120);  // what was said of a channel ends it for one run only
    EXPECT_EQ(left(), 0u);
    EXPECT_EQ(callsIn(store), kept);
}

TEST_F(Download, StopsSkipsAndStartsAnewWhenAsked) {
    logIn(120);
    simulator::switchOn(gateway->faults(), "latency=20");
    download.start();
    bench.advance(2000);
    download.start();
    bench.advance(1500);
    download.stop();
    EXPECT_FALSE(download.gCDRDownloading);
    const auto after = left();
    EXPECT_GT(after, 0u);
    bench.advance(10000);
    EXPECT_EQ(left(), after);
    simulator::switchOn(gateway->faults(), "latency=0");
    run(60);
    EXPECT_EQ(callsIn(store).size(), 120u);
}

TEST_F(Download, GoesByTheMinuteTimer) {
    logIn(20);
    bench.console.files.setting.Write("CDRConfig", "DownLimit", "3");
    download.rearm();
    EXPECT_EQ(download.lblCDRTimer.text(), "Next check will start in 3 min");
    bench.advance(60000);
    EXPECT_EQ(download.lblCDRTimer.text(), "Next check will start in 2 min");
    bench.advance(119000);
    EXPECT_EQ(left(), 20u);
    bench.advance(30000);
    EXPECT_EQ(left(), 0u);
    EXPECT_EQ(download.lblCDRTimer.text(), "Next check will start in 3 min") << "armed again";
    for (const char* limit : {"0", "-3"}) {
        bench.console.files.setting.Write("CDRConfig", "DownLimit", limit);
        download.rearm();
        EXPECT_EQ(download.lblCDRTimer.text(), "Auto downloading is disable");
    }
}

// The minute timer in sessions that are not as they should be.
TEST_F(Download, IsArmedByASession) {
    enum Kind { StartsFirst, ToldLate, MonitorOnly };  // the first with no port to ask
    const std::tuple<Kind, const char*, std::size_t, const char*> sessions[] = {
        {StartsFirst, "latency=1", 0, "Next check will start in 1 min"},
        {ToldLate, "R_PPR:late=1-90000", 0, "Next check will start in 1 min"},
        {MonitorOnly, "latency=1", 20, "Auto downloading is disable"}};
    for (const auto& [kind, fault, leaves, label] : sessions) {
        SCOPED_TRACE(kind);
        ConsoleBench other;
        other.console.files.setting.Write("CDRConfig", "DownLimit", "1");
        gateway = std::make_unique<simulator::Gateway>(seeded(5));
        fillCalls(*gateway, 20);
        ASSERT_EQ(simulator::switchOn(gateway->faults(), fault), "");
        other.platform.boxes.answers = {Button::Ignore, Button::Ignore, Button::Cancel};
        if (kind == StartsFirst) {
            other.console.calls.cmdCDRExport.at(6).press();
            EXPECT_THAT(other.platform.boxes.texts(), ElementsAre(notConnectedText));
            other.console.cdrDownload.start();
            EXPECT_THAT(other.console.cdrDownload.lblCDRTimer.text(), HasSubstr("No port is active"));
        }
        if (kind == MonitorOnly)
            other.dialog = [](frmConnectionSelect& dialog) {
                dialog.chkReceivingMode.setChecked(true);
                dialog.cmbConSelect.setText("NET");
            };
        other.logIn(*gateway);
        other.advance(200000);
        EXPECT_EQ(left(), leaves);
        EXPECT_EQ(other.console.cdrDownload.lblCDRTimer.text(), label);
    }
}

TEST_F(Download, SaysWhatItLeavesInTheGateway) {
    logIn(160);
    bench.console.session.state.gActivePorts = "0101" + std::string(28, '1');  // the second ports of two channels
    bench.runStation();
    download.start();
    bench.advance(300);  // the channels are counted
    bench.receive("A_CDR31,1,7,255");
    bench.advance(60000);
    EXPECT_THAT(download.lblCDRStatus.text(),
                testing::AllOf(HasSubstr("can't be read: channels 31."), HasSubstr("not active: channels 11, 13.")));
    EXPECT_EQ(callsIn(store).size(), 160 - left());
    ASSERT_EQ(simulator::switchOn(gateway->faults(), "R_CDR:lost=1"), "");
    download.start();
    bench.receive("A_CDR31,2,5");
    bench.advance(90000);
    EXPECT_THAT(download.lblCDRStatus.text(), HasSubstr("No record has come"));
}

TEST_F(Download, KeepsTheCallsOfANamelessGatewayApart) {
    logIn(20);
    run(30);
    bench.console.session.bringUp.ConnectChange("disconnect", true);
    simulator::Gateway nameless(seeded(5, "4712"));
    fillCalls(nameless, 10);
    ASSERT_EQ(simulator::switchOn(nameless.faults(), "R_ESN:lost=1"), "");
    bench.platform.boxes.answers = {Button::Ignore};
    bench.logIn(nameless);
    run(30);
    EXPECT_EQ(callsIn(store).size(), 10u);
    EXPECT_EQ(store.gCDRFile().filename(), "CDR_NO_ESN.mdb");
    EXPECT_EQ(bench.console.calls.lblCDRTotal.text(), "10");
}

TEST(CallRecordParser, TakesFlagsStampsAndDurations) {
    const std::pair<const char*, const char*> calls[] = {
        {"9", "5 1 OUT Voice"},
        {"202", "6 1 IN Data"},
        {"59", "5 7 OUT Fax"},
        {"4", "5 0 OUT SMS"},
        {"128", "5 0 IN SMS"}};  // the last has no type: as the one before
    CDRSlot slot;
    for (const auto& [flags, told] : calls) {
        const auto line = "21,1,17," + std::string(flags) +
                          ",ID,100,200,07591421033009,00001021033009,05021021033009,16,17,47,61,99901";
        ASSERT_TRUE(parseCallRecord(splitString(line, ','), slot));
        EXPECT_EQ(slot.port + " " + slot.sim + " " + slot.Direction + " " + slot.TypeOfCall, told);
    }
    EXPECT_EQ(slot.RSSI, "-64db");
    EXPECT_FALSE(parseCallRecord(splitString("21,1,18,255,x", ','), slot));
    EXPECT_EQ(slot.RecordID, "18");
    EXPECT_EQ(slot.SimID, "ID") << "nothing else has changed";
    EXPECT_FALSE(parseCallRecord(splitString("21,1,18", ','), slot));

    const std::pair<const char*, const char*> stamps[] = {
        {"59071425040309", "03-25-09 14:07:59 We"}, {"59071431040209", " 14:07:59 We"},
        {"00000000000000", " 00:00:00 00"},         {"59071425090309", "03-25-09 14:07:59 09"},
        {"60071425040309", "03-25-09 00:00:00"},    {"ab", " 00:00:00"}};
    for (const auto& [digits, text] : stamps) EXPECT_EQ(callStamp(digits), text) << digits;
    const std::tuple<const char*, const char*, const char*> durations[] = {
        {"03-25-09 14:00:00 We", "03-25-09 14:00:59 We", "0.59"},
        {"03-25-09 14:00:00 We", "03-25-09 14:01:00 We", "1.00"},
        {"03-25-09 14:00:00 We", "03-25-09 14:10:00 We", "10.00"},
        {"03-25-09 14:00:00 We", "03-25-09 14:00:07 We", "0.07"},
        {"12-31-09 23:59:30 Th", "01-01-10 00:01:35 Fr", "2.05"},
        {" 00:00:00", "03-25-09 14:00:07 We", "0"},
        {"03-25-09 14:00:07 We", "03-25-09 14:00:00 We", "0"}};
    for (const auto& [answered, ended, total] : durations) EXPECT_EQ(getTotalTime(answered, ended), total) << ended;
}

}  // namespace
}  // namespace trunvex
