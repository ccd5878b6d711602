#pragma once
// The language's variant: one value of any of the kinds the system passes around.
#include <QByteArray>
#include <QDate>
#include <QString>
#include <cstdint>

namespace basic {

class Variant {
public:
    enum Type { Empty, Null, Integer, Double, Currency, Date, Boolean, Text, Bytes };

    Variant() = default;                        // Empty
    Variant(int v) : t_(Integer), i_(v) {}
    Variant(std::int64_t v) : t_(Integer), i_(v) {}
    Variant(double v) : t_(Double), d_(v) {}
    Variant(bool v) : t_(Boolean), i_(v ? 1 : 0) {}
    Variant(const char* v) : t_(Text), s_(QString::fromUtf8(v)) {}
    Variant(const QString& v) : t_(Text), s_(v) {}
    Variant(QDate v) : t_(Date), date_(v) {}
    Variant(const QByteArray& v) : t_(Bytes), bytes_(v) {}

    static Variant null() { Variant v; v.t_ = Null; return v; }
    // Currency keeps four decimal places exactly, as the platform's currency type does.
    static Variant currency(double v);

    Type type() const { return t_; }
    bool isNull() const { return t_ == Null; }
    bool isEmpty() const { return t_ == Empty; }
    bool isNumber() const { return t_ == Integer || t_ == Double || t_ == Currency || t_ == Boolean; }

    // Raw access; the conversions with the language's rules are the free functions below.
    std::int64_t integer() const { return i_; }
    double number() const;                      // Integer, Double, Currency, Boolean as double
    const QString& text() const { return s_; }
    QDate date() const { return date_; }
    const QByteArray& bytes() const { return bytes_; }

    bool operator==(const Variant& o) const;
    bool operator!=(const Variant& o) const { return !(*this == o); }

private:
    Type t_ = Empty;
    std::int64_t i_ = 0;                        // Integer, Boolean, Currency (scaled by 10000)
    double d_ = 0;
    QString s_;
    QDate date_;
    QByteArray bytes_;
};

// Conversions. Those that the language raises errors for throw basic::RuntimeError:
// 13 "Type mismatch", 94 "Invalid use of Null", 6 "Overflow".
double Val(const QString& text);                // the leading number of a text, else 0
bool IsNumeric(const Variant& v);
bool IsDate(const Variant& v);
double CDbl(const Variant& v);
std::int64_t CLng(const Variant& v);            // rounds halves to even, as the language does
bool CBool(const Variant& v);
QString CStr(const Variant& v);                 // doubles print with up to 15 significant digits
QDate CDate(const Variant& v);                  // "mm-dd-yy" month first; yy 00-29 = 20yy, 30-99 = 19yy

// Format(x, "#0.00" | "dd-mm-yy" | "mmmm" | "yyyy" | "dd/MMM/yyyy" | "mm-dd-yyyy").
// Null and Empty format as the empty text; a text that reads as a number or date is formatted as one.
QString Format(const Variant& v, const QString& format);

// Text functions; positions count from 1 as in the language.
QString Trim(const QString& s);
QString LTrim(const QString& s);
QString RTrim(const QString& s);
QString LCase(const QString& s);
QString UCase(const QString& s);
int Len(const QString& s);
int InStr(const QString& haystack, const QString& needle);              // 0 when absent
int InStr(int start, const QString& haystack, const QString& needle);
int InStrRev(const QString& haystack, const QString& needle);
QString Left(const QString& s, int n);
QString Right(const QString& s, int n);
QString Mid(const QString& s, int start, int length = -1);
QString Replace(const QString& s, const QString& find, const QString& with);

}  // namespace basic
