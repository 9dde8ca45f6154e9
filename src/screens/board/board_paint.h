#pragma once

#include <QColor>
#include <QFont>
#include <QPixmap>
#include <QRectF>
#include <QStaticText>
#include <QString>
#include <optional>

#include "fields/fields.h"
#include "monitor/board_colours.h"
#include "screens/kit/theme.h"

class QPainter;

namespace trunvex {

// What the painted parts of the status board have in common: colours of the model, lamps in words and shapes, and
// pieces of a picture that keep what is costly to make until it is another.

QColor screenColour(Colour colour);
Colour modelColour(const QColor& colour);
// Dark or white, whichever can be read on the ground.
QColor inkOn(const QColor& ground);
// So much of the first colour, the rest of the second.
QColor mixed(const QColor& first, const QColor& second, double share);

// The font of the painted parts; each size is made once.
const QFont& boardFont(int pixels, bool bold = false);

// A text that is too wide shrinks to this before it is cut.
inline constexpr double smallestFit = 0.8;
// The font, made smaller as far as that is allowed and needed for the text to fit.
const QFont& fittingFont(const QFont& font, const QString& text, double width);

// A lamp of the model ("", "imgLedRed", "imgLedYellow", "imgLedGreen").
struct LampLook {
    QString icon;
    QColor ColourRoles::*role;
    QString word;
};
LampLook lampOf(const std::string& picture);

// The icon of an enable flag that may not have been told.
QString checkIcon(const std::optional<bool>& told, bool checked);

// The icon of a cell's state.
const char* stateIcon(BoardColours::Which state);

// One line of text in a box: made a little smaller, then elided, when the box is too narrow.
class TextPiece {
public:
    void set(const QString& text, const QFont& font, const QRectF& box, const QColor& colour,
             Qt::Alignment alignment = Qt::AlignLeft);
    void clear() { text_.clear(); }
    void paint(QPainter& painter) const;

private:
    void fit();

    QString text_;
    QFont wanted_;
    QRectF box_;
    QColor colour_;
    Qt::Alignment alignment_ = Qt::AlignLeft;
    QFont font_;
    QStaticText drawn_;
};

// One line icon in a box, in one colour.
class IconPiece {
public:
    void set(const QString& icon, const QColor& colour, const QRectF& box, double pixelRatio);
    void clear() { icon_.clear(); }
    void paint(QPainter& painter) const;

private:
    QString icon_;
    QColor colour_;
    QRectF box_;
    double pixelRatio_ = 0;
    QPixmap pixmap_;
};

}  // namespace trunvex
