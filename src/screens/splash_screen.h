#pragma once

#include <QWidget>
#include <functional>
#include <memory>

#include "platform/platform.h"

namespace trunvex {

// frmSplash: the program's name and version for a moment, then the main window.
class SplashScreen : public QWidget {
    Q_OBJECT

public:
    // `loaded` is called once, when its time is over.
    SplashScreen(Platform& platform, const QString& version, std::function<void()> loaded);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void end();

    std::unique_ptr<Timer> tmrSplash_;
    std::function<void()> loaded_;
};

}  // namespace trunvex
