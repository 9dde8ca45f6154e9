#include "screens/kit/icons.h"

#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QSvgRenderer>

// The pictures are linked from a static library, which needs to be told; the macro wants the global
// namespace.
static void loadPictures() { Q_INIT_RESOURCE(kit); }

namespace trunvex {

namespace {

QByteArray pictureText(const QString& name) {
    static const bool loaded = (loadPictures(), true);
    Q_UNUSED(loaded)
    QFile file(":/screens/icons/" + name + ".svg");
    return !name.isEmpty() && file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Renders the picture anew for every size and state, with the wanted colour in place of "currentColor".
class LineIconEngine : public QIconEngine {
public:
    LineIconEngine(QByteArray svg, QColor ColourRoles::*role) : svg_(std::move(svg)), role_(role) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        if (svg_.isEmpty()) return;
        auto coloured = svg_;
        QSvgRenderer(coloured.replace("currentColor", colour(mode).name().toLatin1())).render(painter, rect);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }

    QIconEngine* clone() const override { return new LineIconEngine(*this); }

private:
    QColor colour(QIcon::Mode mode) const {
        const auto& roles = colours();
        if (mode == QIcon::Disabled) return roles.muted;
        return mode == QIcon::Selected ? roles.onAccent : roles.*role_;
    }

    QByteArray svg_;
    QColor ColourRoles::*role_;
};

}  // namespace

QIcon lineIcon(const QString& name, QColor ColourRoles::*role) {
    return QIcon(new LineIconEngine(pictureText(name), role));
}

QIcon applicationIcon() { return lineIcon("trunvex"); }

}  // namespace trunvex
