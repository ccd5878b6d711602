// A sheet's cells read for the bill grid: each cell as the grid keeps it after typing, or refused with
// the reason the user is shown; a header's words; the clipboard's rows.
#include "returns/bill_cells.h"
#include "returns/bill_paste.h"
#include "support/case_name.h"

#include <QMimeData>
#include <gtest/gtest.h>

using returns::BillField;

namespace {

// The lists as the window fills them: local purchases, and sales with CST.
const QStringList kPurchaseRates = {"      0", "      1", "      4", "    12.5", "     20       "};
const QStringList kSalesRates = {"      0", "      1", "      4", "    12.5", "     20  ", "     CST "};

struct CellCase {
    const char* name;
    BillField field;
    QString text;
    bool sales;
    QString grid;       // the cell's text in the grid
    QString refusal;    // a piece of the reason, when refused
};

void PrintTo(const CellCase& c, std::ostream* os) { *os << c.name; }

class CellReading : public testing::TestWithParam<CellCase> {};

TEST_P(CellReading, GivesTheGridsTextOrTheReason) {
    const CellCase& c = GetParam();
    const returns::BillLine line =
        returns::ReadBillLine({c.text}, {c.field}, c.sales ? kSalesRates : kPurchaseRates);
    EXPECT_EQ(line.cells[std::size_t(c.field)].toStdString(), c.grid.toStdString());
    if (c.refusal.isEmpty()) {
        EXPECT_TRUE(line.refusals.isEmpty()) << line.refusals.join('|').toStdString();
    } else {
        ASSERT_EQ(line.refusals.size(), 1);
        EXPECT_TRUE(line.refusals[0].contains(c.refusal)) << line.refusals[0].toStdString();
        EXPECT_TRUE(line.refusals[0].startsWith(returns::BillFieldName(c.field))) << line.refusals[0].toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(
    Cells, CellReading,
    testing::Values(
        CellCase{"DateShort", BillField::Date, "5-3-26", false, "05-03-26", ""},
        CellCase{"DateSlashes", BillField::Date, "05/03/2026", false, "05-03-26", ""},
        CellCase{"DateIso", BillField::Date, "2026-03-05", false, "05-03-26", ""},
        CellCase{"DateMonthName", BillField::Date, "5 Mar 2026", false, "05-03-26", ""},
        CellCase{"DateSerial", BillField::Date, "46086", false, "05-03-26", ""},
        CellCase{"DateNoSuchDay", BillField::Date, "31-02-26", false, "", "does not exist"},
        CellCase{"DateYearTheGridCannotHold", BillField::Date, "05-03-2035", false, "", "outside the years"},
        CellCase{"AmountIndianGrouping", BillField::Amount, "1,25,000.00", false, "125000.00", ""},
        CellCase{"AmountRupee", BillField::Tax, QStringLiteral("₹ 1,250"), false, "1250.00", ""},
        CellCase{"AmountRoundedAsTyped", BillField::Cess, "12.345", false, "12.35", ""},
        CellCase{"AmountInBrackets", BillField::Amount, "(1,250.00)", false, "", "below zero"},
        CellCase{"AmountText", BillField::Amount, "12a", false, "", "not an amount"},
        CellCase{"AmountHuge", BillField::Amount, "1e15", false, "", "too large"},
        CellCase{"AmountBlank", BillField::Amount, "   ", false, "", ""},
        CellCase{"RatePlain", BillField::Rate, "12.5", false, "    12.5", ""},
        CellCase{"RatePercent", BillField::Rate, "12.50%", false, "    12.5", ""},
        CellCase{"RateSpacedPercent", BillField::Rate, "12.5 %", false, "    12.5", ""},
        CellCase{"RatePaddedAsTheList", BillField::Rate, "20", false, "     20       ", ""},
        CellCase{"RateSalesCst", BillField::Rate, "cst", true, "     CST ", ""},
        CellCase{"RatePurchaseCstRefused", BillField::Rate, "CST", false, "", "not a rate of this register"},
        CellCase{"RateNotListed", BillField::Rate, "5", false, "", "5 % is not a rate of this register (0, 1, 4, 12.5, 20)"},
        CellCase{"PartyHostileTextKept", BillField::Party, "'; DROP TABLE tblSales; --", false, "'; DROP TABLE tblSales; --", ""},
        CellCase{"PartyFormulaKept", BillField::Party, "=HYPERLINK(\"x\")", false, "=HYPERLINK(\"x\")", ""},
        CellCase{"PartyOnOneLine", BillField::Party, "Malabar\nAgencies ", false, "Malabar Agencies", ""}),
    CaseName());

struct HeaderCase {
    const char* name;
    QString header;
    BillField field;
};

void PrintTo(const HeaderCase& c, std::ostream* os) { *os << c.name; }

class HeaderWords : public testing::TestWithParam<HeaderCase> {};

TEST_P(HeaderWords, NameTheirColumn) {
    EXPECT_EQ(int(returns::GuessBillField(GetParam().header)), int(GetParam().field))
        << returns::BillFieldName(returns::GuessBillField(GetParam().header)).toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Headers, HeaderWords,
    testing::Values(HeaderCase{"BillDate", "Bill Date", BillField::Date}, HeaderCase{"InvoiceDate", "Inv. Dt.", BillField::Date},
                    HeaderCase{"SerialNumber", "Sl. No.", BillField::None}, HeaderCase{"SNo", "S.No", BillField::None},
                    HeaderCase{"BillNumber", "Invoice No.", BillField::BillNo}, HeaderCase{"BillAmount", "Bill Amount", BillField::Amount},
                    HeaderCase{"TaxableValue", "Taxable Value", BillField::Amount}, HeaderCase{"TaxAmount", "VAT Amt", BillField::Tax},
                    HeaderCase{"TaxRate", "Tax Rate", BillField::Rate}, HeaderCase{"RateOfTax", "Rate of Tax %", BillField::Rate},
                    HeaderCase{"Tax", "Tax", BillField::Tax}, HeaderCase{"Cess", "Cess (1%)", BillField::Cess},
                    HeaderCase{"Gstin", "GSTIN/UIN", BillField::Tin}, HeaderCase{"DealerName", "Name of Dealer", BillField::Party},
                    HeaderCase{"TotalIsWorkedOut", "Total Amount", BillField::None}, HeaderCase{"Remarks", "Remarks", BillField::None}),
    CaseName());

struct ClipboardCase {
    const char* name;
    QString text;
    QString html;
    std::vector<QStringList> rows;
};

void PrintTo(const ClipboardCase& c, std::ostream* os) { *os << c.name; }

class ClipboardRows : public testing::TestWithParam<ClipboardCase> {};

TEST_P(ClipboardRows, AreTheCopiedCells) {
    QMimeData data;
    if (!GetParam().text.isNull()) data.setText(GetParam().text);
    if (!GetParam().html.isNull()) data.setHtml(GetParam().html);
    EXPECT_EQ(returns::ClipboardRows(&data), GetParam().rows);
}

INSTANTIATE_TEST_SUITE_P(
    Copied, ClipboardRows,
    testing::Values(
        ClipboardCase{"TabsAndWindowsLineEnds", "05-03-26\tMalabar\t1,250\r\n06-03-26\tCochin\t300\r\n", {},
                      {{"05-03-26", "Malabar", "1,250"}, {"06-03-26", "Cochin", "300"}}},
        ClipboardCase{"QuotedCellWithTabLineBreakAndQuote", "\"A\tB\nC \"\"D\"\"\"\tx\n", {}, {{"A\tB\nC \"D\"", "x"}}},
        ClipboardCase{"EmptyCellsKept", "a\t\tc\n\t\t\n", {}, {{"a", "", "c"}}},
        ClipboardCase{"HtmlTableWhenTheTextHasNoTabs", "05-03-26 Malabar",
                      "<html><body><p>x</p><table><tr><th>Bill Date</th><th>Party</th></tr>"
                      "<tr><td>05-03-26</td><td>Malabar &amp; Co</td></tr></table></body></html>",
                      {{"Bill Date", "Party"}, {"05-03-26", "Malabar & Co"}}},
        ClipboardCase{"HtmlMergedCellInItsFirstPlaceOnly", {},
                      "<table><tr><td colspan=2>Title</td><td>c</td></tr><tr><td>a</td><td>b</td><td></td></tr></table>",
                      {{"Title", "", "c"}, {"a", "b", ""}}},
        ClipboardCase{"LinesOfOneColumn", "Malabar\nCochin\n", {}, {{"Malabar"}, {"Cochin"}}}),
    CaseName());

}  // namespace
