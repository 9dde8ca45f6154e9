#pragma once

#include <QAccessible>
#include <QHash>

#include "screens/board/board_cell.h"
#include "screens/board/board_screen.h"
#include "screens/kit/board_frame.h"
#include "screens/screens_bench.h"

namespace trunvex {

// Counts the paint events of the widgets it watches.
class PaintCounter : public QObject {
public:
    void watch(QWidget* widget) { widget->installEventFilter(this); }
    int of(QWidget* widget) const { return paints_.value(widget); }
    int all() const {
        int sum = 0;
        for (const int count : paints_) sum += count;
        return sum;
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint) ++paints_[watched];
        return false;
    }

private:
    QHash<QObject*, int> paints_;
};

// The status board's window, without a screen and on the manual clock.
class BoardWindow : public ScreensBench {
protected:
    BoardWindow() { answerByScript(); }

    void receive(const std::string& line) { console.session.dispatcher.AnalyzeCmd(line, true); }
    // What the gateway says of SIM 1 of a port, by board index.
    static std::string reportLine(int index, const std::string& code, const std::string& first = "",
                                  const std::string& second = "") {
        return "I_ALR" + PortAddress::ofNumber(index).digits() + "1," + code + "," + first + "," + second + ",";
    }
    void report(int index, const std::string& code, const std::string& first = "", const std::string& second = "") {
        receive(reportLine(index, code, first, second));
    }
    template <class Widget = QWidget>
    Widget* part(const QString& name) {
        return find<Widget>(&window, name);
    }
    BoardCell* cell(int index) { return part<BoardCell>(QString("portCell_%1").arg(index)); }
    std::string property(QWidget* widget, const char* name) {
        EXPECT_TRUE(widget->property(name).isValid()) << name;
        return widget->property(name).toString().toStdString();
    }
    void open() {
        console.board.opened();
        settle();
    }
    // Lets the frames run out and what they asked for be painted.
    void settle() {
        bench.advance(3 * BoardFrame::intervalMs);
        QCoreApplication::processEvents();
    }
    std::string spoken(QWidget* widget) {
        auto* face = QAccessible::queryAccessibleInterface(widget);
        return (face->text(QAccessible::Name) + ": " + face->text(QAccessible::Description)).toStdString();
    }
    static QImage pictureOf(QWidget* widget) { return widget->grab().toImage(); }
    static QColor bandOf(BoardCell* cell) {
        const auto image = pictureOf(cell);
        return image.pixelColor(image.width() - 4, image.height() / 4);
    }

    BoardScreen& window = screens.board();
};

}  // namespace trunvex
