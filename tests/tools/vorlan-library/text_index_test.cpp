// The text index the builder writes into the first library file: one entry for each distinct document,
// with the key that shows it, its kind and its date; and the words of a PDF's text layer.
#include "library_files.h"

#include <QPainter>
#include <QPdfWriter>

using namespace libtest;

namespace {

TEST(TextIndex, HoldsEachDocumentOnceWithItsKindAndDate)
{
    const struct { QString key, title, kind, date; } cases[] = {
        {"Kerala:300", "Circular 18/2009 — Input tax credit on capital goods used partly for exempted sales",
         "Circular", "2009-07-14"},
        {"Kerala:301", "Circular 7/2010 — Stock transfer of goods to branches outside the State", "Circular",
         "2010-03-02"},
        {"Kerala:303", "സർക്കുലർ 5/2012 — ചെറുകിട വ്യാപാരികളുടെ രജിസ്ട്രേഷൻ", "Circular", "2012-02-10"},
        {"Kerala:306", "എസ്.ആർ.ഒ 75/2013 — കൈത്തറി തുണിത്തരങ്ങൾക്ക് നികുതി ഇളവ്", "Notification", "2013-01-15"},
        {"Kerala:43", "THE KERALA TAX ON LUXURIES RULES 1976", "Rules", ""},
        {"Kerala:46", "KERALA LUXURY TAX NOTIFICATIONS", "Notification", ""},
        {"Kerala:103", "LUXURY Forms", "Form", ""},
        {"Kerala:31", "FORM 1 — Application for registration", "Form", ""},
        {"Allshedule:3", "Third Schedule - Goods taxed at 4 per cent", "Schedule", ""},
        {"CAPractice:2", "Audit programme for dealers", "Form", ""},
        // The rows that share a document, and the stand-by page, have no entry of their own.
        {"Kerala:104", "", "", ""},
        {"Globalvat:1", "", "", ""},
    };
    const QString dir = sampleLibrary();
    for (const auto& c : cases)
        EXPECT_EQ(query(dir, kFile1, "SELECT title, kind, date FROM LibraryText WHERE key = '" + c.key + "'").join(';'),
                  c.title.isEmpty() ? QString() : c.title + '|' + c.kind + '|' + c.date) << c.key.toStdString();
    EXPECT_EQ(query(dir, kFile1, "SELECT key FROM LibraryText WHERE LibraryText MATCH 'boiler'"), QStringList{"Kerala:300"});
}

TEST(TextIndex, ReadsTheTextLayerOfAPdf)
{
    QTemporaryDir work;
    const QString source = work.filePath("library");
    copyTree(kSource, source);
    QFile kerala(source + "/Kerala.tsv");
    ASSERT_TRUE(kerala.open(QIODevice::Append));
    kerala.write("400\tSRO 9/2014\tLatex\tNotification\t0\tsro-9-2014.pdf\n");
    kerala.close();
    QPdfWriter writer(source + "/documents/sro-9-2014.pdf");
    QPainter painter(&writer);
    painter.drawText(200, 400, "Centrifuged latex bears tax at five per cent.");
    painter.end();

    ASSERT_EQ(build({"--source", source, "--out", work.filePath("out")}), 0);
    EXPECT_EQ(query(work.filePath("out"), kFile1, "SELECT key, kind FROM LibraryText WHERE LibraryText MATCH 'centrifuged latex'"),
              QStringList{"Kerala:400|Notification"});
}

}  // namespace
