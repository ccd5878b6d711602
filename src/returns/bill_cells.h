#pragma once
// A spreadsheet's row read into the texts of a bill row, as the grid keeps them after typing: the date
// "dd-mm-yy", the amounts "#0.00", the rate as the rate list's own entry with its padding. Whatever
// cannot be read so is refused with a reason; nothing is guessed.
#include "returns/bill_fields.h"

#include <QString>
#include <QStringList>
#include <array>
#include <vector>

namespace returns {

// A row read for the grid.
struct BillLine {
    std::array<QString, 9> cells;     // by grid column 1..8 (0 unused): the texts the grid is to hold
    std::array<bool, 9> filled{};     // the columns the row fills; others keep what the grid holds
    QStringList refusals;             // why the row cannot go into the grid: "Amount: "12a" is not an amount."
    bool blank = true;                // nothing at all in the columns read
};

// texts[i] is read as fields[i]; a text beyond the fields, or of a field None, is left out.
BillLine ReadBillLine(const QStringList& texts, const std::vector<BillField>& fields, const QStringList& rateEntries);

// The rate list's entry for a rate as a sheet writes it ("12.5", "12.50%", "12.5 %", "cst"), padding and
// all; the empty text and a reason when the list holds no such rate.
QString RateEntryFor(const QString& text, const QStringList& rateEntries, QString* reason);

// "1,25,000.00" as the grid keeps it, "125000.00"; negative and unreadable amounts refused.
QString GridAmount(const QString& text, QString* reason);

// "5 Mar 2026", "2026-03-05" or a date serial as the grid keeps it, "05-03-26"; refused when it is no
// day, or a day the two-digit year of the grid would read back as another.
QString GridDate(const QString& text, QString* reason);

}  // namespace returns
