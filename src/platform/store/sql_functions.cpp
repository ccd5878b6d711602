#include "platform/store/sql_functions.h"

#include "platform/store/full_text.h"

#include <QString>
#include <sqlite3.h>

#include <algorithm>
#include <string>

namespace store {

namespace {

QString textOf(sqlite3_value* v) {
    return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_value_text(v)), sqlite3_value_bytes(v));
}

void resultText(sqlite3_context* ctx, const QString& s) {
    const QByteArray utf8 = s.toUtf8();
    sqlite3_result_text(ctx, utf8.constData(), int(utf8.size()), SQLITE_TRANSIENT);
}

bool anyNull(int argc, sqlite3_value** argv) {
    for (int i = 0; i < argc; ++i)
        if (sqlite3_value_type(argv[i]) == SQLITE_NULL) return true;
    return false;
}

bool isText(sqlite3_value* v) {
    const int t = sqlite3_value_type(v);
    return t == SQLITE_TEXT || t == SQLITE_BLOB;
}

// a + b: texts join, numbers add; Null on either side gives Null.
void plus(sqlite3_context* ctx, int argc, sqlite3_value** argv) {
    if (anyNull(argc, argv)) return sqlite3_result_null(ctx);
    sqlite3_value* a = argv[0];
    sqlite3_value* b = argv[1];
    if (isText(a) || isText(b)) {
        std::string s(reinterpret_cast<const char*>(sqlite3_value_text(a)), size_t(sqlite3_value_bytes(a)));
        s.append(reinterpret_cast<const char*>(sqlite3_value_text(b)), size_t(sqlite3_value_bytes(b)));
        return sqlite3_result_text(ctx, s.data(), int(s.size()), SQLITE_TRANSIENT);
    }
    if (sqlite3_value_type(a) == SQLITE_INTEGER && sqlite3_value_type(b) == SQLITE_INTEGER) {
        sqlite3_int64 r;
        if (!__builtin_add_overflow(sqlite3_value_int64(a), sqlite3_value_int64(b), &r))
            return sqlite3_result_int64(ctx, r);
    }
    sqlite3_result_double(ctx, sqlite3_value_double(a) + sqlite3_value_double(b));
}

// a & b: both sides as text, a Null side as the empty text; Null only when both are Null.
void join(sqlite3_context* ctx, int, sqlite3_value** argv) {
    if (sqlite3_value_type(argv[0]) == SQLITE_NULL && sqlite3_value_type(argv[1]) == SQLITE_NULL)
        return sqlite3_result_null(ctx);
    std::string s;
    for (int i = 0; i < 2; ++i)
        if (sqlite3_value_type(argv[i]) != SQLITE_NULL)
            s.append(reinterpret_cast<const char*>(sqlite3_value_text(argv[i])), size_t(sqlite3_value_bytes(argv[i])));
    sqlite3_result_text(ctx, s.data(), int(s.size()), SQLITE_TRANSIENT);
}

// LCase and UCase run over every row of a word search, so plain ASCII text takes a byte loop.
template <bool Lower>
void changeCase(sqlite3_context* ctx, int argc, sqlite3_value** argv) {
    if (anyNull(argc, argv)) return sqlite3_result_null(ctx);
    const auto* p = reinterpret_cast<const unsigned char*>(sqlite3_value_text(argv[0]));
    const int n = sqlite3_value_bytes(argv[0]);
    std::string s(reinterpret_cast<const char*>(p), size_t(n));
    bool ascii = true;
    for (char& c : s) {
        if (static_cast<unsigned char>(c) >= 0x80) {
            ascii = false;
            break;
        }
        if (Lower && c >= 'A' && c <= 'Z') c = char(c + 32);
        if (!Lower && c >= 'a' && c <= 'z') c = char(c - 32);
    }
    if (!ascii) return resultText(ctx, Lower ? textOf(argv[0]).toLower() : textOf(argv[0]).toUpper());
    sqlite3_result_text(ctx, s.data(), int(s.size()), SQLITE_TRANSIENT);
}

void invalidCall(sqlite3_context* ctx) {
    sqlite3_result_error(ctx, "Invalid procedure call or argument", -1);
}

// The text functions run once or twice per row of an index list, so they count characters on the UTF-8
// bytes directly instead of making a QString of every value.
struct Utf8 {
    const char* p;
    int n;
};

Utf8 utf8Of(sqlite3_value* v) {
    const char* p = reinterpret_cast<const char*>(sqlite3_value_text(v));
    return {p, sqlite3_value_bytes(v)};
}

bool isAscii(Utf8 s) {
    for (int i = 0; i < s.n; ++i)
        if (static_cast<unsigned char>(s.p[i]) >= 0x80) return false;
    return true;
}

bool isLead(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
}

int characters(Utf8 s) {
    int count = 0;
    for (int i = 0; i < s.n; ++i) count += isLead(s.p[i]);
    return count;
}

// The byte offset after `count` characters, or the end.
int byteOffset(Utf8 s, int count) {
    int i = 0;
    while (i < s.n && count > 0) {
        ++i;
        while (i < s.n && !isLead(s.p[i])) ++i;
        --count;
    }
    return i;
}

void resultBytes(sqlite3_context* ctx, const char* p, int n) {
    sqlite3_result_text(ctx, p, n, SQLITE_TRANSIENT);
}

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? char(c + 32) : c;
}

// InStr([start,] text, sought): the 1-based place of sought from start, 0 when absent.
void instr(sqlite3_context* ctx, int argc, sqlite3_value** argv) {
    if (anyNull(argc, argv)) return sqlite3_result_null(ctx);
    const int start = argc == 3 ? sqlite3_value_int(argv[0]) : 1;
    if (start < 1) return invalidCall(ctx);
    const Utf8 text = utf8Of(argv[argc - 2]);
    const Utf8 sought = utf8Of(argv[argc - 1]);
    if (isAscii(text) && isAscii(sought)) {
        if (start > text.n) return sqlite3_result_int(ctx, 0);
        if (sought.n == 0) return sqlite3_result_int(ctx, start);
        for (int i = start - 1; i + sought.n <= text.n; ++i) {
            int k = 0;
            while (k < sought.n && lower(text.p[i + k]) == lower(sought.p[k])) ++k;
            if (k == sought.n) return sqlite3_result_int(ctx, i + 1);
        }
        return sqlite3_result_int(ctx, 0);
    }
    const QString t = QString::fromUtf8(text.p, text.n);
    const QString s = QString::fromUtf8(sought.p, sought.n);
    if (start > t.size()) return sqlite3_result_int(ctx, 0);
    if (s.isEmpty()) return sqlite3_result_int(ctx, start);
    sqlite3_result_int64(ctx, t.indexOf(s, start - 1, Qt::CaseInsensitive) + 1);
}

void len(sqlite3_context* ctx, int argc, sqlite3_value** argv) {
    if (anyNull(argc, argv)) return sqlite3_result_null(ctx);
    sqlite3_result_int(ctx, characters(utf8Of(argv[0])));
}

void left(sqlite3_context* ctx, int argc, sqlite3_value** argv) {
    if (anyNull(argc, argv)) return sqlite3_result_null(ctx);
    const int n = sqlite3_value_int(argv[1]);
    if (n < 0) return invalidCall(ctx);
    const Utf8 s = utf8Of(argv[0]);
    resultBytes(ctx, s.p, byteOffset(s, n));
}

void right(sqlite3_context* ctx, int argc, sqlite3_value** argv) {
    if (anyNull(argc, argv)) return sqlite3_result_null(ctx);
    const int n = sqlite3_value_int(argv[1]);
    if (n < 0) return invalidCall(ctx);
    const Utf8 s = utf8Of(argv[0]);
    const int from = byteOffset(s, std::max(0, characters(s) - n));
    resultBytes(ctx, s.p + from, s.n - from);
}

void mid(sqlite3_context* ctx, int argc, sqlite3_value** argv) {
    if (anyNull(argc, argv)) return sqlite3_result_null(ctx);
    const int start = sqlite3_value_int(argv[1]);
    const int length = argc == 3 ? sqlite3_value_int(argv[2]) : -1;
    if (start < 1 || (argc == 3 && length < 0)) return invalidCall(ctx);
    const Utf8 s = utf8Of(argv[0]);
    const int from = byteOffset(s, start - 1);
    const Utf8 rest{s.p + from, s.n - from};
    resultBytes(ctx, rest.p, length < 0 ? rest.n : byteOffset(rest, length));
}

}  // namespace

void registerSqlFunctions(sqlite3* db) {
    struct Entry {
        const char* name;
        int args;
        void (*fn)(sqlite3_context*, int, sqlite3_value**);
    };
    static const Entry entries[] = {
        {"vorlan_plus", 2, plus},          {"vorlan_join", 2, join},   {"vorlan_lcase", 1, changeCase<true>},
        {"vorlan_ucase", 1, changeCase<false>}, {"vorlan_instr", 2, instr}, {"vorlan_instr", 3, instr},
        {"vorlan_len", 1, len},            {"vorlan_left", 2, left},   {"vorlan_right", 2, right},
        {"vorlan_mid", 2, mid},            {"vorlan_mid", 3, mid},
    };
    for (const Entry& e : entries)
        sqlite3_create_function_v2(db, e.name, e.args, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr, e.fn,
                                   nullptr, nullptr, nullptr);
    registerFullText(db);
}

}  // namespace store
