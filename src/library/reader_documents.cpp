#include "library/reader_documents.h"

#include "library/document_guess.h"
#include "library/keralaforms.h"
#include "library/my_documents.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/window_registry.h"
#include "platform/store/recordset.h"
#include "shell/my_mod.h"

#include <QHash>
#include <QRegularExpression>

namespace library {

namespace {

// The first row of a statement on a file, its columns by lower-case name; empty when there is none.
QHash<QString, basic::Variant> firstRow(const QString& connect, const QString& sql) {
    store::Connection cn;
    cn.Open(connect);
    store::Recordset rs;
    rs.Open(sql, cn, store::Recordset::adOpenStatic, store::Recordset::adLockReadOnly);
    QHash<QString, basic::Variant> row;
    if (rs.State() != 1 || rs.Eof()) return row;
    for (int i = 0; i < rs.FieldCount(); ++i) row.insert(rs.Fields(i).Name().toLower(), rs.Fields(i).Value());
    return row;
}

QString textOf(const QHash<QString, basic::Variant>& row, const char* column) {
    const basic::Variant v = row.value(QString::fromLatin1(column));
    return v.isNull() || v.isEmpty() ? QString() : basic::CStr(v).trimmed();
}

// The kind of a row of Kerala: its type, or for an allied text the words of its name.
QString keralaKind(const QString& type, const QString& name) {
    for (const char* own : {"Act", "Rules", "Circular", "Notification"})
        if (type.compare(QLatin1String(own), Qt::CaseInsensitive) == 0) return QString::fromLatin1(own);
    if (type.compare(QLatin1String("Forms"), Qt::CaseInsensitive) == 0) return QStringLiteral("Form");
    static const std::pair<const char*, const char*> byName[] = {
        {"notification", "Notification"}, {"circular", "Circular"}, {"rule", "Rules"}, {"form", "Form"}, {"schedule", "Schedule"}};
    for (const auto& [word, kind] : byName)
        if (name.contains(QLatin1String(word), Qt::CaseInsensitive)) return QString::fromLatin1(kind);
    return QStringLiteral("Act");
}

struct RowFacts {
    QString name, about, kind, number, date;
    bool document = false;   // false for the stand-by page and a row that is not there
};

RowFacts rowFacts(const QString& table, qint64 rowid) {
    RowFacts facts;
    const QString sql = QStringLiteral("SELECT * FROM %1 WHERE rowid=%2").arg(table).arg(rowid);
    if (table == kMyDocumentsTable) {
        if (const std::optional<MyDocument> d = myDocuments().document(rowid))
            return {d->title, {}, d->kind, d->number, d->date, true};
        return facts;
    }
    const store::Connection cn = shell::getConnectionForTable(table);
    if (cn.isNothing()) return facts;
    const QHash<QString, basic::Variant> row = firstRow(cn.ConnectionString(), sql);
    if (row.isEmpty()) return facts;
    facts.document = true;
    if (table.compare(QLatin1String("Kerala"), Qt::CaseInsensitive) == 0) {
        facts.name = textOf(row, "name");
        facts.about = textOf(row, "secdesc");
        facts.kind = keralaKind(textOf(row, "type"), facts.name);
    } else if (table.startsWith(QLatin1String("Globalvat"), Qt::CaseInsensitive)) {
        facts.name = textOf(row, "name");
        facts.kind = QStringLiteral("Judgement");
        facts.document = facts.name != QLatin1String("default");   // the stand-by page is no document
    } else if (table.compare(QLatin1String("Allshedule"), Qt::CaseInsensitive) == 0) {
        facts.name = textOf(row, "schname");
        facts.kind = QStringLiteral("Schedule");
    } else if (table.compare(QLatin1String("CAPractice"), Qt::CaseInsensitive) == 0) {
        facts.name = textOf(row, "name");
        facts.kind = QStringLiteral("Form");
    } else {
        facts.name = table + u' ' + QString::number(rowid);
    }
    return facts;
}

// "Kerala:200" read back; table empty when it is not a key.
std::pair<QString, qint64> splitKey(const QString& key) {
    const qsizetype colon = key.lastIndexOf(u':');
    bool number = false;
    const qint64 rowid = key.mid(colon + 1).toLongLong(&number);
    if (colon <= 0 || !number) return {};
    return {key.left(colon), rowid};
}

// The label of the index entry "label-name" that leads to the document, from the index column that
// lists documents of its kind: a circular's number, a judgement's citation.
QString indexedNumber(const QString& kind, const QString& name) {
    static const QHash<QString, QStringList> columns = {
        {QStringLiteral("Circular"), {QStringLiteral("CircularNumber")}},
        {QStringLiteral("Notification"), {QStringLiteral("NotificationNumber")}},
        {QStringLiteral("Judgement"), {QStringLiteral("VatJudgmentCitation"), QStringLiteral("RJudgmentCitation")}},
    };
    const QStringList wanted = columns.value(kind);
    const store::Connection cn = shell::getConnectionForTable(QStringLiteral("Keralafields"));
    if (wanted.isEmpty() || cn.isNothing()) return {};
    store::Recordset rs;
    rs.Open(QStringLiteral("SELECT ") + wanted.join(QStringLiteral(", ")) + QStringLiteral(" FROM Keralafields"), cn,
            store::Recordset::adOpenStatic, store::Recordset::adLockReadOnly);
    for (; rs.State() == 1 && !rs.Eof(); rs.MoveNext()) {
        for (int c = 0; c < wanted.size(); ++c) {
            const basic::Variant v = rs.Fields(c).Value();
            if (v.type() != basic::Variant::Text) continue;
            const qsizetype hyphen = v.text().indexOf(u'-');
            if (hyphen > 0 && v.text().mid(hyphen + 1).trimmed() == name) return v.text().left(hyphen).trimmed();
        }
    }
    return {};
}

}  // namespace

documents::DocumentName documentOf(const QString& connect, const QString& sql) {
    static QHash<QString, documents::DocumentName> known;
    const QString cacheKey = connect + u'\n' + sql;
    if (const auto found = known.constFind(cacheKey); found != known.cend()) return *found;

    static const QRegularExpression select(QStringLiteral(R"(^\s*select\s+.+?\s+from\s+\[?(\w+)\]?(.*)$)"),
                                           QRegularExpression::CaseInsensitiveOption |
                                               QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpressionMatch m = select.match(sql);
    if (!m.hasMatch() || connect.isEmpty()) return {};
    const QString table = m.captured(1);
    const QHash<QString, basic::Variant> row =
        firstRow(connect, QStringLiteral("SELECT rowid FROM ") + table + m.captured(2));
    if (row.isEmpty()) return {};
    const qint64 rowid = row.begin()->integer();
    const RowFacts facts = rowFacts(table, rowid);
    documents::DocumentName name;
    if (facts.document)
        name = {table + u':' + QString::number(rowid),
                facts.about.isEmpty() ? facts.name : facts.name + QStringLiteral(" — ") + facts.about, facts.kind};
    // The library never changes in a run; the user's own documents may be renamed, so they are not kept.
    if (table != kMyDocumentsTable) {
        if (known.size() > 1000) known.clear();
        known.insert(cacheKey, name);
    }
    return name;
}

documents::DocumentName shownDocument(const keralaforms* window) {
    if (window->OLE1->document().isEmpty()) return {};
    return documentOf(window->MSRDC1->Connect(), window->MSRDC1->SQL());
}

bool openDocument(const QString& key) {
    const auto [table, rowid] = splitKey(key);
    QString connect;
    if (table == kMyDocumentsTable) connect = myDocuments().connectionString();
    else if (!table.isEmpty()) {
        const store::Connection cn = shell::getConnectionForTable(table);
        if (!cn.isNothing()) connect = cn.ConnectionString();
    }
    const QString sql = QStringLiteral("select fname from %1 where rowid=%2").arg(table).arg(rowid);
    if (connect.isEmpty() || documentOf(connect, sql).key.isEmpty()) {
        forms::MsgBox(QStringLiteral("This document is no longer in the library or in your documents."), forms::vbExclamation,
                      QStringLiteral("Open a document"));
        return false;
    }
    auto* kf = forms::get<keralaforms>(QStringLiteral("keralaforms"));
    kf->MSRDC1->setConnect(connect);
    kf->MSRDC1->setSQL(sql);
    kf->MSRDC1->Refresh();
    kf->OLE1->setDataField(QStringLiteral("fname"));
    if (kf->isHidden() && kf->windowModality() != Qt::NonModal) kf->setWindowModality(Qt::NonModal);
    kf->show();
    kf->raise();
    kf->activateWindow();
    return true;
}

DocumentFacts factsOf(const documents::DocumentName& document, const QString& text) {
    const auto [table, rowid] = splitKey(document.key);
    if (table.isEmpty()) return {document.title, document.kind, {}, guessDate(text)};
    const RowFacts row = rowFacts(table, rowid);
    if (table == kMyDocumentsTable) return {row.name, row.kind, row.number, row.date};
    QString number = indexedNumber(row.kind, row.name);
    if (number.isEmpty() && row.kind != QLatin1String("Judgement")) number = guessNumber(row.name);
    if (number.isEmpty() && (row.kind == QLatin1String("Circular") || row.kind == QLatin1String("Notification")))
        number = guessNumber(text);
    return {row.name, row.kind, number, guessDate(text)};
}

}  // namespace library
