#include "platform/qt/qt_timer.h"

#include <QCoreApplication>
#include <QEvent>

namespace trunvex {

namespace {

constexpr int longestAtOnceMs = 2;

QEvent::Type tickEvent() {
    static const auto type = static_cast<QEvent::Type>(QEvent::registerEventType());
    return type;
}

}  // namespace

QtTimer::QtTimer(std::function<void()> onTick) : onTick_(std::move(onTick)) {
    timer_.setTimerType(Qt::PreciseTimer);
    connect(&timer_, &QTimer::timeout, this, [this] { onTick_(); });
}

void QtTimer::start(int intervalMs) {
    active_ = true;
    atOnce_ = intervalMs <= longestAtOnceMs;
    if (atOnce_) {
        timer_.stop();
        postTick();
    } else {
        timer_.start(intervalMs);
    }
}

void QtTimer::stop() {
    active_ = false;
    atOnce_ = false;
    timer_.stop();
}

void QtTimer::postTick() {
    if (posted_) return;
    posted_ = true;
    QCoreApplication::postEvent(this, new QEvent(tickEvent()));
}

bool QtTimer::event(QEvent* event) {
    if (event->type() != tickEvent()) return QObject::event(event);
    posted_ = false;
    if (!atOnce_) return true;  // stopped or slowed down after the event was posted
    postTick();
    onTick_();
    return true;
}

}  // namespace trunvex
