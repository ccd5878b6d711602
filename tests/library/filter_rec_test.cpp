// FilterRec on a list of every class of field: the filter each text gives, the boxes, the half-typed words.
#include "library_window_fixture.h"
#include "support/case_name.h"

using library::frmGlobalSections;

// The list needs no library: a database of its own in a folder of the test's own.
class FilterRecTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dir.isValid());
        cn.Create(QStringLiteral("Driver={Microsoft Access Driver (*.mdb)};Dbq=") + dir.filePath("t.mdb") +
                  QStringLiteral(";Uid=admin;"));
        cn.Execute(QStringLiteral("CREATE TABLE T (ID INTEGER, Amount CURRENCY, Name TEXT COLLATE NOCASE, "
                                  "Flag BOOLEAN, Day DATE, Doc LONGBINARY)"));
        cn.Execute(QStringLiteral("INSERT INTO T VALUES (1, 10.5, 'Sale within the State', 1, '1982-12-18', NULL)"));
        cn.Execute(QStringLiteral("INSERT INTO T VALUES (2, 20, 'State of the sale''s tax', 0, '1982-12-19', NULL)"));
        cn.Execute(QStringLiteral("INSERT INTO T VALUES (3, 10.5, 'Works contract', 1, '1982-12-18', NULL)"));
        owned = std::make_unique<frmGlobalSections>();
        w = owned.get();
        w->setRecSet(shell::getRecordSetByCn(
            QStringLiteral("SELECT Name AS Search, ID, Amount, Name, Flag, Day, Doc FROM T ORDER BY ID"), cn));
        w->LoadGridData();
    }
    QTemporaryDir dir;
    store::Connection cn;
    std::unique_ptr<frmGlobalSections> owned;
    frmGlobalSections* w = nullptr;   // made in SetUp, after the application
};

// filter "0": none, the list left as it was; rows -1: not counted; box: its text, "" for none.
struct FilterCase {
    const char* name;
    int column;
    QString typed, filter;
    long rows;
    QString box;
};

const QString kDateBox = QStringLiteral("Not a valid date.\nPlease enter a valid date. Eg. 18-Dec-1982");
const QString kNumericBox = QStringLiteral("Not a valid numeric.\nPlease enter a numeric value.");
const QString kCurrencyBox = QStringLiteral("Not a valid Currency.\nPlease enter a numeric value.");
const QString kBooleanBox = QStringLiteral("Not a valid boolean.\nPlease enter ('True' or 'False' or a numeric value).");

class EachClassOfField : public FilterRecTest, public ::testing::WithParamInterface<FilterCase> {};

TEST_P(EachClassOfField, FiltersOrAsksAgain) {
    const FilterCase& c = GetParam();
    w->setSearchColumnIndex(std::int16_t(c.column));
    forms::MsgBoxRecorder boxes;
    w->txtSearch->setText(c.typed);
    EXPECT_EQ(basic::CStr(w->RecSet().Filter()), c.filter);
    if (c.rows >= 0) { EXPECT_EQ(w->DataGrid1->RowCount(), c.rows); }
    EXPECT_EQ(boxes.boxes(), (c.box.isEmpty() ? std::vector<forms::RecordedBox>{}
                                              : std::vector{forms::RecordedBox{c.box, 0, forms::standardTitle()}}));
    // A box leaves the text selected, to be typed over.
    if (!c.box.isEmpty()) { EXPECT_EQ(w->txtSearch->selectedText(), w->txtSearch->text()); }
    EXPECT_EQ(w->cmdGO->isEnabled(), w->DataGrid1->RowCount() > 0);
}

INSTANTIATE_TEST_SUITE_P(
    FilterRec, EachClassOfField,
    ::testing::Values(FilterCase{"Integer", 1, "2", "ID =2", 1, ""}, FilterCase{"IntegerPadded", 1, " 3 ", "ID =3", 1, ""},
                      FilterCase{"IntegerNotANumber", 1, "x", "0", 3, kNumericBox},
                      FilterCase{"Currency", 2, "10.5", "Amount =10.5", 2, ""},
                      FilterCase{"CurrencyNotANumber", 2, "ten", "0", 3, kCurrencyBox},
                      FilterCase{"TextWords", 3, "state sale", "Name LIKE '*state*' AND Name LIKE '*sale*'", 2, ""},
                      FilterCase{"TextWordsSpaced", 3, "  sale    state ", "Name LIKE '*sale*' AND Name LIKE '*state*'", 2, ""},
                      FilterCase{"TextApostrophe", 3, "sale's", "Name LIKE '*sale''s*'", 1, ""},
                      FilterCase{"TextBrackets", 3, "[works]", "Name LIKE '*%works%*'", -1, ""},
                      FilterCase{"TextBlanks", 3, "   ", "0", 3, ""},
                      FilterCase{"BooleanOneLetter", 4, "t", "0", 3, ""},
                      FilterCase{"BooleanHalfTrue", 4, "Tru", "0", 3, ""},
                      FilterCase{"BooleanHalfFalse", 4, "fals", "0", 3, ""},
                      FilterCase{"BooleanTrue", 4, "true", "Flag =true", 2, ""},
                      FilterCase{"BooleanFalseUpper", 4, "FALSE", "Flag =FALSE", 1, ""},
                      FilterCase{"BooleanNotABoolean", 4, "x", "0", 3, kBooleanBox},
                      FilterCase{"DateNoSuchDay", 5, "31-Feb-1982", "0", 3, kDateBox},
                      FilterCase{"DateBadYear", 5, "18-Dec-19x", "0", 3, kDateBox},
                      FilterCase{"DateHalfTyped", 5, "Dec-19x", "0", 3, ""},
                      FilterCase{"Date", 5, "18-Dec-1982", "Day>=#18/Dec/1982# AND Day<#19/Dec/1982# ", 2, ""},
                      FilterCase{"LongBinary", 6, "anything", "0", 3, ""}),
    CaseName());

TEST_F(FilterRecTest, ClearingShowsTheWholeListRebound) {
    w->setSearchColumnIndex(3);
    w->txtSearch->setText(QStringLiteral("works"));
    ASSERT_EQ(w->DataGrid1->RowCount(), 1);
    w->DataGrid1->setColumnVisible(3, false);   // a setting that only a rebind restores
    w->txtSearch->clear();
    EXPECT_EQ(w->RecSet().Filter(), basic::Variant(0));
    EXPECT_EQ(w->DataGrid1->RowCount(), 3);
    EXPECT_TRUE(w->DataGrid1->ColumnVisible(3));
    EXPECT_FALSE(w->DataGrid1->ColumnVisible(0));
    EXPECT_EQ(w->DataGrid1->Row(), 0);
}

TEST_F(FilterRecTest, TheCallersRecordSetStaysUnfilteredAndANegativeIndexTurnsTheFilterOff) {
    store::Recordset mine = shell::getRecordSetByCn(QStringLiteral("SELECT Name AS Search, ID FROM T"), cn);
    w->setRecSet(mine);
    w->LoadGridData();
    w->setSearchColumnIndex(1);
    w->txtSearch->setText(QStringLiteral("2"));
    EXPECT_EQ(w->DataGrid1->RowCount(), 1);
    EXPECT_EQ(mine.RecordCount(), 3);
    w->setSearchColumnIndex(-1);
    w->txtSearch->setText(QStringLiteral("1"));
    EXPECT_EQ(basic::CStr(w->RecSet().Filter()), QStringLiteral("ID =2"));
}

TEST_F(FilterRecTest, AFilterTheRecordSetRefusesShowsItsBox) {
    w->setSearchColumnIndex(3);
    w->DataGrid1->setColumnCaption(3, QStringLiteral("NoSuchColumn"));
    forms::MsgBoxRecorder boxes;
    w->txtSearch->setText(QStringLiteral("sale"));
    ASSERT_EQ(boxes.boxes().size(), 1u);
    const QString& text = boxes.boxes()[0].text;
    EXPECT_TRUE(text.startsWith(QStringLiteral("FilterRecErr ")) && text.contains(QStringLiteral(" | No: "))) << text.toStdString();
    EXPECT_EQ(boxes.boxes()[0].style, 0);
}
