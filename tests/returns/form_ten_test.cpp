// Direct To Form: Form No. 10 of a month keyed, added and exported in the return window, opened from the
// chooser; its figures worked out here by hand; the boxes typed on it kept in the book; on paper.
#include "keyed_month.h"
#include "returns/book_store.h"
#include "returns/form_ten_paper.h"
#include "support/case_name.h"

#include <QComboBox>
#include <QScrollArea>
#include <QScrollBar>
#include <QPdfDocument>
#include <QProcess>

using namespace returns;

namespace {

using Boxes = std::vector<std::pair<const char*, const char*>>;

// Types into a box of the form as the user does, and leaves it with Enter.
void type(FormTenWindow* form, const QString& box, const QString& text) {
    QLineEdit* edit = form->sheet->lineEdit(box);
    ASSERT_NE(edit, nullptr) << box.toStdString();
    edit->setFocus();
    edit->selectAll();
    QTest::keyClicks(edit, text);
    QTest::keyClick(edit, Qt::Key_Return);
}

QString shown(FormTenWindow* form, const char* box) { return BoxText(form->month().values, QString::fromLatin1(box)); }

struct Figures {
    const char* name;
    Boxes boxes;
};

// The dealer as the chooser hands it over: a name, a TIN and a CST number; his key stays empty.
class DealerMonth : public KeyedMonth {
protected:
    void SetUp() override {
        KeyedMonth::SetUp();
        DealerName = "Kerala Traders";
        DealerTIN = "32071234567";
        DealerCST = "07181234";
    }
    void TearDown() override {
        DealerName.clear();
        DealerTIN.clear();
        DealerCST.clear();
        KeyedMonth::TearDown();
    }
};

class GoldenMonth : public DealerMonth, public testing::WithParamInterface<Figures> {};

// Bills: purchases 1,00,000 + 4,000 tax at 4 %, 25,000.50 at 0 %, 20,000 + 2,500 at 12.5 %; sales
// 1,50,000 + 18,750 at 12.5 %, 30,000 + 1,200 at 4 %, 10,000 + 200 CST. Typed: 10,000 exempted at 12.5 %,
// 2,000 deferred. Clock in March 2026, so Export leaves the local sales to the summary.
TEST_P(GoldenMonth, EveryFigureWhereTheFormHasIt) {
    keyMonth(purchases(), sales());
    FormTenWindow* form = openForm();
    ASSERT_TRUE(form->isVisible());
    type(form, "SL45", "10000");
    type(form, "I", "2,000");
    for (const auto& [box, text] : GetParam().boxes) EXPECT_EQ(shown(form, box), QString::fromUtf8(text)) << box;
    if (qEnvironmentVariableIsSet("VORLAN_SCREENS") && std::string(GetParam().name) == "TaxPayable") {
        form->resize(1280, 980);
        QApplication::processEvents();
        form->scroll->verticalScrollBar()->setValue(form->sheet->boxRect("SL14").top() - 330);
        form->grab().save(screen("form-ten.png"));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Form, GoldenMonth,
    testing::Values(
        Figures{"Heading", {{"dpName", "Kerala Traders"}, {"dpTIN", "32071234567"}, {"dpCST", "07181234"}, {"hdYear", "2025-26"}, {"hdSequence", "Monthly"}, {"hdFrom", "01-03-2026"}, {"hdTo", "31-03-2026"},
                            {"hdNature", "Original"}, {"hdDate", "15-03-2026"}}},
        // 12.5 %: 1,50,000 - 10,000 = 1,40,000 taxable, due 1,40,000 x 12.5 % = 17,500; 4 %: due 1,200.
        Figures{"LocalSales", {{"SL14", "Nil"}, {"SL34", "30,000.00"}, {"SL36", "30,000.00"}, {"SL37", "1,200.00"},
                               {"SL38", "1,200.00"}, {"SL44", "1,50,000.00"}, {"SL45", "10,000.00"}, {"SL46", "1,40,000.00"},
                               {"SL47", "18,750.00"}, {"SL48", "17,500.00"}, {"SL54", "1,80,000.00"}, {"SL55", "10,000.00"},
                               {"SL57", "19,950.00"}, {"SL58", "18,700.00"}, {"A1T4", "1,80,000.00"}, {"A1T8", "18,700.00"}}},
        Figures{"InterStateSales", {{"ISS14", "10,000.00"}, {"ISS16", "10,000.00"}, {"ISS17", "200.00"}, {"ISS34", "10,000.00"},
                                    {"A2T4", "10,000.00"}, {"A2T7", "200.00"}}},
        // Local purchases 1,45,000.50 and tax 6,500 (4,000 + 2,500); the cess stays out of the return.
        Figures{"Purchases", {{"C1_14", "25,000.50"}, {"C1_15", "Nil"}, {"C1_16", "25,000.50"}, {"C1_34", "1,00,000.00"},
                              {"C1_35", "4,000.00"}, {"C1_36", "1,04,000.00"}, {"C1_37", "4,000.00"}, {"C1_44", "20,000.00"},
                              {"C1_45", "2,500.00"}, {"C1_54", "1,45,000.50"}, {"C1_55", "6,500.00"}, {"C1_56", "1,51,500.50"},
                              {"C1_57", "6,500.00"}, {"C2_34", "Nil"}, {"CT4", "1,45,000.50"}, {"CT7", "6,500.00"}}},
        // F 6,500; G 18,700; H = 18,700 - 6,500 = 12,200; J = 12,200 - 2,000 = 10,200; nothing creditable.
        Figures{"TaxPayable", {{"F", "6,500.00"}, {"G", "18,700.00"}, {"H", "12,200.00"}, {"I", "2,000.00"}, {"J", "10,200.00"},
                               {"K", "Nil"}, {"N", "Nil"}}}),
    CaseName());

// ---- where the figures come from ------------------------------------------------------------------------

struct Source {
    const char* name;
    std::function<void(KeyedMonth&)> key;
    FormSource source;
    const char* says;             // in the form's words over the pages
    QStringList notedLines;
    Boxes boxes;
};

class FigureSource : public KeyedMonth, public testing::WithParamInterface<Source> {};

TEST_P(FigureSource, PagesThenSummaryAndSaysWhich) {
    GetParam().key(*this);
    FormTenWindow* form = openForm();
    EXPECT_EQ(form->month().source, GetParam().source);
    EXPECT_TRUE(form->lblSource->text().contains(QString::fromUtf8(GetParam().says))) << form->lblSource->text().toStdString();
    QStringList noted = form->month().values.notes.keys();
    noted.sort();
    EXPECT_EQ(noted, GetParam().notedLines);
    for (const auto& [box, text] : GetParam().boxes) EXPECT_EQ(shown(form, box), QString::fromUtf8(text)) << box;
}

INSTANTIATE_TEST_SUITE_P(
    Form, FigureSource,
    testing::Values(
        Source{"NeverExported", [](KeyedMonth& m) { m.keyMonth(KeyedMonth::purchases(), KeyedMonth::sales(), false); },
               FormSource::Summary, "March was never exported", {}, {{"SL44", "1,50,000.00"}, {"C1_34", "1,00,000.00"}, {"ISS17", "200.00"}}},
        Source{"NothingStored", [](KeyedMonth&) {}, FormSource::Nothing, "Nothing is stored for March", {}, {{"G", "Nil"}, {"F", "Nil"}}},
        // Outside 2008 Export leaves the local sales to the summary, and the form says so beside them.
        Source{"LocalSalesNeverOnThePages", [](KeyedMonth& m) { m.keyMonth(KeyedMonth::purchases(), KeyedMonth::sales()); },
               FormSource::Pages, "that Export wrote", {"SL3", "SL4"}, {{"SL44", "1,50,000.00"}, {"ISS14", "10,000.00"}}},
        // In 2008 Export finds its row and updates the local sales on it.
        Source{"ExportedIn2008",
               [](KeyedMonth& m) {
                   basic::Clock::set(QDate(2008, 3, 15));
                   m.keyMonth(KeyedMonth::purchases(), KeyedMonth::sales());
               },
               FormSource::Pages, "that Export wrote", {}, {{"SL44", "1,50,000.00"}, {"SL37", "1,200.00"}, {"hdYear", "2007-08"}}},
        // Added again after the Export: the page keeps its figure, the summary's is named beside the line.
        Source{"AddedAfterExport",
               [](KeyedMonth& m) {
                   m.keyMonth(KeyedMonth::purchases(), KeyedMonth::sales());
                   KeyedMonth::Bills changed = KeyedMonth::purchases();
                   changed[0] = {"02-03-26", "Alpha Stores", "32071000001", "A-1", "4", "90000", "3600", "", "93600.00"};
                   m.keyMonth(changed, KeyedMonth::sales(), false);
               },
               FormSource::Pages, "marked in red", {"C1_3", "SL3", "SL4"}, {{"C1_34", "1,00,000.00"}, {"C1_35", "4,000.00"}}},
        // Inter-state: the new row keeps its total in the local block's 4 % boxes; the 20 % line is what
        // the total holds beyond the four lines (8,000 + 1,600 at 20 % beside 5,000 + 200 at 4 %).
        Source{"InterStateTotalInTheLocalBoxes",
               [](KeyedMonth& m) {
                   m.keyMonth({{"03-03-26", "Chennai Mills", "33010000002", "C-1", "4", "5000", "200", "", "5200.00"},
                                                           {"04-03-26", "Delhi Works", "07010000003", "D-4", "20", "8000", "1600", "", "9600.00"}},
                                                          KeyedMonth::sales(), true, 1);
               },
               FormSource::Pages, "that Export wrote", {"SL3", "SL4"},
               {{"C1_34", "Nil"}, {"C2_44", "5,000.00"}, {"C2_64", "8,000.00"}, {"C2_65", "1,600.00"}, {"C2_34", "13,000.00"},
                {"F", "Nil"}}}),
    CaseName());

// ---- boxes typed on the form ----------------------------------------------------------------------------

struct Typing {
    const char* name;
    const char* box;
    const char* text;
    const char* refused;          // in the box's words; empty: taken
    const char* kept;             // as the book keeps it
};

class TypedBoxes : public KeyedMonth, public testing::WithParamInterface<Typing> {};

// A good box typed first goes with the bad one: a save keeps all or nothing.
TEST_P(TypedBoxes, NumbersOnlyAndNothingHalfKept) {
    keyMonth(purchases(), sales());
    FormTenWindow* form = openForm();
    type(form, "EN1", "Y");
    forms::MsgBoxRecorder boxes;
    type(form, GetParam().box, GetParam().text);
    form->cmdSave->click();
    const QString stored = "SELECT Box || '=' || Value FROM FormTenTyped WHERE Box IN ('EN1', '" + QString(GetParam().box) + "')";
    if (*GetParam().refused) {
        ASSERT_FALSE(boxes.boxes().empty());
        EXPECT_TRUE(boxes.boxes().back().text.contains(QString::fromUtf8(GetParam().refused))) << boxes.boxes().back().text.toStdString();
        EXPECT_EQ(boxes.boxes().back().title, "Not saved");
        EXPECT_TRUE(form->unsaved());
        EXPECT_EQ(column("SELECT count(*) FROM sqlite_master WHERE name = 'FormTenTyped'"), QStringList{"0"});
    } else {
        EXPECT_TRUE(boxes.boxes().empty()) << boxes.boxes().front().text.toStdString();
        QStringList want{"EN1=Y"};
        if (*GetParam().kept) want << QString(GetParam().box) + "=" + GetParam().kept;
        want.sort();
        QStringList got = column(stored);
        got.sort();
        EXPECT_EQ(got, want);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Form, TypedBoxes,
    testing::Values(Typing{"IndianGrouping", "SL45", "1,25,000", "", "125000.00"},
                    Typing{"GroupedInThrees", "D", "12,500.5", "", "12500.50"},
                    Typing{"LettersInAnAmount", "SL45", "12a", "takes an amount in rupees", ""},
                    Typing{"CommasOutOfPlace", "SL45", "1,2,3", "takes an amount in rupees", ""},
                    Typing{"ThreeDecimals", "E", "10.125", "takes an amount in rupees", ""},
                    Typing{"ExemptionAboveTurnover", "SL35", "30,000.01", "is more than the total turnover", ""},
                    Typing{"DeferredAboveNetTax", "I", "20,000", "cannot be more than the net tax (H)", ""},
                    Typing{"AdjustedWithNothingCreditable", "L", "1", "cannot be more than the net tax creditable (K)", ""},
                    Typing{"NoSuchDate", "hdDate", "31-02-2026", "takes a date as dd-mm-yyyy", ""},
                    Typing{"RateAboveHundred", "TR13", "120", "takes a rate in per cent", ""},
                    Typing{"LowerCaseYes", "EN3", "y", "", "Y"},
                    Typing{"LetterNotYesOrNo", "EN3", "X", "", ""}),
    CaseName());

// ---- kept in the book -----------------------------------------------------------------------------------

struct Leaving {
    const char* name;
    std::function<void(FormTenWindow*)> leave;
    int answer;                   // to "Keep what was typed", when it is asked
    bool kept;
};

class KeptInBook : public KeyedMonth, public testing::WithParamInterface<Leaving> {};

TEST_P(KeptInBook, DeferredTaxAndEnclosuresOutliveTheWindow) {
    keyMonth(purchases(), sales());
    FormTenWindow* form = openForm();
    type(form, "I", "2000");
    type(form, "EN1", "Y");
    type(form, "EN5", "Y");
    {
        forms::MsgBoxRecorder boxes{GetParam().answer};
        GetParam().leave(form);
    }
    EXPECT_FALSE(form->isVisible());
    form = openForm();
    const QStringList want = GetParam().kept ? QStringList{"2,000.00", "Y", "Y", "11,450.00"} : QStringList{"", "", "", "13,450.00"};
    EXPECT_EQ(QStringList({form->sheet->lineEdit("I")->text(), form->sheet->lineEdit("EN1")->text(),
                           form->sheet->lineEdit("EN5")->text(), shown(form, "J")}),
              want);
    // The page's own column for the deferred tax holds it too.
    EXPECT_EQ(column("SELECT DISTINCT I_11 FROM tblMPage5 WHERE cRPFrom = 'March'"),
              QStringList{GetParam().kept ? "2000.00" : "null"});
}

INSTANTIATE_TEST_SUITE_P(
    Form, KeptInBook,
    testing::Values(Leaving{"SavedThenClosed", [](FormTenWindow* f) { f->cmdSave->click(); f->cmdClose->click(); }, forms::vbNo, true},
                    Leaving{"ClosedAndKept", [](FormTenWindow* f) { f->cmdClose->click(); }, forms::vbYes, true},
                    Leaving{"ClosedAndDropped", [](FormTenWindow* f) { f->cmdClose->click(); }, forms::vbNo, false},
                    Leaving{"EscAndKept", [](FormTenWindow* f) { QTest::keyClick(f->sheet->lineEdit("EN5"), Qt::Key_Escape); },
                            forms::vbYes, true}),
    CaseName());

// ---- on paper ---------------------------------------------------------------------------------------------

struct Paper {
    const char* name;
    std::function<QString(const QString& folder)> path;
    QStringList lines;            // found in the PDF's text in this order; none: it is refused
};

class OnPaper : public DealerMonth, public testing::WithParamInterface<Paper> {};

TEST_P(OnPaper, PdfOfTheWholeFormOnA4) {
    keyMonth(purchases(), sales());
    FormTenWindow* form = openForm();
    type(form, "I", "2000");
    const QString pdf = GetParam().path(folder.path());
    forms::MsgBoxRecorder boxes;
    const bool saved = form->savePdf(pdf);
    if (GetParam().lines.isEmpty()) {
        EXPECT_FALSE(saved);
        ASSERT_EQ(boxes.boxes().size(), 1u);
        EXPECT_TRUE(boxes.boxes()[0].text.contains(QDir::toNativeSeparators(pdf))) << boxes.boxes()[0].text.toStdString();
        EXPECT_EQ(QDir(QFileInfo(pdf).absolutePath()).entryList(QDir::Files).filter(".pdf"), QStringList());
        return;
    }
    ASSERT_TRUE(saved);
    QPdfDocument doc;
    doc.load(pdf);
    ASSERT_EQ(doc.status(), QPdfDocument::Status::Ready);
    EXPECT_EQ(doc.pageCount(), 3);
    EXPECT_NEAR(doc.pagePointSize(0).width(), 595.3, 1.0);    // A4
    QProcess pdftotext;
    pdftotext.start("pdftotext", {"-layout", pdf, "-"});
    ASSERT_TRUE(pdftotext.waitForFinished(20000));
    const QString text = QString::fromUtf8(pdftotext.readAllStandardOutput()).simplified();
    qsizetype at = 0;
    for (const QString& line : GetParam().lines) {
        const qsizetype found = text.indexOf(line, at);
        EXPECT_GE(found, 0) << line.toStdString() << "\nafter " << at << " in: " << text.toStdString();
        if (found >= 0) at = found + line.size();
    }
    form->preview();
    EXPECT_EQ(form->previewWindow()->pageCount(), 3);
    if (qEnvironmentVariableIsSet("VORLAN_SCREENS")) {
        doc.render(0, (doc.pagePointSize(0) * 1.6).toSize()).save(screen("form-ten-page1.png"));
        QFile::remove(screen("form-ten.pdf"));
        QFile::copy(pdf, screen("form-ten.pdf"));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Form, OnPaper,
    testing::Values(Paper{"ReadBack", [](const QString& f) { return f + "/Form10-March-2026.pdf"; },
                          {"FORM No. 10", "Return period: From 01-03-2026 To 31-03-2026", "TIN 32071234567", "CST No. 07181234", "Kerala Traders",
                           "Part A. TURNOVER DETAILS",
                           "12.5 1,50,000.00 1,50,000.00 18,750.00 18,750.00", "Total A(1a) = [1 + 2 + 3] 1,80,000.00",
                           "CST 10,000.00", "4 1,00,000.00 4,000.00 1,04,000.00 4,000.00", "(H) Net tax = (G - F) 13,450.00",
                           "(I) Tax deferred 2,000.00", "(J) Net tax payable = (H - I) 11,450.00", "DECLARATION", "Page 3 of 3"}},
                    Paper{"FolderThatIsAFile",
                          [](const QString& f) {
                              QFile file(f + "/not-a-folder");
                              file.open(QIODevice::WriteOnly);
                              return f + "/not-a-folder/Form10.pdf";
                          },
                          {}}),
    CaseName());

// ---- the month added again while the form stands open --------------------------------------------------

struct AddedAgain {
    const char* name;
    bool typed;                   // a box typed on the form and not yet kept
};
void PrintTo(const AddedAgain& a, std::ostream* os) { *os << a.name; }

class FormAddedAgain : public KeyedMonth, public testing::WithParamInterface<AddedAgain> {};

// Back on the form after the month was added and exported again, the form shows the new figures, and
// what was typed and not kept stays typed.
TEST_P(FormAddedAgain, TheFormTakesTheNewFigures) {
    keyMonth(purchases(), sales());
    FormTenWindow* form = openForm();
    ASSERT_EQ(shown(form, "C1_34"), "1,00,000.00");
    if (GetParam().typed) type(form, "EN1", "Y");
    normal->Show();
    Bills more = purchases();
    more[0] = {"02-03-26", "Alpha Stores", "32071000001", "A-1", "4", "150000", "6000", "", "156000.00"};
    keyMonth(more, sales());
    form->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(form));
    EXPECT_EQ(shown(form, "C1_34"), "1,50,000.00");
    EXPECT_EQ(shown(form, "C1_35"), "6,000.00");
    EXPECT_EQ(form->unsaved(), GetParam().typed);
    EXPECT_EQ(shown(form, "EN1"), GetParam().typed ? "Y" : "");
}

INSTANTIATE_TEST_SUITE_P(Form, FormAddedAgain,
                         testing::Values(AddedAgain{"NothingTyped", false}, AddedAgain{"TypedNotKept", true}),
                         CaseName());

}  // namespace
