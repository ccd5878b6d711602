// The sample library holds what every road of the program needs: the rows asked for by name,
// exactly spelled, and index entries whose hyphen cuts lead to real documents.
#include "library_files.h"

#include <QFile>

#include <gtest/gtest.h>
#include <map>

using namespace libtest;

namespace {

TEST(Rows, NamedRowsAreStoredExactlyAsTheProgramAsks)
{
    struct Row { QString name; QVariant type; bool present = true, document = true; };  // type invalid: Null
    std::vector<Row> rows = {
        {"THE KERALA GENERAL SALES TAX ACT", "Act"}, {"Section index KGST", "Act"}, {"1stDiscussion PaperGST", "Act"},
        {"Report On GST Of Task Force", "Act"}, {"KERALA GENERAL SALES TAX RULES", "Rules"},
        {"THE KERALA TAX ON LUXURIES ACTS 1976", "Allied"}, {"THE KERALA MONEY-LENDERS ACT 1958 ", "Allied"},
        {"THE KERALA AGRICULTURAL INCOME TAX ACT", "Allied"}, {"THE KERALA TAX ON LUXURIES RULES 1976", "Allied"},
        {"THE KERALA AGRICULTURAL INCOME TAX RULES", "Allied"}, {"MANGALYA NIDHI CESS RULES", "Allied"},
        {"KERALA LUXURY TAX NOTIFICATIONS", "Allied"}, {"FORM10-AUTOCOMPUTATION", "Forms"},
        // No allied list may show the placeholder, so it has no type and no document.
        {"xxxx Currently No items", QVariant(), true, false},
        // Blanks count: near misses of the stored names must find nothing.
        {"THE KERALA MONEY-LENDERS ACT 1958", {}, false}, {"Mangalya FORM I", {}, false}, {"KMLFORM - A", {}, false},
    };
    // The allied forms list of the program, in its order; one name is left out of the data.
    for (const char* form : {
             "AGRICULTURAL INCOME TAX Forms", "AIT FORM 1", "AIT FORM 2", "LUXURY Forms", "FORMI", "FORMIAAA", "FORMIB",
             "FORMII", "FORMIIA", "FORMIIAA", "FORMIIB", "FORMIIC", "FORMIII", "FORMIIIA", "FORMIIIB", "FORMIIIC",
             "FORMIV", "FORMIVA", "FORMV", "FORMVI", "FORMVII", "FORMVIII", "FORMIX", "Mangalya  FORM I",
             "Mangalya  FORM II", "Mangalya FORM III", "KML Forms", "KMLFORM- A", "KMLFORM -AA", "KMLFORM -AAA",
             "KMLFORM- AAAA", "KMLFORM- B", "KMLFORM -C", "KMLFORM -D", "KMLFORM- E", "KMLFORM -F", "KMLFORM -G",
             "KMLFORM -H", "KMLFORM -I", "KMLFORM -J", "KMLFORM -K", "KMLFORM -L", "KMLFORM- M", "KMLFORM- N",
             "KMLFORM -O", "KMLFORM- P", "KMLFORM- Q", "KMLFORM -R", "KMLFORM -RA", "KMLFORM -RB", "KMLFORM -RC",
             "KMLFORM -S", "KMLFORM -T", "KMLFORM- U", "TRIBUNAL Forms", "Tri-FORM A", "Tri-FORM B", "Tri-FORM C",
             "Tri-FORM D", "Tri-FORM E", "Tri-FORM F", "Tri-FORM G", "Tri-FORM H"})
        rows.push_back({form, "Allied", QString(form) != "KMLFORM -RB"});
    rows.push_back({"default", "default"});  // the one Globalvat row asked for by name
    for (const Row& r : rows) {
        const QString table = r.name == "default" ? "Globalvat" : "Kerala";
        const auto found = query(sampleLibrary(), kFile1, "SELECT type, fname IS NOT NULL FROM " + table + " WHERE name = ?", {r.name});
        ASSERT_EQ(found.size(), r.present ? 1u : 0u) << '"' << r.name.toStdString() << '"';
        if (!r.present)
            continue;
        EXPECT_EQ(found[0][0], r.type) << r.name.toStdString();
        EXPECT_EQ(found[0][1].toInt(), r.document ? 1 : 0) << r.name.toStdString();
        // The program's queries write names in other cases; the columns must not care.
        EXPECT_EQ(count(sampleLibrary(), kFile1, "SELECT count(*) FROM " + table + " WHERE name = ?", {r.name.toLower()}), 1);
    }
}

// The act list cuts at the last hyphen and looks the label up as an act section; every other
// index cuts at the first hyphen and looks up the name behind it, judgments in both judgment tables.
TEST(Rows, IndexEntriesLeadToStoredDocuments)
{
    const std::map<QString, QStringList> deliberate = {  // entries of the sample that on purpose lead nowhere
        {"ActSection", {"-Levy of tax", "7"}}, {"VatJudgmentSection", {"Sec 11"}},
        {"VatJudgmentCitation", {"[2008] 1 KTR 9-"}}, {"RJudjmentSection", {"Sec 7-Unreported order"}},
        {"CircularNumber", {"Circular 12/2006", "14/2008-"}}, {"NotifcaionSection", {"Sec 6"}}};
    for (const QString& dir : {sampleLibrary(), syntheticLibrary()}) {
        for (const QString column : {"ActSection", "VatJudgmentSection", "VatJudgmentCitation", "VatJudgmentSubject",
                                     "RJudjmentSection", "RJudgmentCitation", "RJudgmentSubject", "CircularNumber",
                                     "CircularSection", "CircularSubject", "NotificationNumber", "NotifcaionSection",
                                     "NotificationSubject"}) {
            const bool act = column == "ActSection", judgment = column.contains("Judgment") || column.contains("Judjment");
            int entries = 0;
            QStringList unresolved;
            for (const QVariantList& row : query(dir, kFile1, "SELECT " + column + " FROM Keralafields")) {
                const QString value = row[0].toString();
                // The act list skips Null and the empty text; the grids skip anything shorter than two.
                if (value.isEmpty() || (!act && value.trimmed().size() < 2))
                    continue;
                ++entries;
                const qsizetype first = value.indexOf('-');
                const QString name = act ? (first > 0 ? value.left(value.lastIndexOf('-')) : value)
                                         : (first >= 0 && first + 1 < value.size() ? value.mid(first + 1) : QString());
                const int found =
                    judgment ? count(dir, kFile1, "SELECT count(*) FROM Globalvat WHERE name = ?", {name}) +
                                   count(dir, kFile2, "SELECT count(*) FROM Globalvatse WHERE name = ?", {name})
                             : count(dir, kFile1, act ? "SELECT count(*) FROM Kerala WHERE name = ? AND type = 'Act'"
                                                      : "SELECT count(*) FROM Kerala WHERE name = ?", {name});
                if (found != 1)
                    unresolved << value;
            }
            EXPECT_GE(entries, 3) << column.toStdString();
            const auto it = deliberate.find(column);
            EXPECT_EQ(unresolved, dir == sampleLibrary() && it != deliberate.end() ? it->second : QStringList())
                << column.toStdString();
        }
    }
}

// Rows the lists of the program must show or leave out: the sample holds at least one of each.
TEST(Rows, SampleHoldsEveryCaseOfTheLists)
{
    const std::pair<LibraryFileName, const char*> cases[] = {
        {kFile1, "Kerala WHERE type = 'Act' AND ChapterNo > 0 AND name <> 'THE KERALA GENERAL SALES TAX ACT'"},
        {kFile1, "Kerala WHERE type = 'Act' AND ChapterNo = 0"},
        {kFile1, "Kerala WHERE type = 'Act' AND ChapterNo > 0 AND SecDesc IS NULL"},
        {kFile1, "Kerala WHERE type = 'Rules' AND ChapterNo > 0"},
        {kFile1, "Kerala WHERE type = 'Rules' AND ChapterNo = 0"},
        {kFile1, "Kerala WHERE type = 'Forms' AND fname IS NOT NULL"},
        {kFile1, "Keralafields WHERE ActSection LIKE '_%-%-%'"},
        {kFile1, "Kerala WHERE name LIKE '%''%'"},
        {kFile1, "Globalvat WHERE name LIKE '%''%'"},
        {kFile2, "Globalvatse WHERE fname IS NULL"},
        {kFile2, "Globalvatse WHERE name LIKE '%-%' AND fname IS NOT NULL"},
        {kFile3, "Allshedule WHERE Stid = 'k'"},
        {kFile3, "Allshedule WHERE Stid <> 'k'"},
        {kFile3, "CAPractice WHERE Type IS NULL AND length(name) > 1"},
        {kFile3, "CAPractice WHERE length(trim(name)) <= 1"},
        {kFile3, "CAPractice a JOIN CAPractice b ON a.Weight < b.Weight AND a.name > b.name"},  // weight order is not name order
    };
    for (const auto& [file, from] : cases)
        EXPECT_GE(count(sampleLibrary(), file, QString("SELECT count(*) FROM ") + from), 1) << from;
}

TEST(Rows, DocumentsKeepTheBytesOfTheirFiles)
{
    const auto rows = query(sampleLibrary(), kFile1, "SELECT fname FROM Kerala WHERE name = '1'");
    QFile file(kSource + "/documents/act-section-1.rtf");
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_EQ(rows[0][0].toByteArray(), file.readAll());
}

}  // namespace
