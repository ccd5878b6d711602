// Copy with citation: Ctrl+Shift+C puts the chosen passage and its source on the clipboard, as plain
// text and as HTML, for each kind of document the library holds and for the user's own.
#include "reader_fixture.h"
#include "support/case_name.h"

#include "library/my_documents.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QTextBrowser>

namespace reader_test {
namespace {

struct CitationCase {
    const char* name;
    const char* document;   // a key, or "mine" for a document the user added
    const char* passage;    // chosen before the key; "" for none
    const char* cited;      // the clipboard's plain text
};

class Citation : public ReaderFixture, public ::testing::TestWithParam<CitationCase> {};

TEST_P(Citation, TheSourceFollowsThePassage) {
    const CitationCase& c = GetParam();
    QString key = QString::fromLatin1(c.document);
    if (key == QLatin1String("mine")) {
        const library::AddedFile added = library::myDocuments().addBytes(
            "Government of Kerala\nCircular No. 45/2024\nDated 02-01-2024\nE-way bills are needed above fifty thousand rupees.\n",
            "circular-45.txt");
        ASSERT_TRUE(added.id) << added.problem.toStdString();
        key = library::kMyDocumentsTable + QStringLiteral(":%1").arg(added.id);
    }
    open(key);
    QTextBrowser* text = kf()->OLE1->textBrowser();
    if (*c.passage) {
        const QTextCursor passage = text->document()->find(QString::fromUtf8(c.passage));
        ASSERT_FALSE(passage.isNull()) << c.passage;
        text->setTextCursor(passage);
    }
    QApplication::clipboard()->clear();
    press(kf(), Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    const QMimeData* copied = QApplication::clipboard()->mimeData();
    ASSERT_TRUE(copied);
    EXPECT_EQ(copied->text(), QString::fromUtf8(c.cited));
    const QString citation = QString::fromUtf8(c.cited).section(u'\n', -1);
    EXPECT_TRUE(copied->html().contains(citation.toHtmlEscaped())) << copied->html().toStdString();
    if (*c.passage) {
        EXPECT_TRUE(copied->html().contains(QString::fromUtf8(c.passage).toHtmlEscaped()));
    }
}

INSTANTIATE_TEST_SUITE_P(Reader, Citation, ::testing::Values(
    CitationCase{"ACircular", "Kerala:3", "Input tax credit on plant and machinery.",
                 "Input tax credit on plant and machinery.\n— Circular No. 12/2006 dated 14-03-2006, Kerala VAT"},
    CitationCase{"ANotification", "Kerala:4", "Natural rubber bears tax at four per cent.",
                 "Natural rubber bears tax at four per cent.\n— Notification SRO No. 82/2006 dated 01-04-2006, Kerala VAT"},
    CitationCase{"AJudgement", "Globalvat:2", "Copra is an agricultural produce.",
                 "Copra is an agricultural produce.\n— State v. Coconut Traders (2006), [2006] 4 KTR 12 dated 12-06-2006, Kerala VAT"},
    CitationCase{"ASectionOfTheAct", "Kerala:1", "Every dealer shall pay tax on his taxable turnover, paragraph 7.",
                 "Every dealer shall pay tax on his taxable turnover, paragraph 7.\n— Section 6, Kerala VAT Act"},
    CitationCase{"ARule", "Kerala:2", "A return shall be filed by the tenth of the month, line 1.",
                 "A return shall be filed by the tenth of the month, line 1.\n— Rule 9, Kerala VAT Rules"},
    CitationCase{"ASchedule", "Allshedule:1", "paddy, rice, wheat", "paddy, rice, wheat\n— First Schedule - Exempted goods, Kerala VAT"},
    CitationCase{"ACircularWithNoDateNorIndexEntry", "Kerala:5", "Returns may be sent by post.",
                 "Returns may be sent by post.\n— Circular No. 3/2007, Kerala VAT"},
    CitationCase{"NothingChosenCopiesTheCitationAlone", "Kerala:3", "", "— Circular No. 12/2006 dated 14-03-2006, Kerala VAT"},
    CitationCase{"TheUsersOwnCircular", "mine", "E-way bills are needed",
                 "E-way bills are needed\n— Circular No. 45/2024 dated 02-01-2024, Kerala VAT"}),
    CaseName());

}  // namespace
}  // namespace reader_test
