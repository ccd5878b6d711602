#include "text_index.h"

#include "library/library_text.h"
#include "platform/documents/plain_text.h"
#include "platform/store/full_text.h"

#include <QCryptographicHash>
#include <QDate>
#include <QRegularExpression>
#include <QHash>

#include <sqlite3.h>

namespace libbuilder {

namespace {

// The tables that hold documents, the column that names each document, and the kind of all their rows
// (empty: told row by row).
struct DocumentTable {
    const char* table;
    const char* title;
    const char* kind;
};
const DocumentTable kDocumentTables[] = {
    {"Kerala", "name", ""},           {"Globalvat", "name", "Judgement"}, {"Globalvatse", "name", "Judgement"},
    {"Allshedule", "Schname", "Schedule"}, {"CAPractice", "name", "Form"},
};

QString textAt(const Row& row, const TableRows& rows, const QString& column)
{
    const qsizetype at = rows.columns.indexOf(column);
    if (at < 0)
        return {};
    const auto* text = std::get_if<QString>(&row.values[size_t(at)]);
    return text ? *text : QString();
}

const QByteArray* documentOf(const Row& row, const TableRows& rows)
{
    const qsizetype at = rows.columns.indexOf("fname");
    if (at < 0)
        return nullptr;
    const auto* bytes = std::get_if<QByteArray>(&row.values[size_t(at)]);
    return bytes && !bytes->isEmpty() ? bytes : nullptr;
}

void check(int rc, sqlite3* db, const QString& path)
{
    if (rc != SQLITE_OK && rc != SQLITE_DONE)
        throw BuildError{path + ": text index: " + QString::fromUtf8(sqlite3_errmsg(db))};
}

}  // namespace

QString keralaKind(const QString& type, const QString& name)
{
    for (const char* own : {"Act", "Rules", "Circular", "Notification"})
        if (type.compare(QLatin1String(own), Qt::CaseInsensitive) == 0)
            return own;
    if (type.compare("Forms", Qt::CaseInsensitive) == 0)
        return "Form";
    // Allied texts carry their kind in their names: "... RULES 1976", "KERALA LUXURY TAX NOTIFICATIONS".
    static const std::pair<const char*, const char*> byName[] = {
        {"notification", "Notification"}, {"circular", "Circular"}, {"rule", "Rules"},
        {"form", "Form"}, {"schedule", "Schedule"}};
    for (const auto& [word, kind] : byName)
        if (name.contains(QLatin1String(word), Qt::CaseInsensitive))
            return kind;
    return "Act";
}

QString datedLine(const QString& text)
{
    static const QRegularExpression dated(
        R"((?:\bdated?\b|തീയതി)\W{0,4}(\d{1,2})(?:st|nd|rd|th)?[-./ ]{1,3}(\d{1,2}|[a-z]{3,9})[-./ ,]{1,3}(\d{4})\b)",
        QRegularExpression::CaseInsensitiveOption);
    static const QStringList months = {"jan", "feb", "mar", "apr", "may", "jun",
                                       "jul", "aug", "sep", "oct", "nov", "dec"};
    const QRegularExpressionMatch m = dated.match(text.left(1500));
    if (!m.hasMatch())
        return {};
    bool numeric = false;
    int month = m.captured(2).toInt(&numeric);
    if (!numeric)
        month = int(months.indexOf(m.captured(2).left(3).toLower())) + 1;
    const QDate date(m.captured(3).toInt(), month, m.captured(1).toInt());
    return date.isValid() ? date.toString(Qt::ISODate) : QString();
}

std::vector<DocumentText> readDocumentTexts(const std::vector<TableRows>& tables)
{
    std::vector<DocumentText> texts;
    // Rows may store the same bytes (one file named by many rows); each row is found by search, so each
    // has its entry, and the text is read once.
    QHash<QByteArray, QString> read;
    for (const DocumentTable& kind : kDocumentTables) {
        for (const TableRows& rows : tables) {
            if (rows.table != QLatin1String(kind.table))
                continue;
            for (size_t i = 0; i < rows.rows.size(); ++i) {
                const Row& row = rows.rows[i];
                const QByteArray* bytes = documentOf(row, rows);
                const QString title = textAt(row, rows, kind.title);
                if (!bytes || (rows.table.startsWith("Globalvat") && title == "default"))
                    continue;
                const QByteArray digest = QCryptographicHash::hash(*bytes, QCryptographicHash::Sha1);
                auto known = read.constFind(digest);
                if (known == read.cend()) {
                    const documents::PlainText plain = documents::plainTextOf(*bytes);
                    if (!plain.fault.isEmpty())
                        throw BuildError{row.origin + ": document '" + row.document + "' cannot be read: " + plain.fault};
                    known = read.insert(digest, plain.text);
                }
                const QString& text = *known;
                // A section's name is its number; what it is about stands in its description.
                const QString about = textAt(row, rows, "SecDesc").trimmed();
                texts.push_back({rows.table, i, title.trimmed() + (about.isEmpty() ? QString() : " — " + about),
                                 *kind.kind ? QString(kind.kind) : keralaKind(textAt(row, rows, "type"), title),
                                 datedLine(text), text});
            }
        }
    }
    return texts;
}

void writeTextIndex(sqlite3* db, const std::vector<DocumentText>& texts, const RowIds& rowIds, const QString& path)
{
    store::registerFullText(db);
    check(sqlite3_exec(db, library::textTableStatement().toUtf8().constData(), nullptr, nullptr, nullptr), db, path);
    sqlite3_stmt* insert = nullptr;
    const QString sql = "INSERT INTO " + library::kTextTable + " (" + library::kTextColumns.join(", ") +
                        ") VALUES (?, ?, ?, ?, ?)";
    check(sqlite3_prepare_v2(db, sql.toUtf8().constData(), -1, &insert, nullptr), db, path);
    check(sqlite3_exec(db, "BEGIN", nullptr, nullptr, nullptr), db, path);
    for (const DocumentText& t : texts) {
        const QString key = t.table + ':' + QString::number(rowIds.at(t.table).at(t.row));
        const QByteArray values[] = {key.toUtf8(), t.title.toUtf8(), t.kind.toUtf8(), t.date.toUtf8(),
                                     t.text.toUtf8()};
        for (int c = 0; c < 5; ++c)
            sqlite3_bind_text(insert, c + 1, values[c].constData(), int(values[c].size()), SQLITE_TRANSIENT);
        if (sqlite3_step(insert) != SQLITE_DONE) {
            const QString message = QString::fromUtf8(sqlite3_errmsg(db));
            sqlite3_finalize(insert);
            throw BuildError{path + ": text index: " + message};
        }
        sqlite3_reset(insert);
    }
    sqlite3_finalize(insert);
    // One segment instead of many: smaller, and every search reads one b-tree.
    const QString optimize = "INSERT INTO " + library::kTextTable + "(" + library::kTextTable + ") VALUES('optimize')";
    check(sqlite3_exec(db, optimize.toUtf8().constData(), nullptr, nullptr, nullptr), db, path);
    check(sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr), db, path);
}

}  // namespace libbuilder
