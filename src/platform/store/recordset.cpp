#include "platform/store/recordset.h"

#include "platform/basic/log.h"
#include "platform/store/database.h"
#include "platform/store/row_set.h"
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

namespace {

using detail::RecordsetData;
using detail::RowSet;
using detail::applyFilter;
using detail::bindValue;
using detail::readValue;
using detail::typeFromDeclaration;
using detail::typeFromStorage;

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
