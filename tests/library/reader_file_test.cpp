// The reader's file damaged or missing at the start: the program starts without bookmarks, says so once,
// and keeps a damaged file aside, whole.
#include "reader_fixture.h"
#include "platform/basic/settings.h"
#include "support/case_name.h"

#include <QDir>

namespace reader_test {
namespace {

struct FileCase {
    const char* name;
    enum { Sound, Garbage, Truncated, MissingAfterMade, MissingAtFirst } file;
    int bookmarks;          // after the start
    const char* said;       // the start of the one box, "" for none
};

class ReaderFile : public ReaderFixture, public ::testing::TestWithParam<FileCase> {};

TEST_P(ReaderFile, TheProgramStartsAndSaysSoOnce) {
    const FileCase& c = GetParam();
    const QString path = QDir(user.path()).filePath("Reader.db");
    {
        documents::ReaderStore earlier(path);   // a reader's file of an earlier run, with a bookmark
        earlier.addBookmark({kCircular12, QStringLiteral("Circular 12/2006"), QStringLiteral("Circular")});
    }
    basic::Settings().setValue(QStringLiteral("Reader/fileMade"), c.file != FileCase::MissingAtFirst);
    QByteArray before;
    if (c.file == FileCase::Garbage) writeFile(path, "These are not the pages of a database, though the name says so.");
    if (c.file == FileCase::Truncated) {
        QFile f(path);
        f.open(QIODevice::ReadWrite);
        f.resize(4096 + 100);   // the header and part of the first page of the tables
    }
    if (c.file == FileCase::MissingAfterMade || c.file == FileCase::MissingAtFirst) QFile::remove(path);
    for (const char* tail : {"-wal", "-shm"}) QFile::remove(path + tail);
    if (QFile f(path); f.open(QIODevice::ReadOnly)) before = f.readAll();

    library::startReader();
    EXPECT_EQ(int(library::readerStore().bookmarks().size()), c.bookmarks);
    ASSERT_EQ(boxes.boxes().size(), size_t(*c.said ? 1 : 0));
    if (*c.said) {
        EXPECT_TRUE(boxes.boxes()[0].text.startsWith(QString::fromLatin1(c.said))) << boxes.boxes()[0].text.toStdString();
    }
    const QStringList aside = QDir(user.path()).entryList({"Reader.db.damaged-*"});
    EXPECT_EQ(aside.size(), qsizetype(c.file == FileCase::Garbage || c.file == FileCase::Truncated) ? 1 : 0);
    if (!aside.isEmpty()) {
        QFile kept(QDir(user.path()).filePath(aside.first()));
        ASSERT_TRUE(kept.open(QIODevice::ReadOnly));
        EXPECT_EQ(kept.readAll(), before);
    }

    // Bookmarks work again at once, and the next start says nothing more.
    open(kRule9);
    press(kf(), Qt::Key_D, Qt::ControlModifier);
    EXPECT_TRUE(library::readerStore().bookmarkOf(kRule9));
    QTemporaryDir elsewhere;   // the file let go of, as at the end of the run
    basic::SetFolders(readerLibrary(), elsewhere.path());
    library::readerStore();
    basic::SetFolders(readerLibrary(), user.path());
    boxes.clear();
    library::startReader();
    EXPECT_TRUE(boxes.boxes().empty());
    EXPECT_TRUE(library::readerStore().bookmarkOf(kRule9));
}

INSTANTIATE_TEST_SUITE_P(Reader, ReaderFile, ::testing::Values(
    FileCase{"Sound", FileCase::Sound, 1, ""},
    FileCase{"NotADatabase", FileCase::Garbage, 0, "The file of your bookmarks, notes and history was damaged"},
    FileCase{"CutShort", FileCase::Truncated, 0, "The file of your bookmarks, notes and history was damaged"},
    FileCase{"MissingAfterAnEarlierRun", FileCase::MissingAfterMade, 0, "The file of your bookmarks, notes and history is missing"},
    FileCase{"MissingAtTheFirstStart", FileCase::MissingAtFirst, 0, ""}),
    CaseName());

}  // namespace
}  // namespace reader_test
