#pragma once
// What a user types to search the words of a full-text table, read into terms:
//   input credit            both words must be found (in any column, in any order)
//   "input tax credit"      the words one after another
//   rubber OR latex         either of the two; OR joins the terms on its two sides
//   NOT cess    -cess       no row holding the word (-"a phrase" too)
//   cred*                   any word that begins so (in a phrase too: "input tax cred*")
// Words are read as basic::splitWords reads them, so "input-tax" is the phrase "input tax" and stray marks
// are passed over. A query needs a term that must be found: "NOT cess" alone finds nothing.
#include <QString>
#include <QStringList>
#include <QStringView>
#include <vector>

namespace store {

struct TextTerm {
    QStringList words;      // folded, in their order
    bool prefix = false;    // the last word is the beginning of a word
    bool negated = false;
    bool orNext = false;    // joined to the next term by OR
};

struct TextQuery {
    std::vector<TextTerm> terms;

    bool searchable() const;             // has a term that is not negated
    std::vector<TextTerm> sought() const;  // the terms that are not negated
    // In the standard syntax of SQLite's FTS4, which negates single words only: the terms to be found
    // ("" when it is not searchable), and the negated ones, any of which leaves a row out ("" for none).
    QString matchExpression() const;
    QString exclusionExpression() const;
};

TextQuery parseTextQuery(QStringView text);

}  // namespace store
