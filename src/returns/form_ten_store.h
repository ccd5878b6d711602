#pragma once
// The return of one month of the open book as the form shows it: the heading and the particulars from
// the book, the figures from the return pages that Export wrote (or from the month's summary where
// the pages lack them), and the boxes typed on the form, which are kept in the book's return file.
#include "returns/form_ten_lines.h"

#include <QString>
#include <QStringList>

namespace returns {

// Where the month's figures come from.
enum class FormSource {
    Pages,      // the return pages Export wrote (a block they lack taken from the summary, and said so)
    Summary,    // never exported: the month's summary, as the last Add left it
    Nothing,    // neither holds the month
};

struct FormTenMonth {
    QString month;          // "March"
    int year = 0;           // its calendar year in the book: 2026 for March of 2025-26
    FormSource source = FormSource::Nothing;
    QString sourceText;     // what the form says of where its figures come from
    FormTenValues values;
};

// The months of a book, April to March.
const QStringList& FormTenMonths();
// 1 to 12 for a month's name (any case), 0 for anything else.
int MonthNumber(const QString& month);

// The month as the store holds it, typed boxes and all; the Computed boxes worked out. Store errors are
// raised as they come.
FormTenMonth ReadFormTen(const QString& month);

// Keeps the typed boxes of the month: all of them in one transaction, or none. Boxes that the return
// pages hold a column for are written to the month's page rows too. A typed box that CheckTyped refuses
// raises error 380 with its message, before anything is written.
void SaveFormTen(const FormTenMonth& month);

// Where a save keeps the typed boxes: one row per box, keyed as the return pages are.
inline const QString kFormTenTypedTable = QStringLiteral("FormTenTyped");

}  // namespace returns
