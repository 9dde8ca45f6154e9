#pragma once

#include <QColor>
#include <QFont>
#include <QString>

class QApplication;
class QWidget;

namespace trunvex {

// The one place for the look: colours by what they are for, the three font sizes, the 8-pixel grid.

inline constexpr int grid = 8;

struct ColourRoles {
    bool dark;
    QColor window;   // behind everything
    QColor surface;  // bars, group boxes, cards
    QColor field;    // where the operator types
    QColor button;
    QColor text;
    QColor muted;    // captions, hints, what is not known yet
    QColor border;   // between areas
    QColor outline;  // around what can be operated
    QColor accent;   // the page of the moment, focus, progress
    QColor onAccent;
    QColor ok;
    QColor warning;
    QColor danger;
    QColor noticeBack;
};

enum class Theme { System, Light, Dark };

// Sets style, palette and style sheet of the whole program. System takes dark when the desktop's windows are
// dark.
void applyTheme(QApplication& application, Theme theme = Theme::System);

// The colours in force. Text roles have a contrast of at least 4.5:1 on window, surface and field.
const ColourRoles& colours();
const ColourRoles& coloursOf(Theme theme);  // not System

double contrast(const QColor& one, const QColor& other);
// The colour, made lighter or darker until it can be read on the background.
QColor readableOn(const QColor& background, QColor colour);

// The program's font when its digits are all as wide as each other, otherwise one where they are.
QFont figureFont();

// A style sheet's mark on a widget ("role", "unread"...); restyles it when the value is new.
void setMark(QWidget* widget, const char* mark, const QString& value);

}  // namespace trunvex
