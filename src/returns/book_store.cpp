#include "returns/book_store.h"

#include "platform/store/recordset.h"
#include "returns/return_book.h"
#include "returns/return_schema.h"

namespace returns {

store::Connection OpenBookStore() {
    const QString folder = CurrentBook().folder;
    CreateReturnStores(folder);
    store::Connection cn;
    cn.Open(QStringLiteral("Driver={Microsoft Access Driver (*.mdb)};Dbq=") + folder + QStringLiteral("\\nwForm10DB.mdb"));
    return cn;
}

std::vector<StoreRow> ReadRows(const store::Connection& cn, const QString& sql) {
    store::Recordset rs;
    rs.Open(sql, cn, store::Recordset::adOpenStatic, store::Recordset::adLockReadOnly);
    std::vector<StoreRow> rows;
    for (; !rs.Eof(); rs.MoveNext()) {
        StoreRow row;
        for (int f = 0; f < rs.FieldCount(); ++f) row.insert(rs.Fields(f).Name(), rs.Fields(f).Value());
        rows.push_back(std::move(row));
    }
    rs.Close();
    return rows;
}

QString Quoted(const QString& text) { return QLatin1Char('\'') + QString(text).replace(QStringLiteral("'"), QStringLiteral("''")) + QLatin1Char('\''); }

bool Holds(const StoreRow& row, const QString& column) {
    const basic::Variant v = row.value(column, basic::Variant::null());
    if (v.isNull() || v.isEmpty()) return false;
    return v.type() != basic::Variant::Text || !v.text().trimmed().isEmpty();
}

double Figure(const StoreRow& row, const QString& column) {
    if (!Holds(row, column)) return 0.0;
    const basic::Variant v = row.value(column);
    return v.isNumber() ? v.number() : basic::Val(v.text());
}

}  // namespace returns
