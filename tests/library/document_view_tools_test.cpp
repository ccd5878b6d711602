// The reader's tools on the document window: the printed head names the row shown, as the text index has
// it, whichever way the row was reached; and the same document opened in full prints under the same head.
#include "library_window_fixture.h"
#include "support/case_name.h"

#include "library/document_view_tools.h"
#include "platform/basic/clock.h"
#include "platform/basic/settings.h"
#include "platform/documents/full_viewer.h"

#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QProcess>

namespace {

struct Row {
    const char* name;
    const char* table;
    const char* sql;
    const char* title;
    const char* kind;
};
void PrintTo(const Row& r, std::ostream* os) { *os << r.name; }

class DocumentHead : public LibraryWindows, public ::testing::WithParamInterface<Row> {};

TEST_P(DocumentHead, NamesTheRowTheWindowStandsOn) {
    const Row& r = GetParam();
    documents::DataControl source;
    source.setConnect(shell::getConnectionForTable(QLatin1String(r.table)).ConnectionString());
    source.setSQL(QString::fromUtf8(r.sql));
    const documents::PrintHead head = library::headOfRow(source);
    EXPECT_EQ(head.title, QString::fromUtf8(r.title));
    EXPECT_EQ(head.kind, QString::fromUtf8(r.kind));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, DocumentHead,
    ::testing::Values(
        Row{"CircularByName", "Kerala", "select fname from Kerala where name='Circular 18/2009' ",
            "Circular 18/2009 — Input tax credit on capital goods used partly for exempted sales", "Circular"},
        Row{"NotificationByRowid", "Kerala", "select fname from Kerala where rowid=305",
            "SRO 560/2012 — Rate of tax on LED lamps and solar lanterns", "Notification"},
        Row{"JudgementOfTheSecondFile", "Globalvatse", "select fname from Globalvatse where name='Lakshmi Stores v. State'",
            "Lakshmi Stores v. State", "Judgement"},
        Row{"NotInTheIndex", "Globalvat",
            "SELECT Globalvat.fname FROM Globalvat WHERE (((Globalvat.name)='default') AND ((Globalvat.type)='default'));",
            "default", "Judgement"},
        Row{"NoRow", "Kerala", "select fname from Kerala where name='none'", "", ""}),
    CaseName());

QString firstPageOf(const QString& pdf) {
    QProcess reader;
    reader.start(QStringLiteral("pdftotext"), {QStringLiteral("-l"), QStringLiteral("1"), pdf, QStringLiteral("-")});
    reader.waitForFinished(20000);
    return QString::fromUtf8(reader.readAllStandardOutput());
}

// Shown from a row, saved by Ctrl+Shift+S in the window; opened in full by a click, saved there again; the
// folder is remembered; and Ctrl+P previews the pages on a machine with no printer.
TEST_F(LibraryWindows, TheWindowAndTheFullViewPrintUnderTheRowsHead) {
    QTemporaryDir out;
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, out.path());
    basic::Clock::set(QDate(2026, 11, 24));
    const auto asked = documents::DocumentPrinter::askPdfFile;
    const auto previewer = documents::DocumentPrinter::runPreview;
    QString path, suggested;
    documents::DocumentPrinter::askPdfFile = [&](QWidget*, const QString& proposed) {
        suggested = proposed;
        return path;
    };
    int previewed = 0;
    documents::DocumentPrinter::runPreview = [&](QPrintPreviewDialog& dialog) {
        auto* pages = dialog.findChild<QPrintPreviewWidget*>();
        pages->updatePreview();
        previewed = pages->pageCount();
    };
    auto* w = kf();
    w->MSRDC1->setConnect(shell::strLibraryCn1);
    w->MSRDC1->setSQL(QStringLiteral("select fname from Kerala where name='Circular 7/2010'"));
    w->MSRDC1->Refresh();
    w->OLE1->setDataField(QStringLiteral("fname"));
    w->show();
    w->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(w));
    path = out.filePath(QStringLiteral("window.pdf"));
    QTest::keyClick(w, Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(suggested.endsWith(QStringLiteral("/Circular 7-2010.pdf"))) << suggested.toStdString();
    QTest::keyClick(w, Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(previewed, 1);
    w->OLE1_Click();
    documents::FullViewer* viewer = documents::FullViewer::existing();
    ASSERT_TRUE(viewer && viewer->isVisible());
    viewer->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(viewer));
    path = out.filePath(QStringLiteral("full.pdf"));
    QTest::keyClick(viewer, Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    viewer->hide();
    for (const char* file : {"window.pdf", "full.pdf"}) {
        const QString page = firstPageOf(out.filePath(QLatin1String(file)));
        EXPECT_TRUE(page.startsWith(QStringLiteral("Circular 7/2010 — Stock transfer of goods to branches outside the State")))
            << file << ": " << page.left(200).toStdString();
        EXPECT_TRUE(page.contains(QStringLiteral("\nCircular\n"))) << file;
        EXPECT_TRUE(page.contains(QStringLiteral("Printed on 24-11-2026"))) << file;
    }
    EXPECT_EQ(basic::Settings().value(QStringLiteral("reader/pdfFolder")), out.path());
    documents::DocumentPrinter::askPdfFile = asked;
    documents::DocumentPrinter::runPreview = previewer;
    basic::Clock::reset();
}

}  // namespace
