#include "platform/store/text_index.h"

#include "platform/store/connection.h"
#include "platform/store/errors.h"
#include "platform/store/full_text.h"

#include <QFile>
#include <QFileInfo>

#define SQLITE_HAS_CODEC 1
#include <sqlite3.h>

namespace store {

namespace {

QString quotedName(const QString& name) {
    return u'"' + QString(name).replace(u'"', QStringLiteral("\"\"")) + u'"';
}

QString textAt(sqlite3_stmt* statement, int column) {
    return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, column)),
                             sqlite3_column_bytes(statement, column));
}

}  // namespace

TextIndex::TextIndex(const QString& connectionString) {
    const QString path = databasePath(connectionString);
    if (!QFileInfo::exists(path)) throw providerError(QStringLiteral("Could not find file '%1'.").arg(path));
    if (sqlite3_open_v2(QFile::encodeName(path).constData(), &db_, SQLITE_OPEN_READONLY, nullptr) != SQLITE_OK)
        throw databaseError(db_);
    const QByteArray key = databaseKey(connectionString).toUtf8();
    if (!key.isEmpty()) sqlite3_key(db_, key.constData(), int(key.size()));
    if (sqlite3_exec(db_, "SELECT count(*) FROM sqlite_master", nullptr, nullptr, nullptr) != SQLITE_OK)
        throw databaseError(db_);
    registerFullText(db_);
    sqlite3_exec(db_, "PRAGMA cache_size = -65536", nullptr, nullptr, nullptr);
}

TextIndex::~TextIndex() { sqlite3_close_v2(db_); }

bool TextIndex::hasTable(const QString& table) const {
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(db_, "SELECT 1 FROM sqlite_master WHERE type = 'table' AND name = ?", -1, &statement, nullptr);
    const QByteArray name = table.toUtf8();
    sqlite3_bind_text(statement, 1, name.constData(), int(name.size()), SQLITE_STATIC);
    const bool found = sqlite3_step(statement) == SQLITE_ROW;
    sqlite3_finalize(statement);
    return found;
}

std::vector<TextHit> TextIndex::search(const TextSearch& s, const TextQuery& query) const {
    if (!query.searchable()) return {};
    const QString table = quotedName(s.table);
    QStringList weights;
    for (double w : s.weights) weights << QString::number(w);
    QStringList columns;
    for (const QString& c : s.columns) columns << table + u'.' + quotedName(c);
    const bool filtered = !s.filterColumn.isEmpty() && !s.filterValue.isEmpty();
    const QByteArray exclusion = query.exclusionExpression().toUtf8();
    const bool excluded = !exclusion.isEmpty();
    // Ranking every hit is cheap; snippets are dear, so only the best rows get one.
    const QString sql =
        QStringLiteral("SELECT %1, snippet(%2, char(2), char(3), '…', %3, %4), best.score FROM %2 JOIN "
                       "(SELECT docid AS id, vorlan_bm25(matchinfo(%2, 'pcnalx')%5) AS score FROM %2 "
                       "WHERE %2 MATCH ?1%6%7 ORDER BY score DESC, docid LIMIT %8) AS best ON %2.docid = best.id "
                       "WHERE %2 MATCH ?1 ORDER BY best.score DESC, %2.docid")
            .arg(columns.join(QStringLiteral(", ")), table)
            .arg(s.snippetColumn)
            .arg(s.snippetWords)
            .arg(weights.isEmpty() ? QString() : QStringLiteral(", ") + weights.join(QStringLiteral(", ")),
                 filtered ? QStringLiteral(" AND ") + quotedName(s.filterColumn) + QStringLiteral(" = ?2") : QString(),
                 excluded ? QStringLiteral(" AND docid NOT IN (SELECT docid FROM %1 WHERE %1 MATCH ?3)").arg(table)
                          : QString())
            .arg(s.limit);
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(db_, sql.toUtf8().constData(), -1, &statement, nullptr) != SQLITE_OK)
        throw databaseError(db_);
    const QByteArray match = query.matchExpression().toUtf8(), value = s.filterValue.toUtf8();
    sqlite3_bind_text(statement, 1, match.constData(), int(match.size()), SQLITE_STATIC);
    if (filtered) sqlite3_bind_text(statement, 2, value.constData(), int(value.size()), SQLITE_STATIC);
    if (excluded) sqlite3_bind_text(statement, 3, exclusion.constData(), int(exclusion.size()), SQLITE_STATIC);
    std::vector<TextHit> hits;
    int rc;
    while ((rc = sqlite3_step(statement)) == SQLITE_ROW) {
        TextHit hit;
        const int n = int(s.columns.size());
        for (int c = 0; c < n; ++c) hit.values << textAt(statement, c);
        hit.snippet = textAt(statement, n);
        hit.score = sqlite3_column_double(statement, n + 1);
        hits.push_back(std::move(hit));
    }
    if (rc != SQLITE_DONE) {
        const basic::RuntimeError error = rc == SQLITE_INTERRUPT
                                              ? basic::RuntimeError(287, QStringLiteral("Operation cancelled"),
                                                                    QStringLiteral("Vorlan store"))
                                              : databaseError(db_);
        sqlite3_finalize(statement);
        throw error;
    }
    sqlite3_finalize(statement);
    return hits;
}

void TextIndex::interrupt() { sqlite3_interrupt(db_); }

}  // namespace store
