#include "screens/kit/theme.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPalette>
#include <QStyle>
#include <QVariant>
#include <QWidget>
#include <algorithm>
#include <cmath>
#include <utility>

#include "screens/kit/look_style.h"

namespace trunvex {

namespace {

constexpr double readable = 4.5;
constexpr double titleSize = 1.35;
constexpr double smallSize = 0.9;

const ColourRoles& lightRoles() {
    static const ColourRoles roles{false,     "#f1f3f6", "#ffffff", "#ffffff", "#f7f8fa",
                                   "#1b2530", "#55616e", "#c5cdd6", "#7f8b97", "#1f5fa8",
                                   "#ffffff", "#1c6b39", "#855400", "#b3261e", "#fff3d1"};
    return roles;
}

const ColourRoles& darkRoles() {
    static const ColourRoles roles{true,      "#1a1f25", "#232a32", "#2a333c", "#2d3640",
                                   "#e4e9ee", "#a5b1bd", "#46515d", "#7d8a97", "#7fb5f0",
                                   "#10202f", "#7fd19b", "#f0c060", "#ff8f86", "#3a321c"};
    return roles;
}

double linear(double channel) {
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& colour) {
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

bool isDark(const QPalette& palette) { return luminance(palette.color(QPalette::Window)) < 0.18; }

QPalette paletteOf(const ColourRoles& roles) {
    QPalette palette(roles.text, roles.button, roles.surface.lighter(120), roles.border.darker(120), roles.border,
                     roles.text, roles.text, roles.field, roles.window);
    palette.setColor(QPalette::AlternateBase, roles.surface);
    palette.setColor(QPalette::ButtonText, roles.text);
    palette.setColor(QPalette::PlaceholderText, roles.muted);
    palette.setColor(QPalette::Highlight, roles.accent);
    palette.setColor(QPalette::HighlightedText, roles.onAccent);
    palette.setColor(QPalette::Link, roles.accent);
    palette.setColor(QPalette::ToolTipBase, roles.surface);
    palette.setColor(QPalette::ToolTipText, roles.text);
    for (auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, roles.muted);
    palette.setColor(QPalette::Disabled, QPalette::Base, roles.window);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, roles.border);
    return palette;
}

// A word after "@" stands for a colour role or a font size.
constexpr const char* sheet = R"(
QLabel[role="title"] { font-size: @titlept; font-weight: 600; }
QLabel[role="muted"], QLabel[unread="true"] { color: @muted; }
QLabel[role="small"] { color: @muted; font-size: @smallpt; }
QLabel[role="error"] { color: @danger; font-size: @smallpt; }
QLabel[role="strong"], QLabel[strong="true"] { font-weight: 600; }

QToolBar { background: @surface; border: none; border-bottom: 1px solid @border;
    padding: 4px 8px 0 8px; spacing: 0; }
QToolBar QToolButton { background: transparent; border: 1px solid transparent;
    border-bottom: 3px solid transparent; border-top-left-radius: 4px; border-top-right-radius: 4px;
    padding: 4px 2px 3px 2px; min-width: 60px; }
QToolBar QToolButton:hover { background: @window; }
QToolBar QToolButton:pressed { background: @border; }
QToolBar QToolButton:focus { border: 1px solid @accent; border-bottom: 3px solid transparent; }
QToolBar QToolButton:checked { background: @window; border-bottom: 3px solid @accent; font-weight: 600; }
QToolBar QToolButton:checked:focus { border: 1px solid @accent; border-bottom: 3px solid @accent; }

QFrame#noticeLine { background: @notice; border: none; border-bottom: 1px solid @border; }
QFrame#prgLoadingCard { background: @surface; border: 2px solid @accent; border-radius: 8px; }
QFrame[role="card"] { background: @surface; border: 1px solid @border; border-radius: 8px; }
QFrame[role="rule"] { background: @border; border: none; }

QGroupBox { background: @surface; border: 1px solid @border; border-radius: 6px;
    margin-top: 24px; padding: 8px; }
QGroupBox::title { subcontrol-origin: margin; subcontrol-position: top left; left: 2px; top: 2px; }
QGroupBox { font-weight: 600; }
QGroupBox > * { font-weight: 400; }

QTableView QHeaderView::section { background: @window; border: none; border-right: 1px solid @border;
    border-bottom: 1px solid @border; padding: 3px; }

QLineEdit[readOnly="true"] { background: transparent; }
QPushButton { background: @button; border: 1px solid @outline; border-radius: 4px;
    padding: 4px 16px; min-width: 56px; }
QPushButton:hover { background: @window; border-color: @muted; }
QPushButton:pressed { background: @border; }
QPushButton:default { background: @accent; border-color: @accent; color: @onAccent; }
QPushButton:disabled { background: @window; border-color: @border; color: @muted; }
QPushButton:focus { border: 2px solid @accent; padding: 3px 15px; }
QPushButton:default:focus { border: 2px solid palette(text); }

QPushButton[role="small"] { padding: 2px 8px; min-width: 0; }
QPushButton[role="pair"] { padding: 1px 4px; min-width: 80px; max-width: 80px; }
QPushButton[role="pair"]:checked { background: @accent; border-color: @accent; color: @onAccent; }
QPushButton[role="fault"] { padding: 0 8px; min-width: 0; border-color: @danger; color: @danger; font-weight: 600; }
QToolButton[role="day"] { background: transparent; border: 1px solid @border; border-radius: 4px; color: @muted;
    padding: 2px 0; }
QToolButton[role="day"]:checked { background: @accent; border-color: @accent; color: @onAccent; font-weight: 600; }
QToolButton[role="day"][edited="true"] { border-bottom: 3px solid @warning; }
QToolButton[role="day"]:focus { border: 2px solid palette(text); }
QToolButton[role="day"]:disabled { color: @muted; border-color: @border; }
QToolButton[role="day"]:checked:disabled { background: @border; color: palette(text); }

QStatusBar { background: @surface; border-top: 1px solid @border; }
QStatusBar::item { border: none; }
QProgressBar { background: @border; border: none; border-radius: 3px; min-height: 6px; max-height: 6px; }
QProgressBar::chunk { background: @accent; border-radius: 3px; }
QToolTip { background: @surface; color: palette(text); border: 1px solid @border; padding: 4px; }
)";

QString sheetOf(const ColourRoles& roles, double base) {
    const auto points = [base](double factor) { return QString::number(base * factor, 'f', 1); };
    const std::pair<const char*, QString> words[] = {
        {"@surface", roles.surface.name()}, {"@border", roles.border.name()},     {"@accent", roles.accent.name()},
        {"@muted", roles.muted.name()},     {"@danger", roles.danger.name()},     {"@notice", roles.noticeBack.name()},
        {"@window", roles.window.name()},   {"@button", roles.button.name()},     {"@outline", roles.outline.name()},
        {"@warning", roles.warning.name()}, {"@onAccent", roles.onAccent.name()}, {"@title", points(titleSize)},
        {"@small", points(smallSize)},
    };
    QString text(sheet);
    for (const auto& [word, meaning] : words) text.replace(word, meaning);
    return text;
}

}  // namespace

void applyTheme(QApplication& application, Theme theme) {
    if (theme == Theme::System) theme = isDark(QApplication::palette()) ? Theme::Dark : Theme::Light;
    const auto& roles = coloursOf(theme);
    QApplication::setStyle(new LookStyle);
    QApplication::setPalette(paletteOf(roles));
    application.setStyleSheet(sheetOf(roles, QFontInfo(QApplication::font()).pointSizeF()));
}

const ColourRoles& coloursOf(Theme theme) { return theme == Theme::Dark ? darkRoles() : lightRoles(); }

const ColourRoles& colours() { return isDark(QApplication::palette()) ? darkRoles() : lightRoles(); }

double contrast(const QColor& one, const QColor& other) {
    const auto [low, high] = std::minmax({luminance(one), luminance(other)});
    return (high + 0.05) / (low + 0.05);
}

QColor readableOn(const QColor& background, QColor colour) {
    const bool darkBehind = luminance(background) < 0.18;
    const QColor goal = darkBehind ? Qt::white : Qt::black;
    constexpr float step = 0.1F;
    while (contrast(background, colour) < readable && contrast(colour, goal) > 1.05) {
        const auto towards = [](float from, float to) { return from + (to - from) * step; };
        colour = QColor::fromRgbF(towards(colour.redF(), goal.redF()), towards(colour.greenF(), goal.greenF()),
                                  towards(colour.blueF(), goal.blueF()));
    }
    return colour;
}

QFont figureFont() {
    const auto font = QApplication::font();
    const QFontMetricsF metrics(font);
    const auto wide = metrics.horizontalAdvance('0');
    for (char digit = '1'; digit <= '9'; ++digit) {
        if (std::abs(metrics.horizontalAdvance(QChar(digit)) - wide) < 0.01) continue;
        auto fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
        fixed.setPointSizeF(QFontInfo(font).pointSizeF());
        return fixed;
    }
    return font;
}

void setMark(QWidget* widget, const char* mark, const QString& value) {
    if (widget->property(mark).toString() == value) return;
    widget->setProperty(mark, value);
    widget->style()->unpolish(widget);
    widget->style()->polish(widget);
}

}  // namespace trunvex
