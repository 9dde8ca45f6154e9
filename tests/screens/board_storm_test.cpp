// A storm of reports through the whole console, from the socket to the pictures of the board.
#include <random>

#include "board_window.h"

namespace trunvex {
namespace {

class BoardStorm : public BoardWindow {
protected:
    std::string portLine() {
        constexpr std::array codes{"2", "16", "3", "4", "6", "21", "26", "25"};
        const auto index = 1 + static_cast<int>(random() % portCount);
        return reportLine(index, codes[random() % codes.size()], std::to_string(1 + random() % 70));
    }
    std::string channelLine() {
        const auto channel = std::to_string(1 + random() % frmSimStatus::channelCount);
        const std::string code = random() % 2 ? "140" : "101";
        return "I_ALR000," + code + "," + channel + "," + std::to_string(random() % 99) + ",";
    }

    std::mt19937 random{1};
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
    for (int index = 1; index <= portCount; ++index) counter.watch(cell(index));
    for (int channel = 1; channel <= frmSimStatus::channelCount; ++channel)
        counter.watch(part(QString("bchRow_%1").arg(channel)));

    std::string unread;
    for (int ms = 0; ms < lengthMs; ++ms) {
        for (int i = 0; i < linesPerMs; ++i) unread += (i == 0 ? channelLine() : portLine()) + '\r';
        // Reads end anywhere in a line, and paint events come whenever the loop is reached.
        const auto cut = unread.size() - random() % 9;
        bench.platform.peer.deliver(std::string_view(unread).substr(0, cut));
        unread.erase(0, cut);
        bench.advance(1);
        QCoreApplication::processEvents();
    }
    bench.platform.peer.deliver(unread);
    settle();

    constexpr int frames = lengthMs / BoardFrame::intervalMs + 3;
    BoardScreen fresh(console.board, console.monitor, console.pages.routing.portSide.lblAllocation,
                      console.session.notices.lblNotice, {bench.platform, console.files.setting});
    fresh.resize(window.size());
    fresh.show();
    for (int index = 1; index <= portCount; ++index) {
        auto* shown = cell(index);
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
