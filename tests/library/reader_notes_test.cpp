// Notes: Ctrl+M writes a note on the document or on the chosen passage, which is lit; the panel beside
// the document lists them; the search window finds their words, marked as notes, and opens a note's
// document at its passage.
#include "reader_fixture.h"

#include "library/reader_notes.h"
#include "support/case_name.h"
#include "support/screens.h"

#include <QApplication>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTextBrowser>
#include <QTimer>

namespace reader_test {
namespace {

struct NoteCase {
    const char* name;
    const char* document;
    const char* passage;     // chosen before Ctrl+M; "" for a note on the whole document
    const char* note;
    enum { Kept, Changed, Removed } then;
    const char* sought;
    const char* found;       // the results, ", " between them
};

class Notes : public ReaderFixture, public ::testing::TestWithParam<NoteCase> {
protected:
    // Answers the note box that the next step opens: its text replaced by `text`, then Ctrl+Enter.
    static void answerNote(const QString& text) {
        QTimer::singleShot(0, [text] {
            auto* box = qobject_cast<library::NoteDialog*>(QApplication::activeModalWidget());
            ASSERT_TRUE(box);
            box->note->selectAll();
            box->note->insertPlainText(text);   // keyClicks types ASCII only
            QTest::keyClick(box->note, Qt::Key_Return, Qt::ControlModifier);
        });
    }
    library::NotesPanel* panel() { return kf()->findChild<library::NotesPanel*>(); }
    bool lit(int position) {
        QTextCursor at(kf()->OLE1->textBrowser()->document());
        at.setPosition(position + 1);
        return at.charFormat().background().style() != Qt::NoBrush;
    }
};

TEST_P(Notes, TheSearchFindsTheirWords) {
    const NoteCase& c = GetParam();
    const QString document = QString::fromLatin1(c.document);
    open(document);
    QTextBrowser* text = kf()->OLE1->textBrowser();
    int passageAt = -1;
    if (*c.passage) {
        const QTextCursor passage = text->document()->find(QString::fromLatin1(c.passage));
        ASSERT_FALSE(passage.isNull());
        text->setTextCursor(passage);
        passageAt = passage.selectionStart();
    }
    answerNote(QString::fromUtf8(c.note));
    press(kf(), Qt::Key_M, Qt::ControlModifier);
    ASSERT_TRUE(panel()->isVisible());
    ASSERT_EQ(panel()->list->count(), 1);
    if (passageAt >= 0) {
        EXPECT_TRUE(lit(passageAt));
    }
    if (std::string(c.name) == "OnAPassage") {
        kf()->resize(1366, 700);   // as maximised on a common screen: the notes stand beside the document
        text->moveCursor(QTextCursor::Start);   // the passage lit, not chosen
        QCoreApplication::processEvents();
        kf()->grab().save(screen(QStringLiteral("reader-notes.png")));
    }

    if (c.then == NoteCase::Changed) {
        answerNote(QStringLiteral("ask the client for the purchase bills"));
        panel()->editNote();
    } else if (c.then == NoteCase::Removed) {
        boxes.queueAnswer(forms::vbYes);
        panel()->list->setFocus();
        QTest::keyClick(panel()->list, Qt::Key_Delete);
        EXPECT_FALSE(panel()->isVisible());
        if (passageAt >= 0) {
            EXPECT_FALSE(lit(passageAt));
        }
    }

    const QStringList found = searched(QString::fromUtf8(c.sought));
    QStringList sorted = found, expected = QString::fromLatin1(c.found).split(QStringLiteral(", "), Qt::SkipEmptyParts);
    // The library's rows and the notes are ranked each in their own table: their order is not pinned.
    sorted.sort();
    expected.sort();
    EXPECT_EQ(sorted, expected);
    if (std::string(c.name) == "ThePassageWordsToo")
        forms::get(QStringLiteral("frmTextSearch"))->grab().save(screen(QStringLiteral("reader-search-notes.png")));
    const qsizetype note = found.indexOf(QStringLiteral("Note|note:1"));
    if (note < 0) return;
    // Opened from the search, the note's document comes back with its passage chosen.
    open(kSro82);
    auto* search = forms::get<library::frmTextSearch>(QStringLiteral("frmTextSearch"));
    search->lstResults->setCurrentRow(int(note));
    search->OpenResult();
    EXPECT_EQ(shownKey(), document);
    if (*c.passage) {
        EXPECT_EQ(text->textCursor().selectedText(), QString::fromLatin1(c.passage));
    }
}

INSTANTIATE_TEST_SUITE_P(Reader, Notes, ::testing::Values(
    NoteCase{"OnTheDocument", "Kerala:2", "", "ask the accountant about remittance", NoteCase::Kept, "remittance", "Note|note:1"},
    NoteCase{"OnAPassage", "Kerala:3", "plant and machinery", "depreciation schedule", NoteCase::Kept, "depreciation", "Note|note:1"},
    NoteCase{"ThePassageWordsToo", "Kerala:3", "plant and machinery", "see the schedule", NoteCase::Kept,
             "\"plant and machinery\"", "Kerala:3, Note|note:1"},
    NoteCase{"InMalayalam", "Kerala:2", "", "നികുതി അടയ്ക്കണം", NoteCase::Kept, "നികുതി", "Note|note:1"},
    NoteCase{"TheNewWordsOfAChangedNote", "Kerala:2", "", "old words", NoteCase::Changed, "bills", "Note|note:1"},
    NoteCase{"NotTheOldWordsOfAChangedNote", "Kerala:2", "", "old words", NoteCase::Changed, "old", ""},
    NoteCase{"NotARemovedNote", "Kerala:3", "plant and machinery", "depreciation", NoteCase::Removed, "depreciation", ""}),
    CaseName());

}  // namespace
}  // namespace reader_test
