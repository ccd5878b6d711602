#pragma once
// Module2: what the return window's routines share. The connection to nwForm10DB.mdb and its recordsets
// are made anew at the head of each store operation; the statement being built lives in SqlText.
#include "platform/store/connection.h"
#include "platform/store/recordset.h"

#include <QDate>
#include <QString>

class QLineEdit;

namespace returns {

extern store::Connection cnReturn;
extern store::Recordset rsLookup;       // existence tests and reads
extern store::Recordset rsBills;        // writes, deletes, ClearTable
extern store::Recordset rsReport;       // report staging
extern QString SqlText;                 // the statement being built, by concatenation, unescaped

// The dealer of the return: the open book's (return_books.h); empty, the dealer "", while none is open.
extern QString DealerCode;
extern QString DealerName;
extern QString DealerTIN;
extern QString DealerCST;
// What the "Direct To Form" option hands to its window.
extern QString ReturnDealerCode;
extern bool DirectToForm;
extern QString ReturnYearKey;
// The key of a return-page row beside the year (Export).
extern QString ReturnSequenceKey;
extern QString ReturnPeriodKey;

// A fresh connection on nwForm10DB.mdb in the program's current folder (the open book's), and fresh
// recordsets; the old connection is let go, not closed. The return files are made first when missing.
void ConnectReturnStore();

// Lets go of the return files before a backup or restore copies them.
void ReleaseReturnStores();

// Empties the table of all months: "DELETE * FROM  " + tableName, opened and then executed.
void ClearTable(const QString& tableName);

// Selects the box's whole text, so that the first key typed replaces it.
void SelectAllOnFocus(QLineEdit* box);

// "26-09-08" read day first: the pieces are put together month first for the platform's date reading.
// A text that does not make a date raises run-time error 13.
QDate DateFromBillText(const QString& text);

// "01-03-" + yearText for "march" (any case, not trimmed); the empty text for anything but a month name.
QString FirstOfMonthText(const QString& monthName, const QString& yearText);

// True when the trimmed text has "-" as its third and sixth character; nothing else is looked at.
bool IsBillDateShape(const QString& text);

}  // namespace returns
