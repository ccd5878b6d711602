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

namespace {

// Runs a statement to its end, handing each row to `row`; an interrupt is error 287, any other failure
// the database's own error.
template <class Row>
void runStatement(sqlite3* db, const QString& sql, const std::vector<QByteArray>& parameters, Row row) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(db, sql.toUtf8().constData(), -1, &statement, nullptr) != SQLITE_OK)
        throw databaseError(db);
    for (size_t i = 0; i < parameters.size(); ++i)
        if (!parameters[i].isNull())
            sqlite3_bind_text(statement, int(i) + 1, parameters[i].constData(), int(parameters[i].size()),
                              SQLITE_STATIC);
    int rc;
    while ((rc = sqlite3_step(statement)) == SQLITE_ROW) row(statement);
    if (rc != SQLITE_DONE) {
        const basic::RuntimeError error =
            rc == SQLITE_INTERRUPT
                ? basic::RuntimeError(287, QStringLiteral("Operation cancelled"), QStringLiteral("Vorlan store"))
                : databaseError(db);
        sqlite3_finalize(statement);
        throw error;
    }
    sqlite3_finalize(statement);
}

}  // namespace

std::vector<TextHit> TextIndex::search(const TextSearch& s, const TextQuery& query) const {
    if (!query.searchable()) return {};
    const QString table = quotedName(s.table);
    QStringList weights;
    for (double w : s.weights) weights << QString::number(w);
    const QByteArray match = query.matchExpression().toUtf8(), exclusion = query.exclusionExpression().toUtf8();
    const bool filtered = !s.filterColumn.isEmpty() && !s.filterValue.isEmpty();
    const QByteArray value = filtered ? s.filterValue.toUtf8() : QByteArray();

    // Ranking every hit is cheap, snippets are dear: the best rows first, then their columns and snippets.
    std::vector<std::pair<qint64, double>> best;
    runStatement(db_,
                 QStringLiteral("SELECT docid, vorlan_bm25(matchinfo(%1, 'pcnalx')%2) AS score FROM %1 "
                                "WHERE %1 MATCH ?1%3%4 ORDER BY score DESC, docid LIMIT %5")
                     .arg(table, weights.isEmpty() ? QString() : QStringLiteral(", ") + weights.join(u','),
                          filtered ? QStringLiteral(" AND ") + quotedName(s.filterColumn) + QStringLiteral(" = ?2")
                                   : QString(),
                          exclusion.isEmpty()
                              ? QString()
                              : QStringLiteral(" AND docid NOT IN (SELECT docid FROM %1 WHERE %1 MATCH ?3)").arg(table))
                     .arg(s.limit),
                 {match, value, exclusion},
                 [&](sqlite3_stmt* st) {
                     best.emplace_back(sqlite3_column_int64(st, 0), sqlite3_column_double(st, 1));
                 });
    if (best.empty()) return {};

    QStringList columns, ids;
    for (const QString& c : s.columns) columns << quotedName(c);
    for (const auto& [id, score] : best) ids << QString::number(id);
    std::vector<TextHit> hits(best.size());
    runStatement(db_,
                 QStringLiteral("SELECT docid, snippet(%1, char(2), char(3), '…', %2, %3), %4 FROM %1 "
                                "WHERE %1 MATCH ?1 AND docid IN (%5)")
                     .arg(table)
                     .arg(s.snippetColumn)
                     .arg(s.snippetWords)
                     .arg(columns.join(QStringLiteral(", ")), ids.join(u',')),
                 {match}, [&](sqlite3_stmt* st) {
                     const qint64 id = sqlite3_column_int64(st, 0);
                     size_t at = 0;
                     while (best[at].first != id) ++at;
                     TextHit& hit = hits[at];
                     hit.snippet = textAt(st, 1);
                     for (int c = 0; c < int(s.columns.size()); ++c) hit.values << textAt(st, c + 2);
                     hit.score = best[at].second;
                 });
    return hits;
}

void TextIndex::interrupt() { sqlite3_interrupt(db_); }

}  // namespace store
