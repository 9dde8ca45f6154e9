#include "platform/qt/qt_tray.h"

#include <QApplication>

namespace trunvex {

bool QtTray::available() const { return QSystemTrayIcon::isSystemTrayAvailable(); }

void QtTray::add(const std::string& tip) {
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
    icon_ = std::make_unique<QSystemTrayIcon>(QApplication::windowIcon());
    setTip(tip);
    icon_->setContextMenu(menu_.get());
    icon_->show();
}

void QtTray::setTip(const std::string& tip) {
    if (icon_) icon_->setToolTip(QString::fromStdString(tip));
}

void QtTray::remove() {
    icon_.reset();
    menu_.reset();
}

}  // namespace trunvex
