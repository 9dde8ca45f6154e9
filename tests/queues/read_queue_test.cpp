#include "queues/read_queue.h"

#include "fakes/manual_platform.h"
#include "fakes/matchers.h"

namespace trunvex {
namespace {

class FakeSender final : public CommandSender {
public:
    bool isConnected() const override { return connected; }
    bool free() const override { return true; }
    bool mayWrite() const override { return true; }
    void SendCommand(std::string_view line, bool, bool) override { lines.emplace_back(line); }

    bool connected = true;
    std::vector<std::string> lines;
};

constexpr const char* noData = "Can't get data from the gateway, please check your connection!.";

class ReadQueueTest : public testing::Test {
protected:
    void advance(int ms) { platform.loop.advance(std::chrono::milliseconds(ms)); }
    void answer(const std::string& line) { queue.takeAnswer(line); }

    fakes::ManualPlatform platform;
    FakeSender sender;
    ReadQueue queue{platform, sender, pageReads};
};

TEST_F(ReadQueueTest, RunsAsFastAsTheGatewayAnswers) {
    std::string shown;
    queue.onComplete("SYS", [&](const std::string& key) { shown = key; });
    ASSERT_TRUE(queue.start({command("R_CLK", "System time"), command("R_SYS", "System Version")}));
    EXPECT_EQ(queue.bar.text(), "Loading System time");
    EXPECT_FALSE(queue.formEnabled());
    answer("A_CLK1,2");
    advance(100);  // 50 ticks of 2 ms
    EXPECT_THAT(sender.lines, ElementsAre("R_CLK", "R_SYS"));
    EXPECT_EQ(queue.bar.text(), "Loading System Version");
    answer("A_SYS6");
    advance(100);
    EXPECT_EQ(shown, "R_SYS");
    EXPECT_TRUE(queue.formEnabled());
    EXPECT_FALSE(queue.bar.visible());
    EXPECT_EQ(platform.loop.runningTimers(), 0);
}

TEST_F(ReadQueueTest, SendsALoneItemThreeTimesThenSaysSo) {
    queue.start({command("R_ISD", "ISDN")}, 500);
    advance(499);
    EXPECT_EQ(sender.lines.size(), 1u);
    advance(1);
    EXPECT_EQ(sender.lines.size(), 2u);
    EXPECT_EQ(queue.bar.percent(), 0);
    advance(1000);
    EXPECT_EQ(sender.lines.size(), 3u);
    EXPECT_THAT(platform.boxes.texts(), ElementsAre(noData));
    EXPECT_EQ(platform.loop.runningTimers(), 0);
    EXPECT_TRUE(queue.formEnabled());
}

TEST_F(ReadQueueTest, AsksAtADeadItemAndGoesOnOrStops) {
    platform.boxes.answers = {Button::Yes, Button::No};
    // The box stays open for a while: nothing may be sent or skipped behind it.
    platform.boxes.behind = [this](const MessageBox&) {
        const auto before = sender.lines.size();
        advance(10000);
        EXPECT_EQ(sender.lines.size(), before);
    };
    queue.start({command("R_1", "a"), command("R_2", "b"), command("R_3", "c")}, 500);
    advance(1500 + 100);
    EXPECT_THAT(sender.lines, ElementsAre("R_1", "R_1", "R_1", "R_2"));
    advance(2100);
    EXPECT_THAT(sender.lines, ElementsAre("R_1", "R_1", "R_1", "R_2", "R_2", "R_2", "R_2"));
    EXPECT_EQ(queue.walk().index(), 2u);
    EXPECT_FALSE(queue.running());
    EXPECT_TRUE(queue.formEnabled());
    ASSERT_TRUE(queue.start({command("R_4", "d")}));
    EXPECT_EQ(queue.walk().index(), 0u);
}

TEST_F(ReadQueueTest, IgnoresALateAnswerToTheItemBefore) {
    queue.start({command("R_ESN", "a"), command("R_CLK", "b")}, 500);
    answer("A_ESN1");
    advance(100);
    answer("A_ESN1");
    EXPECT_EQ(queue.walk().reply(), Walk::Reply::None);
    answer("x CLK y");
    EXPECT_EQ(queue.walk().reply(), Walk::Reply::Accepted) << "any line that holds the letters answers";
}

std::vector<QueueItem> manyReads(int count) {
    std::vector<QueueItem> items;
    for (int i = 0; i < count; ++i) items.push_back(command("R_X" + std::to_string(100000 + i), "x"));
    return items;
}

// Over as soon as the last item is answered, whatever is left of a hundred ticks.
TEST_F(ReadQueueTest, WalksBatchesOfEverySizeOnceThroughAndNoLonger) {
    for (const int count : {1, 2, 3, 7, 29, 32, 66, 71, 150, 40000}) {
        sender.lines.clear();
        ASSERT_TRUE(queue.start(manyReads(count), 1000));
        for (int i = 0; i < count && queue.running(); ++i) {
            answer("A" + sender.lines.back().substr(1));
            advance(2 * queue.bar.ticksPerItem());
        }
        EXPECT_EQ(sender.lines.size(), static_cast<std::size_t>(count));
        EXPECT_FALSE(queue.running()) << count;
    }
    EXPECT_THAT(platform.boxes.shown, IsEmpty());
}

// Each item is asked for as often as it may be, also when a hundred percent are long past.
TEST_F(ReadQueueTest, GivesUpNoItemBeforeItsLastTry) {
    ASSERT_TRUE(queue.start(manyReads(28), 100));
    for (int step = 0; step < 500 && queue.running(); ++step) {
        const auto line = sender.lines.back();
        const auto tries = std::count(sender.lines.begin(), sender.lines.end(), line);
        if (tries == (line == "R_X100000" ? 3 : 4)) answer("A" + line.substr(1));
        advance(100);
    }
    EXPECT_EQ(sender.lines.size(), 3u + 27 * 4);
    EXPECT_EQ(sender.lines.back(), "R_X100027");
    EXPECT_THAT(platform.boxes.shown, IsEmpty());
}

TEST_F(ReadQueueTest, TellsHoweverABatchEndedAndBeginsWhatWaits) {
    std::vector<ReadQueue::Ending> endings;
    queue.ended().connect([&](ReadQueue::Ending ending) { endings.push_back(ending); });
    queue.start(manyReads(2));
    queue.start({command("R_ISD", "ISDN")});
    queue.whenFree("page", [this] { queue.start({command("R_SYS", "version")}); });
    queue.whenFree("page", [this] { queue.start({command("R_CLK", "time")}); });
    answer("A_ISD");
    advance(200);
    EXPECT_EQ(sender.lines.back(), "R_CLK");
    queue.whenFree("page", [this] { queue.start({command("R_SYS", "version")}); });
    queue.cancel();
    EXPECT_EQ(sender.lines.back(), "R_CLK");
    queue.start({command("R_SYS", "version")});
    queue.abandon();
    queue.start({command("R_SYS", "version")}, 100);
    advance(1000);
    using enum ReadQueue::Ending;
    EXPECT_THAT(endings, ElementsAre(Replaced, Complete, Cancelled, Lost, GivenUp));
    EXPECT_EQ(platform.loop.runningTimers(), 0);
}

TEST_F(ReadQueueTest, RefusesWhenTheLinkIsDown) {
    sender.connected = false;
    EXPECT_FALSE(queue.start({command("R_ISD", "ISDN")}));
    EXPECT_THAT(platform.boxes.texts(), ElementsAre(notConnectedText));
    EXPECT_THAT(sender.lines, IsEmpty());
}

TEST_F(ReadQueueTest, TellsHowFarALongTableHasCome) {
    queue.start({command("R_BCH1", "B-CH 1"), command("R_BCH2", "B-CH 2"), command("R_BCH3", "B-CH 3")});
    answer("A_BCH1");
    advance(66);
    EXPECT_EQ(queue.bar.text(), "Loading B-CH 2   33%");
    answer("A_BCH2");
    advance(66);
    EXPECT_EQ(queue.bar.text(), "Loading B-CH 3   67%");
}

TEST_F(ReadQueueTest, OfTheBoardPassesOverWhatIsNotAnsweredWithoutAWord) {
    ReadQueue board{platform, sender, boardReads};
    board.start({command("R_STS11", "Port 1"), command("R_STS12", "Port 2"), command("R_STS13", "Port 3")}, 300);
    EXPECT_TRUE(board.takeAnswer("A_STS11,1"));
    advance(70);
    EXPECT_THAT(sender.lines, ElementsAre("R_STS11", "R_STS12"));
    advance(300);
    EXPECT_THAT(sender.lines, ElementsAre("R_STS11", "R_STS12", "R_STS13"));
    EXPECT_TRUE(board.takeAnswer("OK"));
    advance(300);
    EXPECT_EQ(board.bar.text(), "Refreshing data  complete seccessful!");
    EXPECT_FALSE(board.bar.visible());
    EXPECT_EQ(platform.loop.runningTimers(), 0);
    EXPECT_THAT(platform.boxes.shown, IsEmpty());
    board.start({command("R_STS11", "Port 1")}, 300);
    advance(400);
    EXPECT_EQ(board.bar.text(), "Done");
}

}  // namespace
}  // namespace trunvex
