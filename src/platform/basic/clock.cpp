#include "platform/basic/clock.h"

namespace basic {

namespace {
QDate& fixedDate() {
    static QDate date;
    return date;
}
}  // namespace

QDate Clock::today() { return fixedDate().isValid() ? fixedDate() : QDate::currentDate(); }
void Clock::set(QDate date) { fixedDate() = date; }
void Clock::reset() { fixedDate() = QDate(); }

}  // namespace basic
