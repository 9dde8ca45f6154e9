#pragma once

#include <QProxyStyle>

namespace trunvex {

// Fusion, with edges of fields, combo boxes and check boxes that stand out from what they lie on in light and
// in dark, and turn to the accent colour in focus.
class LookStyle : public QProxyStyle {
    Q_OBJECT

public:
    LookStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    // No pictures on the buttons of boxes: their words are enough, and the stock ones belong to another look.
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override;
};

}  // namespace trunvex
