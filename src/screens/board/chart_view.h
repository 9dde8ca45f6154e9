#pragma once

#include <QWidget>

namespace trunvex {

class Rehearsal;
class TimeChart;
struct ColourRoles;

// picDraw: a row a port, in it a bar for each time a SIM is active, and the hours of the day above. Painted anew at
// whatever size and resolution it has, also on paper.
class ChartView : public QWidget {
    Q_OBJECT

public:
    ChartView(const TimeChart& chart, const Rehearsal& rehearsal, QWidget* parent = nullptr);
    // All of it into a rectangle, on a ground that has been filled.
    void draw(QPainter& painter, const QRectF& box, const ColourRoles& roles) const;
    QSize minimumSizeHint() const override { return {480, 360}; }

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    struct Frame;
    Frame frameOf(const QRectF& box, const QFontMetricsF& metrics, const ColourRoles& roles) const;
    void drawAxis(QPainter& painter, const Frame& frame) const;
    void drawPorts(QPainter& painter, const Frame& frame) const;
    void drawSpans(QPainter& painter, const Frame& frame) const;
    void drawCalls(QPainter& painter, const Frame& frame) const;
    void drawNow(QPainter& painter, const Frame& frame) const;
    QString tipAt(QPointF place) const;

    const TimeChart& chart_;
    const Rehearsal& rehearsal_;
};

}  // namespace trunvex
