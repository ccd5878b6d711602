#pragma once
// What a record set holds inside: the rows read at Open, shared with its clones, and the record set's
// own place, filter and edit; the reading and binding of values by field type, and the filter's sweep.
// For the store's own files only.
#include "platform/basic/variant.h"
#include "platform/store/connection.h"
#include "platform/store/database.h"
#include "platform/store/filter.h"
#include "platform/store/recordset.h"

#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace store {

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

// The field type a declared column type gives (0: none of the platform's), and the one a stored value
// gives when nothing was declared.
int typeFromDeclaration(const char* declared);
int typeFromStorage(int storage);

// A stored value as the field's type gives it; what does not fit the type comes as it is stored.
basic::Variant readValue(sqlite3_stmt* st, int i, int type);

// Dates go in as ISO text, so that ORDER BY sorts them; a text that reads as a date does so in a date column.
void bindValue(sqlite3_stmt* st, int i, const basic::Variant& v, int type);

// The visible rows of the record set's filter; a filter typed on from one of the last few starts from
// the rows that one let through.
void applyFilter(RecordsetData& r);

}  // namespace detail

}  // namespace store
