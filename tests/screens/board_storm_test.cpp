// A storm of reports through the whole console, from the socket to the pictures of the board.
#include <random>

#include "board_window.h"

namespace trunvex {
namespace {

// What the last line for a cell has said, line by line.
struct Expected {
    std::string message;
    std::string number;
    std::string network;
    std::string decibels;
    std::string counter = "Count:";
};

class BoardStorm : public BoardWindow {
protected:
    // A report of one of the ports; what it says is expected from now on.
    std::string portLine(int index) {
        auto& port = expected[static_cast<std::size_t>(index)];
        const auto value = 1 + random() % 70;
        const auto number = std::to_string(value);
        switch (random() % 8) {
            case 0:
                port.message = "DIAL ISDN";
                port.number = number;
                return reportLine(index, "2", number);
            case 1:
                port.message = "ALERTING";
                return reportLine(index, "16");
            case 2:
                port.message = "CONNECTING";
                return reportLine(index, "3");
            case 3:
                port.message = "MS CONNECTED";
                port.counter = "Count:000" + number + ":00";
                return reportLine(index, "4", "000" + number + ":00");
            case 4:
                port.message = "DISCONNECTED MS (" + number + ")";
                return reportLine(index, "6", number);
            case 5:
                port.network = "net " + number;
                return reportLine(index, "21", "net " + number);
            case 6:
                port = {"SIM ABSENCE", "", "", port.decibels, "Count:"};
                return reportLine(index, "26");
            default:
                port.decibels = std::to_string(static_cast<int>(value) - 111) + "db";
                return reportLine(index, "25", number);
        }
    }
    std::string channelLine() {
        const auto channel = std::to_string(1 + random() % frmSimStatus::channelCount);
        const std::string code = random() % 2 ? "140" : "101";
        return "I_ALR000," + code + "," + channel + "," + std::to_string(random() % 99) + ",";
    }

    std::mt19937 random{1};
    std::array<Expected, frmSimStatus::portCount + 1> expected;
};

TEST_F(BoardStorm, EveryCellEndsAtItsLastLineAndIsPaintedOnceAFrameAtMost) {
    constexpr int linesPerMs = 10;
    constexpr int lengthMs = 1000;
    bench.connect();
    bench.advance(3000);
    receive("A_PPR" + std::string(32, '1'));
    receive("A_ESN4711");
    open();
    const auto objects = window.findChildren<QObject*>().size();
    PaintCounter counter;
    for (int index = 1; index <= frmSimStatus::portCount; ++index) counter.watch(cell(index));
    for (int channel = 1; channel <= frmSimStatus::channelCount; ++channel)
        counter.watch(part(QString("bchRow_%1").arg(channel)));

    std::string unread;
    for (int ms = 0; ms < lengthMs; ++ms) {
        for (int i = 0; i < linesPerMs; ++i)
            unread += (i == 0 ? channelLine() : portLine(1 + static_cast<int>(random() % portCount))) + '\r';
        // Reads end anywhere in a line, and paint events come whenever the loop is reached.
        const auto cut = unread.size() - random() % 9;
        bench.platform.socket->deliver(std::string_view(unread).substr(0, cut));
        unread.erase(0, cut);
        bench.advance(1);
        QCoreApplication::processEvents();
    }
    bench.platform.socket->deliver(unread);
    settle();

    constexpr int frames = lengthMs / BoardFrame::intervalMs + 3;
    BoardScreen fresh(console.board, console.routingPage.lblAllocation, {bench.platform, console.files.setting});
    fresh.resize(window.size());
    fresh.show();
    for (int index = 1; index <= frmSimStatus::portCount; ++index) {
        auto* shown = cell(index);
        const auto& last = expected[static_cast<std::size_t>(index)];
        const std::pair<const char*, std::string> texts[] = {{"lblMsg", last.message},
                                                             {"lblMsgNumber", last.number},
                                                             {"lblNetworkID", last.network},
                                                             {"lblStrengthDB", last.decibels},
                                                             {"lblLimit", last.counter}};
        for (const auto& [name, text] : texts) EXPECT_EQ(property(shown, name), text) << index << " " << name;
        EXPECT_GT(counter.of(shown), frames / 2) << index << " does not follow";
        EXPECT_LE(counter.of(shown), frames) << index << " is painted more often than it can be seen";
        EXPECT_EQ(pictureOf(shown), pictureOf(fresh.findChild<BoardCell*>(shown->objectName())))
            << index << " was not painted after its last line";
    }
    for (int channel = 1; channel <= frmSimStatus::channelCount; ++channel) {
        auto* row = part(QString("bchRow_%1").arg(channel));
        EXPECT_LE(counter.of(row), frames) << channel;
        EXPECT_EQ(pictureOf(row), pictureOf(fresh.findChild<QWidget*>(row->objectName()))) << channel;
    }
    EXPECT_EQ(window.findChildren<QObject*>().size(), objects) << "a storm leaves nothing behind";
    EXPECT_EQ(property(part("ucEqualizer"), "value"), console.board.lblLoading.text());
}

}  // namespace
}  // namespace trunvex
