// The writers: every cell read back by another program, and by our reader, as it was written; CSV
// fields byte for byte;
// a folder that may not be written and a full disk leave the old file as it was and nothing else.
#include "platform/sheets/sheet_reader.h"
#include "platform/sheets/sheet_writer.h"
#include "sheet_files.h"
#include "support/case_name.h"

#include "platform/basic/runtime_error.h"

#include <QDir>
#include <QFile>
#include <QHash>
#include <cmath>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <csignal>
#include <fcntl.h>
#include <grp.h>
#include <sys/stat.h>
#include <unistd.h>

using sheets::Cell;
using sheets::Sheet;

namespace {

// One cell written; what openpyxl (XLSX) or odfpy (ODS) reads back: kind ("s" text, "n" number,
// "d" date, "" empty), value, and for XLSX number format and boldness; and what our reader shows.
struct CellCase {
    const char* name;
    Cell cell;
    const char* kind;
    QVariant value;
    const char* format;
    const char* shown;
    bool bold = false;
};

const CellCase kCells[] = {
    {"TinWithLeadingDigits", Cell::ofText("32010203040"), "s", "32010203040", "@", "32010203040"},
    {"LeadingZeros", Cell::ofText("0012"), "s", "0012", "@", "0012"},
    {"FormulaLikeText", Cell::ofText("=SUM(A1:A2)"), "s", "=SUM(A1:A2)", "@", "=SUM(A1:A2)"},
    {"EscapeLikeText", Cell::ofText("code _x0041_"), "s", "code _x0041_", "@", "code _x0041_"},
    {"MalayalamAndRupee", Cell::ofText("മലയാളം ₹ 1,250"), "s", "മലയാളം ₹ 1,250", "@", "മലയാളം ₹ 1,250"},
    {"LineBreak", Cell::ofText("line one\nline two"), "s", "line one\nline two", "@", "line one\nline two"},
    {"OuterBlanks", Cell::ofText("  two  blanks  "), "s", "  two  blanks  ", "@", "  two  blanks  "},
    {"TabsAndBreaks", Cell::ofText("a\tb \n\n c"), "s", "a\tb \n\n c", "@", "a\tb \n\n c"},
    {"MarkupText", Cell::ofText("<b>&amp;</b> \"q\""), "s", "<b>&amp;</b> \"q\"", "@", "<b>&amp;</b> \"q\""},
    {"BoldText", Cell::ofText("TOTAL", true), "s", "TOTAL", "@", "TOTAL", true},
    {"GroupedAmount", Cell::ofNumber(125000.5, "#,##0.00"), "n", 125000.5, "#,##0.00", "125000.50"},
    {"GeneralNumber", Cell::ofNumber(1234567.891), "n", 1234567.891, "General", "1234567.891"},
    {"Tiny", Cell::ofNumber(1e-7), "n", 1e-7, "General", "0.0000001"},
    {"ZeroPadded", Cell::ofNumber(12, "0000"), "n", 12.0, "0000", "0012"},
    {"LargeNumber", Cell::ofNumber(32010203040.0, "0"), "n", 32010203040.0, "0", "32010203040"},
    {"Percent", Cell::ofNumber(0.125, "0.00%"), "n", 0.125, "0.00%", "12.50%"},
    {"Negative", Cell::ofNumber(-1250, "#,##0.00"), "n", -1250.0, "#,##0.00", "-1250.00"},
    {"DateDefault", Cell::ofDate(QDate(2026, 3, 5)), "d", "2026-03-05", "dd-mm-yyyy", "2026-03-05"},
    {"DateOwnFormat", Cell::ofDate(QDate(2024, 2, 29), "d-mmm-yy"), "d", "2024-02-29", "d-mmm-yy", "2024-02-29"},
    {"DateBeforeLeapQuirk", Cell::ofDate(QDate(1900, 2, 28)), "d", "1900-02-28", "dd-mm-yyyy", "1900-02-28"},
    {"DateAfterLeapQuirk", Cell::ofDate(QDate(1900, 3, 1)), "d", "1900-03-01", "dd-mm-yyyy", "1900-03-01"},
    {"Empty", Cell(), "", "", "General", ""},
};

std::vector<Sheet> cellSheets() {
    Sheet s{"മാർച്ച് 2026", {}, {12, 30}};
    for (const CellCase& c : kCells) s.rows.push_back({Cell::ofText(c.name), c.cell});
    return {s, Sheet{"Second", {{Cell::ofText("x")}}, {}}};
}

// Both formats, read by another program and by our reader.
class WrittenCells : public ::testing::TestWithParam<std::tuple<const char*, CellCase>> {
protected:
    struct Book {
        QJsonArray other;        // the rows as the other program reads them
        sheets::SheetContents ours;
    };
    static const Book& book(const QString& format) {
        static QTemporaryDir dir;
        static QHash<QString, Book> books;
        if (!books.contains(format)) {
            const QString path = dir.filePath("cells." + format);
            format == "xlsx" ? sheets::WriteXlsx(path, cellSheets()) : sheets::WriteOds(path, cellSheets());
            const QJsonObject other = format == "xlsx" ? readWithOpenpyxl(path) : readWithOdfpy(path);
            QStringList names = other.keys();
            names.sort();
            EXPECT_EQ(names, (QStringList{"Second", "മാർച്ച് 2026"}));
            books[format] = {other.value("മാർച്ച് 2026").toArray(), sheets::ReadSheet(path)};
        }
        return books[format];
    }
};

TEST_P(WrittenCells, ReadBackAsWritten) {
    const auto& [format, c] = GetParam();
    const Book& b = book(format);
    QJsonArray cell;
    for (const auto& row : b.other)
        if (row.toArray()[0].toArray()[1].toString() == c.name) cell = row.toArray()[1].toArray();
    const auto ours = std::find_if(b.ours.rows.begin(), b.ours.rows.end(), [&](const QStringList& row) { return row.value(0) == c.name; });
    ASSERT_NE(ours, b.ours.rows.end());
    EXPECT_EQ(ours->value(1), QString::fromUtf8(c.shown)) << "our reader";
    if (QByteArray(c.kind).isEmpty() && cell.isEmpty()) return;   // an empty cell at a row's end may be left out
    ASSERT_EQ(cell.size(), 4) << c.name;
    EXPECT_EQ(cell[0].toString(), c.kind);
    if (c.value.typeId() == QMetaType::Double) EXPECT_EQ(cell[1].toDouble(), c.value.toDouble());
    else EXPECT_EQ(cell[1].toString(), c.value.toString());
    if (QByteArray(format) != "xlsx") return;
    EXPECT_EQ(cell[2].toString(), c.format);
    EXPECT_EQ(cell[3].toBool(), c.bold);
}

INSTANTIATE_TEST_SUITE_P(Cells, WrittenCells, ::testing::Combine(::testing::Values("xlsx", "ods"), ::testing::ValuesIn(kCells)),
                         [](const auto& info) { return std::get<0>(info.param) + std::string(std::get<1>(info.param).name); });

// CSV: one row written, the line it gives (after the byte-order mark, before CR LF).
struct CsvCase {
    const char* name;
    std::vector<Cell> row;
    char separator;
    const char* line;
};

const CsvCase kCsv[] = {
    {"SeparatorQuoted", {Cell::ofText("Kochi, Kerala"), Cell::ofText("x")}, ',', "\"Kochi, Kerala\",x"},
    {"QuoteDoubled", {Cell::ofText("5\" pipe")}, ',', "\"5\"\" pipe\""},
    {"LineBreakQuoted", {Cell::ofText("a\nb")}, ',', "\"a\nb\""},
    {"CommaFreeUnderSemicolon", {Cell::ofText("1,250"), Cell::ofText("a;b")}, ';', "1,250;\"a;b\""},
    {"NumbersWithoutGrouping", {Cell::ofNumber(125000.5, "#,##0.00"), Cell::ofNumber(100000)}, ',', "125000.50,100000"},
    {"PercentAndNegative", {Cell::ofNumber(0.125, "0.00%"), Cell::ofNumber(-3.25)}, ',', "12.50%,-3.25"},
    {"DateDayFirst", {Cell::ofDate(QDate(2026, 3, 5)), Cell()}, ',', "05-03-2026,"},
    {"Malayalam", {Cell::ofText(QString::fromUtf8("കൊച്ചി ₹"))}, ',', "കൊച്ചി ₹"},
};

class CsvFields : public ::testing::TestWithParam<CsvCase> {};

TEST_P(CsvFields, WrittenAsTheyMustBe) {
    const CsvCase& c = GetParam();
    QTemporaryDir dir;
    const QString path = dir.filePath("bills.csv");
    sheets::WriteCsv(path, Sheet{"", {c.row, {Cell::ofText("end")}}, {}}, QLatin1Char(c.separator));
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_EQ(f.readAll(), QByteArray("\xEF\xBB\xBF") + c.line + "\r\nend\r\n");
}

INSTANTIATE_TEST_SUITE_P(Fields, CsvFields, ::testing::ValuesIn(kCsv), CaseName());

// A write that fails: the error names the file, the old file is left as it was, nothing else is left.
enum class Fault { ReadOnlyFolder, FullDisk, SizeLimit };
struct FaultCase {
    const char* name;
    const char* file;
    Fault fault;
    int number;
    const char* words;
};

void writeAny(const QString& path, const std::vector<Sheet>& sheets) {
    if (path.endsWith(".xlsx")) sheets::WriteXlsx(path, sheets);
    else if (path.endsWith(".ods")) sheets::WriteOds(path, sheets);
    else sheets::WriteCsv(path, sheets.front());
}

// Enough distinct text that no format squeezes it under the small disk's room.
std::vector<Sheet> bigSheet() {
    Sheet s{"Bills", {}, {}};
    for (int r = 0; r < 20000; ++r)
        s.rows.push_back({Cell::ofText(QStringLiteral("party %1 of %2").arg(r * 7919 % 100003).arg(r)),
                          Cell::ofNumber(r * 1.37, "#,##0.00"), Cell::ofDate(QDate(2026, 3, 1 + r % 31))});
    return {s};
}

void dropToNobody() {
    if (::geteuid() != 0) return;   // a plain user is kept out by the folder's mode alone
    if (::setgroups(0, nullptr) != 0 || ::setresgid(65534, 65534, 65534) != 0 || ::setresuid(65534, 65534, 65534) != 0)
        ::_exit(3);
}

// A tmpfs of 1 MB holding the old file, filled to the brim, in a mount namespace of the child's own.
// Where mounting is not allowed, a file size limit stands for the full disk, and a file "limited" in
// the folder tells the test so: XLSX then learns only that its write failed, not why.
void smallFullDisk(const QString& folder, const QString& old, bool mount = true) {
    const QByteArray path = QFile::encodeName(folder);
    if (mount && ::unshare(CLONE_NEWNS) == 0 && ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
        ::mount("vorlan-sheets", path.constData(), "tmpfs", 0, "size=1m") == 0) {
        QFile file(old);
        if (file.open(QIODevice::WriteOnly)) file.write("old contents\n");
        file.close();
        const int fd = ::open((path + "/filler").constData(), O_CREAT | O_WRONLY, 0600);
        const std::string block(4096, 'x');
        while (::write(fd, block.data(), block.size()) > 0) {}
        ::close(fd);
        return;
    }
    QFile(folder + "/limited").open(QIODevice::WriteOnly);
    ::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{8 * 1024, 8 * 1024};   // well below the smallest of the three files
    ::setrlimit(RLIMIT_FSIZE, &limit);
}

class WriteFaults : public ::testing::TestWithParam<FaultCase> {};

TEST_P(WriteFaults, NameTheFileAndLeaveNothingBehind) {
    const FaultCase& c = GetParam();
    QTemporaryDir dir;
    const QString folder = dir.filePath("out");
    QDir().mkpath(folder);
    ::chmod(QFile::encodeName(dir.path()).constData(), 0755);
    const QString path = folder + "/" + c.file;
    // The file that is there before the write (on the small disk, the child makes it).
    QFile old(path);
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    old.write("old contents\n");
    old.close();
    if (c.fault == Fault::ReadOnlyFolder) ::chmod(QFile::encodeName(folder).constData(), ::geteuid() == 0 ? 0755 : 0555);
    const std::vector<Sheet> sheets = bigSheet();
    const ChildReport r = runInChild(
        [&] { c.fault == Fault::ReadOnlyFolder ? dropToNobody() : smallFullDisk(folder, path, c.fault == Fault::FullDisk); },
        [&] { writeAny(path, sheets); }, path);
    ::chmod(QFile::encodeName(folder).constData(), 0755);
    const bool limited = QFile::exists(folder + "/limited");
    EXPECT_TRUE(r.description.contains(path)) << r.description.toStdString();
    if (!(limited && c.fault == Fault::FullDisk && r.number == 75 && r.description.endsWith("the write failed."))) {
        EXPECT_EQ(r.number, c.number) << r.description.toStdString();
        EXPECT_TRUE(r.description.contains(c.words)) << r.description.toStdString();
    }
    for (const QString& name : r.left)
        EXPECT_TRUE(name == c.file || name == "filler" || name == "limited") << "left behind: " << name.toStdString();
    EXPECT_EQ(r.target, "old contents\n");
}

const FaultCase kFaults[] = {
    {"XlsxReadOnlyFolder", "bills.xlsx", Fault::ReadOnlyFolder, 70, "may not be written"},
    {"OdsReadOnlyFolder", "bills.ods", Fault::ReadOnlyFolder, 70, "may not be written"},
    {"CsvReadOnlyFolder", "bills.csv", Fault::ReadOnlyFolder, 70, "may not be written"},
    {"XlsxFullDisk", "bills.xlsx", Fault::FullDisk, 61, "the disk is full"},
    {"OdsFullDisk", "bills.ods", Fault::FullDisk, 61, "the disk is full"},
    {"CsvFullDisk", "bills.csv", Fault::FullDisk, 61, "the disk is full"},
    // The XLSX library ignores failed writes of its scratch files: the check of the finished file finds them.
    {"XlsxSizeLimit", "bills.xlsx", Fault::SizeLimit, 75, "the write failed"},
    {"OdsSizeLimit", "bills.ods", Fault::SizeLimit, 61, "the disk is full"},
    {"CsvSizeLimit", "bills.csv", Fault::SizeLimit, 61, "the disk is full"},
};

INSTANTIATE_TEST_SUITE_P(Faults, WriteFaults, ::testing::ValuesIn(kFaults), CaseName());

// Workbooks no format can hold are refused before a byte is written.
struct RefusedCase {
    const char* name;
    std::vector<Sheet> sheets;
    const char* words;
};

class RefusedWorkbooks : public ::testing::TestWithParam<RefusedCase> {};

TEST_P(RefusedWorkbooks, RefusedWithAReasonAndNoFile) {
    const RefusedCase& c = GetParam();
    QTemporaryDir dir;
    for (const char* file : {"out.xlsx", "out.ods"}) {
        const QString path = dir.filePath(file);
        const basic::RuntimeError e = basic::resume([&] { writeAny(path, c.sheets); });
        EXPECT_EQ(e.number(), 75) << file;
        EXPECT_TRUE(e.description().contains(path) && e.description().contains(c.words)) << e.description().toStdString();
        EXPECT_TRUE(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden).isEmpty()) << file;
    }
}

const RefusedCase kRefused[] = {
    {"NoSheet", {}, "no sheet"},
    {"SlashInName", {Sheet{"03/2026", {}, {}}}, "holds /"},
    {"NameTooLong", {Sheet{QString(32, 'a'), {}, {}}}, "1 to 31 characters"},
    {"SameNameTwice", {Sheet{"Sales", {}, {}}, Sheet{"SALES", {}, {}}}, "two sheets are named"},
    {"NotANumber", {Sheet{"S", {{Cell(), Cell::ofNumber(std::nan(""))}}, {}}}, "cell B1"},
    {"TextTooLong", {Sheet{"S", {{}, {Cell::ofText(QString(40000, 'x'))}}, {}}}, "cell A2"},
};

INSTANTIATE_TEST_SUITE_P(Refused, RefusedWorkbooks, ::testing::ValuesIn(kRefused), CaseName());

}  // namespace
