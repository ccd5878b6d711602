// The sample library holds what every road of the program needs: the rows asked for by name,
// exactly spelled, and index entries whose hyphen cuts lead to real documents.
#include "library_files.h"

#include <QDir>
#include <QSet>

#include <gtest/gtest.h>

using namespace libtest;

namespace {

struct NamedRow {
    QString table;
    QString name;
    QVariant type;  // invalid: Null
    bool present = true;
    bool document = true;
};

std::vector<NamedRow> namedRows()
{
    std::vector<NamedRow> rows = {
        {"Kerala", "THE KERALA GENERAL SALES TAX ACT", "Act"},
        {"Kerala", "Section index KGST", "Act"},
        {"Kerala", "1stDiscussion PaperGST", "Act"},
        {"Kerala", "Report On GST Of Task Force", "Act"},
        {"Kerala", "KERALA GENERAL SALES TAX RULES", "Rules"},
        {"Kerala", "THE KERALA TAX ON LUXURIES ACTS 1976", "Allied"},
        {"Kerala", "THE KERALA MONEY-LENDERS ACT 1958 ", "Allied"},
        {"Kerala", "THE KERALA AGRICULTURAL INCOME TAX ACT", "Allied"},
        {"Kerala", "THE KERALA TAX ON LUXURIES RULES 1976", "Allied"},
        {"Kerala", "THE KERALA AGRICULTURAL INCOME TAX RULES", "Allied"},
        {"Kerala", "MANGALYA NIDHI CESS RULES", "Allied"},
        {"Kerala", "KERALA LUXURY TAX NOTIFICATIONS", "Allied"},
        // No allied list may show the placeholder, so it has no type and no document.
        {"Kerala", "xxxx Currently No items", QVariant(), true, false},
        {"Kerala", "FORM10-AUTOCOMPUTATION", "Forms"},
        {"Globalvat", "default", "default"},
        // Blanks count: near misses of the stored names must find nothing.
        {"Kerala", "THE KERALA MONEY-LENDERS ACT 1958", {}, false},
        {"Kerala", "Mangalya FORM I", {}, false},
        {"Kerala", "KMLFORM - A", {}, false},
    };
    // The allied forms list of the program, in its order; one name is left out of the data.
    const char* const forms[] = {
        "AGRICULTURAL INCOME TAX Forms", "AIT FORM 1", "AIT FORM 2", "LUXURY Forms", "FORMI", "FORMIAAA",
        "FORMIB", "FORMII", "FORMIIA", "FORMIIAA", "FORMIIB", "FORMIIC", "FORMIII", "FORMIIIA", "FORMIIIB",
        "FORMIIIC", "FORMIV", "FORMIVA", "FORMV", "FORMVI", "FORMVII", "FORMVIII", "FORMIX", "Mangalya  FORM I",
        "Mangalya  FORM II", "Mangalya FORM III", "KML Forms", "KMLFORM- A", "KMLFORM -AA", "KMLFORM -AAA",
        "KMLFORM- AAAA", "KMLFORM- B", "KMLFORM -C", "KMLFORM -D", "KMLFORM- E", "KMLFORM -F", "KMLFORM -G",
        "KMLFORM -H", "KMLFORM -I", "KMLFORM -J", "KMLFORM -K", "KMLFORM -L", "KMLFORM- M", "KMLFORM- N",
        "KMLFORM -O", "KMLFORM- P", "KMLFORM- Q", "KMLFORM -R", "KMLFORM -RA", "KMLFORM -RB", "KMLFORM -RC",
        "KMLFORM -S", "KMLFORM -T", "KMLFORM- U", "TRIBUNAL Forms", "Tri-FORM A", "Tri-FORM B", "Tri-FORM C",
        "Tri-FORM D", "Tri-FORM E", "Tri-FORM F", "Tri-FORM G", "Tri-FORM H"};
    for (const char* form : forms)
        rows.push_back({"Kerala", form, "Allied", QString(form) != "KMLFORM -RB"});
    return rows;
}

void PrintTo(const NamedRow& r, std::ostream* os) { *os << '"' << r.name.toStdString() << '"'; }

class NamedRows : public ::testing::TestWithParam<NamedRow> {};

TEST_P(NamedRows, AreStoredExactlyAsTheProgramAsks)
{
    const NamedRow& r = GetParam();
    const QString path = QDir(sampleLibrary()).filePath(kFile1.file);
    const auto rows = query(path, kFile1.password,
                            "SELECT type, fname IS NOT NULL FROM " + r.table + " WHERE name = ?", {r.name});
    ASSERT_EQ(rows.size(), r.present ? 1u : 0u);
    if (!r.present)
        return;
    EXPECT_EQ(rows[0][0], r.type);
    EXPECT_EQ(rows[0][1].toInt(), r.document ? 1 : 0);
    // The program's queries write names in other cases; the columns must not care.
    EXPECT_EQ(query(path, kFile1.password, "SELECT count(*) FROM " + r.table + " WHERE name = ?",
                    {r.name.toLower()})[0][0].toInt(), 1);
}

INSTANTIATE_TEST_SUITE_P(Sample, NamedRows, ::testing::ValuesIn(namedRows()));

// An index column, the tables its names lead to, and the entries that on purpose lead nowhere.
struct IndexColumn {
    QString library;  // "sample" or "synthetic"
    QString column;
    QStringList unresolved;
};

// The act list cuts at the last hyphen and looks the label up as an act section; every other
// index cuts at the first hyphen and looks up the name behind it.
QString documentName(const QString& column, const QString& value)
{
    if (column == "ActSection") {
        const qsizetype first = value.indexOf('-');
        return first > 0 ? value.left(value.lastIndexOf('-')) : value;
    }
    const qsizetype first = value.indexOf('-');
    return first >= 0 && first + 1 < value.size() ? value.mid(first + 1) : QString();
}

void PrintTo(const IndexColumn& c, std::ostream* os) { *os << (c.library + ' ' + c.column).toStdString(); }

class IndexEntries : public ::testing::TestWithParam<IndexColumn> {};

TEST_P(IndexEntries, LeadToStoredDocuments)
{
    const IndexColumn& c = GetParam();
    const QDir dir(c.library == "sample" ? sampleLibrary() : syntheticLibrary());
    const QString file1 = dir.filePath(kFile1.file), file2 = dir.filePath(kFile2.file);
    const bool judgment = c.column.contains("Judgment") || c.column.contains("Judjment");
    const bool act = c.column == "ActSection";

    int entries = 0;
    QStringList unresolved;
    for (const QVariantList& row : query(file1, kFile1.password, "SELECT " + c.column + " FROM Keralafields")) {
        const QString value = row[0].toString();
        // The act list skips Null and the empty text; the grids skip anything shorter than two.
        if (row[0].isNull() || value.isEmpty() || (!act && value.trimmed().size() < 2))
            continue;
        ++entries;
        const QString name = documentName(c.column, value);
        int found = 0;
        if (judgment) {
            found = query(file1, kFile1.password, "SELECT count(*) FROM Globalvat WHERE name = ?", {name})[0][0].toInt() +
                    query(file2, kFile2.password, "SELECT count(*) FROM Globalvatse WHERE name = ?", {name})[0][0].toInt();
        } else {
            found = query(file1, kFile1.password,
                          act ? "SELECT count(*) FROM Kerala WHERE name = ? AND type = 'Act'"
                              : "SELECT count(*) FROM Kerala WHERE name = ?",
                          {name})[0][0].toInt();
        }
        if (found != 1)
            unresolved << value;
    }
    EXPECT_GE(entries, 3);
    EXPECT_EQ(unresolved, c.unresolved);
}

std::vector<IndexColumn> indexColumns()
{
    const QStringList columns = {"ActSection", "VatJudgmentSection", "VatJudgmentCitation", "VatJudgmentSubject",
                                 "RJudjmentSection", "RJudgmentCitation", "RJudgmentSubject", "CircularNumber",
                                 "CircularSection", "CircularSubject", "NotificationNumber", "NotifcaionSection",
                                 "NotificationSubject"};
    const std::map<QString, QStringList> deliberate = {
        {"ActSection", {"-Levy of tax", "7"}},
        {"VatJudgmentSection", {"Sec 11"}},
        {"VatJudgmentCitation", {"[2008] 1 KTR 9-"}},
        {"RJudjmentSection", {"Sec 7-Unreported order"}},
        {"CircularNumber", {"Circular 12/2006", "14/2008-"}},
        {"NotifcaionSection", {"Sec 6"}},
    };
    std::vector<IndexColumn> cases;
    for (const QString& column : columns) {
        const auto it = deliberate.find(column);
        cases.push_back({"sample", column, it == deliberate.end() ? QStringList() : it->second});
        cases.push_back({"synthetic", column, {}});
    }
    return cases;
}

INSTANTIATE_TEST_SUITE_P(Libraries, IndexEntries, ::testing::ValuesIn(indexColumns()),
                         [](const auto& info) { return (info.param.library + '_' + info.param.column).toStdString(); });

// Rows the lists of the program must show or leave out, one query each.
struct Coverage {
    LibraryFileName file;
    QString what;
    QString sql;  // counts rows; the sample must hold at least one
};

void PrintTo(const Coverage& c, std::ostream* os) { *os << c.what.toStdString(); }

class SampleCoverage : public ::testing::TestWithParam<Coverage> {};

TEST_P(SampleCoverage, HoldsTheCase)
{
    const Coverage& c = GetParam();
    EXPECT_GE(query(QDir(sampleLibrary()).filePath(c.file.file), c.file.password, c.sql)[0][0].toInt(), 1) << c.what.toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Sample, SampleCoverage,
    ::testing::Values(
        Coverage{kFile1, "act section listed", "SELECT count(*) FROM Kerala WHERE type = 'Act' AND ChapterNo > 0 AND name <> 'THE KERALA GENERAL SALES TAX ACT'"},
        Coverage{kFile1, "act section kept out", "SELECT count(*) FROM Kerala WHERE type = 'Act' AND ChapterNo = 0"},
        Coverage{kFile1, "listed act section without description", "SELECT count(*) FROM Kerala WHERE type = 'Act' AND ChapterNo > 0 AND SecDesc IS NULL"},
        Coverage{kFile1, "rule listed", "SELECT count(*) FROM Kerala WHERE type = 'Rules' AND ChapterNo > 0"},
        Coverage{kFile1, "rule kept out", "SELECT count(*) FROM Kerala WHERE type = 'Rules' AND ChapterNo = 0"},
        Coverage{kFile1, "forms", "SELECT count(*) FROM Kerala WHERE type = 'Forms' AND fname IS NOT NULL"},
        Coverage{kFile1, "act list label with a hyphen", "SELECT count(*) FROM Keralafields WHERE ActSection LIKE '_%-%-%'"},
        Coverage{kFile1, "document name with an apostrophe", "SELECT count(*) FROM Kerala WHERE name LIKE '%''%'"},
        Coverage{kFile1, "judgment with an apostrophe", "SELECT count(*) FROM Globalvat WHERE name LIKE '%''%'"},
        Coverage{kFile2, "judgment row without document", "SELECT count(*) FROM Globalvatse WHERE fname IS NULL"},
        Coverage{kFile2, "judgment with a hyphen", "SELECT count(*) FROM Globalvatse WHERE name LIKE '%-%' AND fname IS NOT NULL"},
        Coverage{kFile3, "Kerala schedule", "SELECT count(*) FROM Allshedule WHERE Stid = 'k'"},
        Coverage{kFile3, "schedule of another state", "SELECT count(*) FROM Allshedule WHERE Stid <> 'k'"},
        Coverage{kFile3, "item without type", "SELECT count(*) FROM CAPractice WHERE Type IS NULL AND length(name) > 1"},
        Coverage{kFile3, "item with a one-letter name", "SELECT count(*) FROM CAPractice WHERE length(trim(name)) <= 1"},
        Coverage{kFile3, "weight order differs from name order",
                 "SELECT count(*) FROM CAPractice a JOIN CAPractice b ON a.Weight < b.Weight AND a.name > b.name"}));

TEST(Documents, KeepTheBytesOfTheirFiles)
{
    const auto rows = query(QDir(sampleLibrary()).filePath(kFile1.file), kFile1.password,
                            "SELECT fname FROM Kerala WHERE name = '1'");
    QFile file(kSource + "/documents/act-section-1.rtf");
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_EQ(rows[0][0].toByteArray(), file.readAll());
}

}  // namespace
