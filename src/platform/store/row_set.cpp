#include "platform/store/row_set.h"

#include <QDate>

#include <algorithm>
#include <cstring>
#include <string_view>

namespace store::detail {

using namespace Qt::StringLiterals;

namespace {

// "yyyy-MM-dd", possibly followed by a time, as stored for dates.
QDate isoDate(const unsigned char* s, int n) {
    if (n < 10 || s[4] != '-' || s[7] != '-') return QDate();
    auto num = [&](int from, int len) {
        int v = 0;
        for (int i = from; i < from + len; ++i) {
            if (s[i] < '0' || s[i] > '9') return -1;
            v = v * 10 + (s[i] - '0');
        }
        return v;
    };
    return QDate(num(0, 4), num(5, 2), num(8, 2));
}

QString columnText(sqlite3_stmt* st, int i) {
    const auto* p = reinterpret_cast<const char*>(sqlite3_column_text(st, i));
    return QString::fromUtf8(p, sqlite3_column_bytes(st, i));
}

void bindText(sqlite3_stmt* st, int i, const QString& s) {
    const QByteArray utf8 = s.toUtf8();
    sqlite3_bind_text(st, i, utf8.constData(), int(utf8.size()), SQLITE_TRANSIENT);
}

// True when every row that passes n passes o as well.
bool implies(const FilterTerm& n, const FilterTerm& o) {
    if (n.column != o.column) return false;
    if (o.op != FilterTerm::Like || n.op != FilterTerm::Like)
        return n.op == o.op && n.value.type() == o.value.type() && basic::CStr(n.value) == basic::CStr(o.value);
    switch (o.anchor) {
    case FilterTerm::Anything: return true;   // every term fails on Null and Empty alike
    case FilterTerm::Contains: return n.anchor != FilterTerm::Anything && n.pattern.contains(o.pattern);
    case FilterTerm::Prefix:
        return (n.anchor == FilterTerm::Prefix || n.anchor == FilterTerm::Exact) && n.pattern.startsWith(o.pattern);
    case FilterTerm::Suffix:
        return (n.anchor == FilterTerm::Suffix || n.anchor == FilterTerm::Exact) && n.pattern.endsWith(o.pattern);
    default: return n.anchor == FilterTerm::Exact && n.pattern == o.pattern;
    }
}

// True when the rows through `narrower` are among those through `wider`.
bool narrows(const std::vector<FilterTerm>& narrower, const std::vector<FilterTerm>& wider) {
    return std::all_of(wider.begin(), wider.end(), [&](const FilterTerm& o) {
        return std::any_of(narrower.begin(), narrower.end(), [&](const FilterTerm& n) { return implies(n, o); });
    });
}

}  // namespace

int typeFromDeclaration(const char* declared) {
    QString t = QString::fromUtf8(declared).toUpper();
    t = t.left(t.indexOf(u'(')).trimmed();
    if (t == u"INTEGER"_s || t == u"INT"_s || t == u"LONG"_s || t == u"SMALLINT"_s || t == u"COUNTER"_s) return adInteger;
    if (t == u"DOUBLE"_s || t == u"REAL"_s || t == u"FLOAT"_s) return adDouble;
    if (t == u"CURRENCY"_s || t == u"MONEY"_s) return adCurrency;
    if (t == u"BOOLEAN"_s || t == u"BIT"_s || t == u"YESNO"_s) return adBoolean;
    if (t == u"DATETIME"_s || t == u"DATE"_s) return adDate;
    if (t == u"TEXT"_s || t == u"VARCHAR"_s || t == u"CHAR"_s) return adVarWChar;
    if (t == u"MEMO"_s) return adLongVarWChar;
    if (t == u"LONGBINARY"_s || t == u"BLOB"_s || t == u"OLEOBJECT"_s) return adLongVarBinary;
    return 0;
}

int typeFromStorage(int storage) {
    switch (storage) {
    case SQLITE_INTEGER: return adInteger;
    case SQLITE_FLOAT: return adDouble;
    case SQLITE_BLOB: return adLongVarBinary;
    default: return adVarWChar;
    }
}

basic::Variant readValue(sqlite3_stmt* st, int i, int type) {
    const int storage = sqlite3_column_type(st, i);
    if (storage == SQLITE_NULL) return basic::Variant::null();
    const bool numeric = storage == SQLITE_INTEGER || storage == SQLITE_FLOAT;
    switch (type) {
    case adDouble:
        if (numeric) return sqlite3_column_double(st, i);
        break;
    case adCurrency:
        if (numeric) return basic::Variant::currency(sqlite3_column_double(st, i));
        break;
    case adBoolean:
        if (numeric) return sqlite3_column_double(st, i) != 0;
        break;
    case adDate:
        if (storage == SQLITE_TEXT) {
            const QDate d = isoDate(sqlite3_column_text(st, i), sqlite3_column_bytes(st, i));
            if (d.isValid()) return d;
        }
        break;
    case adVarWChar:
    case adLongVarWChar: return columnText(st, i);
    case adLongVarBinary: {
        const void* p = sqlite3_column_blob(st, i);
        return QByteArray(static_cast<const char*>(p), sqlite3_column_bytes(st, i));
    }
    default: break;
    }
    switch (storage) {
    case SQLITE_INTEGER: return std::int64_t(sqlite3_column_int64(st, i));
    case SQLITE_FLOAT: return sqlite3_column_double(st, i);
    case SQLITE_BLOB: {
        const void* p = sqlite3_column_blob(st, i);
        return QByteArray(static_cast<const char*>(p), sqlite3_column_bytes(st, i));
    }
    default: return columnText(st, i);
    }
}

void bindValue(sqlite3_stmt* st, int i, const basic::Variant& v, int type) {
    switch (v.type()) {
    case basic::Variant::Empty:
    case basic::Variant::Null: sqlite3_bind_null(st, i); break;
    case basic::Variant::Integer: sqlite3_bind_int64(st, i, v.integer()); break;
    case basic::Variant::Boolean: sqlite3_bind_int64(st, i, v.integer() ? -1 : 0); break;
    case basic::Variant::Double:
    case basic::Variant::Currency: sqlite3_bind_double(st, i, v.number()); break;
    case basic::Variant::Date: bindText(st, i, v.date().toString(u"yyyy-MM-dd"_s)); break;
    case basic::Variant::Text:
        if (type == adDate && basic::IsDate(v)) bindText(st, i, basic::CDate(v).toString(u"yyyy-MM-dd"_s));
        else bindText(st, i, v.text());
        break;
    case basic::Variant::Bytes:
        sqlite3_bind_blob(st, i, v.bytes().constData(), int(v.bytes().size()), SQLITE_TRANSIENT);
        break;
    }
}

void applyFilter(RecordsetData& r) {
    r.visible.clear();
    if (!r.filtered) return;
    RowSet& set = *r.set;
    const QString text = r.filter.text();
    auto& recent = set.recentFilters;
    std::erase_if(recent, [&](const RowSet::FilterResult& f) { return f.version != set.version; });
    for (const RowSet::FilterResult& f : recent)
        if (f.text == text) {
            r.visible = f.rows;
            return;
        }
    const std::vector<FilterTerm> terms = parseFilter(text, [&](const QString& name) { return set.columnOf(name); });
    const std::vector<size_t>* candidates = nullptr;   // the fewest rows a filter of before let through
    for (const RowSet::FilterResult& f : recent)
        if ((!candidates || f.rows.size() < candidates->size()) && narrows(terms, f.terms)) candidates = &f.rows;
    // LIKE terms are judged on the bytes of the scan column: no row, no Variant, no QString is touched.
    std::vector<const RowSet::ScanColumn*> scans;
    std::vector<std::string> patterns;
    for (const FilterTerm& t : terms) {
        scans.push_back(t.op == FilterTerm::Like ? &set.scanColumn(t.column) : nullptr);
        patterns.push_back(t.pattern.toStdString());
    }
    const auto passes = [&](size_t i, size_t skip) {
        for (size_t k = 0; k < terms.size(); ++k) {
            if (k == skip) continue;
            if (!scans[k]) {
                if (!compareMatches(terms[k], set.rows[i].values[size_t(terms[k].column)])) return false;
                continue;
            }
            const RowSet::ScanColumn& sc = *scans[k];
            if (!sc.present[i]) return false;
            const std::string_view text(sc.bytes.data() + sc.start[i], sc.start[i + 1] - sc.start[i] - 1);
            const std::string& pattern = patterns[k];
            bool pass;
            switch (terms[k].anchor) {
            case FilterTerm::Anything: pass = true; break;
            case FilterTerm::Contains: pass = text.find(pattern) != std::string_view::npos; break;
            case FilterTerm::Prefix: pass = text.starts_with(pattern); break;
            case FilterTerm::Suffix: pass = text.ends_with(pattern); break;
            default: pass = text == pattern; break;
            }
            if (!pass) return false;
        }
        return true;
    };
    // A LIKE '*w*' term leads a sweep over the whole list; the other terms judge the rows it finds.
    size_t lead = terms.size();
    for (size_t k = 0; k < terms.size() && lead == terms.size(); ++k)
        if (terms[k].op == FilterTerm::Like && terms[k].anchor == FilterTerm::Contains && !terms[k].pattern.isEmpty())
            lead = k;
    if (candidates) {
        for (size_t i : *candidates)
            if (passes(i, terms.size())) r.visible.push_back(i);
    } else if (lead < terms.size()) {
        const RowSet::ScanColumn& sc = set.scanColumn(terms[lead].column);
        const std::string pattern = terms[lead].pattern.toStdString();
        const char* base = sc.bytes.data();
        size_t pos = 0;
        while (const void* hit = memmem(base + pos, sc.bytes.size() - pos, pattern.data(), pattern.size())) {
            const size_t at = size_t(static_cast<const char*>(hit) - base);
            const size_t row = size_t(std::upper_bound(sc.start.begin(), sc.start.end(), at) - sc.start.begin()) - 1;
            if (sc.present[row] && passes(row, lead)) r.visible.push_back(row);
            pos = sc.start[row + 1];
        }
    } else {
        for (size_t i = 0; i < set.rows.size(); ++i)
            if (passes(i, terms.size())) r.visible.push_back(i);
    }
    constexpr size_t kRecentFilters = 8;
    if (recent.size() == kRecentFilters) recent.erase(recent.begin());
    recent.push_back({text, terms, r.visible, set.version});
}

}  // namespace store::detail
