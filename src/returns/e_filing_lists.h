#pragma once
// The bill-wise lists that the department's upload takes with the monthly return, one per kind of
// bill, read from the month's bills in the book; what the lists change on the way (a TIN the upload
// would refuse); and the checks a return should pass before it is filed.
#include "platform/sheets/sheet_writer.h"

#include <QDate>
#include <QString>
#include <QStringList>
#include <array>
#include <vector>

namespace returns {

enum class FilingKind { LocalPurchases, InterStatePurchases, LocalSales, CstSales };
inline constexpr std::array<FilingKind, 4> kFilingKinds = {FilingKind::LocalPurchases, FilingKind::InterStatePurchases,
                                                           FilingKind::LocalSales, FilingKind::CstSales};

// "Local purchases", "Inter-State purchases", "Local sales", "CST sales".
QString FilingKindName(FilingKind kind);

// What goes for a TIN that the upload would not take.
inline const QString kNoTin = QStringLiteral("99999999999");          // the party has none
inline const QString kOtherStateTin = QStringLiteral("88888888888");  // a party of another state, its TIN refused

// One bill as the store holds it.
struct FilingBill {
    FilingKind kind = FilingKind::LocalPurchases;
    int row = 0;                // its row in the return window's grid: 1 for the first bill in date order
    QDate date;                 // invalid when the stored date is none
    QString party, tin, billNo, rate;
    double amount = 0, tax = 0, cess = 0;
    bool amountBlank = false;
    QString filedTin;           // the TIN the list gives
};

// The return window's grid a bill stands in, and the purchase kind it needs chosen.
bool IsPurchase(FilingKind kind);

struct FilingFinding {
    FilingKind kind = FilingKind::LocalPurchases;
    int row = 0;
    QString billNo, party;
    QString what;               // "the TIN 3207 is not 11 digits"
    QString text() const;       // "Local purchases, row 3 (bill B-7, Beta Traders): the TIN 3207 is not 11 digits"
};

struct FilingMonth {
    QString month;              // "March"
    int year = 0;               // its calendar year in the book
    std::vector<FilingBill> bills;          // in the order of the kinds, each kind in date order
    std::vector<FilingFinding> findings;    // the checks, bill by bill
    std::vector<const FilingBill*> changed() const;     // the bills whose TIN the lists change
    std::vector<const FilingBill*> of(FilingKind kind) const;
};

// The TIN a list gives for a party: as it stands when the upload takes it, else one of the two above.
QString FiledTin(FilingKind kind, const QString& tin);

// The month's bills from the book (the three bill tables, read as the return window reads them), with
// the lists' TINs and the checks. Store errors are raised as they come.
FilingMonth ReadFilingMonth(const QString& month);

// The TINs and the checks for bills already read; what ReadFilingMonth does after reading.
void CheckFilingMonth(FilingMonth& month);

// One list as a sheet: the heading row, then a row of texts per bill, as the upload takes them:
// Invoice No, Invoice Date (dd-mm-yyyy), TIN, Dealer Name, Address, Value, VAT, Cess.
sheets::Sheet FilingSheet(const FilingMonth& month, FilingKind kind);

// "<TIN>-LocalPurchases-March-2026" without its extension; without the TIN when the dealer has none.
QString FilingFileName(const FilingMonth& month, FilingKind kind, const QString& dealerTin);

// Writes each kind that has bills as XLSX and as CSV into the folder; returns the files written. A file
// that cannot be written raises the writer's error, which names it; the files before it stay whole.
QStringList WriteFilingFiles(const FilingMonth& month, const QString& folder, const QString& dealerTin);

}  // namespace returns
