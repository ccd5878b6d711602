// A bad source stops the builder with the file and line, and leaves the output folder as it was:
// no half library, and an earlier good one untouched.
#include "library_files.h"
#include "support/case_name.h"

#include <QCryptographicHash>

using namespace libtest;

namespace {

// Each file of the folder with a digest of its bytes.
QStringList contents(const QString& dir)
{
    QStringList list;
    for (const QFileInfo& info : QDir(dir).entryInfoList(QDir::Files | QDir::Hidden, QDir::Name)) {
        QFile file(info.filePath());
        file.open(QIODevice::ReadOnly);
        list << info.fileName() + ' ' + QCryptographicHash::hash(file.readAll(), QCryptographicHash::Sha1).toHex();
    }
    return list;
}

// One line of a source file changed for the worse, and what the builder says of it.
struct BadCase { const char* name; QString file, find, replace, problem; };

const BadCase kBad[] = {
    {"MissingDocument", "Kerala.tsv", "act-section-6.rtf", "act-section-6b.rtf", "document 'act-section-6b.rtf' not found"},
    {"FieldTooMany", "Globalvatse.tsv", "cashew-board.rtf", "cashew-board.rtf\textra", "4 fields where the header names 3 columns"},
    {"FieldTooFew", "Allshedule.tsv", "\tk\tschedule-third.rtf", "\tschedule-third.rtf", "3 fields where the header names 4 columns"},
    {"UnknownColumn", "Keralafields.tsv", "RJudjmentSection", "RJudgmentSection", "unknown column 'RJudgmentSection'"},
    {"TextForANumber", "CAPractice.tsv", "\t15.5\t", "\tfifteen\t", "column Weight wants a number"},
    // Documents whose text cannot be read for the text index.
    {"DamagedPdf", "Kerala.tsv", "sro-82-2006.txt", "damaged.pdf", "document 'damaged.pdf' cannot be read: a PDF that cannot"},
    {"PictureAsText", "Globalvat.tsv", "coconut-traders.rtf", "picture.txt", "document 'picture.txt' cannot be read: neither RTF"},
    // Found only while the last file is written, after the first two are complete.
    {"DuplicateKeyInTheLastFile", "CAPractice.tsv", "4\tX\tNote", "3\tX\tNote", "UNIQUE constraint failed: CAPractice.ID"},
};

class BadSources : public ::testing::TestWithParam<BadCase> {};

TEST_P(BadSources, StopTheBuildNamingFileAndLineAndChangeNothing)
{
    const BadCase& c = GetParam();
    QTemporaryDir work;
    const QString source = work.filePath("library"), good = work.filePath("good"), empty = work.filePath("empty");
    copyTree(kSource, source);
    for (const auto& [name, bytes] : {std::pair{"damaged.pdf", QByteArray("%PDF-1.4\n1 0 obj garbage")},
                                      std::pair{"picture.txt", QByteArray("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16)}}) {
        QFile document(source + "/documents/" + name);
        ASSERT_TRUE(document.open(QIODevice::WriteOnly));
        document.write(bytes);
    }
    QFile file(source + '/' + c.file);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    QString text = QString::fromUtf8(file.readAll());
    const qsizetype at = text.indexOf(c.find);
    ASSERT_GE(at, 0) << "the sample no longer holds " << c.find.toStdString();
    text.replace(at, c.find.size(), c.replace);
    file.resize(0);
    file.write(text.toUtf8());
    file.close();
    const QString expected = source + '/' + c.file + ':' + QString::number(text.left(at).count('\n') + 1) + ": " + c.problem;

    copyTree(sampleLibrary(), good);
    QDir().mkpath(empty);
    const QStringList before = contents(good);
    QString err;
    EXPECT_EQ(build({"--source", source, "--out", good}, &err), 1);
    EXPECT_TRUE(err.contains(expected)) << err.toStdString() << "\nwanted: " << expected.toStdString();
    EXPECT_EQ(contents(good), before);
    EXPECT_EQ(build({"--source", source, "--out", empty}, &err), 1);
    EXPECT_EQ(contents(empty), QStringList());
}

INSTANTIATE_TEST_SUITE_P(Sources, BadSources, ::testing::ValuesIn(kBad), CaseName());

TEST(Usage, WrongArgumentsBuildNothing)
{
    QTemporaryDir out;
    const QStringList cases[] = {{},
                                 {"--source", kSource},
                                 {"--source", kSource, "--synthetic", "10", "--out", out.path()},
                                 {"--sources", kSource, "--out", out.path()}};
    for (const QStringList& arguments : cases) {
        QString err;
        EXPECT_EQ(build(arguments, &err), 2) << arguments.join(' ').toStdString();
        EXPECT_TRUE(err.startsWith("usage:"));
    }
    EXPECT_EQ(contents(out.path()), QStringList());
}

}  // namespace
