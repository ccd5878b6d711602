#pragma once
// What a full-text (FTS4) table of ours needs on a database handle, registered on every handle the store
// opens and by anyone else who writes such a table:
//   tokenize=words            words as basic::splitWords sees them: an Indian script's words stay whole,
//                             where SQLite's own unicode61 of this version splits them at every vowel sign
//   vorlan_bm25(matchinfo(t, 'pcnalx'), w0, w1, ...)
//                             Okapi BM25 of the row (k1 1.2, b 0.75), each column's share weighted by its w
//                             (1 for a column given none); higher is better, 0 when nothing matched
struct sqlite3;

namespace store {

inline constexpr const char* kWordTokenizer = "words";

void registerFullText(sqlite3* db);

}  // namespace store
