// The report engine: templates that cannot be read say where, data files that cannot be read say
// which, and a long register breaks into pages with every bill once and the summary at the end.
#include "platform/basic/runtime_error.h"
#include "platform/reports/register_painter.h"
#include "platform/reports/report_data.h"
#include "platform/reports/report_template.h"
#include "platform/store/connection.h"
#include "support/case_name.h"
#include "support/printers.h"

#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

const QString kTemplate = QStringLiteral(R"(# a small register
[page]
font-size = 9
footer = Page {page} of {pages}
[heading]
source = head
title = REGISTER OF {cMonth}
[bills]
source = bills
order = BillDate dd-mm-yy
column = No | SlNo | 1 | trim
column = Date | BillDate | 2 | text
column = Amount | Amount | 2 | amount
[summary]
source = head
columns = Band | Amount
row = All | Total
total = Grand | Total
)");

TEST(ReportTemplate, FaultsNameTheLine) {
    struct Case {
        const char* text;
        const char* says;
    } cases[] = {
        {"[bils]\n", "line 1: unknown section [bils]"},
        {"[bills]\nsource = b\ncolumn = A | a | 1\n", "line 3: a column is heading | field | width | kind"},
        {"[bills]\nsource = b\ncolumn = A | a | wide | text\n", "line 3: \"wide\" is not a number"},
        {"[page]\ncolour = red\n", "line 2: unknown setting \"colour\" in [page]"},
        {"[summary]\ncolumns = A | B\nrow = x\n", "line 3: a row has 1 cells, the columns are 2"},
    };
    for (const Case& c : cases) {
        const basic::RuntimeError e = basic::resume([&] { reports::parseTemplate(QString::fromLatin1(c.text), "/p/R.rpt"); });
        EXPECT_EQ(e.number(), 75) << c.text;
        EXPECT_TRUE(e.description().contains("/p/R.rpt")) << e.description().toStdString();
        EXPECT_TRUE(e.description().contains(QString::fromLatin1(c.says))) << e.description().toStdString();
    }
}

class Engine : public ::testing::Test {
protected:
    void SetUp() override {
        data = dir.filePath("data.mdb");
        store::Connection cn;
        cn.Create("Driver={Microsoft Access Driver (*.mdb)};Dbq=" + data);
        cn.Execute("CREATE TABLE head (cMonth TEXT, Total DOUBLE)");
        cn.Execute("INSERT INTO head VALUES ('March', 12345.675)");
        cn.Execute("CREATE TABLE bills (SlNo TEXT, BillDate TEXT, Amount DOUBLE)");
        // Written latest day first (a day's bills in their order), so that only the order setting puts
        // the days in date order.
        const QString day = "((i - 1) * 30 / " + QString::number(kBills) + " + 1)";
        cn.Execute("INSERT INTO bills WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " +
                   QString::number(kBills) + ") SELECT i, printf('%02d-03-26', " + day + "), i * 1.5 FROM n ORDER BY " +
                   day + " DESC, i");
        cn.Close();
    }
    static QString pageText(const QString& pdf, int page) {
        QProcess p;
        p.start("pdftotext", {"-f", QString::number(page), "-l", QString::number(page), "-layout", pdf, "-"});
        EXPECT_TRUE(p.waitForFinished(20000));
        return QString::fromUtf8(p.readAllStandardOutput());
    }
    static constexpr int kBills = 150;
    QTemporaryDir dir;
    QString data;
};

TEST_F(Engine, LongRegisterBreaksIntoPages) {
    const reports::ReportTemplate t = reports::parseTemplate(kTemplate, "R.rpt");
    const QString pdf = dir.filePath("r.pdf");
    const int pages = reports::writePdf(t, reports::loadData(t, data), pdf);
    ASSERT_GE(pages, 3);
    int next = 1;
    for (int page = 1; page <= pages; ++page) {
        const QString text = pageText(pdf, page);
        EXPECT_TRUE(text.contains("REGISTER OF March")) << page;
        EXPECT_TRUE(text.contains(QString("Page %1 of %2").arg(page).arg(pages))) << page;
        EXPECT_EQ(text.contains("Grand"), page == pages) << page;
        static const QRegularExpression row(R"(^\s*(\d+)\s+\d\d-03-26\s+(\d+\.\d\d)\s*$)", QRegularExpression::MultilineOption);
        for (auto it = row.globalMatch(text); it.hasNext();) {
            const auto m = it.next();
            EXPECT_EQ(m.captured(1).toInt(), next);
            EXPECT_EQ(m.captured(2), QString::number(next * 1.5, 'f', 2));
            ++next;
        }
    }
    EXPECT_EQ(next, kBills + 1);
    EXPECT_TRUE(pageText(pdf, pages).contains("12345.68"));
}

// A data file that is missing, or lacks the table or column the template names, is named with the fault.
// An unreadable data file is pinned by the register window's tests.
struct DataFault { const char* name; const char* from; const char* to; bool missingFile; int number; const char* says; };

const DataFault kDataFaults[] = {
    {"MissingFile", "", "", true, 53, "is not there"},
    {"MissingTable", "source = bills", "source = billz", false, 75, "billz"},
    {"MissingColumn", "Amount | 2", "Amt | 2", false, 75, "has no column Amt"},
};

class DataFileFaults : public Engine, public ::testing::WithParamInterface<DataFault> {};

TEST_P(DataFileFaults, NameTheFile) {
    const DataFault& c = GetParam();
    const QString file = c.missingFile ? dir.filePath("none.mdb") : data;
    const QString text = *c.from ? QString(kTemplate).replace(c.from, c.to) : kTemplate;
    const reports::ReportTemplate t = reports::parseTemplate(text, "R.rpt");
    const basic::RuntimeError e = basic::resume([&] { reports::loadData(t, file); });
    EXPECT_EQ(e.number(), c.number);
    EXPECT_TRUE(e.description().contains(file)) << e.description().toStdString();
    EXPECT_TRUE(e.description().contains(c.says)) << e.description().toStdString();
}

INSTANTIATE_TEST_SUITE_P(Faults, DataFileFaults, ::testing::ValuesIn(kDataFaults), CaseName());

}  // namespace
