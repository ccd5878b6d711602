// E - Filing: the month's bills as the upload's lists, the TINs they change, the checks before filing,
// and a finding opening the return window on its bill. The XLSX files are read back with openpyxl.
#include "keyed_month.h"
#include "returns/e_filing_window.h"
#include "support/case_name.h"

#include <QComboBox>
#include <QListWidget>
#include <QProcess>

using namespace returns;

namespace {

// ---- the TIN a list gives ---------------------------------------------------------------------------------

struct Tin {
    const char* name;
    FilingKind kind;
    const char* tin;
    const char* filed;
};

class ListTin : public testing::TestWithParam<Tin> {};

TEST_P(ListTin, NoneOrRefusedGoesAsTheUploadsOwn) {
    EXPECT_EQ(FiledTin(GetParam().kind, GetParam().tin), QString(GetParam().filed));
}

INSTANTIATE_TEST_SUITE_P(
    Filing, ListTin,
    testing::Values(Tin{"LocalWithout", FilingKind::LocalPurchases, " ", "99999999999"},
                    Tin{"LocalShortKept", FilingKind::LocalSales, "3207", "3207"},
                    Tin{"LocalGood", FilingKind::LocalPurchases, "32071000001", "32071000001"},
                    Tin{"OtherStateWithout", FilingKind::InterStatePurchases, "", "99999999999"},
                    Tin{"OtherStateGood", FilingKind::CstSales, "33010000001", "33010000001"},
                    Tin{"OtherStateKerala", FilingKind::InterStatePurchases, "32071000001", "88888888888"},
                    Tin{"OtherStateShort", FilingKind::CstSales, "3301", "88888888888"},
                    Tin{"OtherStateNoSuchState", FilingKind::CstSales, "99010000001", "88888888888"},
                    Tin{"OtherStateLetter", FilingKind::InterStatePurchases, "2901000000A", "88888888888"}),
    CaseName());

// ---- the checks -------------------------------------------------------------------------------------------

struct Check {
    const char* name;
    KeyedMonth::Bills purchases, sales;
    QStringList findings;         // whole, in order
};

class FilingChecks : public KeyedMonth, public testing::WithParamInterface<Check> {};

TEST_P(FilingChecks, EachFindingWithItsBill) {
    keyMonth(GetParam().purchases, GetParam().sales, false);
    QStringList got;
    for (const FilingFinding& f : ReadFilingMonth("March").findings) got << f.text();
    EXPECT_EQ(got, GetParam().findings);
}

const QStringList kSale = {"05-03-26", "Kochi Retail", "32071000009", "S-1", "12.5", "1000", "125", "", "1125.00"};

INSTANTIATE_TEST_SUITE_P(
    Filing, FilingChecks,
    testing::Values(
        Check{"Clean", {{"02-03-26", "Alpha", "32071000001", "A-1", "4", "1000", "40", "", "1040.00"}}, {kSale}, {}},
        Check{"ShortTin", {{"02-03-26", "Alpha", "3207100", "A-1", "4", "1000", "40", "", "1040.00"}}, {kSale},
              {"Local purchases, row 1 (bill A-1, Alpha): the TIN 3207100 is not 11 digits"}},
        // Ctrl+D fills the first of the month with the year 09.
        Check{"CtrlDYear", {{"01-03-09", "Alpha", "32071000001", "A-1", "4", "1000", "40", "", "1040.00"}}, {kSale},
              {"Local purchases, row 1 (bill A-1, Alpha): the bill date 01-03-2009 is not in March 2026 (Ctrl+D fills the year 09)"}},
        Check{"OtherMonth", {}, {{"28-02-26", "Kochi Retail", "32071000009", "S-1", "12.5", "1000", "125", "", "1125.00"}},
              {"Local sales, row 1 (bill S-1, Kochi Retail): the bill date 28-02-2026 is not in March 2026"}},
        Check{"BillNumberTwice",
              {{"02-03-26", "Alpha", "32071000001", "A-1", "4", "1000", "40", "", "1040.00"},
               {"09-03-26", "alpha", "32071000001", "a-1", "4", "500", "20", "", "520.00"},
               {"10-03-26", "Beta", "32071000002", "A-1", "4", "500", "20", "", "520.00"}},
              {kSale}, {"Local purchases, row 2 (bill a-1, alpha): the bill number a-1 of this party is in row 1 as well"}},
        // One rupee off is rounding; more is a tax typed wrong.
        Check{"TaxOffByMoreThanARupee",
              {{"02-03-26", "Alpha", "32071000001", "A-1", "4", "1000", "41", "", "1041.00"},
               {"03-03-26", "Gamma", "32071000002", "G-1", "12.5", "1000", "126.01", "", "1126.01"}},
              {kSale}, {"Local purchases, row 2 (bill G-1, Gamma): the tax 126.01 differs by more than a rupee from the amount at 12.5 %, 125.00"}},
        Check{"EmptyPartyBillAndAmount", {{"02-03-26", "", "32071000001", "", "4", "", "40", "", "40.00"}}, {kSale},
              {"Local purchases, row 1: the party is empty", "Local purchases, row 1: the bill number is empty",
               "Local purchases, row 1: the amount is empty",
               "Local purchases, row 1: the tax 40.00 differs by more than a rupee from the amount at 4 %, 0.00"}},
        // The return window counts "cst" in no band; the lists take it for a local sale with no rate.
        Check{"RateThatIsNone", {}, {{"06-03-26", "Madras Co", "33010000001", "S-2", "cst", "100", "2", "", "102.00"}},
              {"Local sales, row 1 (bill S-2, Madras Co): the rate of tax \"cst\" is no rate"}}),
    CaseName());

// ---- the files --------------------------------------------------------------------------------------------

struct Files {
    const char* name;
    std::function<QString(const QString& folder)> folder;
    QStringList written;          // file names; none: refused
    QStringList cells;            // every row of the first XLSX as openpyxl reads it, cells joined by "|"
};

class FilingFiles : public KeyedMonth, public testing::WithParamInterface<Files> {};

// The checks find the short TIN, and the user writes the lists anyway.
TEST_P(FilingFiles, EveryCellAsTheUploadTakesIt) {
    keyMonth({{"02-03-26", "Alpha Stores", "", "A-1", "4", "100000", "4000", "", "104000.00"},
              {"11-03-26", "Gamma Agencies", "3207", "G-3", "0", "25000.50", "", "", "25000.50"}},
             {{"06-03-26", "Cash Sales", "", "S-2", "4", "30000", "1200", "10", "31210.00"},
              {"09-03-26", "Trivandrum Co", "32071000009", "S-3", "CST", "10000", "200", "", "10200.00"}},
             false);
    auto* select = forms::get<frmSelect>("frmSelect");
    select->Show();
    select->Option2->setFocus();
    QTest::keyClick(select->Option2, Qt::Key_Return);
    auto* filing = dynamic_cast<EFilingWindow*>(forms::get("frmEFiling"));
    ASSERT_TRUE(filing && filing->isVisible());
    const QString target = GetParam().folder(folder.path());
    filing->txtFolder->setText(QDir::toNativeSeparators(target));
    forms::MsgBoxRecorder boxes{forms::vbYes};
    const bool written = filing->writeFiles();
    if (GetParam().written.isEmpty()) {
        EXPECT_FALSE(written);
        ASSERT_FALSE(boxes.boxes().empty());
        EXPECT_EQ(boxes.boxes().back().title, "Not written");
        EXPECT_TRUE(boxes.boxes().back().text.contains(QDir::toNativeSeparators(target))) << boxes.boxes().back().text.toStdString();
        return;
    }
    ASSERT_TRUE(written);
    EXPECT_TRUE(boxes.boxes().front().text.contains("Write the lists anyway?"));
    QStringList files = QDir(target).entryList(QDir::Files);
    files.sort();
    EXPECT_EQ(files, GetParam().written);
    EXPECT_TRUE(filing->lblWritten->text().contains("3 bill(s) go with a changed TIN")) << filing->lblWritten->text().toStdString();
    QProcess python;
    python.start("/usr/bin/python3", {"-c",
                                      "import openpyxl, sys\n"
                                      "for row in openpyxl.load_workbook(sys.argv[1]).active.iter_rows(values_only=True):\n"
                                      "    print('|'.join('' if c is None else type(c).__name__[0] + ':' + str(c) for c in row))\n",
                                      QDir(target).filePath("LocalPurchases-March-2026.xlsx")});
    ASSERT_TRUE(python.waitForFinished(30000));
    EXPECT_EQ(QString::fromUtf8(python.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts), GetParam().cells)
        << python.readAllStandardError().toStdString();
    if (qEnvironmentVariableIsSet("VORLAN_SCREENS")) {
        filing->resize(980, 700);
        filing->grab().save(screen("e-filing.png"));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Filing, FilingFiles,
    testing::Values(
        Files{"AllKinds", [](const QString& f) { QDir(f).mkdir("lists"); return f + "/lists"; },
              {"CSTSales-March-2026.csv", "CSTSales-March-2026.xlsx", "LocalPurchases-March-2026.csv", "LocalPurchases-March-2026.xlsx",
               "LocalSales-March-2026.csv", "LocalSales-March-2026.xlsx"},
              {"s:Invoice No|s:Invoice Date|s:TIN|s:Dealer Name|s:Address|s:Value|s:VAT|s:Cess",
               "s:A-1|s:02-03-2026|s:99999999999|s:Alpha Stores||s:100000.00|s:4000.00|s:0.00",
               "s:G-3|s:11-03-2026|s:3207|s:Gamma Agencies||s:25000.50|s:0.00|s:0.00"}},
        Files{"FolderMissing", [](const QString& f) { return f + "/no such folder"; }, {}, {}}),
    CaseName());

// ---- a finding opens its bill -------------------------------------------------------------------------------

struct Opening {
    const char* name;
    int purchaseKind;             // as List4 must stand
    const char* finding;          // the start of the finding double-clicked
    forms::FlexGrid* frmNormal::*grid;
    int row;
    const char* billNo;
    bool byEnter = false;         // Enter on the finding, else a double click
};

class OpenTheBill : public KeyedMonth, public testing::WithParamInterface<Opening> {};

TEST_P(OpenTheBill, FindingPutsTheCursorOnItsRow) {
    keyMonth({{"02-03-26", "Alpha", "32071000001", "A-1", "4", "1000", "40", "", "1040.00"},
              {"01-03-26", "Delta", "3207", "D-9", "4", "1000", "40", "", "1040.00"}},
             {{"05-03-26", "Kochi Retail", "32071000009", "S-1", "12.5", "1000", "125", "", "1125.00"},
              {"04-03-26", "Madras Co", "3301", "S-2", "CST", "100", "2", "", "102.00"},
              {"06-03-26", "Cash", "", "S-3", "4", "100", "9", "", "109.00"}},
             false);
    normal->List4->setListIndex(1);
    put(normal->fg1, {{"03-03-26", "Chennai Mills", "3301000000", "C-1", "4", "500", "20", "", "520.00"}});
    forms::MsgBoxRecorder quiet;
    normal->cmdAdd_Click();
    normal->cmdClose_Click();
    auto* select = forms::get<frmSelect>("frmSelect");
    select->Option2_KeyPress(13);
    auto* filing = dynamic_cast<EFilingWindow*>(forms::get("frmEFiling"));
    QListWidgetItem* item = nullptr;
    for (int i = 0; i < filing->lstChecks->count() && !item; ++i)
        if (filing->lstChecks->item(i)->text().startsWith(GetParam().finding)) item = filing->lstChecks->item(i);
    ASSERT_NE(item, nullptr) << GetParam().finding;
    const QRect place = filing->lstChecks->visualItemRect(item);
    if (GetParam().byEnter) {
        filing->lstChecks->setCurrentItem(item);
        QTest::keyClick(filing->lstChecks, Qt::Key_Return);
    } else {
        // A double click is a press, a release and a second press that the platform reports as a double click.
        QTest::mouseClick(filing->lstChecks->viewport(), Qt::LeftButton, {}, place.center());
        QTest::mouseDClick(filing->lstChecks->viewport(), Qt::LeftButton, {}, place.center());
    }
    EXPECT_TRUE(normal->isVisible());
    EXPECT_EQ(normal->List4->ListIndex(), GetParam().purchaseKind);
    forms::FlexGrid* grid = normal->*GetParam().grid;
    EXPECT_EQ(grid->Row(), GetParam().row);
    EXPECT_EQ(grid->TextMatrix(grid->Row(), 4), GetParam().billNo);
}

INSTANTIATE_TEST_SUITE_P(
    Filing, OpenTheBill,
    testing::Values(Opening{"LocalPurchase", 0, "Local purchases, row 1 (bill D-9", &frmNormal::fg1, 1, "D-9"},
                    Opening{"InterStatePurchase", 1, "Inter-State purchases, row 1", &frmNormal::fg1, 1, "C-1"},
                    Opening{"SaleInDateOrder", 0, "Local sales, row 3 (bill S-3", &frmNormal::fg2, 3, "S-3"},
                    Opening{"CstSale", 0, "CST sales, row 1 (bill S-2", &frmNormal::fg2, 1, "S-2"},
                    Opening{"ByEnter", 1, "Inter-State purchases, row 1", &frmNormal::fg1, 1, "C-1", true}),
    CaseName());

// ---- a finding of another month than the return window shows ------------------------------------------------

struct OtherMonth {
    const char* name;
    const char* finding;          // the start of the finding in February's list
};

class FindingOfAnotherMonth : public KeyedMonth, public testing::WithParamInterface<OtherMonth> {};

// The window goes over to the finding's month whole: both grids show that month's bills, and an Add there
// stores neither side of the month the window showed before under it.
TEST_P(FindingOfAnotherMonth, TheWholeMonthIsShownAndAddedUnderIt) {
    normal->txtRPTo->setText("February");
    keyMonth({{"02-02-26", "Feb Supplier", "3207", "FP-1", "4", "1000", "40", "", "1040.00"}},
             {{"05-02-26", "Feb Buyer", "3208", "FS-1", "4", "2000", "80", "", "2080.00"}}, false);
    normal->txtRPTo->setText("March");
    normal->procReadPurchase();
    normal->procReadSales_1();
    keyMonth({{"02-03-26", "March Supplier", "32071000001", "MP-1", "4", "3000", "120", "", "3120.00"}},
             {{"05-03-26", "March Buyer", "32071000009", "MS-1", "4", "4000", "160", "", "4160.00"}}, false);
    auto* select = forms::get<frmSelect>("frmSelect");
    select->Option2_KeyPress(13);
    auto* filing = dynamic_cast<EFilingWindow*>(forms::get("frmEFiling"));
    emit filing->cboMonth->activated(filing->cboMonth->findData("February"));
    QListWidgetItem* item = nullptr;
    for (int i = 0; i < filing->lstChecks->count() && !item; ++i)
        if (filing->lstChecks->item(i)->text().startsWith(GetParam().finding)) item = filing->lstChecks->item(i);
    ASSERT_NE(item, nullptr) << GetParam().finding;
    filing->lstChecks->setCurrentItem(item);
    QTest::keyClick(filing->lstChecks, Qt::Key_Return);

    EXPECT_EQ(normal->txtRPTo->text(), "February");
    EXPECT_EQ(normal->fg1->TextMatrix(1, 2), "Feb Supplier");
    EXPECT_EQ(normal->fg2->TextMatrix(1, 2), "Feb Buyer");
    forms::MsgBoxRecorder quiet;
    normal->cmdAdd_Click();
    for (const char* table : {"tblPurchase1", "tblSales"})
        for (const char* month : {"February", "March"})
            EXPECT_EQ(column(QStringLiteral("SELECT Party FROM %1 WHERE cMonth = '%2'").arg(table, month)).value(0).left(3),
                      QString(month).left(3)) << table << " " << month;
}

INSTANTIATE_TEST_SUITE_P(Filing, FindingOfAnotherMonth,
                         testing::Values(OtherMonth{"Sale", "Local sales, row 1 (bill FS-1"},
                                         OtherMonth{"Purchase", "Local purchases, row 1 (bill FP-1"}),
                         CaseName());

// ---- bills added while the window stands open ----------------------------------------------------------------

struct Meanwhile {
    const char* name;
    bool activated;               // the user comes back to the window before writing
};
void PrintTo(const Meanwhile& m, std::ostream* os) { *os << m.name; }

class AddedMeanwhile : public KeyedMonth, public testing::WithParamInterface<Meanwhile> {};

// The lists written are the book's bills at the time of writing, never the ones the window read first.
TEST_P(AddedMeanwhile, TheListsFollowTheBook) {
    keyMonth({{"02-03-26", "Alpha Stores", "32071000001", "A-1", "4", "1000", "40", "", "1040.00"}}, {}, false);
    auto* select = forms::get<frmSelect>("frmSelect");
    select->Option2_KeyPress(13);
    auto* filing = dynamic_cast<EFilingWindow*>(forms::get("frmEFiling"));
    ASSERT_EQ(filing->month().bills.size(), 1u);
    normal->Show();
    keyMonth({{"02-03-26", "Alpha Stores", "32071000001", "A-1", "4", "1000", "40", "", "1040.00"},
              {"03-03-26", "Later Traders", "32071000002", "L-1", "4", "2000", "80", "", "2080.00"}},
             {}, false);
    if (GetParam().activated) {
        filing->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(filing));
    }
    filing->txtFolder->setText(folder.path());
    forms::MsgBoxRecorder boxes{forms::vbYes};
    EXPECT_EQ(filing->writeFiles(), GetParam().activated);
    EXPECT_EQ(filing->month().bills.size(), 2u);
    if (!GetParam().activated) {
        ASSERT_FALSE(boxes.boxes().empty());
        EXPECT_TRUE(boxes.boxes().back().text.contains("no longer those the window showed"));
        EXPECT_TRUE(filing->writeFiles());
    }
    QFile csv(QDir(folder.path()).filePath("LocalPurchases-March-2026.csv"));
    ASSERT_TRUE(csv.open(QIODevice::ReadOnly));
    EXPECT_TRUE(QString::fromUtf8(csv.readAll()).contains("Later Traders"));
}

INSTANTIATE_TEST_SUITE_P(Filing, AddedMeanwhile,
                         testing::Values(Meanwhile{"WrittenAtOnce", false}, Meanwhile{"BackToTheWindow", true}),
                         CaseName());

}  // namespace
