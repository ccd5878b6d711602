// Files of bills made by another program, previewed and imported: the header found below a title, the
// columns guessed, every row that cannot be read named, the grid untouched until OK, then filled after
// its last bill, and taken back by Ctrl+Z.
#include "sheets_window.h"
#include "support/case_name.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>

namespace {

const QString kBook = "import sys, datetime, io, openpyxl\nwb = openpyxl.Workbook(); ws = wb.active\n";
const QString kSave = "\nwb.save(sys.argv[1])\n";

struct ImportCase {
    const char* name;
    const char* file;
    QString script;                 // writes the file at sys.argv[1]
    QString box;                    // the file is refused: a piece of the box
    int headerRow = -1;
    std::size_t bills = 0;
    QStringList notes;              // pieces of the notes, in order
    QString summary;                // a piece of the summary over the notes
    QStringList firstBill;          // cells 1..9 of the first bill in the grid after OK
    const char* shot = nullptr;     // the preview's picture for the README
    bool sales = false;             // chosen in the preview: into the sales grid
};

void PrintTo(const ImportCase& c, std::ostream* os) { *os << c.name; }

class ImportBills : public SheetsWindow, public testing::WithParamInterface<ImportCase> {};

TEST_P(ImportBills, PreviewThenFillAfterTheLastBill) {
    const ImportCase& c = GetParam();
    forms::FlexGrid* grid = c.sales ? w->fg2 : w->fg1;
    put(grid, {{"01-03-26", "Keyed", "", "", "      0", "10.00", "", "", "10.00"}});
    const Bills before = rows(grid);
    const QString path = folder.filePath(c.file);
    python(c.script, path);

    forms::MsgBoxRecorder boxes;
    std::unique_ptr<returns::BillImportWindow> preview = sheets->preview(path);
    if (!c.box.isEmpty()) {
        EXPECT_FALSE(preview);
        ASSERT_EQ(boxes.boxes().size(), 1u);
        EXPECT_TRUE(boxes.boxes()[0].text.contains(c.box)) << boxes.boxes()[0].text.toStdString();
        return;
    }
    ASSERT_TRUE(preview);
    preview->targetBox->setCurrentIndex(c.sales ? 1 : 0);   // read again with that grid's rates
    EXPECT_TRUE(boxes.boxes().empty());
    EXPECT_EQ(preview->headerRow(), c.headerRow);
    EXPECT_EQ(preview->reading().bills.size(), c.bills);
    QStringList notes;
    for (const returns::ImportNote& n : preview->reading().notes) notes << n.text;
    ASSERT_EQ(notes.size(), c.notes.size()) << notes.join('\n').toStdString();
    for (int i = 0; i < notes.size(); ++i) EXPECT_TRUE(notes[i].contains(c.notes[i])) << notes[i].toStdString();
    EXPECT_TRUE(preview->summary->text().contains(c.summary)) << preview->summary->text().toStdString();
    EXPECT_EQ(rows(grid), before) << "the grid waits for OK";
    EXPECT_EQ(preview->okButton->isEnabled(), !c.firstBill.isEmpty());
    if (c.shot) {
        EXPECT_TRUE(preview->grab().save(screen(c.shot)));
    }
    if (c.firstBill.isEmpty()) return;

    sheets->fill(*preview);
    ASSERT_EQ(grid->Rows(), int(2 + c.bills));
    EXPECT_EQ(rows(grid)[0], before[0]);
    EXPECT_EQ(rows(grid)[1].mid(1), c.firstBill);
    EXPECT_TRUE(sheets->undo());
    EXPECT_EQ(rows(grid), before);
}

INSTANTIATE_TEST_SUITE_P(
    Files, ImportBills,
    testing::Values(
        ImportCase{"TitleGroupingSerialsAndTotal", "march.xlsx",
                   kBook + R"(ws.append(["Purchase register - March 2026"]); ws.merge_cells("A1:H1")
ws.append(["Sl No", "Bill Date", "Party", "TIN", "Invoice No", "Rate %", "Taxable Value", "VAT", "Cess"])
ws.append([1, 46086, "Malabar Agencies", "32070123456", "1021", "12.5%", "1,25,000.00", 15625, 0])
ws.append([2, datetime.date(2026, 3, 6), "Cochin Traders", "32080765432", "B-77", 4, 1000, 40, None])
ws.append(["TOTAL", None, None, None, None, None, 126000, 15665, 0]))" + kSave,
                   "", 1, 2, {"Row 5: a line of totals, left out; its Amount 126000.00 is the sum of the bills read."},
                   "2 bills</b> will go into the purchases (Local Purchase) after bill 1",
                   {"05-03-26", "Malabar Agencies", "32070123456", "1021", "    12.5", "125000.00", "15625.00", "0.00", "140625.00"},
                   "import-preview.png"},
        ImportCase{"HeaderInTheFourthRowEmptyRowsBetween", "fourth.xlsx",
                   kBook + R"(ws.append(["Kerala Agencies"]); ws.append([]); ws.append(["TIN 32070000001"])
ws.append(["Date", "Supplier", "Bill No", "Rate", "Amount", "Tax"])
ws.append(["05-03-2026", "A", "1", 0, 10, 0]); ws.append([]); ws.append([]); ws.append(["06-03-2026", "B", "2", 1, 20, 0.2])
ws.append(["", "", "", "", 999]))" + kSave,
                   "", 3, 2, {"Row 9: it has no bill date."}, "2 empty rows skipped",
                   {"05-03-26", "A", "", "1", "      0", "10.00", "0.00", "", "10.00"}},
        ImportCase{"TotalThatDoesNotAddUp", "short.xlsx",
                   kBook + R"(ws.append(["Bill Date", "Party", "Rate", "Amount"]); ws.append(["05-03-26", "A", 4, 100])
ws.append(["06-03-26", "B", 4, "1OO"]); ws.append(["Grand Total", "", "", 200]))" + kSave,
                   "", 0, 1, {"Row 3: Amount: \"1OO\" is not an amount.", "its Amount 200.00 is not the 100.00 of the bills read above it"},
                   "1 row cannot be read and is left out", {"05-03-26", "A", "", "", "      4", "100.00", "", "", "100.00"}},
        ImportCase{"TextInAmountNoSuchDayRateNoListHolds", "bad-rows.xlsx",
                   kBook + R"(ws.append(["Bill Date", "Party", "Rate", "Amount"])
for r in [["05-03-26", "A", 4, "12a"], ["31-02-26", "B", 4, 10], ["06-03-26", "C", 4, "1,250"], ["07-03-26", "D", 5, 10]]: ws.append(r))" + kSave,
                   "", 0, 1,
                   {"Row 2: Amount: \"12a\" is not an amount.", "Row 3: Bill Date: 31-02-26 is a day that does not exist.",
                    "Row 5: Rate of Tax %: 5 % is not a rate of this register (0, 1, 4, 12.5, 20)."},
                   "3 rows cannot be read and are left out", {"06-03-26", "C", "", "", "      4", "1250.00", "", "", "1250.00"},
                   "import-preview-refusals.png"},
        ImportCase{"FormulaWithoutValueAndCellsMergedDown", "formulas.xlsx",
                   kBook + R"(ws.append(["Bill Date", "Party", "Rate", "Amount", "Tax"]); ws.append(["05-03-26", "A", 4, 100, "=D2*0.04"])
ws.append(["06-03-26", "B", 4, 200, 8]); ws.append(["", "C", 4, 300, 12]); ws.append(["08-03-26", "D", 4, 50, 2])
ws.merge_cells("A3:A4"))" + kSave,
                   "", 0, 1,
                   {"Row 2: Cell E2 has a formula whose value was never saved", "Row 3: Cells A3:A4 are merged",
                    "Row 4: Cells A3:A4 are merged"},
                   "3 rows cannot be read and are left out", {"08-03-26", "D", "", "", "      4", "50.00", "2.00", "", "52.00"}},
        ImportCase{"SemicolonsInWindows1252", "bills.csv",
                   R"(import sys; open(sys.argv[1], "wb").write(b"Bill Date;Party;Rate;Amount;Cess\r\n05-03-26;Caf\xe9 Kochi;CST;1250;1\r\n"))",
                   "", 0, 1, {}, "1 bill</b> will go into the sales",
                   {"05-03-26", QStringLiteral("Café Kochi"), "", "", "     CST ", "1250.00", "", "1.00", "1251.00"}, nullptr, true},
        ImportCase{"NoColumnOfDates", "nodates.csv", R"(import sys; open(sys.argv[1], "w").write("Party,Amount,Rate\nA,1,4\n"))",
                   "", 0, 1, {}, "Choose the column that holds the Bill Date.", {}},
        ImportCase{"MoreRowsThanAreRead", "long.csv",
                   R"(import sys; open(sys.argv[1], "w").write("Bill Date,Party,Rate,Amount\n" + "05-03-26,A,4,1\n" * 20001))",
                   "", 0, 19999, {}, "goes on past 20,000 rows", {}},
        ImportCase{"DamagedWorkbook", "cut.xlsx",
                   kBook + "ws.append(['a'] * 50)\nb = io.BytesIO(); wb.save(b); open(sys.argv[1], 'wb').write(b.getvalue()[:2000])\n",
                   "is damaged or incomplete", -1, 0, {}, "", {}},
        ImportCase{"NotASpreadsheet", "scan.xlsx", R"(import sys; open(sys.argv[1], "wb").write(b"%PDF-1.4\n%\xe2\xe3\xcf\xd3\n"))",
                   "is a PDF document", -1, 0, {}, "", {}}),
    CaseName());

}  // namespace
