#pragma once
// The library's text index: the plain text of every document, read before anything is written so that a
// document that cannot be read stops the build with its file's name, then written as a full-text table
// into the first library file once the rows' ids are known.
#include "rows.h"

#include <map>

struct sqlite3;

namespace libbuilder {

struct DocumentText {
    QString table;
    size_t row = 0;        // index in the table's rows
    QString title, kind, date, text;
};

// One entry for each row that holds a document, rows that store the same bytes too.
// The stand-by document is no document of the law and stays out. Throws BuildError.
std::vector<DocumentText> readDocumentTexts(const std::vector<TableRows>& tables);

// The kind of a Kerala row by its type, an allied text by the words of its name.
QString keralaKind(const QString& type, const QString& name);
// A "Dated ..." (or "തീയതി ...") line near the head of a document as yyyy-mm-dd; empty when there is none.
QString datedLine(const QString& text);

// Rowids of each table's rows, in the order of its rows, as the writer inserted them.
using RowIds = std::map<QString, std::vector<qint64>>;

// Creates the full-text table in the open database and fills it; throws BuildError naming `path`.
void writeTextIndex(sqlite3* db, const std::vector<DocumentText>& texts, const RowIds& rowIds, const QString& path);

}  // namespace libbuilder
