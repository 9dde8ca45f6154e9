#include "screens/kit/bar_chart.h"

#include <QHelpEvent>
#include <QTest>
#include <QToolTip>

#include "fakes/matchers.h"
#include "screens/kit/theme.h"

namespace trunvex {
namespace {

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
    Chart() {
        chart.resize(320, 120);
        chart.show();
        QCoreApplication::processEvents();
    }
    std::string spoken() const { return chart.accessibleDescription().toStdString(); }
    // "none" when there is no tip: one that is being hidden keeps its text for a while.
    QString tipAt(int x) {
        QToolTip::showText({}, "none");
        QHelpEvent help(QEvent::ToolTip, {x, 60}, chart.mapToGlobal(QPoint(x, 60)));
        QCoreApplication::sendEvent(&chart, &help);
        return QToolTip::text();
    }
    void press(Qt::Key key) { QTest::keyClick(&chart, key); }

    BarChart chart;
};

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

TEST_F(Chart, SaysThatThereIsNothing) {
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
    QTest::mouseMove(&chart, {300, 60});
    EXPECT_THAT(spoken(), testing::StartsWith("2: 9 calls"));
}

}  // namespace
}  // namespace trunvex
