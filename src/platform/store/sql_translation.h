#pragma once
// The system writes desktop-database SQL; SQLite runs it after this translation. A tokenizer splits the
// statement, and a small expression rewriter changes only what differs, passing every other token through:
//   DELETE * FROM t           -> DELETE FROM t
//   a + b                     -> vorlan_plus(a, b)     joins when either side is text, Null stays Null
//   a & b                     -> vorlan_join(a, b)     joins texts, Null counts as empty
//   IIf(c, a, b)              -> (CASE WHEN c THEN a ELSE b END)
//   LCase UCase InStr Len Left Right Mid -> vorlan_* functions (sql_functions.h); LTrim RTrim Trim stay
//   #18/Dec/1982#             -> '1982-12-18'          dates are stored as ISO text
//   [name] `name`             -> "name";  "text" -> 'text'
#include <QDate>
#include <QString>

namespace store {

struct Translation {
    enum Kind { Select, Insert, Update, Delete, Other };
    QString sql;            // the statement for SQLite
    Kind kind = Other;
    QString table;          // the one table of a plain "SELECT ... FROM <table> ...", else empty
    int rowidAt = -1;       // where a rowid column may be added to the select list, or -1

    // The statement with the rowid of `table` as an extra last column, for writing rows back.
    QString sqlWithRowid() const;
};

Translation translateSql(const QString& statement);

// A date literal's text ("18/Dec/1982", "12/31/2008", "2008-12-31") as a date; invalid when it is none.
QDate dateLiteral(const QString& text);

}  // namespace store
