// The text index the builder writes into the first library file: an entry for each row with a document,
// with the key that shows it, its kind and its date; and which rows the words of a document find.
#include "library_files.h"
#include "support/case_name.h"

#include <QPainter>
#include <QPdfWriter>

using namespace libtest;

namespace {

// An entry for each row with a document: its title, kind and date as the list shows them.
struct EntryCase { const char* name; QString key, title, kind, date; };

const EntryCase kEntries[] = {
    {"CircularWithDate", "Kerala:300", "Circular 18/2009 — Input tax credit on capital goods used partly for exempted sales",
     "Circular", "2009-07-14"},
    {"SecondCircular", "Kerala:301", "Circular 7/2010 — Stock transfer of goods to branches outside the State", "Circular",
     "2010-03-02"},
    {"MalayalamCircular", "Kerala:303", "സർക്കുലർ 5/2012 — ചെറുകിട വ്യാപാരികളുടെ രജിസ്ട്രേഷൻ", "Circular", "2012-02-10"},
    {"MalayalamNotification", "Kerala:306", "എസ്.ആർ.ഒ 75/2013 — കൈത്തറി തുണിത്തരങ്ങൾക്ക് നികുതി ഇളവ്", "Notification", "2013-01-15"},
    {"Rules", "Kerala:43", "THE KERALA TAX ON LUXURIES RULES 1976", "Rules", ""},
    {"Notifications", "Kerala:46", "KERALA LUXURY TAX NOTIFICATIONS", "Notification", ""},
    {"Forms", "Kerala:103", "LUXURY Forms", "Form", ""},
    {"Form", "Kerala:31", "FORM 1 — Application for registration", "Form", ""},
    {"Schedule", "Allshedule:3", "Third Schedule - Goods taxed at 4 per cent", "Schedule", ""},
    {"Practice", "CAPractice:2", "Audit programme for dealers", "Form", ""},
    // A row whose file another row names too has its own entry; the stand-by page has none.
    {"FileNamedTwice", "Kerala:104", "FORMI", "Form", ""},
    {"StandByPageHasNone", "Globalvat:1", "", "", ""},
};

class TextIndex : public ::testing::TestWithParam<EntryCase> {};

TEST_P(TextIndex, HoldsEachRowWithItsKindAndDate)
{
    const EntryCase& c = GetParam();
    EXPECT_EQ(query(sampleLibrary(), kFile1, "SELECT title, kind, date FROM LibraryText WHERE key = '" + c.key + "'").join(';'),
              c.title.isEmpty() ? QString() : c.title + '|' + c.kind + '|' + c.date);
}

INSTANTIATE_TEST_SUITE_P(Rows, TextIndex, ::testing::ValuesIn(kEntries), CaseName());

TEST(TextIndexWords, FindTheirDocument)
{
    EXPECT_EQ(query(sampleLibrary(), kFile1, "SELECT key FROM LibraryText WHERE LibraryText MATCH 'boiler'"), QStringList{"Kerala:300"});
}

// The sample library and a few rows more, built once.
class TextIndexFinds : public ::testing::TestWithParam<std::pair<const char*, QStringList>> {
protected:
    static void SetUpTestSuite()
    {
        work = new QTemporaryDir;
        const QString source = work->filePath("library");
        copyTree(kSource, source);
        QFile kerala(source + "/Kerala.tsv");
        ASSERT_TRUE(kerala.open(QIODevice::Append));
        kerala.write("400\tSRO 9/2014\tLatex\tNotification\t0\tsro-9-2014.pdf\n"
                     "401\tCircular 9/2014\tMetals\tCircular\t0\tmetals.rtf\n"
                     "402\tCircular 10/2014\tFirst copy\tCircular\t0\ttwin.txt\n"
                     "403\tCircular 11/2014\tSecond copy\tCircular\t0\ttwin-copy.txt\n");
        kerala.close();
        QPdfWriter writer(source + "/documents/sro-9-2014.pdf");
        QPainter painter(&writer);
        painter.drawText(200, 400, "Centrifuged latex bears tax at five per cent.");
        painter.end();
        const std::pair<const char*, QByteArray> files[] = {
            {"metals.rtf", "{\\rtf1\\ansi A tel\\-lurian ore is taxed as a metal.\\par}"},
            {"twin.txt", "Twinned circulars carry the same words."},
            {"twin-copy.txt", "Twinned circulars carry the same words."}};
        for (const auto& [name, bytes] : files) {
            QFile file(source + "/documents/" + name);
            ASSERT_TRUE(file.open(QIODevice::WriteOnly));
            file.write(bytes);
        }
        ASSERT_EQ(build({"--source", source, "--out", work->filePath("out")}), 0);
    }
    static void TearDownTestSuite() { delete work; }
    static QTemporaryDir* work;
};
QTemporaryDir* TextIndexFinds::work = nullptr;

TEST_P(TextIndexFinds, EveryRowByTheWordsItsReaderSees)
{
    const auto& [words, keys] = GetParam();
    EXPECT_EQ(query(work->filePath("out"), kFile1,
                    QString("SELECT key FROM LibraryText WHERE LibraryText MATCH '%1' ORDER BY key").arg(words)),
              keys);
}

INSTANTIATE_TEST_SUITE_P(
    Words, TextIndexFinds,
    ::testing::Values(std::pair{"centrifuged latex", QStringList{"Kerala:400"}},   // a PDF's text layer
                      std::pair{"tellurian", QStringList{"Kerala:401"}},           // at an optional hyphen
                      std::pair{"twinned", QStringList{"Kerala:402", "Kerala:403"}}),  // the same bytes twice
    [](const auto& info) { return std::to_string(info.index); });

}  // namespace
