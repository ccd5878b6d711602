// Bookmarks: Ctrl+D in the document window, folders, the filter of the bookmarks window and Enter, and a
// reading list exported by one reader and imported by another.
#include "reader_fixture.h"
#include "platform/documents/full_viewer.h"
#include "support/case_name.h"
#include "support/screens.h"

#include <QLineEdit>
#include <QTreeWidget>

namespace reader_test {
namespace {

QString keyOf(char token) {
    switch (token) {
    case 'J': return kCoconut;
    case 'S': return kSchedule;
    default: return QStringLiteral("Kerala:") + QChar::fromLatin1(token);
    }
}

class Bookmarks : public ReaderFixture {
protected:
    library::BookmarksWindow* window() { return forms::get<library::BookmarksWindow>(QStringLiteral("BookmarksWindow")); }
    // "13J" marks Kerala 1, 3 and the judgement with Ctrl+D; "3:Circulars" files a document in a folder.
    void mark(const QString& documents) {
        for (const QString& entry : documents.split(u' ', Qt::SkipEmptyParts)) {
            const QString key = keyOf(entry[0].toLatin1());
            open(key);
            press(kf(), Qt::Key_D, Qt::ControlModifier);
            if (entry.contains(u':')) {
                window()->reload();
                const qint64 id = library::readerStore().bookmarkOf(key)->id;
                for (QTreeWidgetItemIterator it(window()->tree); *it; ++it)
                    if ((*it)->data(0, Qt::UserRole).toLongLong() == id) window()->tree->setCurrentItem(*it);
                window()->moveCurrent(entry.section(u':', 1));
            }
        }
    }
    // The tree as shown: "title" for a bookmark of no folder, "Folder: title; title" for a folder.
    QString tree() {
        window()->reload();
        QStringList shown;
        for (int i = 0; i < window()->tree->topLevelItemCount(); ++i) {
            const QTreeWidgetItem* top = window()->tree->topLevelItem(i);
            QStringList inside;
            for (int c = 0; c < top->childCount(); ++c) inside << top->child(c)->text(0);
            shown << (top->data(0, Qt::UserRole).toLongLong() ? top->text(0) : top->text(0) + ": " + inside.join("; "));
        }
        return shown.join(" | ");
    }
};

struct ListCase {
    const char* name;
    const char* exported;   // what the first reader marks
    const char* already;    // what the second reader has marked before the import
    const char* file;       // the file imported instead of the export, when given
    int added;
    const char* tree;       // the second reader's bookmarks after the import
};

class ReadingList : public Bookmarks, public ::testing::TestWithParam<ListCase> {};

TEST_P(ReadingList, AnotherReaderImportsWhatOneExported) {
    const ListCase& c = GetParam();
    mark(QString::fromUtf8(c.exported));
    const QString list = user.filePath("list.json");
    ASSERT_TRUE(window()->exportTo(list));
    if (*c.file) writeFile(list, c.file);

    QTemporaryDir second;   // the other reader's folder and settings, as on another machine
    basic::SetFolders(readerLibrary(), second.path());
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, second.path());
    mark(QString::fromUtf8(c.already));
    boxes.clear();
    const bool imported = window()->importFrom(list);
    EXPECT_EQ(imported, !*c.file);
    ASSERT_EQ(boxes.boxes().size(), 1u);
    EXPECT_TRUE(boxes.boxes()[0].text.startsWith(*c.file ? QStringLiteral("This file is not a reading list")
                                                        : QString::number(c.added) + QStringLiteral(" bookmark")))
        << boxes.boxes()[0].text.toStdString();
    EXPECT_EQ(tree(), QString::fromUtf8(c.tree));
}

INSTANTIATE_TEST_SUITE_P(Reader, ReadingList, ::testing::Values(
    ListCase{"FoldersAndTheirBookmarks", "1 3:Circulars J:Judgements", "", "", 3,
             "6 — Levy of tax | Circulars: Circular 12/2006 — Input tax credit on capital goods | "
             "Judgements: State v. Coconut Traders (2006)"},
    ListCase{"ADocumentMarkedAlreadyStaysInItsFolder", "1 3:Circulars", "3:Mine", "", 1,
             "6 — Levy of tax | Circulars:  | Mine: Circular 12/2006 — Input tax credit on capital goods"},
    ListCase{"AMalayalamFolder", "S:പട്ടിക", "2", "", 1, "Rule 9 — Returns | പട്ടിക: First Schedule - Exempted goods"},
    ListCase{"AFileThatIsNoReadingList", "1", "2", "{\"bookmarks\": 7}", 0, "Rule 9 — Returns"}),
    CaseName());

struct FilterCase {
    const char* name;
    const char* typed;
    const char* shown;   // the documents left in the list, in its order
};

class BookmarkFilter : public Bookmarks, public ::testing::TestWithParam<FilterCase> {};

TEST_P(BookmarkFilter, TypingNarrowsTheListAndEnterOpensTheFirst) {
    const FilterCase& c = GetParam();
    mark(QStringLiteral("1 2 3:Circulars 5:Circulars J"));
    window()->show();
    QTest::keyClicks(window()->txtFilter, QString::fromUtf8(c.typed));
    QStringList shown, expected;
    for (const qint64 id : window()->shownIds())
        for (const documents::Bookmark& b : library::readerStore().bookmarks())
            if (b.id == id) shown << b.document.key;
    for (const char* t = c.shown; *t; ++t) expected << keyOf(*t);
    EXPECT_EQ(shown, expected);
    if (!*c.typed) window()->grab().save(screen(QStringLiteral("reader-bookmarks.png")));

    open(kSchedule);
    window()->show();
    QTest::keyClick(window()->txtFilter, Qt::Key_Return);
    EXPECT_EQ(shownKey(), expected.isEmpty() ? kSchedule : expected.first());
    EXPECT_EQ(window()->isVisible(), expected.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Reader, BookmarkFilter, ::testing::Values(
    FilterCase{"NothingTypedShowsAll", "", "12J35"},
    FilterCase{"AWordOfTheTitle", "levy", "1"},
    FilterCase{"EveryWordMustStand", "circular post", "5"},
    FilterCase{"TheFolderName", "circulars", "35"},
    FilterCase{"TheKind", "judgement", "J"},
    FilterCase{"NothingFound", "cess", ""}),
    CaseName());

struct KeyCase {
    const char* name;
    bool full;              // the full viewer, else the document window
    Qt::Key key;            // with Ctrl+Shift
    const char* opens;
};
void PrintTo(const KeyCase& c, std::ostream* os) { *os << c.name; }

class ReaderKeys : public Bookmarks, public ::testing::TestWithParam<KeyCase> {};

// The reader's windows come up by the same keys from either window a document is read in.
TEST_P(ReaderKeys, OpenTheirWindowFromEitherWindow) {
    open(keyOf('1'));
    QWidget* reading = kf();
    if (GetParam().full) {
        kf()->OLE1_Click();
        reading = documents::FullViewer::existing();
        ASSERT_TRUE(reading && reading->isVisible());
        reading->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(reading));
    }
    press(reading, GetParam().key, Qt::ControlModifier | Qt::ShiftModifier);
    const QString opens = QString::fromLatin1(GetParam().opens);
    EXPECT_TRUE(forms::exists(opens) && forms::get(opens)->isVisible());
    if (GetParam().full) reading->hide();
}

INSTANTIATE_TEST_SUITE_P(Reader, ReaderKeys,
                         ::testing::Values(KeyCase{"BookmarksInTheDocumentWindow", false, Qt::Key_B, "BookmarksWindow"},
                                           KeyCase{"BookmarksInTheFullViewer", true, Qt::Key_B, "BookmarksWindow"},
                                           KeyCase{"SearchInTheDocumentWindow", false, Qt::Key_F, "frmTextSearch"},
                                           KeyCase{"SearchInTheFullViewer", true, Qt::Key_F, "frmTextSearch"}),
                         CaseName());

class ReaderMenu : public Bookmarks, public ::testing::TestWithParam<bool> {};

// The right button's menu of a document lists the view's tools and the reader's, in either window.
TEST_P(ReaderMenu, HoldsTheViewsToolsAndTheReaders) {
    open(keyOf('1'));
    documents::DocumentView* view = kf()->OLE1;
    if (GetParam()) {
        kf()->OLE1_Click();
        ASSERT_TRUE(documents::FullViewer::existing());
        view = documents::FullViewer::existing()->view();
    }
    QStringList entries;
    for (const QAction* a : view->actions()) entries << a->text();
    for (const char* entry : {"Print…", "Zoom in", "Light on dark", "Copy with citation", "Note…", "Bookmark"})
        EXPECT_TRUE(entries.contains(QString::fromUtf8(entry))) << entry << " not in " << entries.join(", ").toStdString();
    if (GetParam()) documents::FullViewer::existing()->hide();
}

INSTANTIATE_TEST_SUITE_P(Reader, ReaderMenu, ::testing::Values(false, true),
                         [](const auto& info) { return std::string(info.param ? "FullViewer" : "DocumentWindow"); });

}  // namespace
}  // namespace reader_test
