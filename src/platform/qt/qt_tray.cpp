#include "platform/qt/qt_tray.h"

#include <QApplication>
#include <QPainter>

namespace trunvex {

namespace {

// A ringed dot in the lower right corner.
QIcon withWarning(const QIcon& icon) {
    constexpr int side = 64;
    constexpr QRectF corner(36, 36, 26, 26);
    auto picture = icon.pixmap(side, side);
    if (picture.isNull()) return icon;
    picture.setDevicePixelRatio(picture.width() / double(side));
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Qt::white, 4));
    painter.setBrush(QColor(0xC6, 0x28, 0x28));
    painter.drawEllipse(corner);
    painter.end();
    return picture;
}

}  // namespace

bool QtTray::available() const { return QSystemTrayIcon::isSystemTrayAvailable(); }

void QtTray::add(const std::string& tip, bool warns) {
    menu_ = std::make_unique<QMenu>();
    menu_->setObjectName("mnuForm");
    auto* restore = menu_->addAction(QObject::tr("Show the window"));
    restore->setObjectName("mnuAction_0");
    // Restoring removes the icon and with it this menu, so it happens after the menu's own event is over.
    QObject::connect(
        restore, &QAction::triggered, qApp,
        [this] {
            if (onRestore) onRestore();
        },
        Qt::QueuedConnection);
    icon_ = std::make_unique<QSystemTrayIcon>();
    change(tip, warns);
    icon_->setContextMenu(menu_.get());
    icon_->show();
}

void QtTray::change(const std::string& tip, bool warns) {
    if (!icon_) return;
    icon_->setIcon(warns ? withWarning(QApplication::windowIcon()) : QApplication::windowIcon());
    icon_->setToolTip(QString::fromStdString(tip));
}

void QtTray::say(const std::string& text) {
    if (icon_) icon_->showMessage(QStringLiteral("Trunvex"), QString::fromStdString(text), QSystemTrayIcon::Warning);
}

void QtTray::remove() {
    icon_.reset();
    menu_.reset();
}

}  // namespace trunvex
