#include "platform/reports/report_data.h"

#include "platform/basic/runtime_error.h"
#include "platform/basic/variant.h"
#include "platform/store/connection.h"
#include "platform/store/recordset.h"

#include <QDate>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <algorithm>

namespace reports {

namespace {

using basic::Variant;

QString textOf(const Variant& v, BillColumn::Kind kind) {
    if (v.isNull() || v.isEmpty()) return QString();
    if (kind == BillColumn::Amount) return basic::Format(v, QStringLiteral("#0.00"));
    if (v.type() == Variant::Date) return basic::Format(v, QStringLiteral("dd-mm-yy"));
    const QString s = basic::CStr(v);
    return kind == BillColumn::Trim ? basic::Trim(s) : s;
}

// "dd-mm-yy" as a date, years 00-29 in this century; an invalid date for any other text.
QDate billDate(const QString& text) {
    const QString t = text.trimmed();
    if (t.size() != 8 || t[2] != u'-' || t[5] != u'-') return {};
    const int yy = t.mid(6, 2).toInt();
    return QDate(yy < 30 ? 2000 + yy : 1900 + yy, t.mid(3, 2).toInt(), t.left(2).toInt());
}

struct Table {
    std::vector<QString> names;                 // lower case
    std::vector<std::vector<Variant>> rows;
    int column(const QString& name) const {
        const auto it = std::find(names.begin(), names.end(), name.toLower());
        return it == names.end() ? -1 : int(it - names.begin());
    }
};

}  // namespace

QString fillFields(const QString& text, const QHash<QString, QString>& row) {
    static const QRegularExpression field(QStringLiteral("\\{([A-Za-z0-9_]+)\\}"));
    QString out;
    qsizetype at = 0;
    for (auto it = field.globalMatch(text); it.hasNext();) {
        const auto m = it.next();
        out += text.mid(at, m.capturedStart() - at) + row.value(m.captured(1).toLower());
        at = m.capturedEnd();
    }
    return out + text.mid(at);
}

ReportData loadData(const ReportTemplate& t, const QString& dataFile) {
    const QString connection = QStringLiteral("Driver={Microsoft Access Driver (*.mdb)};Dbq=") + dataFile;
    const QString path = store::databasePath(connection);
    const QString shown = QDir::toNativeSeparators(path);
    if (!QFileInfo::exists(path)) throw basic::RuntimeError(53, QStringLiteral("The data file %1 is not there.").arg(shown));

    store::Connection cn;
    const auto read = [&](const QString& table) {
        Table out;
        const basic::RuntimeError e = basic::resume([&] {
            if (cn.State() == 0) cn.Open(connection);
            store::Recordset rs;
            rs.Open(QStringLiteral("SELECT * FROM ") + table, cn, store::Recordset::adOpenStatic,
                    store::Recordset::adLockReadOnly);
            for (int f = 0; f < rs.FieldCount(); ++f) out.names.push_back(rs.Fields(f).Name().toLower());
            for (; !rs.Eof(); rs.MoveNext()) {
                std::vector<Variant> row;
                row.reserve(out.names.size());
                for (int f = 0; f < rs.FieldCount(); ++f) row.push_back(rs.Fields(f).Value());
                out.rows.push_back(std::move(row));
            }
            rs.Close();
        });
        if (e.number() != 0)
            throw basic::RuntimeError(75, QStringLiteral("The data file %1 cannot be read (table %2): %3")
                                              .arg(shown, table, e.description()));
        return out;
    };
    const auto column = [&](const Table& table, const QString& name, const QString& tableName) {
        const int c = table.column(name);
        if (c < 0)
            throw basic::RuntimeError(75, QStringLiteral("The data file %1 cannot be read: table %2 has no column %3.")
                                              .arg(shown, tableName, name));
        return c;
    };

    ReportData d;
    if (!t.headingSource.isEmpty()) {
        const Table h = read(t.headingSource);
        if (!h.rows.empty())
            for (size_t c = 0; c < h.names.size(); ++c) d.heading.insert(h.names[c], textOf(h.rows[0][c], BillColumn::Text));
    }

    Table bills = read(t.billSource);
    if (!t.orderField.isEmpty()) {
        const int key = column(bills, t.orderField, t.billSource);
        // Rows whose date cannot be read come first, in the table's order, as blank dates sort low.
        if (t.orderShape.isEmpty())
            std::stable_sort(bills.rows.begin(), bills.rows.end(), [key](const auto& a, const auto& b) {
                return basic::CStr(a[size_t(key)]).compare(basic::CStr(b[size_t(key)]), Qt::CaseInsensitive) < 0;
            });
        else {
            std::vector<std::pair<QDate, size_t>> order;
            for (size_t r = 0; r < bills.rows.size(); ++r) {
                const Variant& v = bills.rows[r][size_t(key)];
                order.push_back({v.type() == Variant::Date ? v.date() : billDate(basic::CStr(v)), r});
            }
            std::stable_sort(order.begin(), order.end(), [](const auto& a, const auto& b) {
                if (!a.first.isValid() || !b.first.isValid()) return !a.first.isValid() && b.first.isValid();
                return a.first < b.first;
            });
            std::vector<std::vector<Variant>> sorted;
            sorted.reserve(order.size());
            for (const auto& o : order) sorted.push_back(std::move(bills.rows[o.second]));
            bills.rows = std::move(sorted);
        }
    }
    std::vector<int> cols;
    for (const BillColumn& c : t.columns) cols.push_back(column(bills, c.field, t.billSource));
    d.bills.reserve(bills.rows.size());
    for (const auto& row : bills.rows) {
        QStringList texts;
        for (size_t c = 0; c < cols.size(); ++c) texts << textOf(row[size_t(cols[c])], t.columns[c].kind);
        d.bills.push_back(texts);
    }

    if (!t.summaryRows.empty()) {
        const Table s = read(t.summarySource);
        for (const SummaryRow& r : t.summaryRows) {
            QStringList texts;
            for (const QString& f : r.fields) {
                const int c = column(s, f, t.summarySource);
                texts << (s.rows.empty() ? QString() : textOf(s.rows[0][size_t(c)], BillColumn::Amount));
            }
            d.summary.push_back(texts);
        }
    }
    return d;
}

}  // namespace reports
