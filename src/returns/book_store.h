#pragma once
// The return file of the open book, as the windows added beside the return window read it: one
// connection on its nwForm10DB.mdb (shared with the return window's, as connections to one file are),
// and the rows of a statement taken whole.
#include "platform/basic/variant.h"
#include "platform/store/connection.h"

#include <QHash>
#include <QString>
#include <vector>

namespace returns {

// A connection on the book's nwForm10DB.mdb, the return files made first when they are missing.
store::Connection OpenBookStore();

// A row by column name, as the table spells it.
using StoreRow = QHash<QString, basic::Variant>;
std::vector<StoreRow> ReadRows(const store::Connection& cn, const QString& sql);

// A text for a statement: in apostrophes, its own apostrophes doubled.
QString Quoted(const QString& text);

// True when the column holds something other than NULL or blanks.
bool Holds(const StoreRow& row, const QString& column);
// The column read as a figure: the leading number of its text, 0 for NULL.
double Figure(const StoreRow& row, const QString& column);

}  // namespace returns
