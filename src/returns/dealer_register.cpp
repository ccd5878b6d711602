#include "returns/dealer_register.h"

#include "platform/basic/runtime_error.h"
#include "platform/basic/variant.h"
#include "platform/store/database_file.h"
#include "platform/store/recordset.h"
#include "platform/store/transaction.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>

namespace returns {

namespace {

using basic::Variant;
using store::Recordset;

const char* const kSchema[] = {
    "CREATE TABLE dealers (tin TEXT PRIMARY KEY, name TEXT NOT NULL, cst TEXT, address TEXT, place TEXT, "
    "phone TEXT, email TEXT)",
    "CREATE TABLE books (tin TEXT NOT NULL, firstYear INTEGER NOT NULL, PRIMARY KEY (tin, firstYear))",
    "CREATE TABLE namings (tin TEXT NOT NULL, firstYear INTEGER NOT NULL)",
    "CREATE TABLE settings (name TEXT PRIMARY KEY, value TEXT)",
};

// A text inside the register's own statements; the dealers' texts go in as values, never as SQL.
QString quoted(const QString& text) { return QLatin1Char('\'') + QString(text).replace(QStringLiteral("'"), QStringLiteral("''")) + QLatin1Char('\''); }

QString textOf(const Recordset& rs, const char* column) {
    const Variant v = rs.Fields(QString::fromLatin1(column)).Value();
    return v.isNull() ? QString() : basic::CStr(v);
}

void setTexts(Recordset& rs, const Dealer& d) {
    const std::pair<const char*, const QString*> columns[] = {{"tin", &d.tin},         {"name", &d.name},
                                                              {"cst", &d.cst},         {"address", &d.address},
                                                              {"place", &d.place},     {"phone", &d.phone},
                                                              {"email", &d.email}};
    for (const auto& [column, value] : columns) rs.Fields(QString::fromLatin1(column)) = Variant(*value);
}

Dealer dealerAt(const Recordset& rs) {
    return {textOf(rs, "tin"),   textOf(rs, "name"),  textOf(rs, "cst"),  textOf(rs, "address"),
            textOf(rs, "place"), textOf(rs, "phone"), textOf(rs, "email")};
}

basic::RuntimeError refused(const QString& text) { return basic::RuntimeError(5, text, kRegisterSource); }

bool isTin(const QString& tin) {
    return tin.size() == 11 && std::all_of(tin.begin(), tin.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

}  // namespace

QString TinRule() {
    return QStringLiteral("A TIN is 11 digits, such as 32071234567; the TINs of Kerala begin with 32.");
}

QString DealerRegister::FileName() { return QStringLiteral("dealers.db"); }

DealerRegister::DealerRegister(const QString& folder, bool readOnly) : folder_(folder) {
    if (readOnly) cn_.setMode(store::Connection::adModeRead);
    else if (!QFileInfo::exists(file())) {
        QStringList schema;
        for (const char* sql : kSchema) schema << QString::fromLatin1(sql);
        store::BuildDatabaseFile(file(), schema);
    }
    cn_.Open(QStringLiteral("Driver={Microsoft Access Driver (*.mdb)};Dbq=") + file());
}

QString DealerRegister::file() const { return QDir(folder_).filePath(FileName()); }

std::vector<Dealer> DealerRegister::Dealers() const {
    Recordset rs;
    rs.Open(QStringLiteral("SELECT * FROM dealers"), cn_, Recordset::adOpenStatic, Recordset::adLockReadOnly);
    std::vector<Dealer> out;
    out.reserve(size_t(rs.RecordCount()));
    for (; !rs.Eof(); rs.MoveNext()) out.push_back(dealerAt(rs));
    std::stable_sort(out.begin(), out.end(), [](const Dealer& a, const Dealer& b) {
        return QString::compare(a.name, b.name, Qt::CaseInsensitive) < 0;
    });
    return out;
}

std::optional<Dealer> DealerRegister::Find(const QString& tin) const {
    Recordset rs;
    rs.Open(QStringLiteral("SELECT * FROM dealers WHERE tin = ") + quoted(tin), cn_, Recordset::adOpenStatic,
            Recordset::adLockReadOnly);
    if (rs.Eof()) return std::nullopt;
    return dealerAt(rs);
}

std::vector<BookKey> DealerRegister::Books() const {
    Recordset rs;
    rs.Open(QStringLiteral("SELECT tin, firstYear FROM books ORDER BY tin, firstYear"), cn_, Recordset::adOpenStatic,
            Recordset::adLockReadOnly);
    std::vector<BookKey> out;
    out.reserve(size_t(rs.RecordCount()));
    for (; !rs.Eof(); rs.MoveNext()) out.push_back({textOf(rs, "tin"), int(rs.Fields(1).Value().number())});
    return out;
}

QList<int> DealerRegister::YearsOf(const QString& tin) const {
    Recordset rs;
    rs.Open(QStringLiteral("SELECT firstYear FROM books WHERE tin = ") + quoted(tin) + QStringLiteral(" ORDER BY firstYear"),
            cn_, Recordset::adOpenStatic, Recordset::adLockReadOnly);
    QList<int> years;
    for (; !rs.Eof(); rs.MoveNext()) years << int(rs.Fields(0).Value().number());
    return years;
}

DealerCheck DealerRegister::Check(const Dealer& dealer, const QString& editing) const {
    if (dealer.name.trimmed().isEmpty()) return {QStringLiteral("A dealer needs a name."), {}};
    const QString tin = dealer.tin.trimmed();
    if (!isTin(tin))
        return {(tin.isEmpty() ? QStringLiteral("A dealer needs a TIN. ")
                               : QStringLiteral("\"%1\" is not a TIN. ").arg(tin.left(40))) +
                    TinRule(),
                {}};
    if (tin != editing) {
        if (const std::optional<Dealer> holder = Find(tin))
            return {QStringLiteral("The TIN %1 is already that of %2.").arg(tin, holder->name), {}};
        if (!editing.isEmpty() && !YearsOf(editing).isEmpty())
            return {QStringLiteral("The TIN of a dealer who has books stays as it is: it is written in every "
                                   "bill of their books."),
                    {}};
    }
    if (!tin.startsWith(QLatin1String("32")))
        return {{}, QStringLiteral("The TIN %1 is not one of Kerala, whose TINs begin with 32.").arg(tin)};
    return {};
}

void DealerRegister::Add(const Dealer& dealer) {
    const DealerCheck check = Check(dealer);
    if (!check.refusal.isEmpty()) throw refused(check.refusal);
    Dealer d = dealer;
    d.tin = d.tin.trimmed();
    store::inTransaction(cn_, [&] {
        Recordset rs;
        rs.Open(QStringLiteral("SELECT * FROM dealers WHERE 0 = 1"), cn_, Recordset::adOpenKeyset, Recordset::adLockOptimistic);
        rs.AddNew();
        setTexts(rs, d);
        rs.Update();
        rs.Close();
    });
}

void DealerRegister::Update(const QString& tin, const Dealer& dealer) {
    const DealerCheck check = Check(dealer, tin);
    if (!check.refusal.isEmpty()) throw refused(check.refusal);
    Dealer d = dealer;
    d.tin = d.tin.trimmed();
    store::inTransaction(cn_, [&] {
        Recordset rs;
        rs.Open(QStringLiteral("SELECT * FROM dealers WHERE tin = ") + quoted(tin), cn_, Recordset::adOpenKeyset,
                Recordset::adLockOptimistic);
        if (rs.Eof()) throw refused(QStringLiteral("The dealer with the TIN %1 is no longer in the register.").arg(tin));
        setTexts(rs, d);
        rs.Update();
        rs.Close();
    });
}

void DealerRegister::Put(const Dealer& dealer) {
    store::inTransaction(cn_, [&] {
        Recordset rs;
        rs.Open(QStringLiteral("SELECT * FROM dealers WHERE tin = ") + quoted(dealer.tin), cn_, Recordset::adOpenKeyset,
                Recordset::adLockOptimistic);
        if (rs.Eof()) rs.AddNew();
        setTexts(rs, dealer);
        rs.Update();
        rs.Close();
    });
}

void DealerRegister::Remove(const QString& tin) {
    store::inTransaction(cn_, [&] {
        cn_.Execute(QStringLiteral("DELETE FROM books WHERE tin = ") + quoted(tin));
        cn_.Execute(QStringLiteral("DELETE FROM dealers WHERE tin = ") + quoted(tin));
    });
}

void DealerRegister::AddBook(const BookKey& book) {
    cn_.Execute(QStringLiteral("INSERT OR IGNORE INTO books (tin, firstYear) VALUES (%1, %2)")
                    .arg(quoted(book.tin))
                    .arg(book.firstYear));
}

std::vector<BookKey> DealerRegister::Namings() const {
    Recordset rs;
    rs.Open(QStringLiteral("SELECT tin, firstYear FROM namings"), cn_, Recordset::adOpenStatic, Recordset::adLockReadOnly);
    std::vector<BookKey> out;
    for (; !rs.Eof(); rs.MoveNext()) out.push_back({textOf(rs, "tin"), int(rs.Fields(1).Value().number())});
    return out;
}

void DealerRegister::BeginNaming(const BookKey& named) {
    cn_.Execute(QStringLiteral("INSERT INTO namings (tin, firstYear) VALUES (%1, %2)").arg(quoted(named.tin)).arg(named.firstYear));
}

void DealerRegister::EndNaming(const BookKey& named) {
    store::inTransaction(cn_, [&] {
        cn_.Execute(QStringLiteral("DELETE FROM books WHERE tin = '' AND firstYear = %1").arg(named.firstYear));
        AddBook(named);
        cn_.Execute(QStringLiteral("DELETE FROM namings WHERE tin = %1 AND firstYear = %2")
                        .arg(quoted(named.tin))
                        .arg(named.firstYear));
    });
}

QString DealerRegister::Setting(const QString& name) const {
    Recordset rs;
    rs.Open(QStringLiteral("SELECT value FROM settings WHERE name = ") + quoted(name), cn_, Recordset::adOpenStatic,
            Recordset::adLockReadOnly);
    return rs.Eof() ? QString() : textOf(rs, "value");
}

void DealerRegister::SetSetting(const QString& name, const QString& value) {
    cn_.Execute(QStringLiteral("INSERT OR REPLACE INTO settings (name, value) VALUES (%1, %2)").arg(quoted(name), quoted(value)));
}

}  // namespace returns
