#include "platform/store/recordset.h"

#include "platform/basic/log.h"
#include "platform/store/database.h"
#include "platform/store/errors.h"
#include "platform/store/filter.h"
#include "platform/store/sql_translation.h"

#include <QDate>
#include <sqlite3.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace store {

using namespace Qt::StringLiterals;

namespace detail {

struct Column {
    QString name;
    int type = 0;           // 0 until known: from the declared type, else from the first value
    QString origin;         // the table column it comes from, when it can be written back
};

struct Row {
    std::vector<basic::Variant> values;
    sqlite3_int64 rowid = 0;
};

// Appends the text in lower case as UTF-8; plain ASCII, the usual case, without table look-ups.
inline void appendLowered(std::string& out, const QString& s) {
    const size_t mark = out.size();
    out.resize(mark + size_t(s.size()));
    char* to = out.data() + mark;
    const char16_t* in = reinterpret_cast<const char16_t*>(s.constData());
    for (qsizetype i = 0; i < s.size(); ++i) {
        const char16_t c = in[i];
        if (c >= 0x80) {
            out.resize(mark);
            out += s.toLower().toStdString();
            return;
        }
        to[i] = char(c >= u'A' && c <= u'Z' ? c + 32 : c);
    }
}

// The rows read at Open, shared by a record set and its clones.
struct RowSet {
    std::shared_ptr<ConnectionData> connection;
    std::vector<Column> columns;
    std::vector<Row> rows;
    QString table;                                // where added and changed rows are written
    bool hasRowid = false;
    std::uint64_t version = 0;                    // moves on at every change of a row

    // The last few filters and the rows they let through, for as long as no row changes: a user typing
    // into a search box narrows the last filter or goes back to one he had.
    struct FilterResult {
        QString text;
        std::vector<FilterTerm> terms;
        std::vector<size_t> rows;
        std::uint64_t version;
    };
    std::vector<FilterResult> recentFilters;

    // Per column, the lower-case text of every row one after another, each ended by a NUL, so that a
    // filter can sweep a long list with one byte search instead of a search per row.
    struct ScanColumn {
        std::string bytes;             // UTF-8: a match of bytes is a match of characters
        std::vector<size_t> start;     // where each row begins; one more entry for the end
        std::vector<bool> present;     // false for Null and Empty, which no filter term lets through
        std::uint64_t builtAt = ~std::uint64_t(0);
    };
    std::vector<ScanColumn> scan;

    const ScanColumn& scanColumn(int column) {
        scan.resize(columns.size());
        ScanColumn& sc = scan[size_t(column)];
        if (sc.builtAt == version) return sc;
        sc = ScanColumn{};
        sc.start.reserve(rows.size() + 1);
        sc.present.reserve(rows.size());
        size_t size = rows.size();
        for (const Row& row : rows) {
            const basic::Variant& v = row.values[size_t(column)];
            if (v.type() == basic::Variant::Text) size += size_t(v.text().size());
        }
        sc.bytes.reserve(size + size / 8);   // growing it step by step costs more than filling it
        for (size_t i = 0; i < rows.size(); ++i) {
            sc.start.push_back(sc.bytes.size());
            const basic::Variant& v = rows[i].values[size_t(column)];
            const bool present = !v.isNull() && !v.isEmpty();
            sc.present.push_back(present);
            if (present) detail::appendLowered(sc.bytes, v.type() == basic::Variant::Text ? v.text() : basic::CStr(v));
            sc.bytes.push_back('\0');
        }
        sc.start.push_back(sc.bytes.size());
        sc.builtAt = version;
        return sc;
    }

    int columnOf(const QString& name) const {
        for (size_t i = 0; i < columns.size(); ++i)
            if (columns[i].name.compare(name, Qt::CaseInsensitive) == 0) return int(i);
        return -1;
    }

    // A row changed: what was built on the rows is built again when next asked for.
    void rowChanged() { ++version; }
};

struct RecordsetData {
    Connection active = Connection::nothing();
    int cursorType = Recordset::adOpenForwardOnly;
    int lockType = Recordset::adLockReadOnly;
    int cursorLocation = 2;
    std::shared_ptr<RowSet> set;                  // null while closed

    basic::Variant filter = 0;
    bool filtered = false;
    std::vector<size_t> visible;                  // row indexes that pass the filter, ascending
    long pos = 0;                                 // among the visible rows; -1 is BOF, count() is EOF

    enum Edit { None, Editing, Adding } edit = None;
    size_t editRow = 0;
    std::vector<basic::Variant> original;
    std::vector<bool> changed;

    long count() const { return filtered ? long(visible.size()) : long(set->rows.size()); }
    size_t rowIndex(long p) const { return filtered ? visible[size_t(p)] : size_t(p); }
};

}  // namespace detail

namespace {

using detail::RecordsetData;
using detail::RowSet;

RecordsetData& data(const std::shared_ptr<RecordsetData>& d) {
    if (!d) throw storeError(kObjectNotSet);
    return *d;
}

RecordsetData& opened(const std::shared_ptr<RecordsetData>& d) {
    RecordsetData& r = data(d);
    if (!r.set) throw storeError(kObjectClosed);
    return r;
}

size_t currentRow(const RecordsetData& r) {
    if (r.pos < 0 || r.pos >= r.count()) throw storeError(kNoCurrentRecord);
    return r.rowIndex(r.pos);
}

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

// A stored value as the field's type gives it; what does not fit the type comes as it is stored.
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

void bindText(sqlite3_stmt* st, int i, const QString& s) {
    const QByteArray utf8 = s.toUtf8();
    sqlite3_bind_text(st, i, utf8.constData(), int(utf8.size()), SQLITE_TRANSIENT);
}

// Dates go in as ISO text, so that ORDER BY sorts them; a text that reads as a date does so in a date column.
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

QString quoted(const QString& name) {
    return u'"' + QString(name).replace(u'"', u"\"\""_s) + u'"';
}

detail::Database& databaseOf(const RowSet& set) {
    if (!set.connection || !set.connection->database) throw storeError(kConnectionUnusable);
    return *set.connection->database;
}

void requireUpdatable(const RecordsetData& r) {
    if (r.lockType == Recordset::adLockReadOnly || !r.set->hasRowid) throw storeError(kNotUpdatable);
}

// Reads the written row back, so the record set holds what the table holds (types, defaults).
void rereadRow(RowSet& set, size_t index) {
    QStringList names;
    std::vector<size_t> columns;
    for (size_t c = 0; c < set.columns.size(); ++c)
        if (!set.columns[c].origin.isEmpty()) {
            names << quoted(set.columns[c].origin);
            columns.push_back(c);
        }
    if (columns.empty()) return;
    detail::Database& db = databaseOf(set);
    detail::Statement st(db, u"SELECT "_s + names.join(u", "_s) + u" FROM "_s + quoted(set.table) +
                                          u" WHERE rowid = ?"_s);
    sqlite3_bind_int64(st.get(), 1, set.rows[index].rowid);
    if (!st.step()) return;
    for (size_t k = 0; k < columns.size(); ++k)
        set.rows[index].values[columns[k]] = readValue(st.get(), int(k), set.columns[columns[k]].type);
    set.rowChanged();
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

}  // namespace

// ---- Field

QString Field::Name() const {
    return opened(d_).set->columns[size_t(column_)].name;
}

int Field::Type() const {
    return opened(d_).set->columns[size_t(column_)].type;
}

basic::Variant Field::Value() const {
    const RecordsetData& r = opened(d_);
    return r.set->rows[currentRow(r)].values[size_t(column_)];
}

void Field::setValue(const basic::Variant& value) {
    RecordsetData& r = opened(d_);
    const size_t row = currentRow(r);
    requireUpdatable(r);
    if (r.set->columns[size_t(column_)].origin.isEmpty()) throw storeError(kNotUpdatable);
    if (r.edit == RecordsetData::None) {
        r.edit = RecordsetData::Editing;
        r.editRow = row;
        r.original = r.set->rows[row].values;
        r.changed.assign(r.set->columns.size(), false);
    }
    r.set->rows[row].values[size_t(column_)] = value;
    r.changed[size_t(column_)] = true;
    r.set->rowChanged();
}

// ---- Recordset

Recordset::Recordset() : d_(std::make_shared<RecordsetData>()) {}

Recordset Recordset::nothing() {
    return Recordset(std::shared_ptr<RecordsetData>());
}

void Recordset::setActiveConnection(const Connection& connection) {
    data(d_).active = connection;
}
Connection Recordset::ActiveConnection() const {
    return data(d_).active;
}
void Recordset::setCursorType(int cursorType) {
    data(d_).cursorType = cursorType;
}
int Recordset::CursorType() const {
    return data(d_).cursorType;
}
void Recordset::setLockType(int lockType) {
    data(d_).lockType = lockType;
}
int Recordset::LockType() const {
    return data(d_).lockType;
}
void Recordset::setCursorLocation(int cursorLocation) {
    data(d_).cursorLocation = cursorLocation;
}
int Recordset::CursorLocation() const {
    return data(d_).cursorLocation;
}

void Recordset::Open(const QString& source) {
    Open(source, Connection::nothing());
}

void Recordset::Open(const QString& source, const Connection& connection, int cursorType, int lockType, int) {
    RecordsetData& r = data(d_);
    if (r.set) throw storeError(kObjectOpen);
    if (!connection.isNothing()) r.active = connection;
    if (cursorType != -1) r.cursorType = cursorType;
    if (lockType != -1) r.lockType = lockType;
    if (r.active.isNothing() || !r.active.d_->database) throw storeError(kConnectionUnusable);
    detail::Database& db = *r.active.d_->database;

    const Translation t = translateSql(source);
    std::unique_ptr<detail::Statement> st;
    bool withRowid = false;
    if (t.rowidAt >= 0) {
        // A view or an alias clash refuses the extra rowid; such a set is then read-only.
        try {
            st = std::make_unique<detail::Statement>(db, t.sqlWithRowid(), true);
            withRowid = true;
        } catch (const basic::RuntimeError& e) {
            qCDebug(lcStore).noquote() << "read-only set, the rowid was refused:" << e.description();
        }
    }
    if (!st) st = std::make_unique<detail::Statement>(db, t.sql);
    sqlite3_stmt* s = st->get();
    const int columnCount = sqlite3_column_count(s);
    if (columnCount == 0) {
        while (st->step()) {
        }
        return;
    }

    auto set = std::make_shared<RowSet>();
    set->connection = r.active.d_;
    set->table = t.table;
    set->hasRowid = withRowid;
    const int fields = withRowid ? columnCount - 1 : columnCount;
    for (int i = 0; i < fields; ++i) {
        detail::Column c;
        c.name = QString::fromUtf8(sqlite3_column_name(s, i));
        if (const char* declared = sqlite3_column_decltype(s, i)) c.type = typeFromDeclaration(declared);
        const char* table = sqlite3_column_table_name(s, i);
        const char* origin = sqlite3_column_origin_name(s, i);
        if (withRowid && table && origin && t.table.compare(QString::fromUtf8(table), Qt::CaseInsensitive) == 0)
            c.origin = QString::fromUtf8(origin);
        set->columns.push_back(c);
    }
    while (st->step()) {
        detail::Row row;
        row.values.reserve(size_t(fields));
        for (int i = 0; i < fields; ++i) {
            detail::Column& c = set->columns[size_t(i)];
            if (c.type == 0 && sqlite3_column_type(s, i) != SQLITE_NULL)
                c.type = typeFromStorage(sqlite3_column_type(s, i));
            row.values.push_back(readValue(s, i, c.type));
        }
        if (withRowid) row.rowid = sqlite3_column_int64(s, fields);
        set->rows.push_back(std::move(row));
    }
    for (detail::Column& c : set->columns)
        if (c.type == 0) c.type = adVarWChar;

    r.set = std::move(set);
    r.filter = 0;
    r.filtered = false;
    r.visible.clear();
    r.pos = 0;
    r.edit = RecordsetData::None;
}

void Recordset::Close() {
    RecordsetData& r = opened(d_);
    if (r.edit != RecordsetData::None) CancelUpdate();
    r.set.reset();
    r.visible.clear();
    r.filtered = false;
    r.filter = 0;
}

int Recordset::State() const {
    return data(d_).set ? 1 : 0;
}

bool Recordset::Bof() const {
    const RecordsetData& r = opened(d_);
    return r.pos < 0 || r.count() == 0;
}

bool Recordset::Eof() const {
    const RecordsetData& r = opened(d_);
    return r.pos >= r.count();
}

void Recordset::MoveFirst() {
    Move(0);
    RecordsetData& r = opened(d_);
    if (r.count() == 0) throw storeError(kNoCurrentRecord);
    r.pos = 0;
}

void Recordset::MoveLast() {
    Move(0);
    RecordsetData& r = opened(d_);
    if (r.count() == 0) throw storeError(kNoCurrentRecord);
    r.pos = r.count() - 1;
}

void Recordset::MoveNext() {
    Move(1);
}

void Recordset::MovePrevious() {
    Move(-1);
}

// Leaving a row that was added or changed writes it, as an optimistic record set does.
void Recordset::Move(long rows) {
    RecordsetData& r = opened(d_);
    if (r.edit != RecordsetData::None) Update();
    if (rows == 0) return;
    if ((rows > 0 && r.pos >= r.count()) || (rows < 0 && (r.pos < 0 || r.count() == 0)))
        throw storeError(kNoCurrentRecord);
    r.pos = std::clamp(r.pos + rows, -1L, r.count());
}

long Recordset::RecordCount() const {
    return opened(d_).count();
}

long Recordset::AbsolutePosition() const {
    const RecordsetData& r = opened(d_);
    if (r.pos < 0 || r.count() == 0) return adPosBOF;
    if (r.pos >= r.count()) return adPosEOF;
    return r.pos + 1;
}

void Recordset::setAbsolutePosition(long position) {
    Move(0);
    RecordsetData& r = opened(d_);
    if (position < 1 || position > r.count()) throw storeError(kBadArguments);
    r.pos = position - 1;
}

basic::Variant Recordset::Bookmark() const {
    const RecordsetData& r = opened(d_);
    return double(currentRow(r) + 1);
}

void Recordset::setBookmark(const basic::Variant& bookmark) {
    Move(0);
    RecordsetData& r = opened(d_);
    const double b = bookmark.isNumber() ? bookmark.number() : -1;
    if (b < 1 || b > double(r.set->rows.size()) || b != std::floor(b)) throw storeError(kBadArguments);
    const size_t row = size_t(b) - 1;
    if (!r.filtered) {
        r.pos = long(row);
        return;
    }
    const auto it = std::lower_bound(r.visible.begin(), r.visible.end(), row);
    if (it == r.visible.end() || *it != row) throw storeError(kBadArguments);
    r.pos = long(it - r.visible.begin());
}

int Recordset::FieldCount() const {
    return int(opened(d_).set->columns.size());
}

Field Recordset::Fields(const QString& name) const {
    const int column = opened(d_).set->columnOf(name);
    if (column < 0) throw storeError(kItemNotFound);
    return Field(d_, column);
}

Field Recordset::Fields(int index) const {
    if (index < 0 || index >= FieldCount()) throw storeError(kItemNotFound);
    return Field(d_, index);
}

basic::Variant Recordset::Filter() const {
    return data(d_).filter;
}

void Recordset::setFilter(const basic::Variant& filter) {
    Move(0);
    RecordsetData& r = opened(d_);
    const bool clear = (filter.isNumber() && filter.number() == 0) ||
                       (filter.type() == basic::Variant::Text && filter.text().trimmed().isEmpty());
    if (!clear && filter.type() != basic::Variant::Text) throw storeError(kBadArguments);
    const basic::Variant previous = r.filter;
    const bool wasFiltered = r.filtered;
    r.filter = clear ? basic::Variant(0) : filter;
    r.filtered = !clear;
    try {
        applyFilter(r);
    } catch (...) {
        r.filter = previous;
        r.filtered = wasFiltered;
        applyFilter(r);
        throw;
    }
    r.pos = 0;
}

Recordset Recordset::Clone(int lockType) const {
    const RecordsetData& r = opened(d_);
    auto c = std::make_shared<RecordsetData>();
    c->active = r.active;
    c->cursorType = r.cursorType;
    c->cursorLocation = r.cursorLocation;
    c->lockType = lockType == -1 ? r.lockType : lockType;
    c->set = r.set;
    return Recordset(c);
}

void Recordset::AddNew() {
    Move(0);
    RecordsetData& r = opened(d_);
    requireUpdatable(r);
    RowSet& set = *r.set;
    detail::Row row;
    row.values.assign(set.columns.size(), basic::Variant::null());
    set.rows.push_back(std::move(row));
    set.rowChanged();
    const size_t index = set.rows.size() - 1;
    if (r.filtered) r.visible.push_back(index);
    r.pos = r.count() - 1;
    r.edit = RecordsetData::Adding;
    r.editRow = index;
    r.changed.assign(set.columns.size(), false);
}

void Recordset::Update() {
    RecordsetData& r = opened(d_);
    if (r.edit == RecordsetData::None) return;
    RowSet& set = *r.set;
    detail::Row& row = set.rows[r.editRow];
    QStringList names;
    std::vector<size_t> columns;
    for (size_t c = 0; c < set.columns.size(); ++c)
        if (r.changed[c]) {
            names << quoted(set.columns[c].origin);
            columns.push_back(c);
        }
    detail::Database& db = databaseOf(set);
    if (r.edit == RecordsetData::Adding) {
        QString sql = u"INSERT INTO "_s + quoted(set.table);
        if (columns.empty()) sql += u" DEFAULT VALUES"_s;
        else sql += u" ("_s + names.join(u", "_s) + u") VALUES ("_s + QString(u"?, "_s).repeated(qsizetype(columns.size())).chopped(2) + u')';
        detail::Statement st(db, sql);
        for (size_t k = 0; k < columns.size(); ++k)
            bindValue(st.get(), int(k + 1), row.values[columns[k]], set.columns[columns[k]].type);
        st.step();
        row.rowid = sqlite3_last_insert_rowid(db.handle());
    } else if (!columns.empty()) {
        QString sql = u"UPDATE "_s + quoted(set.table) + u" SET "_s;
        for (qsizetype k = 0; k < names.size(); ++k) sql += (k ? u", "_s : u""_s) + names[k] + u" = ?"_s;
        detail::Statement st(db, sql + u" WHERE rowid = ?"_s);
        for (size_t k = 0; k < columns.size(); ++k)
            bindValue(st.get(), int(k + 1), row.values[columns[k]], set.columns[columns[k]].type);
        sqlite3_bind_int64(st.get(), int(columns.size() + 1), row.rowid);
        st.step();
    }
    r.edit = RecordsetData::None;
    rereadRow(set, r.editRow);
}

void Recordset::CancelUpdate() {
    RecordsetData& r = opened(d_);
    RowSet& set = *r.set;
    if (r.edit == RecordsetData::Adding && r.editRow + 1 == set.rows.size()) {
        set.rows.pop_back();
        set.rowChanged();
        if (r.filtered && !r.visible.empty() && r.visible.back() == r.editRow) r.visible.pop_back();
        r.pos = r.count() - 1;
        if (r.pos < 0) r.pos = 0;
    } else if (r.edit == RecordsetData::Editing) {
        set.rows[r.editRow].values = r.original;
        set.rowChanged();
    }
    r.edit = RecordsetData::None;
}

}  // namespace store
