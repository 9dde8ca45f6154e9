#pragma once

#include <QString>
#include <QWidget>
#include <vector>

class QHelpEvent;

namespace trunvex {

struct Bar {
    QString label;
    double value;  // what is not above 0 has no bar
    QString valueText;
    QString tip;
    bool operator==(const Bar&) const = default;
};

// Vertical bars on one base line, the title above them and labels beneath. The largest value stands at its bar, any
// other behind the title when the mouse is over its bar or the arrow keys have come to it. Where there is no room for
// all, the largest bars are shown, in their order, and the title says how many of how many.
class BarChart : public QWidget {
    Q_OBJECT

public:
    explicit BarChart(QWidget* parent = nullptr);

    // What is shown already costs nothing. The bar in hand stays in hand if its label is still there.
    void setBars(const QString& title, std::vector<Bar> bars);

    QSize minimumSizeHint() const override;
    QSize sizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    static constexpr int none = -1;

    // Where the parts are, from the top: title, largest value, bars, labels.
    struct Rows;
    Rows rows() const;

    void chooseBars();
    void highlight(int place);
    void speak();
    bool showTip(QHelpEvent* event);
    const Bar& barAt(int place) const { return bars_[shown_[static_cast<std::size_t>(place)]]; }
    int count() const { return static_cast<int>(shown_.size()); }
    // The strip of the width that belongs to a bar.
    double left(int place) const;
    int placeAt(double x) const;
    QString largestInWords() const;
    QFont smallFont() const;
    QRectF labelBox(int place, const Rows& rows) const;
    int labelStep(const Rows& rows) const;

    void paintTitle(QPainter& painter, const Rows& rows) const;
    void paintBars(QPainter& painter, const Rows& rows) const;
    void paintLargest(QPainter& painter, const Rows& rows) const;
    void paintLabels(QPainter& painter, const Rows& rows) const;

    QString title_;
    QString emptyText_;
    std::vector<Bar> bars_;
    std::vector<std::size_t> shown_;  // places in bars_, in their order; empty when no bar is above 0
    double largest_ = 0;
    int largestPlace_ = none;
    int highlighted_ = none;  // a place in shown_
};

}  // namespace trunvex
