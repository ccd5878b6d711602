#pragma once
// Lets GoogleTest print Qt texts in failure messages.
#include <QString>
#include <ostream>

inline void PrintTo(const QString& s, std::ostream* os) { *os << '"' << s.toStdString() << '"'; }
