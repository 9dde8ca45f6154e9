#include "screens/board/board_paint.h"

#include <QCoreApplication>
#include <QFontMetricsF>
#include <QPainter>
#include <QPixmapCache>
#include <algorithm>
#include <map>

#include "screens/kit/icons.h"

namespace trunvex {

namespace {

constexpr double readable = 4.5;
constexpr int smallestPixels = 6;

QString word(const char* text) { return QCoreApplication::translate("Lamp", text); }

QPixmap iconPixmap(const QString& icon, const QColor& colour, int pixels) {
    const auto key = QString("board/%1/%2/%3").arg(icon, colour.name()).arg(pixels);
    QPixmap pixmap;
    if (QPixmapCache::find(key, &pixmap)) return pixmap;
    pixmap = QPixmap(pixels, pixels);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    lineIcon(icon).paint(&painter, pixmap.rect());
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(pixmap.rect(), colour);
    painter.end();
    QPixmapCache::insert(key, pixmap);
    return pixmap;
}

}  // namespace

QColor screenColour(Colour colour) {
    const auto part = [colour](int shift) { return static_cast<int>(colour >> shift & 0xFF); };
    return QColor(part(0), part(8), part(16));
}

Colour modelColour(const QColor& colour) {
    return static_cast<Colour>(colour.red() | colour.green() << 8 | colour.blue() << 16);
}

const char* stateIcon(BoardColours::Which state) {
    constexpr const char* icons[BoardColours::count] = {"state_idle",    "state_off",      "state_connected",
                                                        "state_problem", "state_alerting", "state_call"};
    return icons[state];
}

QColor inkOn(const QColor& ground) {
    const auto& soft = coloursOf(Theme::Light).text;
    if (contrast(soft, ground) >= readable) return soft;
    return contrast(Qt::black, ground) > contrast(Qt::white, ground) ? Qt::black : Qt::white;
}

QColor mixed(const QColor& first, const QColor& second, double share) {
    const auto part = [share](int one, int other) { return qRound(one * share + other * (1 - share)); };
    return QColor(part(first.red(), second.red()), part(first.green(), second.green()),
                  part(first.blue(), second.blue()));
}

const QFont& boardFont(int pixels, bool bold) {
    static std::map<std::pair<int, bool>, QFont> fonts;  // its elements stay where they are
    auto& font = fonts[{std::max(smallestPixels, pixels), bold}];
    if (font.pixelSize() > 0) return font;
    static const QString family = figureFont().family();
    font.setFamily(family);
    font.setPixelSize(std::max(smallestPixels, pixels));
    font.setBold(bold);
    return font;
}

const QFont& fittingFont(const QFont& font, const QString& text, double width) {
    const auto wide = QFontMetricsF(font).horizontalAdvance(text);
    const auto share = wide > width ? std::max(smallestFit, width / wide) : 1.0;
    return boardFont(static_cast<int>(font.pixelSize() * share), font.bold());
}

LampLook lampOf(const std::string& picture) {
    if (picture == "imgLedRed") return {"imgLedRed", &ColourRoles::danger, word("Fault")};
    if (picture == "imgLedYellow") return {"imgLedYellow", &ColourRoles::warning, word("Warning")};
    if (picture == "imgLedGreen") return {"imgLedGreen", &ColourRoles::ok, word("OK")};
    return {"led_none", &ColourRoles::muted, word("No info")};
}

QString checkIcon(const std::optional<bool>& told, bool checked) {
    return checked ? "check_on" : told ? "check_off" : "check_unknown";
}

void TextPiece::set(const QString& text, const QFont& font, const QRectF& box, const QColor& colour,
                    Qt::Alignment alignment) {
    const bool same = text == text_ && font == wanted_ && box.width() == box_.width();
    text_ = text;
    wanted_ = font;
    box_ = box;
    colour_ = colour;
    alignment_ = alignment;
    if (!same) fit();
}

void TextPiece::fit() {
    const auto line = text_.simplified();
    font_ = fittingFont(wanted_, line, box_.width());
    drawn_ = QStaticText(QFontMetricsF(font_).elidedText(line, Qt::ElideRight, box_.width()));
    drawn_.setTextFormat(Qt::PlainText);
    drawn_.setPerformanceHint(QStaticText::AggressiveCaching);
    drawn_.prepare({}, font_);
}

void TextPiece::paint(QPainter& painter) const {
    if (text_.isEmpty()) return;
    const auto size = drawn_.size();
    auto left = box_.left();
    if (alignment_ & Qt::AlignRight) left = box_.right() - size.width();
    if (alignment_ & Qt::AlignHCenter) left = box_.center().x() - size.width() / 2;
    painter.setFont(font_);
    painter.setPen(colour_);
    painter.drawStaticText(QPointF(left, box_.center().y() - size.height() / 2), drawn_);
}

void IconPiece::set(const QString& icon, const QColor& colour, const QRectF& box, double pixelRatio) {
    const bool same = icon == icon_ && colour == colour_ && box.size() == box_.size() && pixelRatio == pixelRatio_;
    icon_ = icon;
    colour_ = colour;
    box_ = box;
    pixelRatio_ = pixelRatio;
    if (!same && !icon_.isEmpty())
        pixmap_ = iconPixmap(icon_, colour_, std::max(1, qRound(box_.width() * pixelRatio_)));
}

void IconPiece::paint(QPainter& painter) const {
    if (!icon_.isEmpty()) painter.drawPixmap(box_, pixmap_, pixmap_.rect());
}

}  // namespace trunvex
