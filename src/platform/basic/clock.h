#pragma once
// The system date. Tests set it; the program reads the machine's.
#include <QDate>

namespace basic {

class Clock {
public:
    static QDate today();             // the set date, else the machine's
    static void set(QDate date);      // tests only
    static void reset();
};

}  // namespace basic
