// The built libraries hold index entries whose hyphen cuts lead to real documents, and documents as
// the bytes of their files.
#include "library_files.h"

#include <QFile>

#include <gtest/gtest.h>
#include <map>

using namespace libtest;

namespace {

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

TEST(Rows, DocumentsKeepTheBytesOfTheirFiles)
{
    const auto rows = query(sampleLibrary(), kFile1, "SELECT fname FROM Kerala WHERE name = '1'");
    QFile file(kSource + "/documents/act-section-1.rtf");
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_EQ(rows[0][0].toByteArray(), file.readAll());
}

}  // namespace
