// The user's own documents: a folder added through "My documents" with good and bad files in it, each
// bad one told and the rest added; what the first lines give as kind, title, number and date; the
// search finding them beside the library's; removing, which asks once.
#include "reader_fixture.h"

#include "library/document_guess.h"
#include "library/my_documents.h"
#include "support/case_name.h"
#include "support/made_pdfs.h"
#include "support/screens.h"

#include <QApplication>
#include <QBuffer>
#include <QPdfWriter>
#include <QProgressDialog>
#include <QTableWidget>
#include <QTextDocument>
#include <QTimer>

namespace reader_test {
namespace {

const char kCircular[] = "{\\rtf1\\ansi Circular No. 9/2024\\par Dated 05-02-2024\\par Turmeric bought from farmers bears no tax.\\par}";

// The files of a folder by name: each maker writes one.
void makeFile(const QDir& folder, const QString& name) {
    const QString path = folder.filePath(name);
    if (name == "circular.rtf" || name == "copy.rtf") writeFile(path, kCircular);
    else if (name == "notification.pdf") writeFile(path, pdfOfText("NOTIFICATION\nS.R.O. No. 12/2024\nDated 01-03-2024\nCardamom is exempt."));
    else if (name == "minutes.txt") writeFile(path, "Minutes of the meeting on e-way bills\nThe dealers asked for more time.\n");
    else if (name == "picture.png") writeFile(path, QByteArray("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16));
    else if (name == "damaged.pdf") writeFile(path, "%PDF-1.4\n1 0 obj << /Type /Catalog >> garbage");
    else if (name == "empty.txt") writeFile(path, "");
    else if (name == "huge.pdf") {
        QFile f(path);   // 200 MB that take no room on the disk
        f.open(QIODevice::WriteOnly);
        f.resize(200LL * 1024 * 1024);
    } else if (name == "sub/judgement.html") {
        folder.mkpath("sub");
        writeFile(path, "<html><body><p>IN THE HIGH COURT OF KERALA</p><p>Malabar Tiles v. State</p><p>Copra dryers.</p></body></html>");
    }
}

struct FolderCase {
    const char* name;
    const char* files;
    bool cancel;           // Cancel pressed on the progress bar at once
    const char* report;    // the box at the end
    const char* sought;    // a word the search then finds among the user's documents
    int found;
};

class MyDocumentsFolder : public ReaderFixture, public ::testing::TestWithParam<FolderCase> {
protected:
    library::MyDocumentsWindow* window() { return forms::get<library::MyDocumentsWindow>(QStringLiteral("MyDocumentsWindow")); }
};

TEST_P(MyDocumentsFolder, EachFileIsAddedOrToldWhyNot) {
    const FolderCase& c = GetParam();
    QTemporaryDir folder;
    for (const QString& name : QString::fromLatin1(c.files).split(u' ')) makeFile(QDir(folder.path()), name);
    window()->show();
    if (c.cancel)
        QTimer::singleShot(0, [] {
            for (QWidget* w : QApplication::topLevelWidgets())
                if (auto* progress = qobject_cast<QProgressDialog*>(w); progress && progress->isVisible()) progress->cancel();
        });
    window()->addChosen({folder.path()});
    ASSERT_EQ(boxes.boxes().size(), 1u);
    EXPECT_EQ(boxes.boxes()[0].text, QString::fromUtf8(c.report));
    int added = 0;
    for (const QString& key : searched(QString::fromLatin1(c.sought))) added += key.startsWith(library::kMineMark + u'|');
    EXPECT_EQ(added, c.found);
    if (std::string(c.name) == "DocumentsOfEveryKind") {
        window()->grab().save(screen(QStringLiteral("my-documents.png")));
        forms::get(QStringLiteral("frmTextSearch"))->grab().save(screen(QStringLiteral("my-documents-search.png")));
    }
}

INSTANTIATE_TEST_SUITE_P(Reader, MyDocumentsFolder, ::testing::Values(
    FolderCase{"DocumentsOfEveryKind", "circular.rtf notification.pdf minutes.txt sub/judgement.html", false,
               "4 documents added.", "cardamom OR turmeric OR copra OR dealers", 4},
    FolderCase{"NotADocumentADamagedPdfAnEmptyFile", "circular.rtf picture.png damaged.pdf empty.txt", false,
               "1 document added.\n\n3 files were not added:\n"
               "damaged.pdf: is not a document that can be read: a PDF that cannot be opened (damaged, or locked with a password)\n"
               "empty.txt: is empty\n"
               "picture.png: is not a document that can be read: neither RTF, HTML, PDF nor text",
               "turmeric", 1},
    FolderCase{"AFileOf200Megabytes", "huge.pdf minutes.txt", false,
               "1 document added.\n\n1 file was not added:\nhuge.pdf: 200 MB is larger than the 50 MB a document may have", "dealers", 1},
    FolderCase{"TheSameBytesTwice", "circular.rtf copy.rtf", false,
               "1 document added.\n\n1 file was not added:\ncopy.rtf: holds the same bytes as \"Circular No. 9/2024\", already added",
               "turmeric", 1},
    FolderCase{"CancelledAfterTheFirstFile", "circular.rtf minutes.txt notification.pdf", true,
               "1 document added. Adding was cancelled; the files after these were not read.", "cardamom OR turmeric OR dealers", 1}),
    CaseName());

struct GuessCase {
    const char* name;
    const char* text;
    const char* kind, *title, *number, *date;
};

class Guess : public ::testing::TestWithParam<GuessCase> {};

TEST_P(Guess, TheFirstLinesNameTheDocument) {
    const GuessCase& c = GetParam();
    const library::DocumentGuess g = library::guessDocument(QString::fromUtf8(c.text), "file.txt");
    EXPECT_EQ(g.kind, c.kind);
    EXPECT_EQ(g.title, QString::fromUtf8(c.title));
    EXPECT_EQ(g.number, c.number);
    EXPECT_EQ(g.date, c.date);
}

INSTANTIATE_TEST_SUITE_P(Reader, Guess, ::testing::Values(
    GuessCase{"ACircularUnderALetterhead", "GOVERNMENT OF KERALA\nCommissionerate of Commercial Taxes\nCircular No. 7/2024\n"
              "Dated 14th March 2024\nSub: refunds", "Circular", "Circular No. 7/2024", "7/2024", "2024-03-14"},
    GuessCase{"ANotificationOfTheGazette", "NOTIFICATION\nS.R.O. No. 82/2006\nDated 01.04.2006\nIn exercise of the powers under the Act",
              "Notification", "NOTIFICATION S.R.O. No. 82/2006", "SRO 82/2006", "2006-04-01"},
    GuessCase{"AJudgementWithItsCitation", "IN THE HIGH COURT OF KERALA\nState of Kerala v. Malabar Tiles\n(2004) 135 STC 1\n"
              "Judgment dated 12-06-2006", "Judgement", "State of Kerala v. Malabar Tiles", "(2004) 135 STC 1", "2006-06-12"},
    GuessCase{"AMalayalamDate", "സർക്കുലർ 5/2012\nതീയതി 05-02-2012\nചെറുകിട വ്യാപാരികൾ", "Circular", "സർക്കുലർ 5/2012", "5/2012", "2012-02-05"},
    GuessCase{"NothingToGoBy", "Minutes of the meeting\nThe dealers asked for time.", "Other", "Minutes of the meeting", "", ""},
    GuessCase{"NoLineAtAll", "\n \n", "Other", "file", "", ""}),
    CaseName());

struct RemoveCase {
    const char* name;
    int answer;
    int left;
    qsizetype found;   // the removed document's word, searched
};

class Removing : public ReaderFixture, public ::testing::TestWithParam<RemoveCase> {};

TEST_P(Removing, DeleteAsksOnce) {
    const RemoveCase& c = GetParam();
    QTemporaryDir folder;
    for (const char* name : {"circular.rtf", "minutes.txt"}) makeFile(QDir(folder.path()), name);
    auto* w = forms::get<library::MyDocumentsWindow>(QStringLiteral("MyDocumentsWindow"));
    w->show();
    w->addChosen({folder.path()});
    boxes.clear();
    boxes.queueAnswer(c.answer);
    w->grid->setFocus();
    w->grid->selectRow(0);
    QTest::keyClick(w->grid, Qt::Key_Delete);
    ASSERT_EQ(boxes.boxes().size(), 1u);
    EXPECT_EQ(boxes.boxes()[0].style, forms::vbYesNo | forms::vbQuestion | forms::vbDefaultButton2);
    EXPECT_EQ(w->grid->rowCount(), c.left);
    EXPECT_EQ(int(library::myDocuments().list().size()), c.left);
    EXPECT_EQ(searched("dealers").size(), c.found);   // the first row is the latest added: the minutes
}

INSTANTIATE_TEST_SUITE_P(Reader, Removing, ::testing::Values(RemoveCase{"Yes", forms::vbYes, 1, 0}, RemoveCase{"No", forms::vbNo, 2, 1}),
                         CaseName());

}  // namespace
}  // namespace reader_test

namespace reader_test {
namespace {

struct ChangeCase {
    const char* name;
    int column;
    const char* typed;
    const char* kept;    // what the cell shows after
    size_t boxes;
    const char* sought;  // found among the user's documents after the change
};

class ChangingWhatWasGuessed : public ReaderFixture, public ::testing::TestWithParam<ChangeCase> {};

TEST_P(ChangingWhatWasGuessed, TheCellKeepsWhatIsRightAndTheSearchFollows) {
    const ChangeCase& c = GetParam();
    QTemporaryDir folder;
    makeFile(QDir(folder.path()), "minutes.txt");
    auto* w = forms::get<library::MyDocumentsWindow>(QStringLiteral("MyDocumentsWindow"));
    w->show();
    w->addChosen({folder.path()});
    boxes.clear();
    w->grid->item(0, c.column)->setText(QString::fromUtf8(c.typed));   // as the cell's editor leaves it
    EXPECT_EQ(w->grid->item(0, c.column)->text(), QString::fromUtf8(c.kept));
    EXPECT_EQ(boxes.boxes().size(), c.boxes);
    w->reload();   // read back from the file
    EXPECT_EQ(w->grid->item(0, c.column)->text(), QString::fromUtf8(c.kept));
    EXPECT_EQ(searched(QString::fromUtf8(c.sought)), QStringList{library::kMineMark + QStringLiteral("|MyDocuments:1")});
}

using Col = library::MyDocumentsWindow::Column;
INSTANTIATE_TEST_SUITE_P(Reader, ChangingWhatWasGuessed, ::testing::Values(
    ChangeCase{"AKindOfTheList", Col::colKind, "Circular", "Circular", 0, "dealers"},
    ChangeCase{"AKindNotOfTheList", Col::colKind, "Memo", "Other", 1, "dealers"},
    ChangeCase{"ADateWithDots", Col::colDate, "5.2.2024", "05-02-2024", 0, "dealers"},
    ChangeCase{"ADayThatIsNot", Col::colDate, "31-02-2024", "", 1, "dealers"},
    ChangeCase{"ANewTitleIsSearched", Col::colTitle, "Way bills to Palakkad", "Way bills to Palakkad", 0, "palakkad"},
    ChangeCase{"NoTitleAtAll", Col::colTitle, " ", "Minutes of the meeting on e-way bills", 1, "minutes"}),
    CaseName());

}  // namespace
}  // namespace reader_test
