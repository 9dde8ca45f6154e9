#pragma once

#include <QWidget>
#include <optional>

#include "config/routing/port_routing.h"

namespace trunvex {

// Ports above, lines of the E1 side below, and a line between the two ends of each pair. A click on an end picks it,
// and with the one picked before it makes or parts a pair; the arrow keys go from end to end, and Space clicks.
class PairsView : public QWidget {
    Q_OBJECT

public:
    explicit PairsView(PortRouting& side, QWidget* parent = nullptr);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;

private:
    struct End {
        bool port = true;
        int number = 1;
        bool operator==(const End&) const = default;
    };

    QRectF box(End end) const;
    std::optional<End> at(const QPointF& point) const;
    void click(End end);
    void paintEnd(QPainter& painter, End end) const;
    void paintPairs(QPainter& painter) const;
    QString tipOf(End end) const;
    bool edited(int port) const;
    int portsOn(int line) const;

    PortRouting& side_;
    End current_;
};

}  // namespace trunvex
