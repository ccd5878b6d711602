#include "platform/forms/timer.h"

namespace forms {

Timer::Timer(QObject* parent) : QObject(parent) {
    connect(&timer_, &QTimer::timeout, this, &Timer::Tick);
}

void Timer::setInterval(int milliseconds) {
    interval_ = milliseconds;
    apply();
}

void Timer::setEnabled(bool enabled) {
    enabled_ = enabled;
    apply();
}

void Timer::apply() {
    timer_.stop();
    if (enabled_ && interval_ > 0) timer_.start(interval_);
}

}  // namespace forms
