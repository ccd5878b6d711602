// The reader: cells of files other programs wrote (our own writers' are read in writer_test); CSV bytes;
// the problems it names; the files it refuses; the bounds it keeps whatever the file.
#include "platform/sheets/sheet_reader.h"
#include "platform/sheets/sheet_writer.h"
#include "sheet_files.h"
#include "support/case_name.h"

#include "platform/basic/runtime_error.h"

#include <QFile>
#include <sys/resource.h>

using sheets::Cell;
using sheets::ReadSheet;

namespace {

// The files fixtures/make_sheets.py makes, once for the whole program.
QString fixture(const QString& name) {
    static QTemporaryDir dir;
    static const bool made = [] {
        QProcess p;
        p.start("/usr/bin/python3", {VORLAN_SOURCE_DIR "/tests/platform/sheets/fixtures/make_sheets.py", dir.path()});
        return p.waitForFinished(60000) && p.exitCode() == 0;
    }();
    EXPECT_TRUE(made) << "fixtures/make_sheets.py failed";
    return dir.filePath(name);
}

QString cellOf(const sheets::SheetContents& s, int row, int column) {
    if (size_t(row) >= s.rows.size() || column >= s.rows[size_t(row)].size()) return QString();
    return s.rows[size_t(row)][column];
}

// One cell of a file another program wrote, as the reader gives it, and the words of the problem the
// reader names at that cell (none when empty).
struct CellCase {
    const char* name;
    const char* file;
    const char* sheet;
    int row, column;
    const char* text;
    const char* problem = "";
};

const CellCase kOtherWriters[] = {
    {"TitleAboveHeader", "openpyxl.xlsx", "", 0, 0, "M/s Example Traders - Purchases March 2026", "Cells A1:D1 are merged; the value is read in A1 only"},
    {"FormulaWithoutValue", "openpyxl.xlsx", "", 4, 6, "", "Cell G5 has a formula whose value was never saved"},
    {"HeaderInFourthRow", "openpyxl.xlsx", "", 3, 5, "Amount"},
    {"DateCell", "openpyxl.xlsx", "", 4, 0, "2026-03-05"},
    {"DateWithTime", "openpyxl.xlsx", "", 6, 0, "2026-03-06T10:30:00"},
    {"TimeAlone", "openpyxl.xlsx", "", 8, 1, "10:30:00"},
    {"TinAsText", "openpyxl.xlsx", "", 4, 2, "32010203040"},
    {"TinAsNumber", "openpyxl.xlsx", "", 6, 2, "32010203041"},
    {"LeadingZerosOfFormat", "openpyxl.xlsx", "", 6, 3, "0012"},
    {"PercentFormat", "openpyxl.xlsx", "", 4, 4, "12.50%"},
    {"FormatDecimals", "openpyxl.xlsx", "", 4, 5, "125000.00"},
    {"IndianGroupingText", "openpyxl.xlsx", "", 6, 5, "1,25,000.00"},
    {"FloatNoise", "openpyxl.xlsx", "", 6, 6, "0.3"},
    {"NoExponentLarge", "openpyxl.xlsx", "", 8, 2, "1000000000000000"},
    {"NoExponentSmall", "openpyxl.xlsx", "", 8, 3, "0.00000015"},
    {"GeneralWhole", "openpyxl.xlsx", "", 7, 5, "100000"},
    {"Boolean", "openpyxl.xlsx", "", 7, 6, "TRUE"},
    {"OwnDateFormat", "openpyxl.xlsx", "", 8, 4, "2024-02-29"},
    {"DayAfterTheMissingLeapDay", "openpyxl.xlsx", "", 8, 5, "1900-03-01"},
    {"HostileTextIsText", "openpyxl.xlsx", "", 6, 1, "  =HYPERLINK(\"x\") "},
    {"Malayalam", "openpyxl.xlsx", "", 8, 6, "ഇൻവോയ്സ് ₹"},
    {"EmptyRowKept", "openpyxl.xlsx", "", 5, 0, ""},
    {"SheetByName", "openpyxl.xlsx", "Sales", 0, 0, "sales"},
    {"HiddenSheetPassedOver", "by-hand.xlsx", "", 0, 1, "inline <b>"},
    {"HiddenSheetByName", "by-hand.xlsx", "Hidden", 0, 0, "hidden"},
    {"RichTextWithoutPhonetic", "by-hand.xlsx", "", 0, 0, "Rich text "},
    {"EscapesDecoded", "by-hand.xlsx", "", 0, 2, "line\rbreak _x0041_"},
    {"SavedFormulaText", "by-hand.xlsx", "", 2, 1, "firstx"},
    {"ErrorValue", "by-hand.xlsx", "", 2, 2, "#DIV/0!", "Cell C3 shows the error #DIV/0!"},
    {"FormulaWithoutCellReference", "by-hand.xlsx", "", 3, 0, "", "Cell A4 has a formula"},
    {"Dates1904", "by-hand.xlsx", "", 2, 4, "1904-01-01"},
    {"CurrencyFormat", "by-hand.xlsx", "", 2, 5, "1250.500"},
    {"BooleanFalse", "by-hand.xlsx", "", 2, 6, "FALSE"},
    {"BuiltInDateFormat", "by-hand.xlsx", "", 3, 1, "2027-03-16"},
    {"SharedStringAfterGap", "by-hand.xlsx", "", 3, 2, "first"},
    {"OdsMergedTitle", "by-hand.ods", "", 0, 0, "Merged title", "Cells A1:C1 are merged"},
    {"OdsFormulaWithoutValue", "by-hand.ods", "", 3, 3, "", "Cell D4 has a formula whose value was never saved"},
    {"OdsWhiteSpace", "by-hand.ods", "", 3, 0, "lead  and span\tx\ny\nsecond"},
    {"OdsDigitsOfStyle", "by-hand.ods", "", 3, 1, "0012.00"},
    {"OdsPercentWithoutStyle", "by-hand.ods", "", 3, 2, "12.5%"},
    {"OdsDate", "by-hand.ods", "", 3, 4, "2026-03-05"},
    {"OdsDateTime", "by-hand.ods", "", 3, 5, "2026-03-05T10:30:00"},
    {"OdsTime", "by-hand.ods", "", 3, 6, "10:30:00"},
    {"OdsBoolean", "by-hand.ods", "", 3, 7, "TRUE"},
    {"OdsCommentLeftOut", "by-hand.ods", "", 3, 8, "noted"},
    {"OdsRepeatedCell", "by-hand.ods", "", 4, 1, "twice"},
    {"OdsRepeatedRow", "by-hand.ods", "", 5, 0, "twice"},
    {"OdsValueNotShownText", "by-hand.ods", "second & LAST", 0, 0, "100000"},
};

class OtherWriters : public ::testing::TestWithParam<CellCase> {};

TEST_P(OtherWriters, CellReadAsTheSpreadsheetShowsIt) {
    const CellCase& c = GetParam();
    const auto sheet = ReadSheet(fixture(c.file), QString::fromUtf8(c.sheet));
    EXPECT_EQ(cellOf(sheet, c.row, c.column), QString::fromUtf8(c.text));
    EXPECT_FALSE(sheet.truncated);
    QStringList here;
    for (const auto& p : sheet.problems)
        if (p.row == c.row && p.column == c.column) here << p.text;
    EXPECT_EQ(here.size(), *c.problem ? 1 : 0) << here.join('\n').toStdString();
    EXPECT_TRUE(here.value(0).contains(c.problem)) << here.value(0).toStdString();
}

INSTANTIATE_TEST_SUITE_P(Cells, OtherWriters, ::testing::ValuesIn(kOtherWriters), CaseName());

// CSV bytes and the rows they give.
struct CsvCase {
    const char* name;
    QByteArray bytes;
    std::vector<QStringList> rows;
    size_t problems = 0;
};

const CsvCase kCsv[] = {
    {"Comma", "a,b\r\n1,2\r\n", {{"a", "b"}, {"1", "2"}}},
    {"SemicolonWithDecimalCommas", "Amount;Party\n1,250.00;A, B\n3,5;C\n", {{"Amount", "Party"}, {"1,250.00", "A, B"}, {"3,5", "C"}}},
    {"Tab", "a\tb,c\n1\t2\n", {{"a", "b,c"}, {"1", "2"}}},
    {"SeparatorLine", "sep=;\na;b,c\n", {{"a", "b,c"}}},
    {"QuotedNewlineAndQuote", "a,\"line one\nsaid \"\"hi\"\"\",c\n", {{"a", "line one\nsaid \"hi\"", "c"}}},
    {"QuotedSeparator", "\"Kochi, Kerala\",1\n", {{"Kochi, Kerala", "1"}}},
    {"Utf8WithMark", "\xEF\xBB\xBF" "കൊച്ചി,₹ 1\n", {{"കൊച്ചി", "₹ 1"}}},
    {"Utf8WithoutMark", "Party,₹ 1,250\n", {{"Party", "₹ 1", "250"}}},
    {"Windows1252", "Caf\xE9,\x80 5,\x93q\x94\n", {{"Café", "€ 5", "“q”"}}},
    {"Windows1252AfterLongAscii", QByteArray("a party of a good long name,and its place\n").repeated(2000) + "\xE9,x\n", [] {
         // past the first chunk the reader decodes
         std::vector<QStringList> rows(2000, {"a party of a good long name", "and its place"});
         rows.push_back({"é", "x"});
         return rows;
     }()},
    {"Utf16WithMark", QByteArray("\xFF\xFE" "a\0\t\0b\0\n\0", 10), {{"a", "b"}}},
    {"OldMacLineEnds", "a,b\r1,2\r", {{"a", "b"}, {"1", "2"}}},
    {"EmptyRowsBetweenKept", "a\n\n\nb\n\n\n", {{"a"}, {}, {}, {"b"}}},
    {"LastLineWithoutBreak", "a,b\n1,2", {{"a", "b"}, {"1", "2"}}},
    {"TrailingEmptyCellsLeftOut", "a,,\n,b,\n", {{"a"}, {"", "b"}}},
    {"HostileText", "=cmd|' /C calc'!A0,@SUM(1)\n", {{"=cmd|' /C calc'!A0", "@SUM(1)"}}},
    {"UnclosedQuote", "a,\"b\nc,d\n", {{"a", "b\nc,d\n"}}, 1},
    {"LongTextCut", "x," + QByteArray(40000, 'a') + "\n", {{"x", QString(32767, 'a')}}, 1},
};

class CsvFiles : public ::testing::TestWithParam<CsvCase> {};

TEST_P(CsvFiles, RowsAsWritten) {
    const CsvCase& c = GetParam();
    QTemporaryDir dir;
    QFile f(dir.filePath("bills.csv"));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(c.bytes);
    f.close();
    const auto sheet = ReadSheet(f.fileName());
    EXPECT_EQ(sheet.sheetNames, QStringList{"bills"});
    ASSERT_EQ(sheet.rows.size(), c.rows.size());
    for (size_t r = 0; r < c.rows.size(); ++r)
        if (sheet.rows[r] != c.rows[r]) {
            ADD_FAILURE() << "row " << r << ": " << sheet.rows[r].join('|').left(200).toStdString();
            break;
        }
    EXPECT_EQ(sheet.problems.size(), c.problems);
}

INSTANTIATE_TEST_SUITE_P(Bytes, CsvFiles, ::testing::ValuesIn(kCsv), CaseName());

// Files the reader refuses, and what it says.
struct RefusedCase {
    const char* name;
    const char* file;
    const char* sheet;
    int number;
    const char* words;
};

const RefusedCase kRefused[] = {
    {"NotThere", "missing.xlsx", "", 53, "is not there"},
    {"Password", "password.xlsx", "", 75, "is protected by a password"},
    {"OldWorkbook", "old.xls", "", 75, "is an old Excel workbook (.xls)"},
    {"OtherOfficeFile", "letter.doc", "", 75, "is an old Office document, not a spreadsheet"},
    {"CutShort", "cut.xlsx", "", 75, "is damaged or incomplete"},
    {"BrokenXml", "bad-xml.xlsx", "", 75, "is damaged: its part xl/worksheets/sheet1.xml is not well-formed"},
    {"WordDocument", "report.docx", "", 75, "is a Word document"},
    {"TextDocument", "letter.odt", "", 75, "is an OpenDocument text"},
    {"PlainZip", "photos.zip", "", 75, "is a zip archive, not a spreadsheet"},
    {"WebPageNamedXls", "table.xls", "", 75, "is a web page or an XML file"},
    {"PdfNamedXlsx", "scan.xlsx", "", 75, "is a PDF document"},
    {"BinaryNamedCsv", "program.csv", "", 75, "is not a spreadsheet"},
    {"NoSuchSheet", "openpyxl.xlsx", "Returns", 75, "has no sheet named \"Returns\"; its sheets are Purchases, Sales."},
    {"NoSuchOdsSheet", "by-hand.ods", "Returns", 75, "its sheets are Bills, Second & last."},
};

class RefusedFiles : public ::testing::TestWithParam<RefusedCase> {};

TEST_P(RefusedFiles, OneClearMessageNamingTheFile) {
    const RefusedCase& c = GetParam();
    const QString path = fixture(c.file);
    const basic::RuntimeError e = basic::resume([&] { ReadSheet(path, c.sheet); });
    EXPECT_EQ(e.number(), c.number) << e.description().toStdString();
    EXPECT_TRUE(e.description().startsWith("The file " + path + " ")) << e.description().toStdString();
    EXPECT_TRUE(e.description().contains(QString::fromUtf8(c.words))) << e.description().toStdString();
}

INSTANTIATE_TEST_SUITE_P(Files, RefusedFiles, ::testing::ValuesIn(kRefused), CaseName());

// The bounds: rows to the limit and a flag past it (trailing empty rows not counted), columns cut
// with a word, in each format.
struct BoundCase {
    const char* name;
    int rows, columns, textLength, trailingEmpty, limit;
    size_t wantRows;
    bool truncated;
    const char* problem;
};

const BoundCase kBounds[] = {
    {"UnderTheLimit", 9, 2, 5, 0, 10, 9, false, ""},
    {"ExactlyTheLimit", 10, 2, 5, 0, 10, 10, false, ""},
    {"OnePastTheLimit", 11, 2, 5, 0, 10, 10, true, ""},
    {"TrailingEmptyRowsDoNotCount", 10, 2, 5, 20, 10, 10, false, ""},
    {"ColumnsCut", 3, 300, 1, 0, 10, 3, false, "Only the first 256 columns are read."},
};

class Bounds : public ::testing::TestWithParam<std::tuple<const char*, BoundCase>> {};

TEST_P(Bounds, KeptWhateverTheFile) {
    const auto& [format, c] = GetParam();
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("bounds.") + format);
    sheets::Sheet sheet{"S", {}, {}};
    for (int r = 0; r < c.rows; ++r) {
        std::vector<Cell> row;
        for (int col = 0; col < c.columns; ++col) row.push_back(Cell::ofText(QString(c.textLength, QChar(u'a' + r % 26))));
        sheet.rows.push_back(row);
    }
    for (int r = 0; r < c.trailingEmpty; ++r) sheet.rows.push_back({Cell::ofText("", true)});
    if (QByteArray(format) == "xlsx") {
        sheets::WriteXlsx(path, {sheet});
    } else if (QByteArray(format) == "ods") {
        sheets::WriteOds(path, {sheet});
    } else {
        QFile f(path);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        for (const auto& row : sheet.rows) {
            QStringList fields;
            for (const auto& cell : row) fields << cell.text;
            f.write(fields.join(',').toUtf8() + "\n");
        }
    }
    const auto read = ReadSheet(path, QString(), c.limit);
    EXPECT_EQ(read.rows.size(), c.wantRows);
    EXPECT_EQ(read.truncated, c.truncated);
    for (const auto& row : read.rows) EXPECT_LE(row.size(), sheets::kMaxColumns);
    QStringList texts;
    for (const auto& p : read.problems) texts << p.text;
    if (*c.problem) EXPECT_TRUE(texts.join('\n').contains(c.problem)) << texts.join('\n').toStdString();
    else EXPECT_TRUE(texts.isEmpty()) << texts.join('\n').toStdString();
}

INSTANTIATE_TEST_SUITE_P(Sizes, Bounds, ::testing::Combine(::testing::Values("xlsx", "ods", "csv"), ::testing::ValuesIn(kBounds)),
                         [](const auto& info) { return std::get<0>(info.param) + std::string(std::get<1>(info.param).name); });

// Very large sheets are read to the limit in little memory: the peak a child process reaches.
struct LargeCase {
    const char* name;
    const char* file;
};

class LargeSheets : public ::testing::TestWithParam<LargeCase> {};

TEST_P(LargeSheets, ReadToTheLimitInBoundedMemory) {
    QTemporaryDir dir;
    const QString path = dir.filePath(GetParam().file);
    runPython(QStringLiteral(R"(
import sys, zipfile
n, path = 500000, sys.argv[1]
row = lambda r: f'<row r="{r}"><c r="A{r}" t="s"><v>{r-1}</v></c><c r="B{r}"><v>{r*1.25}</v></c></row>'
if path.endswith(".csv"):
    with open(path, "w") as f:
        for r in range(1, 2 * n): f.write(f"Party number {r} of a long month,{r*1.25:g},05-03-2026\n")
else:
    z = zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED)
    ns = 'xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main"'
    rel = "http://schemas.openxmlformats.org/officeDocument/2006/relationships"
    z.writestr("[Content_Types].xml", "<Types/>")
    z.writestr("xl/workbook.xml", f'<workbook {ns} xmlns:r="{rel}"><sheets><sheet name="Big" r:id="rId1"/></sheets></workbook>')
    z.writestr("xl/_rels/workbook.xml.rels", f'<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships"><Relationship Id="rId1" Type="{rel}/worksheet" Target="s.xml"/><Relationship Id="rId2" Type="{rel}/sharedStrings" Target="t.xml"/></Relationships>')
    z.writestr("xl/t.xml", f"<sst {ns}>" + "".join(f"<si><t>Party number {r} of a long month</t></si>" for r in range(1, n + 1)) + "</sst>")
    z.writestr("xl/s.xml", f"<worksheet {ns}><sheetData>" + "".join(row(r) for r in range(1, n + 1)) + '</sheetData><mergeCells><mergeCell ref="A2:B2"/></mergeCells></worksheet>')
    z.close()
)"), {path});
    ASSERT_GT(QFileInfo(path).size(), 4 << 20);
    const ChildReport r = runInChild([] {}, [&] {
        rusage before{}, after{};
        ::getrusage(RUSAGE_SELF, &before);
        const auto sheet = ReadSheet(path, QString(), 10000);
        ::getrusage(RUSAGE_SELF, &after);
        const long grownKb = after.ru_maxrss - before.ru_maxrss;
        if (sheet.rows.size() != 10000 || !sheet.truncated || cellOf(sheet, 9999, 1) != "12500" ||
            cellOf(sheet, 9999, 0) != "Party number 10000 of a long month")
            throw basic::RuntimeError(1, QStringLiteral("rows %1, last %2").arg(sheet.rows.size()).arg(cellOf(sheet, 9999, 0)));
        if (QByteArray(GetParam().file).endsWith("xlsx") && sheet.problems.size() != 1)
            throw basic::RuntimeError(2, QStringLiteral("merged cells or shared strings missed"));
        throw basic::RuntimeError(100, QString::number(grownKb));
    }, path);
    ASSERT_EQ(r.number, 100) << r.description.toStdString();
    EXPECT_LT(r.description.toLong(), 64 * 1024) << "kB grown while reading";
}

INSTANTIATE_TEST_SUITE_P(Files, LargeSheets, ::testing::Values(LargeCase{"Csv", "month.csv"}, LargeCase{"Xlsx", "month.xlsx"}),
                         CaseName());

}  // namespace
