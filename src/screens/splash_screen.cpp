#include "screens/splash_screen.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QScreen>
#include <QVBoxLayout>
#include <utility>

#include "screens/kit/icons.h"
#include "screens/kit/labels.h"
#include "screens/kit/theme.h"

namespace trunvex {

namespace {

constexpr int shownForMs = 700;
constexpr QSize splashSize(480, 200);
constexpr int pictureSize = 88;
constexpr int stripeHeight = 4;

}  // namespace

SplashScreen::SplashScreen(Platform& platform, const QString& version, std::function<void()> loaded)
    : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint), tmrSplash_(platform.makeTimer([this] { end(); })),
      loaded_(std::move(loaded)) {
    setObjectName("frmSplash");
    setWindowTitle("Trunvex");
    setWindowIcon(applicationIcon());
    setFixedSize(splashSize);
    auto* picture = new IconLabel(pictureSize);
    picture->setIcon(applicationIcon());
    auto* versionLabel = roleLabel(tr("Version %1").arg(version), "muted");
    versionLabel->setObjectName("lblVersion");

    auto* words = new QVBoxLayout;
    words->setSpacing(grid / 2);
    words->addStretch(1);
    words->addWidget(roleLabel("Trunvex", "title"));
    words->addWidget(roleLabel(tr("Gateway management console"), "strong"));
    words->addWidget(versionLabel);
    words->addStretch(1);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(5 * grid, 2 * grid, 5 * grid, 2 * grid + stripeHeight);
    row->setSpacing(4 * grid);
    row->addWidget(picture);
    row->addLayout(words, 1);

    if (const auto* screen = QGuiApplication::primaryScreen())
        move(screen->availableGeometry().center() - rect().center());
    tmrSplash_->start(shownForMs);
}

void SplashScreen::end() {
    tmrSplash_->stop();
    if (auto loaded = std::exchange(loaded_, nullptr)) loaded();
}

void SplashScreen::mousePressEvent(QMouseEvent*) { end(); }

void SplashScreen::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), colours().surface);
    painter.fillRect(0, height() - stripeHeight, width(), stripeHeight, colours().accent);
    painter.setPen(colours().border);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

}  // namespace trunvex
