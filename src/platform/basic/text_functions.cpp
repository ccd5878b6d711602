// The language's text functions. Positions count from 1; Trim removes blanks only, not tabs.
#include "platform/basic/runtime_error.h"
#include "platform/basic/variant.h"

namespace basic {

namespace {
RuntimeError invalidArgument() { return RuntimeError(5, QStringLiteral("Invalid procedure call or argument")); }
}  // namespace

QString LTrim(const QString& s) {
    qsizetype i = 0;
    while (i < s.size() && s[i] == u' ') ++i;
    return s.mid(i);
}

QString RTrim(const QString& s) {
    qsizetype n = s.size();
    while (n > 0 && s[n - 1] == u' ') --n;
    return s.left(n);
}

QString Trim(const QString& s) { return LTrim(RTrim(s)); }
QString LCase(const QString& s) { return s.toLower(); }
QString UCase(const QString& s) { return s.toUpper(); }
int Len(const QString& s) { return int(s.size()); }

int InStr(int start, const QString& haystack, const QString& needle) {
    if (start < 1) throw invalidArgument();
    if (start > haystack.size()) return needle.isEmpty() && start == haystack.size() + 1 ? start : 0;
    if (needle.isEmpty()) return start;
    return int(haystack.indexOf(needle, start - 1)) + 1;
}

int InStr(const QString& haystack, const QString& needle) { return InStr(1, haystack, needle); }

int InStrRev(const QString& haystack, const QString& needle) {
    if (needle.isEmpty()) return int(haystack.size());
    return int(haystack.lastIndexOf(needle)) + 1;
}

QString Left(const QString& s, int n) {
    if (n < 0) throw invalidArgument();
    return s.left(n);
}

QString Right(const QString& s, int n) {
    if (n < 0) throw invalidArgument();
    return s.right(n);
}

QString Mid(const QString& s, int start, int length) {
    if (start < 1) throw invalidArgument();
    if (length < -1) throw invalidArgument();
    return s.mid(start - 1, length);
}

QString Replace(const QString& s, const QString& find, const QString& with) {
    if (find.isEmpty()) return s;
    QString out = s;
    return out.replace(find, with);
}

}  // namespace basic
