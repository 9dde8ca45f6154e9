#include "queues/write_queue.h"

#include "fakes/console_test.h"

namespace trunvex {
namespace {

// On a link that is up, with the session flag set but no log-in under way.
class WriteQueueTest : public testing::Test {
protected:
    WriteQueueTest() {
        bench.connect();
        console.session.bringUp.sessionStands();
        bench.platform.peer.sent.clear();
    }
    bool start(std::vector<std::string> lines, WriteBatch batch = {}) {
        for (const auto& line : lines) batch.items.push_back(command(line, "[" + line + "]"));
        return console.session.writes.start(std::move(batch));
    }
    void answer(const char* word) {
        bench.receive(word);
        bench.advance(1);
    }
    std::vector<std::string> boxTexts() { return bench.platform.boxes.texts(); }

    ConsoleBench bench;
    Console& console = bench.console;
    std::deque<Button>& answers = bench.platform.boxes.answers;
};

TEST_F(WriteQueueTest, SendsTheNextWhenTheGatewayHasAccepted) {
    ASSERT_TRUE(start({"C_A", "C_B"}));
    EXPECT_EQ(bench.panelText(), "send data to: [C_A]");
    bench.receive("OK");
    EXPECT_THAT(bench.sent(), ElementsAre("C_A")) << "the decision is the tick's";
    bench.advance(1);
    EXPECT_THAT(bench.sent(), ElementsAre("C_A", "C_B"));
    EXPECT_EQ(bench.panelText(), "send data : [C_B]");
    answer("OK");
    EXPECT_EQ(bench.panelText(), "Connected        ");
    EXPECT_THAT(boxTexts(), IsEmpty());
    bench.advance(5000);
    EXPECT_THAT(bench.sent(), ElementsAre("C_A", "C_B"));
}

TEST_F(WriteQueueTest, WaitsOutItsTimeThenAsks) {
    start({"C_A", "C_B", "C_C"});
    bench.advance(999);
    EXPECT_THAT(boxTexts(), IsEmpty());
    answers = {Button::Ignore, Button::Ignore, Button::Retry, Button::Cancel};
    bench.advance(1);
    ASSERT_THAT(boxTexts(), ElementsAre("Error: can't write : \r\n[C_A]\r\nplease check your data."));
    const auto box = bench.platform.boxes.shown[0];
    EXPECT_EQ(box.title, "[C_A]");
    EXPECT_EQ(box.buttons, ButtonSet::AbortRetryIgnore);
    EXPECT_EQ(box.defaultButton, 2);
    bench.advance(2000);
    EXPECT_EQ(bench.platform.boxes.shown[2].buttons, ButtonSet::RetryCancel);
    bench.advance(1000);
    EXPECT_THAT(bench.sent(), ElementsAre("C_A", "C_B", "C_C", "C_C"));
    EXPECT_EQ(boxTexts().back(), "Error: can't write data to : \r\n[C_A]\r\n[C_B]\r\n[C_C]");
    EXPECT_EQ(bench.panelText(), "failed write to gateway");
    EXPECT_FALSE(console.session.writes.running());
}

TEST_F(WriteQueueTest, RestsWhileItsBoxIsOpenAndCreditsNothingThatComesMeanwhile) {
    start({"C_A", "C_B"});
    answers = {Button::Retry};
    bench.platform.boxes.behind = [this](const MessageBox&) {
        bench.receive("OK");
        bench.advance(20000);
        EXPECT_THAT(bench.sent(), ElementsAre("C_A"));
    };
    bench.advance(1000);
    EXPECT_THAT(bench.sent(), ElementsAre("C_A", "C_A"));
    EXPECT_EQ(console.session.writes.walk().reply(), Walk::Reply::None);
    answer("OK");
    EXPECT_THAT(bench.sent(), ElementsAre("C_A", "C_A", "C_B"));
}

TEST_F(WriteQueueTest, FeedsBackWhatWasAcceptedAndNothingElse) {
    start({"C_CLK01,02,26,1,10,30", "C_CLK01,02,26,1,11,30"});
    answer("OK");
    EXPECT_EQ(console.session.state.gClockField[4], "10");
    EXPECT_EQ(console.session.writes.walk().reply(), Walk::Reply::None)
        << "the line fed back must not answer the next command";
    answers = {Button::Cancel};
    bench.advance(1000);
    EXPECT_EQ(console.session.state.gClockField[4], "10") << "a refused value is not stored";
}

TEST_F(WriteQueueTest, IsSilentAboutASilentBatchAndEndsIt) {
    WriteBatch batch;
    batch.silent = true;
    start({"C_A", "C_B", "C_C"}, batch);
    bench.advance(1000);
    EXPECT_EQ(bench.panelText(), "[C_B]");
    answer("OK");
    bench.advance(3000);
    EXPECT_THAT(bench.sent(), ElementsAre("C_A", "C_B", "C_C", "C_C"));
    EXPECT_FALSE(console.session.writes.running());
    EXPECT_FALSE(console.session.writes.gSilentWrite);
    batch = {};
    batch.silent = true;
    start({"C_D"}, batch);
    answer("OK");
    EXPECT_EQ(bench.panelText(), "Refreshing data  complete seccessful!");
    EXPECT_THAT(boxTexts(), IsEmpty());
}

TEST_F(WriteQueueTest, SaysRestoringWhileABackupIsReplayed) {
    WriteBatch batch;
    batch.restore = true;
    answers = {Button::Retry};
    start({"C_A", "C_B"}, batch);
    answer("OK");
    EXPECT_EQ(bench.panelText(), "Restoring Data");
    bench.advance(1000);
    EXPECT_THAT(boxTexts().back(), HasSubstr("error while restoring data."));
    answer("OK");
    EXPECT_EQ(boxTexts().back(), "Restore data complete successful.. ");
    EXPECT_FALSE(console.session.writes.gRestoreMode);
}

TEST_F(WriteQueueTest, PushesLinesInTheWaitStateThenLogsIn) {
    WriteBatch batch;
    batch.word = "wait";
    batch.timeToWriteMs = 2000;
    batch.items = {command("", "empty"), command("AT1", "one"), command("", "empty"), command("CONNECT", "last")};
    console.session.writes.start(batch);
    bench.advance(2000);
    EXPECT_THAT(bench.sent(), ElementsAre("AT1"));
    bench.advance(4000);
    EXPECT_THAT(bench.sent(), ElementsAre("AT1", "CONNECT"));
    bench.advance(2000);
    EXPECT_EQ(bench.sent().back(), "C_CPWkestr");
}

TEST_F(WriteQueueTest, GivesAnItemTheTimeOfItsTerms) {
    WriteBatch batch;
    batch.items = {command("ATE0", "reset"), command("ATD123", "dial")};
    batch.items[1].terms.timeMs = 65000;
    console.session.writes.start(batch);
    answer("OK");
    bench.advance(64999);
    EXPECT_THAT(boxTexts(), IsEmpty());
    answers = {Button::Retry};
    bench.advance(1);
    EXPECT_EQ(boxTexts().size(), 1u);
    bench.advance(64999);
    EXPECT_EQ(boxTexts().size(), 1u) << "a second dial gets as long";
}

TEST_F(WriteQueueTest, LetsTheBoardsBarGoOnHoweverABatchEnds) {
    auto& bar = console.session.refreshes.bar;
    for (const bool silent : {true, false}) {
        console.session.refreshes.start({command("R_STS11", "Port 1"), command("R_STS12", "Port 2")}, 60000);
        WriteBatch batch;
        batch.silent = silent;
        start({"C_A"}, batch);
        const int before = bar.percent();
        bench.advance(5000);
        EXPECT_FALSE(console.session.writes.running());
        bench.advance(5000);
        EXPECT_GT(bar.percent(), before);
        console.session.refreshes.cancel();
    }
}

TEST_F(WriteQueueTest, RefusesASecondBatchWhileOneRuns) {
    start({"C_A"});
    EXPECT_FALSE(start({"C_B"}));
    EXPECT_THAT(bench.sent(), ElementsAre("C_A"));
    EXPECT_THAT(console.mainWindow.lblNotice.text(), HasSubstr("still being written"));
    answer("OK");
    EXPECT_TRUE(start({"C_B"}));
    EXPECT_THAT(boxTexts(), IsEmpty());
}

// Of four targets the one next to the last is left out.
TEST_F(WriteQueueTest, PumpsFirmwareFromTheEndOfItsList) {
    const std::string completed = "I_ALR000,90,,'RESTART' Command is completed";
    ASSERT_TRUE(console.session.firmware.updateAll({"C_SLU11", "C_SLU12", "C_SLU21", "C_SLU22"}));
    for (int i = 0; i < 3; ++i) bench.receive(completed);
    EXPECT_THAT(bench.sent(), ElementsAre("C_SLU22", "C_SLU12", "C_SLU11"));
    EXPECT_FALSE(console.session.firmware.running());
    bench.advance(1000);
    ASSERT_TRUE(console.session.firmware.updateAll({"C_SLU11", "C_SLU12"}));
    answers = {Button::Abort};
    bench.advance(10000);
    bench.platform.peer.sent.clear();
    bench.receive(completed);
    EXPECT_THAT(bench.sent(), IsEmpty()) << "a late word must not go on with what the operator stopped";
    // The only target: it may be tried again, and no second answer is taken for the first.
    ASSERT_TRUE(console.session.firmware.updateAll({"C_MSU"}));
    bench.platform.boxes.shown.clear();
    answers = {Button::Retry, Button::Cancel};
    bench.advance(20000);
    EXPECT_THAT(bench.sent(), ElementsAre("C_MSU", "C_MSU"));
    EXPECT_EQ(bench.platform.boxes.shown.at(0).buttons, ButtonSet::AbortRetryIgnore);
    EXPECT_EQ(bench.platform.boxes.shown.at(1).buttons, ButtonSet::RetryCancel);
    EXPECT_FALSE(console.session.writes.running());
}

TEST_F(WriteQueueTest, LeavesTheLineToALogInAndCancelsWithoutAWord) {
    start({"C_A", "C_B"});
    console.session.writes.cancel();
    EXPECT_FALSE(console.session.writes.running());
    EXPECT_EQ(bench.panelText(), "Connected        ");
    console.session.bringUp.RecievingChange();
    EXPECT_FALSE(start({"C_C"}));
    EXPECT_FALSE(console.session.reads.start({command("R_ISD", "ISDN")}));
    EXPECT_THAT(bench.sent(), ElementsAre("C_A", "C_CPWkestr"));
    EXPECT_THAT(console.mainWindow.lblNotice.text(), HasSubstr("still logging in"));
    EXPECT_THAT(boxTexts(), IsEmpty());
}

// A bar that two hold goes on when both have let go.
TEST_F(WriteQueueTest, HoldsTheCallDownloadAndLetsGoOnlyItsOwnHold) {
    auto& bar = console.cdrDownload.ucCDRProg;
    bar.StartProgress(CoolProgressBar::Read, 1000, 1);
    console.cdrDownload.pause(true);
    start({"C_A"});
    bench.receive("OK");
    bench.advance(5);
    EXPECT_FALSE(console.session.writes.running());
    bench.advance(5000);
    EXPECT_EQ(bar.percent(), 0);
    console.cdrDownload.pause(false);
    bench.advance(100);
    EXPECT_GT(bar.percent(), 0);
    start({"C_A"});
    const int before = bar.percent();
    bench.advance(500);
    EXPECT_EQ(bar.percent(), before);
}

}  // namespace
}  // namespace trunvex
