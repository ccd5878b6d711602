#pragma once
// The bill grid's columns as a spreadsheet fills them: which column of a sheet is the Bill Date, the
// Party, the Amount, guessed from the words of its header; where the header stands below a title; and
// the TOTAL line a sheet ends with, which is no bill.
#include <QString>
#include <QStringList>
#include <vector>

namespace returns {

// A grid column that a sheet's column can fill, numbered as the grid's columns (Sl No and Total Amount
// are the grid's own).
enum class BillField { None = 0, Date = 1, Party = 2, Tin = 3, BillNo = 4, Rate = 5, Amount = 6, Tax = 7, Cess = 8 };
constexpr int kFirstBillField = 1;
constexpr int kLastBillField = 8;

// The name a user sees: "Bill Date", "Party", "TIN", "Bill No", "Rate of Tax %", "Amount", "Tax", "Cess";
// "(left out)" for None.
QString BillFieldName(BillField field);

// The field a header's words name, None when they name none (a serial number, a total, a remark).
BillField GuessBillField(const QString& header);

// One field per sheet column, each field at most once: the leftmost column that names it.
std::vector<BillField> GuessBillFields(const QStringList& header);

// The row among the first `lookAt` rows whose cells name at least three fields, -1 when none does:
// a title, a dealer's name or a blank line may stand above the header.
int FindHeaderRow(const std::vector<QStringList>& rows, int lookAt = 20);

// A sheet's line of totals: its first text ("Total", "TOTAL:", "Grand Total", "Sub-total") says so.
bool IsTotalLine(const QStringList& cells);

}  // namespace returns
