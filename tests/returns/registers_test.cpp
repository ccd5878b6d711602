// The PRINT buttons: the register of the month last added in a maximised preview, its PDF read back
// with pdftotext; a template or data file that cannot be read is named in a box.
#include "platform/reports/crystal_report.h"
#include "platform/reports/preview_window.h"
#include "return_window.h"

#include <QPdfDocument>
#include <QProcess>

namespace {

using Registers = ReturnWindow;

TEST_F(Registers, EachButtonPrintsTheMonthLastAdded) {
    put(w->fg1, {{"20-03-26", "Beta Traders", "32071", "B-7", "    12.5", "200", "25", "2", "227.00"},
                 {"02-03-26", "Alpha Stores", "32070", "A-1", "      4", "1000", "40", "1", "1041.00"},
                 {"11-03-26", "Gamma Agencies", "32099", "G-3", "      0", "500.5", "", "", "500.50"}});
    put(w->fg2, {{"05-03-26", "Cash Sales", "", "S-1", "     20  ", "300", "60", "4.5", "364.50"},
                 {"06-03-26", "Madras Export Co", "33010", "S-2", "CST", "100", "2", "", "102.00"}});
    w->txtPlace->setText("Kochi");

    struct Case { int kind; QPushButton* returns::frmNormal::*button; const char* pdf; QStringList lines; } local[] = {   // lines in order
        {0, &returns::frmNormal::cmdPrint1, "register-purchase.pdf",
         {"PURCHASE REGISTER - LOCAL PURCHASES", "Month: March", "Place: Kochi", "Date: 15-03-26",
          "1 02-03-26 Alpha Stores 32070 A-1 4 1000.00 40.00 1.00 1041.00",
          "2 11-03-26 Gamma Agencies 32099 G-3 0 500.50 500.50",
          "3 20-03-26 Beta Traders 32071 B-7 12.5 200.00 25.00 2.00 227.00", "Rate-wise Summary",
          "4 % 1000.00 40.00 1.00 1041.00", "Total 1700.50 65.00 3.00 1768.50", "Page 1 of 1"}},
        {0, &returns::frmNormal::Command2, "register-sales.pdf",
         {"SALES REGISTER", "1 05-03-26 Cash Sales S-1 20 300.00 60.00 4.50 364.50",
          "2 06-03-26 Madras Export Co 33010 S-2 CST 100.00 2.00 102.00", "20 % 300.00 60.00 4.50 364.50",
          "CST 100.00 2.00 0.00 102.00", "Total 400.00 62.00 4.50 466.50"}},
    }, interState[] = {
        {1, &returns::frmNormal::cmdPrint1, "register-purchase-interstate.pdf",
         {"INTER-STATE PURCHASES", "Place: Kochi", "1 09-03-26 Bangalore Mills 29001 K-41 4 800.00 32.00 832.00",
          "Total 800.00 32.00 0.00 832.00"}},
    };
    // Runs the PRINT button, saves what its preview shows and finds the lines in it, in order.
    const auto check = [&](const Case& c) {
        SCOPED_TRACE(c.pdf);
        w->List4->setListIndex(c.kind);
        const auto boxes = press([&] { QTest::mouseClick(w.get()->*c.button, Qt::LeftButton); });
        EXPECT_TRUE(boxes.empty()) << (boxes.empty() ? "" : boxes[0].text.toStdString());
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
        reports::PreviewWindow* preview = w->CrystalReport1->window();
        ASSERT_TRUE(preview && preview->isVisible() && (preview->windowState() & Qt::WindowMaximized));
        EXPECT_GE(preview->pageCount(), 1);
        preview->savePdf(screen(c.pdf));   // beside the screens: docs/screens when they are asked for
        QProcess pdftotext;
        pdftotext.start("pdftotext", {"-layout", screen(c.pdf), "-"});
        EXPECT_TRUE(pdftotext.waitForFinished(20000));
        // Compared without blanks: the PDF's text comes back with its own spacing.
        const QString text = QString::fromUtf8(pdftotext.readAllStandardOutput()).remove(QRegularExpression("\\s"));
        qsizetype at = 0;
        for (QString line : c.lines) {
            line.remove(u' ');
            const qsizetype found = text.indexOf(line, at);
            EXPECT_GE(found, 0) << line.toStdString() << "\nin: " << text.toStdString();
            if (found >= 0) at = found + line.size();
        }
    };
    add();
    w->txtRPTo->setText("April");   // the registers print what was staged, not what the window shows
    for (const Case& c : local) check(c);
    w->txtRPTo->setText("March");
    w->List4->setListIndex(1);
    put(w->fg1, {{"09-03-26", "Bangalore Mills", "29001", "K-41", "      4", "800", "32", "", "832.00"}});
    add();
    for (const Case& c : interState) check(c);
    if (qEnvironmentVariableIsSet("VORLAN_SCREENS")) {
        QPdfDocument doc;
        doc.load(screen("register-purchase.pdf"));
        ASSERT_EQ(doc.status(), QPdfDocument::Status::Ready);
        const QSizeF points = doc.pagePointSize(0);
        doc.render(0, (points * 1.5).toSize()).save(screen("register-purchase-page1.png"));
        w->CrystalReport1->window()->resize(1280, 900);
        w->CrystalReport1->window()->showTop();
        w->CrystalReport1->window()->grab().save(screen("register-preview.png"));
    }
}

TEST_F(Registers, FileThatCannotBeReadIsNamed) {
    const struct { const char* name; std::function<void(const QString&)> spoil; const char* file, *says; } cases[] = {
        {"template missing", [](const QString& f) { QFile::remove(f + "/RptSales.rpt"); }, "RptSales.rpt", "is not there"},
        {"data file not a database",
         [](const QString& f) {
             QFile::copy(VORLAN_PROGRAM_DIR "/RptSales.rpt", f + "/RptSales.rpt");
             returns::ReleaseReturnStores();
             returns::rsLookup = returns::rsBills = returns::rsReport = store::Recordset::nothing();
             QFile d(f + "/nwForm10DB.mdb");
             ASSERT_TRUE(d.open(QIODevice::WriteOnly));
             d.write(QByteArray(4096, 'x'));
         },
         "nwForm10DB.mdb", "cannot be read"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        c.spoil(folder.path());
        const auto boxes = press([&] { w->Command2_Click(); });
        ASSERT_EQ(boxes.size(), 1u);
        EXPECT_EQ(std::pair(boxes[0].style, boxes[0].title), std::pair(48, QString("Not printed")));
        EXPECT_TRUE(boxes[0].text.contains(QDir::toNativeSeparators(folder.filePath(c.file))) && boxes[0].text.contains(c.says))
            << boxes[0].text.toStdString();
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    }
}

}  // namespace
