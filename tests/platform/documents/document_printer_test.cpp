// Print and PDF of a shown document, read back with pdftotext: every page headed by the title and kind and
// footed by its number and the date printed; a selection alone; a PDF page by page; the view's zoom and
// light on dark never reach the paper.
#include "view_fixture.h"
#include "support/case_name.h"

#include "platform/documents/document_printer.h"
#include "platform/documents/hit_marks.h"
#include "platform/store/text_query.h"

#include <QProcess>
#include <QTextBrowser>

namespace documents {
namespace {

// The text of each page of a PDF file.
QStringList pagesOf(const QString& pdf) {
    QProcess reader;
    reader.start(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), pdf, QStringLiteral("-")});
    if (!reader.waitForFinished(20000)) return {};
    QStringList pages = QString::fromUtf8(reader.readAllStandardOutput()).split(u'\f');
    if (!pages.isEmpty() && pages.back().trimmed().isEmpty()) pages.removeLast();
    return pages;
}

// ScreenOnly: a search's hits lit, the view zoomed and light on dark, none of which may reach the paper.
enum class Shown { LongText, Selection, ScreenOnly, Pdf };

struct Printed {
    const char* name;
    Shown shown;
    QStringList present, absent;  // words of the body printed, and not printed
};
void PrintTo(const Printed& c, std::ostream* os) { *os << c.name; }

class PrintedPages : public ViewFixture, public ::testing::WithParamInterface<Printed> {
protected:
    QStringList print(const QString& name) {
        const QString path = settingsDir.filePath(name);
        QString fault;
        EXPECT_TRUE(saveAsPdf(*view, path, {QStringLiteral("Circular 18/2009 — Input tax credit"), QStringLiteral("Circular")},
                              hasReaderSelection(*view), QDate(2026, 11, 24), &fault))
            << fault.toStdString();
        return pagesOf(path);
    }
};

TEST_P(PrintedPages, HoldTheHeadTheFootAndTheBody) {
    const Printed& c = GetParam();
    show(c.shown == Shown::Pdf ? pdfOfLines({QStringLiteral("first"), QStringLiteral("second"), QStringLiteral("third")})
                               : longRtf(150));
    const QStringList plain = print(QStringLiteral("plain.pdf"));
    if (c.shown == Shown::Selection) {
        QTextCursor cursor = view->textBrowser()->document()->find(QStringLiteral("Paragraph 3:"));
        cursor.setPosition(cursor.selectionStart());
        cursor.movePosition(QTextCursor::NextBlock, QTextCursor::KeepAnchor, 2);
        view->textBrowser()->setTextCursor(cursor);
    }
    if (c.shown == Shown::ScreenOnly) {
        ASSERT_GT(markSearchHits(view, store::parseTextQuery(QStringLiteral("purchases"))), 0);
        Zoom::shared().setPercent(300);
        LightOnDark::shared().setOn(true);
    }
    const QStringList pages = c.shown == Shown::Pdf ? plain : print(QStringLiteral("printed.pdf"));
    ASSERT_FALSE(pages.isEmpty());
    switch (c.shown) {
    case Shown::Pdf: EXPECT_EQ(pages.size(), 3); break;
    case Shown::Selection: EXPECT_EQ(pages.size(), 1); break;
    case Shown::LongText: EXPECT_GE(pages.size(), 3); break;
    case Shown::ScreenOnly: EXPECT_EQ(pages, plain); break;
    }
    for (int i = 0; i < pages.size(); ++i) {
        const QStringList lines = pages[i].split(u'\n', Qt::SkipEmptyParts);
        ASSERT_GE(lines.size(), 2);
        EXPECT_TRUE(lines.front().contains(QStringLiteral("Circular 18/2009 — Input tax credit")) &&
                    lines.front().trimmed().endsWith(QStringLiteral("Circular")))
            << "page " << i + 1 << ": " << lines.front().toStdString();
        EXPECT_TRUE(lines.back().contains(QStringLiteral("Printed on 24-11-2026")) &&
                    lines.back().trimmed().endsWith(QStringLiteral("Page %1 of %2").arg(i + 1).arg(pages.size())))
            << "page " << i + 1 << ": " << lines.back().toStdString();
    }
    const QString all = pages.join(u'\n');
    for (const QString& word : c.present) EXPECT_TRUE(all.contains(word)) << word.toStdString();
    for (const QString& word : c.absent) EXPECT_FALSE(all.contains(word)) << word.toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Pages, PrintedPages,
    ::testing::Values(Printed{"LongText", Shown::LongText, {"Paragraph 1:", "Paragraph 150:"}, {}},
                      Printed{"SelectionAlone", Shown::Selection, {"Paragraph 3:", "Paragraph 4:"},
                              {"Paragraph 2:", "Paragraph 5:", "Paragraph 150:"}},
                      Printed{"HitsZoomAndDarkStayOnScreen", Shown::ScreenOnly, {}, {}},
                      Printed{"PdfPageByPage", Shown::Pdf, {}, {}}),
    CaseName());

}  // namespace
}  // namespace documents
