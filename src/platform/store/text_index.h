#pragma once
// Searching a full-text (FTS4) table of a database file, on a read-only handle of its own: a search may
// then run on a thread other than the windows', and be cut short from theirs.
#include "platform/store/text_query.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <atomic>
#include <vector>

struct sqlite3;

namespace store {

// Where a snippet marks the beginning and the end of a hit.
inline constexpr char16_t kHitStart = 0x02, kHitEnd = 0x03;

struct TextSearch {
    QString table;
    QStringList columns;                  // returned in TextHit::values, in this order
    QList<double> weights;                // of each column of the table, for vorlan_bm25
    int snippetColumn = -1;               // the column number the snippet comes from; -1: the best one
    int snippetWords = 24;
    QString filterColumn, filterValue;    // only rows whose column equals the value, when both are given
    int limit = 50;
};

struct TextHit {
    QStringList values;
    QString snippet;                      // with kHitStart and kHitEnd around each hit, "…" where cut
    double score = 0;
};

class TextIndex {
public:
    // Opens the file of a connection string; a missing file or a wrong key raises the store's errors.
    explicit TextIndex(const QString& connectionString);
    ~TextIndex();
    TextIndex(const TextIndex&) = delete;
    TextIndex& operator=(const TextIndex&) = delete;

    bool hasTable(const QString& table) const;
    // The best rows, best first; nothing for a query that is not searchable. Raises the store's errors,
    // and error 287 "Operation cancelled" when interrupt() cut it short.
    std::vector<TextHit> search(const TextSearch& search, const TextQuery& query) const;
    // From any thread: the search now running ends at once.
    void interrupt();

private:
    sqlite3* db_ = nullptr;
};

}  // namespace store
