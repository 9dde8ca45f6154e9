#include "screens/kit/bar_chart.h"

#include <gmock/gmock.h>

#include <QAccessible>
#include <QApplication>
#include <QHelpEvent>
#include <QImage>
#include <QTest>
#include <QToolTip>

#include "screens/board_window.h"
#include "screens/kit/theme.h"

namespace trunvex {
namespace {

using testing::HasSubstr;

std::vector<Bar> bars(int count) {
    std::vector<Bar> made;
    for (int index = 0; index < count; ++index) {
        const auto number = QString::number(index + 1);
        made.push_back({number, 10.0 + index, "v" + number, "port " + number});
    }
    return made;
}

class Chart : public testing::Test {
protected:
    Chart() { show(320, 120); }
    void show(int width, int height) {
        chart.resize(width, height);
        chart.show();
        QCoreApplication::processEvents();
    }
    std::string spoken() const { return chart.accessibleDescription().toStdString(); }
    // Heights of the bars from the left, as they are seen: runs of columns that are inked just above the base line, the
    // lowest row of one colour from end to end.
    std::vector<int> heights() {
        const auto image = chart.grab().toImage();
        const QColor bare = image.pixelColor(edge, image.height() / 2);
        const auto inked = [&](int x, int y) { return image.pixelColor(x, y) != bare; };
        const auto full = [&](int y) {
            for (int x = 2 * edge; x < image.width() - 2 * edge; ++x)
                if (!inked(x, y) || image.pixelColor(x, y) != image.pixelColor(2 * edge, y)) return false;
            return true;
        };
        int base = image.height() - 2 * edge;
        while (base > 1 && !full(base)) --base;
        std::vector<int> found;
        for (int x = edge + 1; x < image.width() - edge; ++x) {
            if (!inked(x, base - 1) || inked(x - 1, base - 1)) continue;
            int top = base - 1;
            while (top > 0 && inked(x, top - 1)) --top;
            found.push_back(base - top);
        }
        return found;
    }
    // "none" when there is no tip: one that is being hidden keeps its text for a while.
    QString tipAt(int x) {
        QToolTip::showText({}, "none");
        QHelpEvent help(QEvent::ToolTip, {x, 60}, chart.mapToGlobal(QPoint(x, 60)));
        QCoreApplication::sendEvent(&chart, &help);
        return QToolTip::text();
    }
    void press(Qt::Key key) { QTest::keyClick(&chart, key); }

    static constexpr int edge = 3;  // where the focus may be seen
    BarChart chart;
};

TEST_F(Chart, DrawsAGapBetweenAnyTwoBarsAtEachWidth) {
    for (const int width : {280, 301, 333, 640, 1279})
        for (const int count : {1, 3, 24, 32, 128}) {
            chart.setBars({}, bars(count));
            show(width, 120);
            const auto seen = heights();
            EXPECT_EQ(seen.size(), std::min<std::size_t>(count, (width - 12) / 4)) << width << " " << count;
            EXPECT_TRUE(std::is_sorted(seen.begin(), seen.end())) << width << " " << count;
        }
}

TEST_F(Chart, KeepsTheLargestInTheirOrder) {
    auto many = bars(128);
    std::reverse(many.begin(), many.end());
    std::swap(many.front(), many.back());  // the least is the first
    chart.setBars("SIMs", many);
    chart.resize(280, 120);
    press(Qt::Key_Home);
    EXPECT_THAT(spoken(), testing::StartsWith("127: v127. Largest: 128: v128; 127: v127; 126: v126"));
    press(Qt::Key_End);
    EXPECT_THAT(spoken(), testing::StartsWith("128: v128.")) << "the last";
    press(Qt::Key_Right);
    press(Qt::Key_Left);
    EXPECT_THAT(spoken(), testing::StartsWith("62: v62.")) << "the least of the 67 that are kept";
}

TEST_F(Chart, ShowsASmallValueAndNoneForZero) {
    chart.setBars({}, {{"a", 1e6, "", ""}, {"b", 1, "", ""}, {"c", 0, "", ""}, {"d", -5, "", ""}, {"e", NAN, "", ""}});
    const auto seen = heights();
    ASSERT_EQ(seen.size(), 2U);
    EXPECT_EQ(seen[1], 1);
    for (const auto& none : {std::vector<Bar>{}, std::vector<Bar>{{"a", 0, "0", ""}}}) {
        chart.setBars("Calls", none);
        EXPECT_EQ(spoken(), "No calls");
        for (const auto key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Home, Qt::Key_End}) press(key);
        QTest::mouseMove(&chart, {100, 60});
        EXPECT_EQ(tipAt(100), "none");
    }
}

TEST_F(Chart, TellsOfTheBarUnderTheMouse) {
    chart.setBars("Ports", {{"1", 5, "5 calls", "<b>one</b>"}, {"2", 9, "9 calls", "two\nlines"}});
    EXPECT_THAT(tipAt(100).toStdString(), HasSubstr("&lt;b&gt;one"));
    EXPECT_THAT(tipAt(300).toStdString(), HasSubstr("two<br>lines"));
    EXPECT_EQ(tipAt(1), "none");
    const auto calm = chart.grab().toImage();
    QTest::mouseMove(&chart, {300, 60});
    EXPECT_THAT(spoken(), testing::StartsWith("2: 9 calls"));
    EXPECT_NE(chart.grab().toImage(), calm);
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&chart, &leave);
    EXPECT_EQ(chart.grab().toImage(), calm);
}

TEST_F(Chart, PaintsOnlyWhatIsNewAndKeepsTheBarInHand) {
    PaintCounter paints;
    chart.setBars("Ports", bars(32));
    press(Qt::Key_Right);
    press(Qt::Key_Right);
    QCoreApplication::processEvents();
    paints.watch(&chart);
    chart.setBars("Ports", bars(32));
    QCoreApplication::processEvents();
    EXPECT_EQ(paints.all(), 0);
    auto fewer = bars(32);
    fewer.erase(fewer.begin());
    chart.setBars("Ports", fewer);
    QCoreApplication::processEvents();
    EXPECT_EQ(paints.all(), 1);
    EXPECT_THAT(spoken(), testing::StartsWith("2: v2."));
    fewer.erase(fewer.begin());
    chart.setBars("Ports", fewer);
    EXPECT_THAT(spoken(), testing::StartsWith("Largest"));
}

}  // namespace
}  // namespace trunvex
